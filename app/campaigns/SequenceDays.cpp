#include "app/campaigns/SequenceDays.h"

#include <QLocale>
#include <QPointer>

#include "app/base/shownName.h"
#include "app/campaigns/LeadRows.h"
#include "kit/api/PlatformDate.h"
#include "kit/models/campaigns/campaign.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

ORV_DEFINE_ROW(StripDay)
ORV_DEFINE_ROW(StripEmail)

namespace {

/// With the month where it is another one than that of the day before.
QString dayText(QDate day, QDate today) {
  if (day == today) return u"Today"_s;
  return QLocale().toString(day,
                            day.month() == today.month() && day.year() == today.year() ? u"ddd d"_s : u"ddd d MMM"_s);
}

QString fullDay(QDate day, QDate today) { return day == today ? u"Today"_s : QLocale().toString(day, u"dddd d MMM"_s); }

/// "Brussels" of "Europe/Brussels".
QString placeOf(const QTimeZone& zone) { return QString::fromUtf8(zone.id()).section(u'/', -1).replace(u'_', u' '); }

bool getsNoMore(const LeadStatus& status) {
  static const QStringList ends{u"completed"_s, u"replied"_s, u"bounced"_s, u"unsubscribed"_s, u"stopped"_s};
  return ends.contains(status.rawValue);
}

const CampaignStep* savedStep(const Campaign& campaign, const DraftStep& step) {
  if (!campaign.steps || !step.id) return nullptr;
  const auto found = std::ranges::find(*campaign.steps, *step.id, &CampaignStep::id);
  return found == campaign.steps->end() ? nullptr : &*found;
}

}  // namespace

SequenceDays::SequenceDays(CampaignContext& context, const SequenceDraft& draft, SequencePreview& preview, Edit edit)
    : Store(context.workspace, &context.whole),
      m_context(context),
      m_draft(draft),
      m_preview(preview),
      m_edit(std::move(edit)) {
  connect(&preview, &SequencePreview::changed, this, &SequenceDays::reckon);
  connect(&context.campaign, &ResourceBase::valueChanged, this, &SequenceDays::reckon);
}

void SequenceDays::setWatched(bool watched) {
  if (std::exchange(m_watched, watched) == watched) return;
  m_timer.reset();
  if (watched) tick();
  Q_EMIT changed();
}

void SequenceDays::tick() {
  reckon();
  m_timer = m_context.services.clock.startTimer(pace, [this] { tick(); });
}

void SequenceDays::follow(const QUuid& current) {
  m_current = current;
  reckon();
}

/// The preview's, while there is something that they have not got yet.
const CampaignLead* SequenceDays::leadUnderWay() const {
  const CampaignLead* lead = m_preview.leadRecord();
  const bool hasMore = lead && !getsNoMore(lead->status) && lead->currentStep.value_or(0) < m_draft.steps().size();
  return hasMore ? lead : nullptr;
}

SequenceDays::Reckoned SequenceDays::question() const {
  Reckoned asked;
  const Campaign* campaign = m_context.campaign.value();
  const auto& steps = m_draft.steps();
  if (!campaign) return asked;
  SendPlan& plan = asked.plan;
  plan.schedule = campaign->schedule.value_or(CampaignSchedule());
  // Dates are told in minutes, so that a keystroke within one reckons nothing.
  plan.now = m_context.services.clock.now();
  plan.now = plan.now.addSecs(-plan.now.time().second()).addMSecs(-plan.now.time().msec());
  plan.from = plan.now;
  const CampaignLead* lead = leadUnderWay();
  if (lead) asked.first = std::max<qsizetype>(lead->currentStep.value_or(0), 0);
  for (qsizetype place = asked.first; place < steps.size(); ++place) plan.waits.append(steps[place].delayMinutes);
  if (plan.waits.isEmpty() || !lead) return asked;
  // What the service has booked was booked for the wait that it has.
  const DraftStep& next = steps[asked.first];
  const CampaignStep* saved = savedStep(*campaign, next);
  if (saved && saved->delayMinutes == next.delayMinutes) plan.booked = parsePlatformDate(lead->nextSendAt);
  if (const auto before = parsePlatformDate(asked.first > 0 ? lead->lastSentAt : lead->enrolledAt)) plan.from = *before;
  return asked;
}

void SequenceDays::reckon() {
  if (!m_watched) return;
  Reckoned asked = question();
  if (asked != m_reckoned || !m_today.isValid()) {
    m_reckoned = std::move(asked);
    m_times = sendTimes(m_reckoned.plan);
    m_zone = zoneOf(m_reckoned.plan.schedule);
    m_today = dayOf(m_context.services.clock.now());
    showDays();
  }
  show();
}

int SequenceDays::columnOf(const QDateTime& instant) const {
  const qint64 days = m_today.daysTo(dayOf(instant));
  return days >= 0 && days < dayCount ? int(days) : -1;
}

StripEmail SequenceDays::email(qsizetype place, const SendTime& time) const {
  StripEmail email;
  email.id = m_draft.steps()[place].key.toString();
  email.place = int(place);
  email.title = u"Email %1"_s.arg(place + 1);
  email.time = QLocale().toString(time.at.toTimeZone(m_zone), u"HH:mm"_s);
  email.column = columnOf(time.at);
  if (const int due = columnOf(time.due); due != email.column) email.dueColumn = due;
  email.current = m_draft.steps()[place].key == m_current;
  email.movable = place > 0 && canWrite();
  QStringList words{email.title, fullDay(dayOf(time.at), m_today), email.time, m_draft.waitText(place)};
  if (dayOf(time.due) != dayOf(time.at))
    words.append(u"its wait ends on %1, when nothing is sent"_s.arg(fullDay(dayOf(time.due), m_today)));
  email.words = words.join(u", "_s);
  return email;
}

