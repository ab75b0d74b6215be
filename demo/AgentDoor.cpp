#include <QUrl>
#include <algorithm>

#include "demo/Inbox.h"
#include "kit/models/inbox/inboxWords.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

constexpr qsizetype longestText = 20'000, longestLesson = 300;

HTTPAnswer settings(Call& call) { return jsonAnswer(toJSON(call.workspace->inbox.settings)); }

std::optional<HTTPAnswer> refusalOf(const SetterSettingsPatch& patch) {
  if (patch.repName && patch.repName->trimmed().isEmpty()) return invalid(u"A rep needs a name."_s, u"repName"_s);
  if (patch.followupMax && (*patch.followupMax < 1 || *patch.followupMax > 4))
    return invalid(u"Follow-ups per chat are a number from 1 to 4."_s, u"followupMax"_s);
  if (patch.followupIntervalMinutes && *patch.followupIntervalMinutes < 1)
    return invalid(u"The wait is a minute at least."_s, u"followupIntervalMinutes"_s);
  if (patch.knowledgeBase && patch.knowledgeBase->size() > longestText)
    return invalid(u"The knowledge base is too long."_s, u"knowledgeBase"_s);
  const QUrl link(patch.bookingUrl.value().value_or(u"https://a.example"_s));
  if (!link.isValid() || !link.scheme().startsWith("http"_L1))
    return invalid(u"That is no web address."_s, u"bookingUrl"_s);
  if (patch.defaultMode && *patch.defaultMode != orv::words::modeDraft && *patch.defaultMode != orv::words::modeAuto)
    return invalid(u"There is no such mode."_s, u"defaultMode"_s);
  return std::nullopt;
}

void flip(Call& call, const QString& mode) {
  DemoInbox& inbox = call.workspace->inbox;
  if (inbox.settings.defaultMode == mode) return;
  inbox.settings.defaultMode = mode;
  const SetterTraining training = trainingOf(inbox);
  inbox.lastFlip = SetterTraining::Flip{mode == orv::words::modeAuto, call.state.accounts.value(call.email).user.name,
                                        call.stamp(), training.reviewed, training.matched};
}

HTTPAnswer patch(Call& call) {
  SetterSettings& settings = call.workspace->inbox.settings;
  const QByteArray match = call.request.headers.value("if-match");
  if (!match.isEmpty() && match != '"' + QByteArray::number(settings.version) + '"')
    return problemAnswer(409, u"version_conflict"_s, u"Someone changed the agent meanwhile"_s,
                         u"Reload, then make your change again."_s);
  const auto patch = call.request.bodyAs<SetterSettingsPatch>();
  if (!patch) return invalid(u"This change can’t be read."_s, {});
  if (auto refusal = refusalOf(*patch)) return *std::move(refusal);
  const auto take = [&](auto field, auto into) {
    if ((*patch).*field) settings.*into = *((*patch).*field);
  };
  take(&SetterSettingsPatch::repName, &SetterSettings::repName);
  take(&SetterSettingsPatch::signature, &SetterSettings::signature);
  take(&SetterSettingsPatch::knowledgeBase, &SetterSettings::knowledgeBase);
  take(&SetterSettingsPatch::instructions, &SetterSettings::instructions);
  take(&SetterSettingsPatch::training, &SetterSettings::training);
  take(&SetterSettingsPatch::tone, &SetterSettings::tone);
  take(&SetterSettingsPatch::autoSendEnabled, &SetterSettings::autoSendEnabled);
  take(&SetterSettingsPatch::followupIntervalMinutes, &SetterSettings::followupIntervalMinutes);
  take(&SetterSettingsPatch::followupMax, &SetterSettings::followupMax);
  if (patch->bookingUrl.isPresent()) settings.bookingUrl = patch->bookingUrl.value();
  if (patch->defaultMode) flip(call, *patch->defaultMode);
  ++settings.version;
  return jsonAnswer(toJSON(settings));
}

