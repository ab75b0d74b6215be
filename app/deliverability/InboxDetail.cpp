#include "app/deliverability/InboxDetail.h"

#include "app/base/cellText.h"
#include "app/base/shownName.h"
#include "app/deliverability/WatcherWords.h"
#include "kit/api/Format.h"
#include "kit/api/PlatformDate.h"
#include "kit/models/deliverability/deliverabilityRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

ORV_DEFINE_ROW(DecisionRow)

namespace {

QString dash(const QString& text) { return text.isEmpty() ? noValue : text; }

/// With the sign that is as wide as its plus.
QString apart(const std::optional<double>& z) {
  if (!z) return noValue;
  const QString text = Format::fixed(std::abs(*z), 1);
  return (*z < 0 ? u"−"_s : QString()) + text;
}

Figure rateFigure(const QString& title, const std::optional<double>& rate, bool isPlacement = false) {
  Figure figure{.title = title, .value = dash(WatcherWords::percent(rate))};
  if (isPlacement && WatcherWords::isLow(rate)) figure.warning = u"low"_s;
  return figure;
}

DecisionRow rowOf(const DeliverabilityDecision& decision, const QDateTime& now) {
  const bool moved = decision.fromStage && decision.toStage && decision.fromStage != decision.toStage;
  return {.id = decision.id,
          .title = moved ? WatcherWords::stageLabel(*decision.fromStage) + u" → "_s +
                               WatcherWords::stageLabel(*decision.toStage)
                         : decision.action,
          .why = decision.why,
          .when = WatcherWords::moment(decision.at, now),
          .mark = decision.executed ? u"Done"_s : u"Would do"_s,
          .executed = decision.executed};
}

}  // namespace

InboxDetail::InboxDetail(WorkspaceContext& context, Store& whole)
    : Store(context, &whole), m_detail(*this, [this] { return load(); }, {.loadsByItself = false}) {
  connect(&m_detail, &ResourceBase::valueChanged, this, &InboxDetail::arrived);
  connect(&m_detail, &ResourceBase::changed, this, &InboxDetail::changed);
}

Task<DeliverabilityInboxDetail> InboxDetail::load() { return api().send(Requests::deliverabilityInbox(m_known.id)); }

void InboxDetail::show(const DeliverabilityInbox& inbox, std::optional<double> poolRate) {
  if (inbox.id == m_known.id) return follow(inbox, poolRate);
  m_known = inbox;
  m_poolRate = poolRate;
  m_decisions.replace({});
  m_detail.ask();
  Q_EMIT changed();
}

void InboxDetail::follow(const DeliverabilityInbox& inbox, std::optional<double> poolRate) {
  m_poolRate = poolRate;
  const bool isAnother = m_known.lastScanAt != inbox.lastScanAt || m_known.stage != inbox.stage;
  m_known = inbox;
  if (isAnother) m_detail.markStale();
  Q_EMIT changed();
}

void InboxDetail::hide() {
  m_known = {};
  m_detail.cancel();
  Q_EMIT changed();
}

void InboxDetail::markStale() {
  if (!m_known.id.isEmpty()) m_detail.markStale();
}

void InboxDetail::refresh() {
  if (!m_known.id.isEmpty()) m_detail.load();
}

bool InboxDetail::isAnswered() const {
  const auto* value = m_detail.value();
  return value && value->inbox.id == m_known.id;
}

void InboxDetail::arrived() {
  if (!isAnswered()) return;
  const DeliverabilityInboxDetail& detail = *m_detail.value();
  m_known = detail.inbox;
  std::vector<DecisionRow> rows;
  const QDateTime now = services().clock.now();
  for (const DeliverabilityDecision& decision : detail.decisions) rows.push_back(rowOf(decision, now));
  m_decisions.update(std::move(rows));
  Q_EMIT learned(m_known);
}

QString InboxDetail::address() const { return shownName(m_known.address); }
QString InboxDetail::stage() const { return WatcherWords::stageLabel(m_known.stage.value_or(QString())); }
QString InboxDetail::stageTone() const { return WatcherWords::stageTone(m_known.stage.value_or(QString())); }

QString InboxDetail::since() const {
  const auto since = parsePlatformDate(m_known.stageSince);
  return since ? u"since "_s + Format::shortDate(since->date()) : QString();
}

QString InboxDetail::lastScan() const { return WatcherWords::lastScan(m_known.lastScanAt, services().clock.now()); }
QString InboxDetail::checksText() const { return m_known.n > 0 ? WatcherWords::checks(m_known.n) : QString(); }

QList<Figure> InboxDetail::figures() const {
  return {rateFigure(u"Inbox rate"_s, m_known.inboxRate, true),
          {.title = u"Checks, 7 days"_s, .value = Format::grouped(m_known.n)},
          rateFigure(u"Gmail seeds"_s, m_known.google, true),
          rateFigure(u"Outlook seeds"_s, m_known.microsoft, true),
          rateFigure(u"Spam"_s, m_known.spamRate),
          rateFigure(u"Bounce"_s, m_known.bounceRate),
          rateFigure(u"Reply"_s, m_known.replyRate),
          {.title = u"vs pool"_s, .value = apart(m_known.z)}};
}

QStringList InboxDetail::days() const {
  QStringList days;
  if (isAnswered())
    for (const auto& day : m_detail.value()->trend) days.append(day.day);
  return days;
}

QVariantList InboxDetail::series() const {
  if (!isAnswered()) return {};
  QVariantList rates, pool;
  for (const auto& day : m_detail.value()->trend) {
    rates.append(std::round(day.inboxRate * 1000) / 10);
    if (m_poolRate) pool.append(std::round(*m_poolRate * 1000) / 10);
  }
  QVariantList series{QVariantMap{{u"key"_s, u"inbox"_s}, {u"label"_s, u"Inbox rate"_s}, {u"values"_s, rates}}};
  if (m_poolRate)
    series.append(
        QVariantMap{{u"key"_s, u"pool"_s}, {u"label"_s, u"Pool"_s}, {u"values"_s, pool}, {u"reference"_s, true}});
  return series;
}

}  // namespace orv
