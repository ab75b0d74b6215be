#include "app/rampup/RampupAccountStore.h"

#include "app/base/cellText.h"
#include "app/base/shownName.h"
#include "kit/api/Format.h"
#include "kit/api/isoDay.h"
#include "kit/api/wholeNumber.h"
#include "kit/models/mailboxes/mailbox.h"
#include "kit/models/mailboxes/mailboxBrand.h"
#include "kit/models/rampup/rampupRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

QString ofPlanned(const std::optional<qint64>& planned) {
  return planned ? u"of "_s + Format::grouped(*planned) : QString();
}

}  // namespace

RampupAccountStore::RampupAccountStore(QString id, RampupStore& list)
    : Store(list.context()),
      m_id(std::move(id)),
      m_list(list),
      m_detail(*this, [this] { return load(); }, {.failed = u"Couldn’t load this roadmap"_s}),
      m_stats(*this, [this] { return api().send(Requests::warmupStats(m_id, statDays)); }),
      m_warmup(m_id, *list.accounts(), *this),
      m_editor(list.context()) {
  connect(&m_detail, &ResourceBase::valueChanged, this, &RampupAccountStore::arrived);
  connect(&m_detail, &ResourceBase::changed, this, &RampupAccountStore::changed);
  connect(&m_stats, &ResourceBase::changed, this, &RampupAccountStore::changed);
  connect(list.accounts(), &RoadmapActions::learned, this, &RampupAccountStore::take);
  connect(list.accounts(), &RoadmapActions::busyChanged, this, &RampupAccountStore::changed);
  connect(list.templates(), &RoadmapTemplates::changed, this, &RampupAccountStore::changed);
  connect(&m_extending, &Form::changed, this, &RampupAccountStore::changed);
  connect(&m_restarting, &Form::changed, this, &RampupAccountStore::changed);
  connect(this, &Store::roleChanged, this, &RampupAccountStore::changed);
  connect(this, &Store::left, &m_editor, &RoadmapEditor::leave);
  auto& changes = context().changes();
  changes.watch<RampupAccount>(this, [this](const Change<RampupAccount>& change) {
    using Kind = Change<RampupAccount>::Kind;
    if (!change.id.isEmpty() && change.id != m_id) return;
    // What was done here is known already.
    const bool isKnown = change.kind == Kind::is && (!change.acted || m_item == change.record->item);
    if (!isKnown) markStale();
  });
  changes.watch<Mailbox>(this, [this](const Change<Mailbox>& change) {
    using Kind = Change<Mailbox>::Kind;
    const bool anyOfThem = change.kind == Kind::stale && change.id.isEmpty();
    if (anyOfThem || (change.kind == Kind::is && change.acted && change.id == m_id)) markStale();
  });
  // What the list knows stands until the account's own answer.
  if (const RampupItem* known = list.find(m_id)) m_item = *known;
}

/// What is under way here goes after the members, and marks the account free in the list, which tells of that.
RampupAccountStore::~RampupAccountStore() { disconnect(m_list.accounts(), nullptr, this, nullptr); }

Task<RampupDetail> RampupAccountStore::load() {
  if (const RampupDetail* known = m_list.details()->find(m_id); known && !m_detail.value()) co_return *known;
  co_return co_await api().send(Requests::getRampup(m_id));
}

void RampupAccountStore::markStale() {
  m_detail.markStale();
  // What it sends follows its settings.
  m_stats.markStale();
}

/// The answer to what was done here or in the list.
void RampupAccountStore::take(const RampupDetail& detail) {
  if (detail.mailboxId != m_id) return;
  if (m_detail.value())
    m_detail.update([&detail](RampupDetail& shown) { shown = detail; });
  else
    m_detail.markStale();
  m_stats.markStale();
}

void RampupAccountStore::arrived() {
  const RampupDetail& detail = *m_detail.value();
  m_item = detail.item();
  m_days = RoadmapDays(detail);
  m_warmup.follow(detail.settings);
  m_list.details()->put(detail);
  Q_EMIT changed();
}

const RampupItem* RampupAccountStore::item() const { return m_item ? &*m_item : nullptr; }
const RoadmapPlan* RampupAccountStore::plan() const { return m_item && m_item->plan ? &*m_item->plan : nullptr; }

QString RampupAccountStore::address() const { return item() ? shownName(item()->address) : QString(); }

QString RampupAccountStore::person() const {
  if (!item()) return {};
  const QString brand = brandName(brandOf(item()->provider));
  return item()->displayName.isEmpty() ? brand : shownName(item()->displayName) + u" · "_s + brand;
}

QString RampupAccountStore::phase() const {
  return item() ? RampupWords::label(RampupWords::phaseOf(*item())) : QString();
}

