#include "app/campaigns/ScheduleForm.h"

#include "kit/models/campaigns/campaign.h"
#include "kit/models/campaigns/campaignRequests.h"

#include <QTime>
#include <QTimeZone>

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

constexpr qsizetype suggestedZones = 8;
constexpr int lastDay = 7;

const QStringList& allZones() {
  static const QStringList zones = [] {
    QStringList list;
    for (const QByteArray& id : QTimeZone::availableTimeZoneIds()) list.append(QString::fromLatin1(id));
    return list;
  }();
  return zones;
}

QTime timeOf(const QString& text) { return QTime::fromString(text, u"H:mm"_s); }

QString shown(const QString& time) {
  const QTime parsed = timeOf(time);
  return parsed.isValid() ? parsed.toString(u"HH:mm"_s) : time;
}

ScheduleWindow workingWeek(const QString& name, const QString& zone) {
  return {name, {1, 2, 3, 4, 5}, u"09:00"_s, u"17:00"_s, zone};
}

QList<ScheduleWindow> windowsOf(const Campaign& campaign) {
  QList<ScheduleWindow> windows = campaign.schedule.value_or(CampaignSchedule()).schedules;
  for (ScheduleWindow& window : windows) {
    window.start = shown(window.start);
    window.end = shown(window.end);
  }
  return windows;
}

QVariantMap problemsIn(const ScheduleWindow& window) {
  QVariantMap problems;
  if (window.days.isEmpty()) problems.insert(u"daysError"_s, u"Pick at least one day."_s);
  const QTime start = timeOf(window.start), end = timeOf(window.end);
  if (!start.isValid() || !end.isValid() || end <= start)
    problems.insert(u"timesError"_s, u"The end must come after the start."_s);
  if (!allZones().contains(window.timeZone.trimmed())) problems.insert(u"zoneError"_s, u"Not a known time zone"_s);
  return problems;
}

}  // namespace

ScheduleForm::ScheduleForm(CampaignContext& context, Actions& actions, BusySet& busy)
    : Store(context.workspace, &context.whole), m_context(context), m_actions(actions), m_busy(busy) {
  connect(&context.campaign, &ResourceBase::valueChanged, this, &ScheduleForm::follow);
  connect(&busy, &BusySet::changed, this, &ScheduleForm::changed);
  follow();
}

bool ScheduleForm::saving() const { return m_busy.contains(QLatin1String(busyKey)); }

QVariantList ScheduleForm::windows() const {
  QVariantList list;
  for (qsizetype i = 0; i < m_draft.size(); ++i) {
    const ScheduleWindow& window = m_draft[i];
    QVariantMap map = m_errors.value(i);
    map.insert(u"name"_s, window.name);
    map.insert(u"days"_s, QVariant::fromValue(window.days));
    map.insert(u"start"_s, window.start);
    map.insert(u"end"_s, window.end);
    map.insert(u"timeZone"_s, window.timeZone);
    list.append(map);
  }
  return list;
}

/// Unsaved hours stay as they are when the campaign comes again.
void ScheduleForm::follow() {
  const Campaign* campaign = m_context.campaign.value();
  if (!campaign) return;
  QList<ScheduleWindow> fresh = windowsOf(*campaign);
  m_isNew = fresh.isEmpty();
  if (m_isNew) fresh.append(workingWeek(u"Main schedule"_s, QString::fromLatin1(QTimeZone::systemTimeZoneId())));
  if (!dirty()) {
    m_draft = fresh;
    m_errors.clear();
  }
  m_base = fresh;
  Q_EMIT changed();
}

void ScheduleForm::drop(int window, const QString& error) {
  if (window < m_errors.size()) m_errors[window].remove(error);
}

void ScheduleForm::setText(int window, const QString& field, const QString& text) {
  if (window < 0 || window >= m_draft.size()) return;
  ScheduleWindow& edited = m_draft[window];
  QString* target = field == "name"_L1    ? &edited.name
                    : field == "start"_L1 ? &edited.start
                    : field == "end"_L1   ? &edited.end
                                          : &edited.timeZone;
  if (std::exchange(*target, text) == text) return;
  drop(window, target == &edited.timeZone ? u"zoneError"_s : u"timesError"_s);
  Q_EMIT changed();
}

void ScheduleForm::toggleDay(int window, int day) {
  if (window < 0 || window >= m_draft.size() || day < 1 || day > lastDay) return;
  QList<qint64>& days = m_draft[window].days;
  if (!days.removeOne(day)) days.append(day);
  std::ranges::sort(days);
  drop(window, u"daysError"_s);
  Q_EMIT changed();
}

void ScheduleForm::add() {
  const QString zone = m_draft.isEmpty() ? QString() : m_draft.last().timeZone;
  m_draft.append(workingWeek(u"Schedule "_s + QString::number(m_draft.size() + 1), zone));
  Q_EMIT changed();
}

void ScheduleForm::remove(int window) {
  if (window < 0 || window >= m_draft.size() || m_draft.size() == 1) return;
  m_draft.removeAt(window);
  if (window < m_errors.size()) m_errors.removeAt(window);
  Q_EMIT changed();
}

void ScheduleForm::discard() {
  m_draft = m_base;
  m_errors.clear();
  Q_EMIT changed();
}

bool ScheduleForm::isValid() {
  m_errors.clear();
  for (const ScheduleWindow& window : m_draft) m_errors.append(problemsIn(window));
  Q_EMIT changed();
  return std::ranges::all_of(m_errors, [](const QVariantMap& problems) { return problems.isEmpty(); });
}

Task<void> ScheduleForm::saveTask() {
  const Campaign* campaign = m_context.campaign.value();
  if (!campaign || !canSave() || !isValid()) co_return;
  const QList<ScheduleWindow> sent = m_draft;
  CampaignPatch patch;
  patch.schedule = campaign->schedule.value_or(CampaignSchedule());
  patch.schedule->schedules = sent;
  for (ScheduleWindow& window : patch.schedule->schedules) window.timeZone = window.timeZone.trimmed();
  const auto saved = co_await m_actions.perform<Campaign>(
      {QString::fromLatin1(busyKey), m_context.id},
      [id = m_context.id, patch, version = campaign->version] { return Requests::updateCampaign(id, patch, version); },
      u"Couldn’t save."_s, [this, sent](const Campaign&) { m_base = sent; });
  if (!saved) co_return;
  m_context.services.toasts.success(u"Schedule saved"_s);
}

QVariantList ScheduleForm::times(const QString& time) const {
  QStringList texts;
  constexpr int halfHours = 48, minutes = 30;
  for (int i = 0; i < halfHours; ++i) texts.append(QTime(0, 0).addSecs(i * minutes * 60).toString(u"HH:mm"_s));
  if (!texts.contains(time)) texts.append(time);
  texts.sort();
  QVariantList options;
  for (const QString& text : texts) options.append(QVariantMap{{u"key"_s, text}, {u"label"_s, text}});
  return options;
}

QStringList ScheduleForm::zones(const QString& text) const {
  const QString wanted = text.trimmed().replace(u' ', u'_');
  QStringList found;
  if (wanted.isEmpty() || allZones().contains(wanted)) return found;
  for (const QString& zone : allZones()) {
    if (zone.contains(wanted, Qt::CaseInsensitive)) found.append(zone);
    if (found.size() == suggestedZones) break;
  }
  return found;
}

}  // namespace orv
