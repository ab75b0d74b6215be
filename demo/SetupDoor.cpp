#include <algorithm>

#include "demo/SetupRuns.h"
#include "kit/models/setup/setupChanges.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

constexpr qsizetype shortestName = 2, longestName = 80, shortestPassword = 8, mostPhotoBytes = 1024 * 1024;

std::optional<HTTPAnswer> refusalOfName(const QString& name) {
  const qsizetype length = name.trimmed().size();
  if (length >= shortestName && length <= longestName) return std::nullopt;
  return invalid(u"A project needs a name of 2 to 80 characters."_s, u"name"_s);
}

template <HTTPAnswer (*answer)(Call&, DemoSetupProject&)>
HTTPAnswer onProject(Call& call) {
  advanceSetup(call);
  auto& projects = call.workspace->setupProjects;
  const auto found =
      std::ranges::find_if(projects, [&](const DemoSetupProject& each) { return each.record.id == call.ids.first(); });
  return found == projects.end() ? notFound(u"This project is no longer here"_s) : answer(call, *found);
}

template <HTTPAnswer (*answer)(Call&, DemoSetupProject&)>
HTTPAnswer onLive(Call& call, DemoSetupProject& project) {
  if (!project.record.archivedAt) return answer(call, project);
  return problemAnswer(409, u"archived"_s, u"This project is archived"_s);
}

HTTPAnswer shown(Call& call, DemoSetupProject& project) {
  return jsonAnswer(toJSON(shownProject(*call.workspace, project)));
}

HTTPAnswer changed(Call& call, DemoSetupProject& project) {
  ++project.record.version;
  project.record.updatedAt = call.stamp();
  return shown(call, project);
}

HTTPAnswer list(Call& call) {
  advanceSetup(call);
  const bool archived = call.request.isSet(u"archived"_s);
  SetupProjectPage page;
  page.archivedCount = 0;
  for (const DemoSetupProject& each : std::as_const(call.workspace->setupProjects)) {
    if (each.record.archivedAt) ++*page.archivedCount;
    if (each.record.archivedAt.has_value() == archived) page.items.append(shownProject(*call.workspace, each));
  }
  return jsonAnswer(toJSON(page));
}

HTTPAnswer create(Call& call) {
  const auto body = call.request.bodyAs<NewSetupProjectBody>();
  if (!body || body->mode.label() == body->mode.rawValue) return invalid(u"This project can’t be read."_s, u"mode"_s);
  if (auto refusal = refusalOfName(body->name)) return *std::move(refusal);
  DemoSetupProject made;
  made.record.id = call.random.id(u"sp"_s);
  made.record.number = 1;
  for (const DemoSetupProject& each : std::as_const(call.workspace->setupProjects))
    made.record.number = std::max(made.record.number, each.record.number + 1);
  made.record.name = body->name.trimmed();
  made.record.mode = body->mode;
  made.record.version = 1;
  made.record.updatedAt = call.stamp();
  call.workspace->setupProjects.prepend(made);
  return jsonAnswer(toJSON(made.record), 201);
}

void takeOff(SetupProject& project, const QList<QString>& kept, const QString& at) {
  for (const QString& domain : std::as_const(project.domains))
    if (!kept.contains(domain)) project.archivedDomains.prepend({domain, u"Taken off by a member"_s, at});
  project.archivedDomains.removeIf([&kept](const auto& archived) { return kept.contains(archived.domain); });
  project.domains = kept;
}

/// The service keeps no secret here, only that it has one.
void keepSecrets(SetupProject& project, const SetupProjectPatch& patch) {
  const auto has = [](bool& kept, const Clearable<QString>& secret) {
    if (secret.isPresent()) kept = secret.value() && !secret.value()->isEmpty();
  };
  has(project.hasPassword, patch.password);
  has(project.hasNewPassword, patch.newPassword);
  has(project.hasRecovery, patch.recoveryEmail);
  if (patch.recoveryEmail.isPresent()) project.savedRecovery = patch.recoveryEmail.value();
}

HTTPAnswer update(Call& call, DemoSetupProject& project) {
  const auto patch = call.request.bodyAs<SetupProjectPatch>();
  if (!patch) return invalid(u"This change can’t be read."_s, {});
  SetupProject& record = project.record;
  const QByteArray match = call.request.headers.value("if-match");
  if (!match.isEmpty() && match != '"' + QByteArray::number(record.version) + '"')
    return problemAnswer(409, u"version_conflict"_s, u"This project changed meanwhile"_s);
  if (patch->name)
    if (auto refusal = refusalOfName(*patch->name)) return *std::move(refusal);
  if (patch->newPassword.value() && patch->newPassword.value()->size() < shortestPassword)
    return invalid(u"Google needs 8 characters or more."_s, u"newPassword"_s);
  const auto take = [](auto& field, const auto& given) {
    if (given) field = *given;
  };
  const auto clearOrTake = [](auto& field, const auto& given) {
    if (given.isPresent()) field = given.value();
  };
  take(record.name, patch->name);
  take(record.admin, patch->admin);
  take(record.firstName, patch->firstName);
  take(record.lastName, patch->lastName);
  clearOrTake(record.user2, patch->user2);
  clearOrTake(record.user3, patch->user3);
  take(record.senderName, patch->senderName);
  take(record.signature, patch->signature);
  clearOrTake(record.dailyLimit, patch->dailyLimit);
  take(record.tags, patch->tags);
  clearOrTake(record.minWaitMinutes, patch->minWaitMinutes);
  if (patch->domains) takeOff(record, *patch->domains, call.stamp());
  keepSecrets(record, *patch);
  return changed(call, project);
}