void SequenceDays::showDays() {
  std::vector<StripDay> days;
  for (int i = 0; i < dayCount; ++i) {
    const QDate day = m_today.addDays(i);
    const QString title = i == 0 ? u"Today"_s : dayText(day, day.addDays(-1));
    days.push_back({QString::number(i), title, sendsOn(m_reckoned.plan.schedule, day, m_zone)});
  }
  m_days.update(std::move(days));
}

void SequenceDays::show() {
  std::vector<StripEmail> emails;
  QList<int> onDay(dayCount, 0);
  m_dates = QStringList(m_draft.steps().size());
  m_later.clear();
  m_movedText.clear();
  for (qsizetype i = 0; i < m_times.size(); ++i) {
    const qsizetype place = m_reckoned.first + i;
    const SendTime& time = m_times[i];
    if (place >= m_draft.steps().size() || !time.at.isValid()) break;
    m_dates[place] = dayText(dayOf(time.at), m_today);
    const bool isMoved = dayOf(time.due) != dayOf(time.at);
    if (isMoved && m_draft.steps()[place].key == m_current)
      m_movedText =
          fullDay(dayOf(time.due), m_today).section(u' ', 0, 0) + u", so "_s + fullDay(dayOf(time.at), m_today);
    StripEmail shown = email(place, time);
    if (shown.column < 0) {
      m_later.append(shown.title + u' ' + fullDay(dayOf(time.at), m_today));
      continue;
    }
    shown.ofDay = onDay[shown.column]++;
    emails.push_back(shown);
  }
  for (StripEmail& shown : emails) shown.onDay = onDay[shown.column];
  m_emails.update(std::move(emails));
  Q_EMIT changed();
}

QString SequenceDays::whose() const {
  if (!m_today.isValid()) return {};
  // For one who gets nothing more the waits can be looked at all the same.
  const QString name = leadUnderWay() ? shownName(m_preview.leadName()) : QString();
  return u"%1, %2 time"_s.arg(name.isEmpty() ? u"A lead added now"_s : name, placeOf(m_zone));
}

/// Why nothing goes out at all; empty when emails do.
QString SequenceDays::endedText() const {
  if (m_times.isEmpty()) return u"No emails yet"_s;
  if (m_times.first().at.isValid()) return {};
  const CampaignSchedule& schedule = m_reckoned.plan.schedule;
  const auto last = schedule.endDate ? parseCalendarDay(*schedule.endDate) : std::nullopt;
  if (last && *last < m_today) return u"The campaign’s end date is over"_s;
  return schedule.schedules.isEmpty() ? u"No schedule yet, so no dates"_s : u"The schedule lets nothing out"_s;
}

QString SequenceDays::note() const {
  if (!m_today.isValid()) return {};
  if (QString ended = endedText(); !ended.isEmpty()) return ended;
  const auto never = std::ranges::count_if(m_times, [](const SendTime& time) { return !time.at.isValid(); });
  if (never > 0)
    return u"The end date comes before the last %1"_s.arg(never == 1 ? u"email"_s : QString::number(never));
  const CampaignLead* lead = m_preview.leadRecord();
  if (!lead || leadUnderWay()) return u"An estimate from waits and schedule"_s;
  const QString why = getsNoMore(lead->status) ? lead->status.label() : u"got all emails"_s;
  return u"An estimate. %1: %2"_s.arg(shownName(m_preview.leadName()), why);
}

QString SequenceDays::laterText() const { return m_later.isEmpty() ? QString() : u"+%1 later"_s.arg(m_later.size()); }

void SequenceDays::addToWait(int place, int days) {
  if (place > 0 && place < m_draft.steps().size()) setWait(place, m_draft.steps()[place].waitDays() + days);
}

void SequenceDays::moveTo(int place, int column) {
  const qsizetype at = place - m_reckoned.first;
  if (place < 1 || at < 0 || at >= m_times.size()) return;
  const QDateTime before = at == 0 ? m_reckoned.plan.from : m_times[at - 1].at;
  setWait(place, dayOf(before).daysTo(m_today.addDays(column)));
}

void SequenceDays::setWait(int place, qint64 days) {
  if (!canWrite() || place < 1 || place >= m_draft.steps().size()) return;
  const DraftStep before = m_draft.steps()[place];
  m_edit([&before, days](SequenceDraft& draft) { draft.setWaitDays(before.key, days); });
  const qsizetype now = m_draft.placeOf(before.key);
  if (now >= 0 && m_draft.steps()[now].delayMinutes != before.delayMinutes) offerUndo(before.key, before.delayMinutes);
}

/// Several changes of one wait in a row are taken back at once.
void SequenceDays::offerUndo(const QUuid& step, qint64 before) {
  Toasts& toasts = m_context.services.toasts;
  const auto& shown = toasts.toasts();
  const bool goesOn =
      m_offer.step == step && std::ranges::find(shown, m_offer.message, &Toasts::Toast::id) != shown.end();
  if (goesOn) {
    before = m_offer.before;
    toasts.dismiss(m_offer.message);
  }
  const qsizetype place = m_draft.placeOf(step);
  const qint64 days = m_draft.steps()[place].waitDays();
  const QUuid message = toasts.show(
      {.message = u"Email %1 waits %2"_s.arg(place + 1).arg(days == 1 ? u"1 day"_s : u"%1 days"_s.arg(days)),
       .actionLabel = u"Undo"_s,
       .action =
           [self = QPointer(this), step, before] {
             if (self) self->m_edit([&](SequenceDraft& draft) { draft.setDelay(step, before); });
           },
       .actsOn = this});
  m_offer = {message, step, before};
}

void SequenceDays::close() {
  m_timer.reset();
  Store::close();
}

}  // namespace orv
