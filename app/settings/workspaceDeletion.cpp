#include "app/settings/workspaceDeletion.h"

#include "app/base/Program.h"
#include "app/base/shownName.h"
#include "kit/models/workspace/workspaceRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

Task<bool> askToDelete(Overlays& overlays, QString name) {
  co_return co_await overlays.confirm(
      {.title = u"Delete “"_s + shownName(name) + u"”?"_s,
       .text = u"Every campaign, lead, mailbox and message in it goes with it. Type DELETE to confirm.\n\n"
               "Connected inboxes stop sending at once. Members lose access as soon as you confirm."_s,
       .confirm = u"Delete workspace"_s,
       .destructive = true,
       .typedWord = u"DELETE"_s});
}

Task<void> deleteForGood(std::shared_ptr<WorkspaceContext> context, QString name, OneShot<bool> done) {
  Services& services = context->services();
  const QString slug = context->workspace().slug;
  using Deletion = Program::Deletion;
  std::optional<APIError> failure;
  WorkspaceContext::Sending sending(*context);
  services.program.deletesWorkspace(slug, Deletion::underWay);
  try {
    co_await context->api().send(Requests::deleteWorkspace());
  } catch (const APIError& error) {
    failure = error;
  }
  done.give(!failure);
  if (!failure) {
    // The context ends with this: what follows is the program's.
    services.program.deletesWorkspace(slug, Deletion::done);
    services.toasts.success(u"Deleted "_s + shownName(name));
    co_return;
  }
  services.toasts.failure(u"Couldn’t delete the workspace."_s, *failure);
  sending.failed();
  services.program.deletesWorkspace(slug, mayHaveActed(*failure) ? Deletion::unknown : Deletion::refused);
}

}  // namespace orv