HTTPAnswer training(Call& call) { return jsonAnswer(toJSON(trainingOf(call.workspace->inbox))); }

HTTPAnswer lessons(Call& call) { return jsonAnswer(toJSON(SetterLessons{call.workspace->inbox.lessons})); }

std::optional<HTTPAnswer> refusalOf(const QString& text) {
  if (text.trimmed().isEmpty()) return invalid(u"A rule needs a text."_s, u"text"_s);
  if (text.size() > longestLesson) return invalid(u"A rule has 300 characters at most."_s, u"text"_s);
  return std::nullopt;
}

HTTPAnswer addLesson(Call& call) {
  const auto body = call.request.bodyAs<SetterLessonBody>();
  if (auto refusal = refusalOf(body ? body->text : QString())) return *std::move(refusal);
  DemoInbox& inbox = call.workspace->inbox;
  const SetterLesson lesson{u"le_%1_%2"_s.arg(call.workspace->slug).arg(++inbox.lastNumber),
                            body->text.trimmed(),
                            u"member"_s,
                            orv::words::lessonActive,
                            1,
                            {},
                            call.stamp()};
  inbox.lessons.prepend(lesson);
  return jsonAnswer(toJSON(lesson), 201);
}

HTTPAnswer changeLesson(Call& call) {
  auto& lessons = call.workspace->inbox.lessons;
  const auto lesson = std::ranges::find(lessons, call.ids.first(), &SetterLesson::id);
  if (lesson == lessons.end()) return notFound(u"There is no such rule"_s);
  const auto change = call.request.bodyAs<SetterLessonPatch>();
  if (!change) return invalid(u"This change can’t be read."_s, {});
  if (change->text)
    if (auto refusal = refusalOf(*change->text)) return *std::move(refusal);
  if (change->text) lesson->text = change->text->trimmed();
  if (change->status) lesson->status = *change->status;
  return jsonAnswer(toJSON(*lesson));
}

HTTPAnswer modes(Call& call) {
  SetterCampaignModes modes;
  for (const DemoCampaign& campaign : call.workspace->campaigns) {
    if (campaign.archivedAt) continue;
    const auto mode = call.workspace->inbox.modes.constFind(campaign.record.id);
    const bool own = mode != call.workspace->inbox.modes.cend();
    modes.items.append({campaign.record.id, own ? std::optional(*mode) : std::nullopt});
  }
  return jsonAnswer(toJSON(modes));
}

HTTPAnswer setMode(Call& call) {
  const QString id = call.ids.first();
  const auto body = call.request.bodyAs<SetterModeBody>();
  const QStringList known{orv::words::modeDraft, orv::words::modeAuto, orv::words::modeOff};
  if (!call.workspace->find(id)) return notFound(u"There is no such campaign"_s);
  if (!body || (body->mode && !known.contains(*body->mode))) return invalid(u"There is no such mode."_s, u"mode"_s);
  if (body->mode)
    call.workspace->inbox.modes.insert(id, *body->mode);
  else
    call.workspace->inbox.modes.remove(id);
  return emptyAnswer();
}

}  // namespace

const QList<Route>& agentRoutes() {
  static const QList<Route> routes{
      {"GET", u"/setter/settings"_s, Access::readers, settings},
      {"PATCH", u"/setter/settings"_s, Access::members, patch},
      {"GET", u"/setter/training"_s, Access::readers, training},
      {"GET", u"/setter/lessons"_s, Access::readers, lessons},
      {"POST", u"/setter/lessons"_s, Access::members, addLesson},
      {"PATCH", u"/setter/lessons/{id}"_s, Access::members, changeLesson},
      {"GET", u"/setter/campaigns"_s, Access::readers, modes},
      {"PUT", u"/setter/campaigns/{id}/mode"_s, Access::members, setMode},
  };
  return routes;
}

}  // namespace orv::demo
