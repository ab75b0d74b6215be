#include "app/campaigns/ScheduleForm.h"

#include <QJsonDocument>

#include "app/base/TimeZones.h"
#include "app/base/shownName.h"
#include "app/base/zonesLike.h"
#include "app/campaigns/SettingsDraft.h"
#include "app/campaigns/scheduleText.h"
#include "kit/api/JSONCoding.h"
#include "kit/models/campaigns/campaign.h"
#include "kit/models/campaigns/campaignRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

constexpr int lastDay = 7;
constexpr int halfHour = 30;
const auto windowsField = u"windows"_s;

QList<Choice> timeOptions(int first, int last, const QString& time) {
  QStringList texts;
  for (int minutes = first; minutes <= last; minutes += halfHour) texts.append(clockText(minutes));
  if (!texts.contains(shownTime(time))) texts.append(shownTime(time));
  texts.sort();
  QList<Choice> options;
  for (const QString& text : texts) options.append({.key = text, .label = text});
  return options;
}

QVariantMap problemsIn(const ScheduleWindow& window) {
  QVariantMap problems;
  if (window.days.isEmpty()) problems.insert(u"daysError"_s, u"Pick at least one day."_s);
  const auto start = secondsOfDay(window.start), end = secondsOfDay(window.end);
  if (!start || !end || *end <= *start) problems.insert(u"timesError"_s, u"The end must come after the start."_s);
  if (!isTimeZone(window.timeZone.trimmed())) problems.insert(u"zoneError"_s, u"Not a known time zone"_s);
  return problems;
}

QString inWords(const ScheduleWindow& window) {
  return u"%1 (%2, %3 to %4, %5)"_s.arg(shownName(window.name), shownDays(window.days), shownTime(window.start),
                                        shownTime(window.end), shownName(window.timeZone));
}

}  // namespace

QJsonValue ScheduleDraft::written(const QVariant& value) const {
  // No record of the kit is a list of windows alone.
  CampaignPatch patch;
  patch.schedule = CampaignSchedule{{}, {}, value.value<QList<ScheduleWindow>>()};
  return toJSON(patch);
}

QVariant ScheduleDraft::read(const QJsonValue& value) const {
  try {
    const auto patch = decodeJSON<CampaignPatch>(QJsonDocument(value.toObject()).toJson());
    return QVariant::fromValue(patch.schedule.value_or(CampaignSchedule()).schedules);
  } catch (const DecodeError&) {
    return {};
  }
}

ScheduleForm::ScheduleForm(CampaignContext& context, Actions& actions, BusySet& busy)
    : Store(context.workspace, &context.whole),
      m_context(context),
      m_actions(actions),
      m_busy(busy),
      m_recovery(context.workspace, Recovery::of(m_draft)) {
  connect(&context.campaign, &ResourceBase::valueChanged, this, &ScheduleForm::follow);
  connect(&busy, &BusySet::changed, this, &ScheduleForm::changed);
  connect(&m_draft, &FieldDraft::changed, this, &ScheduleForm::changed);
  connect(&m_draft, &FieldDraft::changed, &m_recovery, &Recovery::follow);
  context.failedSaves.follow(m_draft);
  m_draft.setKey(u"campaigns/"_s + context.id + u"/schedule"_s);
  follow();
}

bool ScheduleForm::saving() const { return m_busy.contains(QLatin1String(busyKey)); }

QVariantList ScheduleForm::windows() const {
  QVariantList list;
  const auto windows = typed();
  for (qsizetype i = 0; i < windows.size(); ++i) {
    const ScheduleWindow& window = windows[i];
    QVariantMap map = m_errors.value(i);
    map.insert(u"name"_s, window.name);
    map.insert(u"days"_s, QVariant::fromValue(window.days));
    map.insert(u"start"_s, shownTime(window.start));
    map.insert(u"end"_s, shownTime(window.end));
    map.insert(u"timeZone"_s, window.timeZone);
    list.append(map);
  }
  return list;
}

QString ScheduleForm::note() const {
  QStringList theirs;
  for (const ScheduleWindow& window : m_draft.rivals().value(windowsField).value<QList<ScheduleWindow>>())
    theirs.append(inWords(window));
  return rivalsTold(theirs);
}

