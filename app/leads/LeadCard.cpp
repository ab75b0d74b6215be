#include "app/leads/LeadCard.h"

#include <QStringTokenizer>
#include <QUrl>

#include "app/base/shownName.h"
#include "app/leads/LeadWords.h"
#include "kit/api/Format.h"
#include "kit/models/leads/leadRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

/// Facts that are known, in the order in which they are given.
class Facts {
 public:
  Facts& add(const QString& label, const std::optional<QString>& text) {
    if (text && !text->isEmpty()) m_facts.append({.key = label, .label = label, .detail = shownName(*text)});
    return *this;
  }
  Facts& add(const QString& label, const std::optional<qint64>& number) {
    return number ? add(label, Format::grouped(*number)) : *this;
  }
  /// Stands there although nothing can be read.
  Facts& hidden(const QString& label) {
    m_facts.append({.key = label, .label = label});
    return *this;
  }
  const QList<Choice>& all() const { return m_facts; }

 private:
  QList<Choice> m_facts;
};

/// A file that somebody imported may hold thousands of words for one lead.
constexpr qsizetype mostWords = 40;

QStringList parted(const std::optional<QString>& text) {
  QStringList parts;
  qsizetype more = 0;
  const QString all = text.value_or(QString());
  for (const QStringView part : qTokenize(all, u',')) {
    const QStringView word = part.trimmed();
    if (word.isEmpty()) continue;
    parts.size() < mostWords ? parts.append(shownName(word.toString())) : void(++more);
  }
  if (more > 0) parts.append(u"and "_s + Format::grouped(more) + u" more"_s);
  return parts;
}

QString campaignDetail(const LeadCampaignHistory& history) {
  QStringList parts;
  if (history.currentStep > 0) parts.append(u"Email "_s + Format::grouped(history.currentStep));
  const QString day = LeadWords::day(history.repliedAt ? history.repliedAt : history.lastSentAt);
  if (!day.isEmpty()) parts.append(day);
  return parts.join(u" · "_s);
}

QString statusLabel(const QString& word) { return word.left(1).toUpper() + word.mid(1); }

}  // namespace

LeadCard::LeadCard(WorkspaceContext& context, Store& whole, Find find)
    : Store(context, &whole),
      m_find(std::move(find)),
      m_ahead(context, [this](const QString& id) { return readTask(id); }),
      m_detail(*this, [this] { return loadTask(); }, {.loadsByItself = false}) {
  connect(&m_detail, &ResourceBase::changed, this, &LeadCard::changed);
  Changes& changes = context.changes();
  changes.watch<Lead>(this, [this](const Change<Lead>& change) { follow(change); });
  // Which lists and campaigns a lead is in nobody tells lead by lead.
  changes.watch<LeadList>(this, [this](const Change<LeadList>& change) { placesChanged(change.acted); });
  changes.watch<Campaign>(this, [this](const Change<Campaign>& change) { placesChanged(change.acted); });
}

Task<LeadRecord> LeadCard::readTask(QString id) {
  const Stamp asked = context().changes().stamp();
  LeadRecord record = co_await api().send(Requests::getLead(id));
  // Rows of the same lead may be older.
  context().changes().publish<Lead>(record, asked, false);
  co_return record;
}

Task<LeadRecord> LeadCard::loadTask() {
  const QString id = m_lead.id;
  if (const LeadRecord* known = m_ahead.find(id)) co_return *known;
  LeadRecord record = co_await readTask(id);
  m_ahead.put(id, record);
  co_return record;
}

const LeadRecord* LeadCard::detail() const {
  const LeadRecord* known = m_detail.value();
  return known && known->id == m_lead.id ? known : nullptr;
}

void LeadCard::show(const QString& id, bool isPeek) {
  const Lead* lead = m_find(id);
  if (!lead) return;
  const bool isAnother = std::exchange(m_lead, *lead).id != id;
  m_isPeek = isPeek;
  m_ahead.cancel();
  if (isAnother) m_detail.ask();
  Q_EMIT changed();
}

void LeadCard::peek(const QString& id) {
  m_rest.cancel();
  // Whoever has one open looks at that.
  if (shown()) return m_ahead.look(id);
  dismiss();
  if (!id.isEmpty()) m_rest.start(peekTask(id));
}

Task<void> LeadCard::peekTask(QString id) {
  co_await services().clock.sleep(ReadAhead<LeadRecord>::restFor);
  show(id, true);
}

void LeadCard::open(const QString& id) {
  m_rest.cancel();
  show(id, false);
}

void LeadCard::dismiss() {
  if (!isOf()) return;
  m_lead = {};
  m_detail.cancel();
  Q_EMIT changed();
}

void LeadCard::close() {
  m_rest.cancel();
  m_ahead.cancel();
  Store::close();
}

void LeadCard::follow(const Change<Lead>& change) {
  if (change.kind == Change<Lead>::Kind::is && !change.acted) return;
  m_ahead.forget(change.id);
  if (isOf() && (change.id.isEmpty() || change.id == m_lead.id)) m_detail.load();
}

void LeadCard::placesChanged(bool acted) {
  if (!acted) return;
  m_ahead.forget();
  if (isOf()) m_detail.load();
}

