#include "app/settings/OutreachLists.h"

#include <QMap>

#include "app/base/shownName.h"
#include "kit/api/Format.h"
#include "kit/api/PlatformDate.h"
#include "kit/models/campaigns/campaign.h"
#include "kit/models/campaigns/campaignRequests.h"
#include "kit/models/campaigns/campaignSummary.h"
#include "kit/models/leads/leadRequests.h"
#include "kit/models/mailboxes/mailboxPage.h"
#include "kit/models/mailboxes/mailboxRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

Choice fact(const QString& label, const QString& value) { return {.key = label, .label = label, .detail = value}; }

}  // namespace

OutreachLists::OutreachLists(Store& whole)
    : Store(whole.context(), &whole),
      m_tags(*this, [this] { return loadTags(); }, {.failed = u"Couldn’t load the tags"_s, .loadsByItself = false}),
      m_labels(*this, [this] { return api().send(Requests::listReplyLabels()); },
               {.failed = u"Couldn’t load the reply labels"_s, .loadsByItself = false}),
      m_allowance(*this, [this] { return api().send(Requests::unlockUsage()); },
                  {.failed = u"Couldn’t load the allowance"_s, .loadsByItself = false}) {
  for (ResourceBase* list : std::initializer_list<ResourceBase*>{&m_tags, &m_labels, &m_allowance})
    connect(list, &ResourceBase::changed, this, &OutreachLists::changed);
  countAnewWith<Campaign>();
  countAnewWith<Mailbox>();
  context().changes().watch<UnlockUsage>(this, [this](const auto&) { m_allowance.markStale(); });
}

/// What was done to one here may have given it a tag, or taken it out.
template <class Record>
void OutreachLists::countAnewWith() {
  context().changes().watch<Record>(this, [this](const Change<Record>& change) {
    if (change.acted || change.kind != Change<Record>::Kind::is) m_tags.markStale();
  });
}

/// Campaigns carry a tag's key, accounts its name. A tag that only accounts carry is in nobody's list.
Task<CountedTags> OutreachLists::loadTags() {
  const TagList known = co_await api().send(Requests::listTags());
  const CampaignList campaigns = co_await api().send(Requests::listCampaigns(false));
  const MailboxPage accounts = co_await api().send(Requests::listMailboxes());
  QMap<QString, CountedTag> byName;
  QHash<QString, QString> names;
  for (const Label& tag : known.items) {
    names.insert(tag.key, tag.title());
    byName[tag.title()].name = tag.title();
  }
  for (const CampaignSummary& campaign : campaigns.items)
    for (const QString& key : campaign.tags.value_or(QList<QString>())) ++byName[names.value(key, key)].campaigns;
  for (const MailboxPage::TagCount& tag : accounts.tags.value_or(QList<MailboxPage::TagCount>()))
    byName[names.value(tag.tag, tag.tag)].accounts += tag.n;
  CountedTags counted;
  for (const auto& [name, tag] : byName.asKeyValueRange()) counted.items.append({name, tag.campaigns, tag.accounts});
  co_return counted;
}

QList<Choice> OutreachLists::tagFacts() const {
  QList<Choice> facts;
  if (!m_tags.value()) return facts;
  for (const CountedTag& tag : m_tags.value()->items)
    facts.append(fact(shownName(tag.name), Format::counted(tag.campaigns, u"campaign"_s, u"campaigns"_s) + u" · "_s +
                                               Format::counted(tag.accounts, u"account"_s, u"accounts"_s)));
  return facts;
}

QVariantList OutreachLists::labelFacts() const {
  QVariantList facts;
  if (!m_labels.value()) return facts;
  for (const Label& label : m_labels.value()->items)
    facts.append(QVariantMap{{u"name"_s, shownName(label.title())}, {u"tone"_s, label.tone.value_or(u"neutral"_s)}});
  return facts;
}

QList<Choice> OutreachLists::allowanceFacts() const {
  const UnlockUsage* usage = m_allowance.value();
  if (!usage) return {};
  const auto resets = parsePlatformDate(usage->resetsAt);
  QList<Choice> facts{fact(u"Used"_s, Format::grouped(usage->used)), fact(u"Left"_s, Format::grouped(usage->left)),
                      fact(u"Allowance"_s, Format::grouped(usage->limit)),
                      fact(u"Paid from"_s, usage->credits.value_or(false) ? u"Credits"_s : u"The month’s allowance"_s)};
  if (resets) facts.append(fact(u"Starts again"_s, Format::shortDate(resets->date())));
  return facts;
}

qreal OutreachLists::allowanceUsed() const {
  const UnlockUsage* usage = m_allowance.value();
  return usage && usage->limit > 0 ? std::min(1.0, qreal(usage->used) / qreal(usage->limit)) : 0;
}

}  // namespace orv
