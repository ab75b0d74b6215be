#include "app/base/recordActions.h"

#include "app/base/shownName.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

PageAction newAction(const QString& title, const QString& whyNot, std::function<void()> run) {
  return {.key = u"new"_s,
          .title = title,
          .icon = u"list-add"_s,
          .keys = u"N"_s,
          .writes = true,
          .whyNot = whyNot,
          .inMenu = false,
          .anywhere = true,
          .run = std::move(run)};
}

PageAction archiveAction(const QString& title, bool isShown, std::function<void()> run) {
  return {.key = u"archived"_s,
          .title = title,
          .icon = u"archive-insert"_s,
          .possible = !isShown,
          .inMenu = false,
          .anywhere = true,
          .run = std::move(run)};
}

QList<PageAction> archivedActions(bool isFree, std::function<void()> restore, std::function<void()> removeForGood,
                                  const QString& name) {
  const QString shown = name.isEmpty() ? QString() : u' ' + shownName(name);
  return {{.key = u"restore"_s,
           .title = u"Restore"_s + shown,
           .icon = u"edit-undo"_s,
           .writes = true,
           .possible = isFree,
           .run = std::move(restore)},
          {.key = u"delete"_s,
           .title = u"Delete"_s + shown + u" for good"_s,
           .icon = u"edit-delete"_s,
           .keys = u"Del"_s,
           .writes = true,
           .danger = true,
           .possible = isFree,
           .run = std::move(removeForGood)}};
}

}  // namespace orv
