#include <algorithm>

#include "demo/DailyFigures.h"
#include "demo/Mailboxes.h"
#include "demo/Roadmaps.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

constexpr qsizetype longestName = 80;

std::optional<HTTPAnswer> refusalOfName(const QString& name) {
  if (!name.trimmed().isEmpty() && name.trimmed().size() <= longestName) return std::nullopt;
  return invalid(u"A template needs a name of up to 80 characters."_s, u"name"_s);
}

RoadmapTemplate* findTemplate(Call& call) {
  auto& templates = call.workspace->templates;
  templates.removeIf([&call](const RoadmapTemplate& each) { return isOverdue(each.archivedAt, call.now); });
  const auto found = std::ranges::find(templates, call.ids.first(), &RoadmapTemplate::id);
  return found == templates.end() ? nullptr : &*found;
}

template <HTTPAnswer (*answer)(Call&, RoadmapTemplate&)>
HTTPAnswer onTemplate(Call& call) {
  RoadmapTemplate* found = findTemplate(call);
  return found ? answer(call, *found) : notFound(u"This template is no longer here"_s);
}

HTTPAnswer changedAnswer(const Call& call, RoadmapTemplate& changed) {
  ++changed.version;
  changed.updatedAt = call.stamp();
  return jsonAnswer(toJSON(changed));
}

HTTPAnswer list(Call& call) {
  const bool archived = call.request.isSet(u"archived"_s);
  TemplatePage page;
  page.archivedCount = 0;
  for (const RoadmapTemplate& each : std::as_const(call.workspace->templates)) {
    if (isOverdue(each.archivedAt, call.now)) continue;
    if (each.archivedAt) ++*page.archivedCount;
    if (each.archivedAt.has_value() == archived) page.items.append(each);
  }
  return jsonAnswer(toJSON(page));
}

HTTPAnswer create(Call& call) {
  const auto body = call.request.bodyAs<NewTemplateBody>();
  if (!body) return invalid(u"This template can’t be read."_s, {});
  if (auto refusal = refusalOfName(body->name)) return *std::move(refusal);
  if (const auto refusal = refusalOf(body->stages)) return invalid(*refusal, u"stages"_s);
  RoadmapTemplate made;
  made.id = call.random.id(u"rt"_s);
  made.number = 1;
  for (const RoadmapTemplate& each : std::as_const(call.workspace->templates))
    made.number = std::max(*made.number, each.number.value_or(0) + 1);
  made.name = body->name.trimmed();
  made.provider = body->provider;
  made.stages = body->stages;
  made.length = lengthOf(made.stages);
  made.version = 1;
  made.updatedAt = call.stamp();
  call.workspace->templates.append(made);
  return jsonAnswer(toJSON(made), 201);
}

/// Accounts that follow the template go on with what it says now.
void retellFollowers(Call& call, const RoadmapTemplate& changed) {
  const QDate today = dayIn(*call.workspace, call.now);
  for (DemoMailbox& mailbox : call.workspace->mailboxes) {
    if (!mailbox.roadmap || mailbox.roadmap->templateId != changed.id) continue;
    mailbox.roadmap->templateName = changed.name;
    if (mailbox.roadmap->legs.last().stages != changed.stages)
      changedLeg(*mailbox.roadmap, today).stages = changed.stages;
  }
  retellSenders(*call.workspace, call.now);
}

HTTPAnswer update(Call& call, RoadmapTemplate& changed) {
  const auto patch = call.request.bodyAs<TemplatePatch>();
  if (!patch) return invalid(u"This change can’t be read."_s, {});
  if (patch->name)
    if (auto refusal = refusalOfName(*patch->name)) return *std::move(refusal);
  if (patch->stages)
    if (const auto refusal = refusalOf(*patch->stages)) return invalid(*refusal, u"stages"_s);
  const QByteArray match = call.request.headers.value("if-match");
  if (!match.isEmpty() && match != '"' + QByteArray::number(changed.version) + '"')
    return problemAnswer(409, u"version_conflict"_s, u"This template changed meanwhile"_s);
  if (patch->name) changed.name = patch->name->trimmed();
  if (patch->stages) {
    changed.stages = *patch->stages;
    changed.length = lengthOf(changed.stages);
  }
  retellFollowers(call, changed);
  return changedAnswer(call, changed);
}

HTTPAnswer remove(Call& call, RoadmapTemplate& removed) {
  if (removed.isDefault) return problemAnswer(409, u"default_template"_s, u"New accounts start on this template"_s);
  const QString id = removed.id;
  if (call.request.isSet(u"permanent"_s))
    call.workspace->templates.removeIf([&id](const RoadmapTemplate& each) { return each.id == id; });
  else if (!removed.archivedAt)
    removed.archivedAt = call.stamp();
  return emptyAnswer();
}

HTTPAnswer restore(Call& call, RoadmapTemplate& restored) {
  if (!restored.archivedAt) return problemAnswer(409, u"not_archived"_s, u"This template isn’t archived"_s);
  restored.archivedAt.reset();
  return changedAnswer(call, restored);
}

}  // namespace

const QList<Route>& roadmapTemplateRoutes() {
  static const QList<Route> routes{
      {"GET", u"/rampup/templates"_s, Access::readers, list},
      {"POST", u"/rampup/templates"_s, Access::members, create},
      {"PUT", u"/rampup/templates/{id}"_s, Access::members, onTemplate<update>},
      {"DELETE", u"/rampup/templates/{id}"_s, Access::members, onTemplate<remove>},
      {"POST", u"/rampup/templates/{id}/restore"_s, Access::members, onTemplate<restore>},
  };
  return routes;
}

}  // namespace orv::demo
