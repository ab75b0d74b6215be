#include "app/accounts/AccountActivity.h"

#include "app/base/cellText.h"
#include "kit/api/Format.h"
#include "kit/models/mailboxes/mailboxRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

constexpr std::array offeredRanges{7, 30, 90};
using Day = MailboxHistory::Day;

struct Sums {
  qint64 sent = 0, replies = 0, live = 0, failed = 0, placed = 0, inbox = 0;
};

Sums sumsOf(const QList<Day>& days) {
  Sums sums;
  for (const Day& day : days) {
    sums.sent += day.sent;
    sums.replies += day.replies;
    sums.live += day.campaignSent;
    sums.failed += day.failed;
    sums.placed += day.placed;
    sums.inbox += day.inbox;
  }
  return sums;
}

QString placement(const Day& day) {
  if (day.placed == 0) return {};
  const QString inbox = Format::grouped(day.inbox);
  return inbox + u" inbox ("_s + inbox + u" of "_s + Format::grouped(day.placed) + u" checked)"_s;
}

/// The account warms up until campaigns send from it.
bool warmsUp(const Mailbox& account, const Sums& sums) {
  if (account.rampup && account.rampup->stageKey) return account.rampup->stageKey == u"warmup"_s;
  return sums.live == 0;
}

QList<Figure> figuresOf(const Mailbox& account, const QList<Day>& days) {
  const Sums sums = sumsOf(days);
  const QString inbox = sums.placed > 0 ? Format::rate(sums.inbox, sums.placed) : noValue;
  return {{u"Phase"_s, warmsUp(account, sums) ? u"Warm-up"_s : u"Live"_s,
           Format::counted(days.size(), u"day"_s, u"days"_s)},
          {u"Warm-up"_s, Format::grouped(sums.sent), Format::counted(sums.replies, u"reply"_s, u"replies"_s)},
          {u"Live"_s, Format::grouped(sums.live), u"campaign emails"_s},
          {u"Failed"_s, Format::grouped(sums.failed), Format::rate(sums.failed, sums.sent + sums.live) + u" of sent"_s},
          {u"Inbox"_s, inbox, Format::grouped(sums.inbox) + u" of "_s + Format::grouped(sums.placed) + u" checked"_s}};
}

}  // namespace

AccountActivity::AccountActivity(WorkspaceContext& context, Store* whole, QString id, Resource<Mailbox>& account)
    : Store(context, whole),
      m_id(std::move(id)),
      m_account(account),
      m_history(*this, [this] { return api().send(Requests::mailboxHistory(m_id, m_range)); },
                {.failed = u"Couldn’t load the activity"_s, .isEmpty = [](const auto&) { return false; }}) {
  connect(&m_history, &ResourceBase::changed, this, &AccountActivity::show);
  connect(&account, &ResourceBase::valueChanged, this, &AccountActivity::show);
}

void AccountActivity::setRange(const QString& days) {
  const int range = days.toInt();
  if (std::ranges::find(offeredRanges, range) == offeredRanges.end() || std::exchange(m_range, range) == range) return;
  Q_EMIT changed();
  m_history.ask();
}

QList<Choice> AccountActivity::ranges() const {
  QList<Choice> choices;
  for (const int days : offeredRanges)
    choices.append({.key = QString::number(days), .label = QString::number(days) + u" days"_s});
  return choices;
}

QString AccountActivity::emptyText() const {
  return u"Nothing sent in the last "_s + QString::number(m_range) +
         u" days yet. The chart fills in as the account warms up and sends."_s;
}

void AccountActivity::setView(const QString& view) {
  if (std::exchange(m_view, view) != view) Q_EMIT changed();
}

void AccountActivity::toggle(const QString& series) {
  if (!m_hidden.remove(series)) m_hidden.insert(series);
  show();
}

void AccountActivity::show() {
  const QList<Day> all = m_history.value() ? m_history.value()->days : QList<Day>();
  m_days.clear();
  m_dayNotes.clear();
  QList<double> sent, live, planned, failed;
  QStringList replies;
  for (const Day& day : all) {
    m_days.append(day.day);
    m_dayNotes.append(placement(day));
    sent.append(double(day.sent));
    live.append(double(day.campaignSent));
    planned.append(double(day.planned));
    failed.append(double(day.failed));
    replies.append(day.replies > 0 ? Format::counted(day.replies, u"reply"_s, u"replies"_s) : QString());
  }
  const auto series = [this](const QString& key, const QString& label, const QList<double>& values) {
    return QVariantMap{{u"key"_s, key},
                       {u"label"_s, label},
                       {u"values"_s, QVariant::fromValue(values)},
                       {u"shown"_s, !m_hidden.contains(key)}};
  };
  QVariantMap warmup = series(u"warmup"_s, u"Warm-up"_s, sent), plan = series(u"planned"_s, u"Planned"_s, planned),
              wrong = series(u"failed"_s, u"Failed"_s, failed);
  warmup.insert(u"notes"_s, replies);
  plan.insert(u"planned"_s, true);
  wrong.insert(u"failed"_s, true);
  m_series = {warmup, series(u"live"_s, u"Live"_s, live), plan, wrong};
  m_figures = m_account.value() && m_history.value() ? figuresOf(*m_account.value(), all) : QList<Figure>();
  // With a plan alone the chart has nothing to show either.
  if (const Sums sums = sumsOf(all); sums.sent + sums.live + sums.failed == 0) {
    m_days.clear();
    m_series.clear();
  }
  Q_EMIT changed();
}

}  // namespace orv