void LeadCard::take(const QList<UnlockResult::Item>& leads) {
  for (const UnlockResult::Item& item : leads) {
    m_ahead.forget(item.id);
    if (item.id != m_lead.id) continue;
    const auto unlock = [&item](Lead& lead) {
      lead.email = item.email;
      lead.phone = item.phone;
      lead.locked.reset();
    };
    unlock(m_lead);
    if (detail()) m_detail.update([&unlock](LeadRecord& record) { unlock(record); });
    Q_EMIT changed();
  }
}

const Lead& LeadCard::lead() const {
  const LeadRecord* all = detail();
  return all ? *all : m_lead;
}

QString LeadCard::name() const { return isOf() ? shownName(LeadWords::name(lead())) : QString(); }

QString LeadCard::about() const {
  QStringList parts;
  for (const auto& part : {m_lead.title, m_lead.company})
    if (part && !part->isEmpty()) parts.append(shownName(*part));
  return parts.join(u" · "_s);
}

bool LeadCard::locked() const { return LeadWords::isLocked(lead()); }

QString LeadCard::problem() const {
  if (!isOf() || detail() || m_detail.refreshing()) return {};
  using State = ResourceBase::State;
  const auto state = m_detail.stateName();
  if (state != State::Error && state != State::Offline) return {};
  return u"Couldn’t load everything about this lead. "_s +
         (state == State::Offline ? u"You’re offline."_s : m_detail.message());
}

QList<Choice> LeadCard::person() const {
  const Lead& lead = this->lead();
  Facts facts;
  facts.add(u"First name"_s, lead.firstName).add(u"Last name"_s, lead.lastName).add(u"Title"_s, lead.title);
  if (locked())
    facts.hidden(u"Email"_s).hidden(u"Phone"_s);
  else
    facts.add(u"Email"_s, lead.email).add(u"Email domain"_s, lead.email.section(u'@', 1)).add(u"Phone"_s, lead.phone);
  return facts.add(u"City"_s, lead.city)
      .add(u"State"_s, lead.state)
      .add(u"Country"_s, lead.country)
      .add(u"Followers"_s, lead.followers)
      .all();
}

QList<Choice> LeadCard::company() const {
  const Lead& lead = this->lead();
  auto revenue = lead.annualRevenue;
  if (revenue && !revenue->isEmpty()) *revenue += u" per year"_s;
  return Facts()
      .add(u"Company"_s, lead.company)
      .add(u"Website"_s, LeadWords::link(lead.website))
      .add(LeadWords::industryTitle(lead.source), lead.industry)
      .add(u"Niche"_s, lead.niche)
      .add(u"Employees"_s, lead.employees)
      .add(u"Annual revenue"_s, revenue)
      .add(u"ICP tier"_s, lead.icpTier)
      .all();
}

QStringList LeadCard::keywords() const { return parted(lead().keywords); }

QStringList LeadCard::technologies() const { return parted(lead().technologies); }

QList<Choice> LeadCard::lists() const {
  QList<Choice> lists;
  if (detail())
    for (const auto& list : detail()->lists) lists.append({.key = list.id, .label = shownName(list.name)});
  return lists;
}

QVariantList LeadCard::campaigns() const {
  QVariantList rows;
  if (!detail()) return rows;
  for (const LeadCampaignHistory& history : detail()->campaigns)
    rows.append(QVariantMap{{u"id"_s, history.id},
                            {u"name"_s, shownName(history.name)},
                            {u"detail"_s, campaignDetail(history)},
                            {u"status"_s, history.status},
                            {u"statusLabel"_s, shownName(statusLabel(history.status))}});
  return rows;
}

QList<Choice> LeadCard::record() const {
  const Lead& lead = this->lead();
  Facts facts;
  if (const LeadRecord* all = detail())
    facts.add(u"Lead source"_s, all->leadSource)
        .add(u"List code"_s, all->listCode)
        .add(u"Batch"_s, all->batchId)
        .add(u"Scraped"_s, LeadWords::day(all->dateScraped));
  facts.add(u"Verified"_s, LeadWords::day(lead.dateVerified)).add(u"Added"_s, LeadWords::day(lead.createdAt));
  if (detail()) facts.add(u"Updated"_s, LeadWords::day(detail()->updatedAt));
  return facts.all();
}

void LeadCard::copyEmail(const QString& id) {
  const Lead* lead = id == m_lead.id ? &this->lead() : m_find(id);
  if (!lead || LeadWords::isLocked(*lead)) return;
  if (services().clipboard.setText(lead->email))
    services().toasts.success(u"Copied"_s);
  else
    services().toasts.show(
        {.message = u"Couldn’t copy. Select the address and copy it."_s, .tone = Toasts::Tone::error});
}

void LeadCard::openCampaign(const QString& id) { context().openItem(Page::campaigns, id); }

void LeadCard::openList(const QString& id) { context().openItem(Page::leads, id); }

void LeadCard::openWebsite() {
  const QString address = lead().website.value_or(QString());
  const QUrl url = QUrl::fromUserInput(address);
  // A stranger wrote it: nothing but pages of the web is opened.
  if (url.isValid() && (url.scheme() == "https"_L1 || url.scheme() == "http"_L1)) services().browser.open(url);
}

}  // namespace orv