QString RampupAccountStore::phaseTone() const {
  return item() ? RampupWords::tone(RampupWords::phaseOf(*item())) : u"neutral"_s;
}

QString RampupAccountStore::stateLine() const { return item() ? RampupWords::stateLine(*item()) : QString(); }
QString RampupAccountStore::note() const { return item() ? RampupWords::stateNote(*item()) : QString(); }

QString RampupAccountStore::facts() const {
  if (!plan()) return {};
  QStringList facts;
  const QString name = RampupWords::templateName(plan()->templateName);
  if (!name.isEmpty()) facts.append(name);
  const QString from = RampupWords::day(plan()->startedOn), to = RampupWords::day(plan()->endsOn);
  const QString begins = plan()->isScheduled() ? u"starts "_s : u"started "_s;
  const QString ends = plan()->isDone() ? u", ended "_s : u", ends "_s;
  if (!from.isEmpty() && !to.isEmpty()) facts.append(begins + from + ends + to);
  return facts.join(u" · "_s);
}

QString RampupAccountStore::missingTitle() const { return item() ? RampupWords::missing(*item()).title : QString(); }
QString RampupAccountStore::missingText() const { return item() ? RampupWords::missing(*item()).text : QString(); }

QList<Figure> RampupAccountStore::figures() const {
  if (!item()) return {};
  const RampupSent& sent = item()->sent;
  const auto cap = plan() ? std::optional(plan()->campaignCapToday) : std::nullopt;
  return {{.title = u"Warm-up today"_s,
           .value = Format::grouped(sent.warmup),
           .detail = u"Warm-up emails sent today"_s,
           .unit = ofPlanned(sent.warmupPlanned)},
          {.title = u"Campaign today"_s,
           .value = Format::grouped(sent.campaign),
           .detail = RampupWords::campaignText(*item()),
           .unit = ofPlanned(cap)}};
}

QString RampupAccountStore::warmupText() const {
  return item() ? RampupWords::warmupText(item()->settings) : QString();
}
QString RampupAccountStore::healthText() const { return item() ? RampupWords::healthText(item()->health) : QString(); }
QString RampupAccountStore::healthWarning() const { return item() ? RampupWords::healthWarning(*item()) : QString(); }

QString RampupAccountStore::healthScore() const {
  return item() && item()->health.score ? QString::number(*item()->health.score) : QString();
}

bool RampupAccountStore::healthLow() const { return item() && item()->health.low; }

QList<double> RampupAccountStore::healthParts() const {
  if (!item() || item()->health.checked <= 0) return {};
  const MailboxHealth& health = item()->health;
  const auto part = [&health](qint64 count) { return double(count) / double(health.checked); };
  return {part(health.inbox), part(health.spam), part(health.missing)};
}

QList<Choice> RampupAccountStore::statLines() const {
  const auto* totals = m_stats.value() ? &m_stats.value()->totals : nullptr;
  const auto line = [totals](const QString& label, qint64 WarmupStats::Totals::*count) {
    return Choice{.key = label, .label = label, .detail = totals ? Format::grouped(totals->*count) : noValue};
  };
  return {line(u"Sent"_s, &WarmupStats::Totals::sent), line(u"Received"_s, &WarmupStats::Totals::received),
          line(u"Replies"_s, &WarmupStats::Totals::replies), line(u"Saved from spam"_s, &WarmupStats::Totals::saved)};
}

bool RampupAccountStore::paused() const { return plan() && plan()->isPaused(); }
bool RampupAccountStore::running() const { return plan() && !plan()->isPaused() && !plan()->isDone(); }
bool RampupAccountStore::onRoadmap() const { return plan() != nullptr; }
bool RampupAccountStore::busy() const { return m_list.accounts()->busy().contains(m_id); }

QList<Choice> RampupAccountStore::templates() const {
  QList<Choice> templates;
  const auto* page = m_list.templates()->list()->value();
  if (plan()) templates.append({.key = {}, .label = u"The same template"_s});
  if (!page) return templates;
  for (const RoadmapTemplate& each : page->items)
    templates.append({.key = each.id,
                      .label = RampupWords::templateName(each.name),
                      .detail = Format::counted(each.length, u"day"_s, u"days"_s)});
  return templates;
}

void RampupAccountStore::edit() {
  if (!plan() || busy()) return;
  if (!canWrite()) return (void)services().toasts.show({.message = u"Only members can edit roadmaps."_s});
  const std::optional<qint64> version = plan()->version;
  const QDate today = isoDay(item()->today);
  // A pause moves the days ahead: what is day 1 follows from which day today is.
  const QDate from = plan()->dayIndex > 0 ? today.addDays(1 - plan()->dayIndex) : isoDay(plan()->startedOn);
  m_editor.open(
      {.title = u"Edit roadmap"_s,
       .about = address() + u" · The change applies from today."_s,
       .submitLabel = u"Save roadmap"_s,
       .thing = u"roadmap"_s,
       .key = u"rampup/"_s + m_id + u"/stages"_s,
       .stages = plan()->stages,
       .version = version,
       .from = from,
       .today = today,
       .submit = [this, version](const QList<RoadmapStage>& stages) { m_tasks.start(editTask(stages, version)); }});
}