/// Unsaved hours stay as they are when the campaign comes again.
void ScheduleForm::follow() {
  const Campaign* campaign = m_context.campaign.value();
  if (!campaign) return;
  QList<ScheduleWindow> fresh = campaign->schedule.value_or(CampaignSchedule()).schedules;
  m_isNew = fresh.isEmpty();
  if (m_isNew) fresh = offeredHours();
  if (!dirty()) m_errors.clear();
  m_draft.rebase({fresh}, campaign->version);
  m_recovery.begin(m_draft.key(), campaign->version);
}

void ScheduleForm::edit(const QList<ScheduleWindow>& windows) {
  m_draft.set(windowsField, QVariant::fromValue(windows));
}

void ScheduleForm::drop(int window, const QString& error) {
  if (window < m_errors.size()) m_errors[window].remove(error);
}

void ScheduleForm::setText(int window, const QString& field, const QString& text) {
  auto windows = typed();
  if (window < 0 || window >= windows.size()) return;
  ScheduleWindow& edited = windows[window];
  const bool isTime = field == "start"_L1 || field == "end"_L1;
  QString& target = field == "name"_L1    ? edited.name
                    : field == "start"_L1 ? edited.start
                    : field == "end"_L1   ? edited.end
                                          : edited.timeZone;
  // What the service writes otherwise ("09:00:00") stays so until another time is chosen.
  if ((isTime ? shownTime(target) : target) == text) return;
  target = text;
  if (field != "name"_L1) drop(window, isTime ? u"timesError"_s : u"zoneError"_s);
  edit(windows);
}

void ScheduleForm::toggleDay(int window, int day) {
  auto windows = typed();
  if (window < 0 || window >= windows.size() || day < 1 || day > lastDay) return;
  QList<qint64>& days = windows[window].days;
  if (!days.removeOne(day)) days.append(day);
  std::ranges::sort(days);
  drop(window, u"daysError"_s);
  edit(windows);
}

void ScheduleForm::add() {
  auto windows = typed();
  ScheduleWindow added = offeredHours().first();
  added.name = u"Schedule "_s + QString::number(windows.size() + 1);
  if (!windows.isEmpty()) added.timeZone = windows.last().timeZone;
  windows.append(added);
  edit(windows);
}

void ScheduleForm::remove(int window) {
  auto windows = typed();
  if (window < 0 || window >= windows.size() || windows.size() == 1) return;
  windows.removeAt(window);
  if (window < m_errors.size()) m_errors.removeAt(window);
  edit(windows);
}

void ScheduleForm::discard() {
  m_errors.clear();
  m_draft.discard();
}

/// Hours that the service has already are not the person's to mend.
bool ScheduleForm::isValid() {
  const auto saved = m_isNew ? QList<ScheduleWindow>() : m_draft.base().windows;
  m_errors.clear();
  for (const ScheduleWindow& window : typed())
    m_errors.append(saved.contains(window) ? QVariantMap() : problemsIn(window));
  Q_EMIT changed();
  return std::ranges::all_of(m_errors, [](const QVariantMap& problems) { return problems.isEmpty(); });
}

Task<void> ScheduleForm::saveTask() {
  if (!m_context.campaign.value() || !canSave() || !isValid()) co_return;
  QList<ScheduleWindow> windows = m_draft.sending().windows;
  for (ScheduleWindow& window : windows) window.timeZone = window.timeZone.trimmed();
  const auto build = [this, windows] {
    CampaignPatch patch;
    patch.schedule = m_context.campaign.value()->schedule.value_or(CampaignSchedule());
    patch.schedule->schedules = windows;
    return Requests::updateCampaign(m_context.id, patch, m_draft.version());
  };
  const auto saved = co_await m_actions.perform<Campaign>(
      {QString::fromLatin1(busyKey), m_context.id}, build, u"Couldn’t save."_s,
      [this](const Campaign& answer) {
        const auto hours = answer.schedule.value_or(CampaignSchedule()).schedules;
        m_draft.taken({hours.isEmpty() ? offeredHours() : hours}, answer.version);
      },
      [this](const APIError& error) {
        return m_context.failedSaves.failed(m_draft, u"Couldn’t save the schedule."_s, error);
      });
  if (!saved) co_return;
  m_context.services.toasts.success(u"Schedule saved"_s);
}

QList<Choice> ScheduleForm::startTimes(const QString& time) const {
  return timeOptions(0, minutesOfDay - halfHour, time);
}

QList<Choice> ScheduleForm::endTimes(const QString& time) const { return timeOptions(halfHour, minutesOfDay, time); }

QList<Choice> ScheduleForm::zones(const QString& text) const { return zonesLike(text, m_context.services.clock.now()); }

}  // namespace orv