HTTPAnswer remove(Call& call, DemoSetupProject& project) {
  if (!project.record.archivedAt) project.record.archivedAt = call.stamp();
  if (DemoSetupRun* run = latestRun(*call.workspace, project.record.id)) terminateRun(*run, call.now);
  return emptyAnswer();
}

HTTPAnswer restore(Call& call, DemoSetupProject& project) {
  if (!project.record.archivedAt) return problemAnswer(409, u"not_archived"_s, u"This project isn’t archived"_s);
  project.record.archivedAt.reset();
  return changed(call, project);
}

HTTPAnswer restoreDomain(Call& call, DemoSetupProject& project) {
  const auto body = call.request.bodyAs<SetupDomainBody>();
  SetupProject& record = project.record;
  const bool isThere =
      body && record.archivedDomains.removeIf([&](const auto& each) { return each.domain == body->domain; }) > 0;
  if (!isThere) return notFound(u"This domain is no longer archived"_s);
  if (!record.domains.contains(body->domain)) record.domains.append(body->domain);
  return changed(call, project);
}

HTTPAnswer uploadPhoto(Call& call, DemoSetupProject& project) {
  const auto body = call.request.bodyAs<SetupPhotoBody>();
  if (!body || (body->type != "image/jpeg"_L1 && body->type != "image/png"_L1))
    return invalid(u"Use a JPEG or PNG photo"_s, u"type"_s);
  const QByteArray photo = QByteArray::fromBase64(body->data.toLatin1());
  if (photo.isEmpty() || photo.size() > mostPhotoBytes) return invalid(u"Use a photo of 1 MB or less"_s, u"data"_s);
  project.photo = photo;
  project.photoType = body->type;
  project.record.hasPhoto = true;
  return changed(call, project);
}

HTTPAnswer removePhoto(Call& call, DemoSetupProject& project) {
  project.photo.clear();
  project.record.hasPhoto = false;
  changed(call, project);
  return emptyAnswer();
}

HTTPAnswer photo(Call&, DemoSetupProject& project) {
  if (!project.record.hasPhoto) return notFound(u"This project has no photo"_s);
  return {200, {{"Content-Type", project.photoType.toLatin1()}}, project.photo};
}

HTTPAnswer credentials(Call& call, DemoSetupProject& project) {
  QByteArray csv = "email,password\n";
  for (const DemoSetupRun& run : std::as_const(call.workspace->setupRuns)) {
    if (run.record.templateId != project.record.id) continue;
    for (const SetupRow& row : run.record.rows)
      if (row.state.isDone())
        csv += row.address.toUtf8() + ',' + DemoRandom::of(row.address).id(u"pw"_s).toUtf8() + '\n';
  }
  return {200, {{"Content-Type", "text/csv; charset=utf-8"}}, csv};
}

}  // namespace

const QList<Route>& setupRoutes() {
  static const QList<Route> routes{
      {"GET", u"/inbox-setup/templates"_s, Access::readers, list},
      {"POST", u"/inbox-setup/templates"_s, Access::members, create},
      {"GET", u"/inbox-setup/templates/{id}"_s, Access::readers, onProject<shown>},
      {"PATCH", u"/inbox-setup/templates/{id}"_s, Access::members, onProject<onLive<update>>},
      {"DELETE", u"/inbox-setup/templates/{id}"_s, Access::members, onProject<remove>},
      {"POST", u"/inbox-setup/templates/{id}/restore"_s, Access::members, onProject<restore>},
      {"POST", u"/inbox-setup/templates/{id}/archived-domains/restore"_s, Access::members,
       onProject<onLive<restoreDomain>>},
      {"GET", u"/inbox-setup/templates/{id}/photo"_s, Access::readers, onProject<photo>},
      {"PUT", u"/inbox-setup/templates/{id}/photo"_s, Access::members, onProject<onLive<uploadPhoto>>},
      {"DELETE", u"/inbox-setup/templates/{id}/photo"_s, Access::members, onProject<onLive<removePhoto>>},
      {"GET", u"/inbox-setup/templates/{id}/credentials.csv"_s, Access::readers, onProject<credentials>},
  };
  return routes;
}

}  // namespace orv::demo
