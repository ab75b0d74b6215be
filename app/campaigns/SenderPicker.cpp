#include "app/campaigns/SenderPicker.h"

#include <QHash>
#include <algorithm>

#include "kit/api/Format.h"
#include "kit/models/campaigns/campaign.h"
#include "kit/models/campaigns/campaignSender.h"
#include "kit/models/mailboxes/mailboxRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

ORV_DEFINE_ROW(SenderRow)
ORV_DEFINE_ROW(SenderMailbox)

namespace {

QString todayText(qint64 sent, std::optional<qint64> cap) {
  return cap ? Format::grouped(sent) + u" of "_s + Format::grouped(*cap) + u" today"_s : QString();
}

QString reasonOf(const CampaignSender& sender) {
  if (sender.ready) return {};
  return sender.reason.value_or(sender.status == "active"_L1 ? QString() : sender.status);
}

QString reasonOf(const Mailbox& mailbox) {
  if (mailbox.sendReady && mailbox.sendReady->reason) return *mailbox.sendReady->reason;
  return mailbox.status.isActive() ? QString() : mailbox.status.rawValue;
}

QStringList with(QStringList list, const QString& item) {
  if (!list.removeOne(item)) list.append(item);
  list.sort();
  return list;
}

}  // namespace

SenderFacts::SenderFacts(const Mailbox& mailbox)
    : today(todayText(mailbox.sentToday(), mailbox.limitToday())),
      reason(reasonOf(mailbox)),
      cap(mailbox.limitToday()) {}

SenderPicker::SenderPicker(CampaignContext& context, SettingsDraft& draft)
    : Store(context.workspace, &context.whole),
      m_context(context),
      m_draft(draft),
      m_mailboxes(*this,
                  [&api = context.api](const PageRequest& page) {
                    return api.send(Requests::listMailboxes(false, page.cursor));
                  },
                  {.failed = u"Couldn’t load the inboxes"_s, .whole = true}) {
  connect(&m_mailboxes, &ResourceBase::valueChanged, this, &SenderPicker::show);
  connect(&m_mailboxes, &ResourceBase::changed, this, &SenderPicker::changed);
  connect(&draft, &FieldDraft::fieldChanged, this, [this](const QString& field) {
    if (!field.startsWith("sender"_L1)) return;
    showRows();
    Q_EMIT changed();
  });
}

void SenderPicker::setQuery(const QString& query) {
  if (std::exchange(m_query, query) == query) return;
  showRows();
  Q_EMIT changed();
}

void SenderPicker::toggle(const QString& mailboxId) {
  m_draft.set(u"senders"_s, with(m_draft.typed().senders, mailboxId));
}

void SenderPicker::toggleTag(const QString& tag) {
  m_draft.set(u"senderTags"_s, with(m_draft.typed().senderTags, tag));
}

QString SenderPicker::summary() const {
  qint64 count = 0;
  std::optional<qint64> least, most;
  for (const Entry& entry : m_all) {
    if (!entry.row.ticked && !entry.row.viaTag) continue;
    ++count;
    if (!entry.cap) continue;
    least = std::min(least.value_or(*entry.cap), *entry.cap);
    most = std::max(most.value_or(*entry.cap), *entry.cap);
  }
  QString text = Format::counted(count, u"inbox sends"_s, u"inboxes send"_s);
  if (!most) return text;
  text += u" · "_s + (least == most ? u"up to "_s : Format::grouped(*least) + u" to "_s);
  return text + Format::grouped(*most) + u" a day each"_s;
}

void SenderPicker::refresh() { m_mailboxes.moreFailed() ? m_mailboxes.loadMore() : m_mailboxes.load(); }

QString SenderPicker::note() const {
  if (!m_mailboxes.message().isEmpty()) return u"Couldn’t load the inboxes. "_s + m_mailboxes.message();
  if (m_mailboxes.moreFailed()) return u"Couldn’t load all the inboxes."_s;
  const bool none = m_all.empty() && m_mailboxes.head();
  return none ? u"No inboxes yet. Connect one on the Accounts page."_s : QString();
}

QList<Choice> SenderPicker::tags() const {
  QMap<QString, int> counts;
  const QStringList picked = m_draft.typed().senderTags;
  for (const QString& tag : picked) counts.insert(tag, 0);
  for (const Entry& entry : m_all)
    for (const QString& tag : entry.tags) ++counts[tag];
  QList<Choice> list;
  for (const auto& [tag, count] : counts.asKeyValueRange())
    list.append({.key = tag, .label = tag, .count = count, .ticked = picked.contains(tag)});
  return list;
}

QString SenderPicker::tagNote() const {
  return m_mailboxes.head() && tags().isEmpty() ? u"No tags yet. Tag inboxes on the Accounts page."_s : QString();
}

void SenderPicker::show() {
  collect();
  showRows();
  Q_EMIT changed();
}

/// The campaign's own come first: they are looked for, and stay in their place while boxes are ticked.
void SenderPicker::collect() {
  const Campaign* campaign = m_context.campaign.value();
  const auto senders = campaign ? campaign->senders.value_or(QList<CampaignSender>()) : QList<CampaignSender>();
  m_all.clear();
  QSet<QString> seen;
  for (const CampaignSender& sender : senders) {
    Entry entry{{sender.mailboxId, sender.displayName, sender.address, false, sender.viaTag,
                 todayText(sender.sentToday, sender.capToday), reasonOf(sender)},
                {},
                sender.capToday};
    if (const SenderMailbox* mailbox = m_mailboxes.find(sender.mailboxId))
      entry.tags = mailbox->record().tags.value_or(QList<QString>());
    seen.insert(sender.mailboxId);
    m_all.push_back(std::move(entry));
  }
  m_mailboxes.each([&](const SenderMailbox& row) {
    const Mailbox& mailbox = row.record();
    // The pool warms up the others and never sends for campaigns.
    if (seen.contains(mailbox.id) || mailbox.isPool()) return;
    const SenderFacts& facts = row.prepared();
    m_all.push_back({{mailbox.id, mailbox.displayName, mailbox.address, false, false, facts.today, facts.reason},
                     mailbox.tags.value_or(QList<QString>()),
                     facts.cap});
  });
}

void SenderPicker::showRows() {
  const QStringList picked = m_draft.typed().senders;
  const QSet<QString> ticked(picked.cbegin(), picked.cend());
  const QString wanted = m_query.trimmed();
  std::vector<SenderRow> rows;
  for (Entry& entry : m_all) {
    entry.row.ticked = ticked.contains(entry.row.id);
    if (wanted.isEmpty() || entry.row.name.contains(wanted, Qt::CaseInsensitive) ||
        entry.row.address.contains(wanted, Qt::CaseInsensitive))
      rows.push_back(entry.row);
  }
  m_rows.update(std::move(rows));
}

}  // namespace orv
