#include <algorithm>

#include "demo/SetupRuns.h"
#include "kit/models/setup/setupChanges.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

template <HTTPAnswer (*answer)(Call&, DemoSetupRun&)>
HTTPAnswer onRun(Call& call) {
  advanceSetup(call);
  auto& runs = call.workspace->setupRuns;
  const auto found =
      std::ranges::find_if(runs, [&](const DemoSetupRun& each) { return each.record.id == call.ids.first(); });
  return found == runs.end() ? notFound(u"This run is no longer here"_s) : answer(call, *found);
}

HTTPAnswer shown(Call&, DemoSetupRun& run) { return jsonAnswer(toJSON(run.record)); }

HTTPAnswer latest(Call& call) {
  advanceSetup(call);
  const DemoSetupRun* run = latestRun(*call.workspace, call.request.value(u"templateId"_s));
  return run ? jsonAnswer(toJSON(run->record)) : notFound(u"Nothing has run yet"_s);
}

HTTPAnswer start(Call& call) {
  advanceSetup(call);
  const auto body = call.request.bodyAs<NewSetupRunBody>();
  if (!body || body->domains.isEmpty()) return invalid(u"Add at least one domain."_s, u"domains"_s);
  if (body->admin.isEmpty()) return invalid(u"Type the admin username."_s, u"admin"_s);
  const DemoSetupRun* before = body->templateId ? latestRun(*call.workspace, *body->templateId) : nullptr;
  if (before && !before->record.isOver()) return problemAnswer(409, u"running"_s, u"A run is under way already"_s);
  call.workspace->setupRuns.append(newRun(call, *body));
  return jsonAnswer(toJSON(call.workspace->setupRuns.last().record), 201);
}

HTTPAnswer pause(Call& call, DemoSetupRun& run) {
  if (run.record.isOver()) return problemAnswer(409, u"ended"_s, u"This run has ended"_s);
  if (!run.record.control.isPaused()) pauseRun(run, call.now);
  return shown(call, run);
}

HTTPAnswer resume(Call& call, DemoSetupRun& run) {
  if (!run.record.control.isPaused()) return problemAnswer(409, u"not_paused"_s, u"This run is not paused"_s);
  resumeRun(run, call.now);
  return shown(call, run);
}

HTTPAnswer terminate(Call& call, DemoSetupRun& run) {
  terminateRun(run, call.now);
  return shown(call, run);
}

HTTPAnswer retry(Call& call, DemoSetupRun& run) {
  const auto body = call.request.bodyAs<SetupDomainBody>();
  retryRun(run, body ? body->domain : QString(), call.now);
  return shown(call, run);
}

HTTPAnswer checks(Call& call, DemoSetupRun& run) {
  const QString domain = call.ids.last();
  if (std::ranges::none_of(run.record.domains, [&](const SetupRunDomain& each) { return each.domain == domain; }))
    return notFound(u"This domain is not in the run"_s);
  const auto& projects = call.workspace->setupProjects;
  const bool hasPhoto = std::ranges::any_of(projects, [&run](const DemoSetupProject& each) {
    return each.record.id == run.record.templateId && each.record.hasPhoto;
  });
  return jsonAnswer(toJSON(checksOf(run, domain, hasPhoto)));
}

HTTPAnswer registrars(Call& call) {
  const auto body = call.request.bodyAs<SetupDomainsBody>();
  if (!body) return invalid(u"These domains can’t be read."_s, u"domains"_s);
  const QStringList names{u"Harbor Names"_s, u"Northern Registry"_s, {}};
  QMap<QString, JSONValue::Array> held;
  for (const QString& domain : body->domains) {
    const QString name = names[DemoRandom::of(domain, 7).below(names.size())];
    if (!name.isEmpty()) held[name].append(JSONValue::string(domain));
  }
  RegistrarLookup lookup;
  for (const auto& [name, domains] : held.asKeyValueRange()) lookup.holders.insert(name, JSONValue::array(domains));
  return jsonAnswer(toJSON(lookup));
}

}  // namespace

const QList<Route>& setupRunRoutes() {
  static const QList<Route> routes{
      {"GET", u"/inbox-setup/runs/latest"_s, Access::readers, latest},
      {"GET", u"/inbox-setup/runs/{id}"_s, Access::readers, onRun<shown>},
      {"POST", u"/inbox-setup/runs"_s, Access::members, start},
      {"POST", u"/inbox-setup/runs/{id}/retry"_s, Access::members, onRun<retry>},
      {"POST", u"/inbox-setup/runs/{id}/pause"_s, Access::members, onRun<pause>},
      {"POST", u"/inbox-setup/runs/{id}/resume"_s, Access::members, onRun<resume>},
      {"POST", u"/inbox-setup/runs/{id}/terminate"_s, Access::members, onRun<terminate>},
      {"GET", u"/inbox-setup/runs/{id}/checks/{domain}"_s, Access::readers, onRun<checks>},
      {"POST", u"/inbox-setup/registrar-lookup"_s, Access::members, registrars},
  };
  return routes;
}

}  // namespace orv::demo