Task<void> RampupAccountStore::editTask(QList<RoadmapStage> stages, std::optional<qint64> version) {
  auto submission = m_editor.begin();
  const auto build = [id = m_id, stages, version] { return Requests::editRoadmap(id, {stages}, version); };
  if (!co_await m_list.accounts()->change(m_id, build, u"Couldn’t save the roadmap."_s, [&](const APIError& error) {
        return submission.fail(m_editor.sentenceOf(error));
      }))
    co_return;
  submission.succeed();
  services().toasts.success(u"Roadmap saved"_s);
}

void RampupAccountStore::beginExtend() {
  if (!plan() || !canWrite()) return;
  m_extendDays = QString::number(RampupBulk::extendedBy);
  m_extending.show();
}

Task<void> RampupAccountStore::extendTask() {
  const auto days = wholeNumber(m_extendDays, 1, mostExtended);
  auto submission = m_extending.begin();
  if (!days) {
    submission.fail(u"Enter a number from 1 to 90"_s);
    co_return;
  }
  const auto build = [id = m_id, days] { return Requests::extendRoadmap(id, {*days}); };
  if (!co_await m_list.accounts()->change(m_id, build, u"Couldn’t extend the roadmap."_s,
                                          [&](const APIError& error) { return submission.fail(error.message()); }))
    co_return;
  submission.succeed();
  services().toasts.success(u"Roadmap extended by "_s + Format::counted(*days, u"day"_s, u"days"_s));
}

void RampupAccountStore::beginRestart() {
  if (!item() || item()->isPool() || !canWrite()) return;
  m_list.templates()->list()->ensureLoaded();
  m_restartOn.clear();
  m_restarting.show();
}

Task<void> RampupAccountStore::restartTask() {
  auto submission = m_restarting.begin();
  const std::optional<QString> on = m_restartOn.isEmpty() ? std::nullopt : std::optional(m_restartOn);
  const auto build = [id = m_id, on] { return Requests::restartRoadmap(id, {on}); };
  if (!co_await m_list.accounts()->change(m_id, build, u"Couldn’t restart the roadmap."_s,
                                          [&](const APIError& error) { return submission.fail(error.message()); }))
    co_return;
  submission.succeed();
  services().toasts.success(u"Roadmap restarted. Day 1 is today."_s);
}

QList<PageAction> RampupAccountStore::offered(const QString& record) {
  QList<PageAction> actions = Store::offered(record);
  if (!record.isEmpty() || !item()) return actions;
  const bool isFree = !busy();
  if (running())
    actions.append({.key = u"pause"_s,
                    .title = u"Pause roadmap"_s,
                    .icon = u"media-playback-pause"_s,
                    .inPalette = u"Pause roadmap of "_s + address(),
                    .writes = true,
                    .possible = isFree,
                    .inMenu = false,
                    .run = [this] { pause(); }});
  if (paused())
    actions.append({.key = u"resume"_s,
                    .title = u"Resume roadmap"_s,
                    .icon = u"media-playback-start"_s,
                    .inPalette = u"Resume roadmap of "_s + address(),
                    .writes = true,
                    .possible = isFree,
                    .inMenu = false,
                    .run = [this] { resume(); }});
  if (onRoadmap()) {
    actions.append({.key = u"edit"_s,
                    .title = u"Edit roadmap"_s,
                    .icon = u"document-edit"_s,
                    .keys = u"E"_s,
                    .writes = true,
                    .possible = isFree,
                    .whyNot = u"Only members can edit roadmaps."_s,
                    .inMenu = false,
                    .run = [this] { edit(); }});
    actions.append({.key = u"extend"_s,
                    .title = u"Extend"_s,
                    .icon = u"chronometer"_s,
                    .writes = true,
                    .possible = isFree,
                    .run = [this] { beginExtend(); }});
  }
  if (!item()->isPool()) {
    actions.append({.key = u"restart"_s,
                    .title = u"Restart"_s,
                    .icon = u"view-history"_s,
                    .writes = true,
                    .possible = isFree,
                    .run = [this] { beginRestart(); }});
    actions.append({.key = u"account"_s, .title = u"Open account"_s, .icon = u"mail-message"_s, .run = [this] {
                      context().openItem(Page::accounts, m_id);
                    }});
  }
  return actions;
}

}  // namespace orv
