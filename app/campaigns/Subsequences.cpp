#include "app/campaigns/Subsequences.h"

#include "kit/api/Format.h"
#include "kit/models/campaigns/campaign.h"
#include "kit/models/campaigns/campaignRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

ORV_DEFINE_ROW(SubsequenceRow)

namespace {

const auto busyKey = u"create"_s;
/// Who asks not to be written to is written to no more.
const auto neverATrigger = u"unsubscribe"_s;

QString countText(const std::optional<qint64>& count) { return count ? Format::grouped(*count) : u"–"_s; }

}  // namespace

Subsequences::Subsequences(CampaignContext& context)
    : Store(context.workspace, &context.whole),
      m_context(context),
      m_actions(context.workspace, m_busy, [this] { refresh(); }),
      m_list(*this, [this] { return m_context.api.send(Requests::listSubsequences(m_context.id)); },
             {.failed = u"Couldn’t load the subsequences"_s}),
      m_labels(*this, [this] { return m_context.api.send(Requests::listReplyLabels()); }) {
  connect(&m_list, &ResourceBase::valueChanged, this, &Subsequences::show);
  connect(&m_labels, &ResourceBase::changed, this, &Subsequences::show);
  connect(&m_busy, &BusySet::changed, this, &Subsequences::changed);
  context.workspace.changes().watch<Campaign>(this, [this](const Change<Campaign>& change) { take(change); });
}

/// Subsequences are campaigns, and may be changed on their own pages.
void Subsequences::take(const Change<Campaign>& change) {
  if (change.kind == Change<Campaign>::Kind::stale || !m_list.value()) return m_list.markStale();
  const auto found = std::ranges::find(m_list.value()->items, change.id, &Subsequence::id);
  if (found == m_list.value()->items.end()) return;
  if (change.kind == Change<Campaign>::Kind::gone)
    return m_list.update([&change](SubsequenceList& list) {
      list.items.removeIf([&change](const Subsequence& item) { return item.id == change.id; });
    });
  m_list.amend([&change](SubsequenceList& list) {
    for (Subsequence& item : list.items) {
      if (item.id != change.id) continue;
      item.name = change.record->name;
      item.status = change.record->status;
      item.version = change.record->version;
      if (change.record->steps) item.steps = change.record->steps->size();
    }
  });
}

std::optional<qsizetype> Subsequences::count() const {
  return m_list.value() ? std::optional(m_list.value()->items.size()) : std::nullopt;
}

QString Subsequences::labelTitle(const QString& key) const {
  if (m_labels.value())
    for (const Label& label : m_labels.value()->items)
      if (label.key == key) return label.title();
  return key;
}

void Subsequences::show() {
  std::vector<SubsequenceRow> rows;
  if (m_list.value()) {
    for (const Subsequence& item : m_list.value()->items) {
      QStringList labels;
      for (const QString& key : item.trigger.value_or(CampaignTrigger()).labels) labels.append(labelTitle(key));
      rows.push_back({item.id, item.name, u"Starts when a reply is labelled "_s + labels.join(u", "_s),
                      item.status.rawValue, item.status.label(), countText(item.steps), countText(item.leads),
                      countText(item.sent), countText(item.replied)});
    }
  }
  m_rows.update(std::move(rows));
  Q_EMIT changed();
}

QVariantList Subsequences::labels() const {
  QVariantList list;
  if (!m_labels.value()) return list;
  for (const Label& label : m_labels.value()->items) {
    if (label.key == neverATrigger) continue;
    list.append(
        QVariantMap{{u"key"_s, label.key}, {u"label"_s, label.title()}, {u"ticked"_s, m_picked.contains(label.key)}});
  }
  return list;
}

QString Subsequences::labelsError() const {
  if (!m_labelsError.isEmpty()) return m_labelsError;
  return m_labels.message().isEmpty() ? QString() : u"Couldn’t load the labels. "_s + m_labels.message();
}

QString Subsequences::explanation() const {
  const Campaign* campaign = m_context.campaign.value();
  return u"It starts with "_s + (campaign ? campaign->name : QString()) +
         u"’s inboxes, schedule and options, and one step that replies in the lead’s conversation."_s;
}

void Subsequences::beginCreate() {
  if (creating()) return;
  m_formShown = true;
  m_name.clear();
  m_nameError.clear();
  m_picked.clear();
  m_labelsError.clear();
  if (!m_labels.value()) m_labels.load();
  Q_EMIT changed();
}

void Subsequences::setName(const QString& name) {
  if (std::exchange(m_name, name) == name) return;
  m_nameError.clear();
  Q_EMIT changed();
}

void Subsequences::toggleLabel(const QString& key) {
  if (key == neverATrigger) return;
  if (!m_picked.removeOne(key)) m_picked.append(key);
  m_labelsError.clear();
  Q_EMIT changed();
}

void Subsequences::cancel() {
  if (std::exchange(m_formShown, false)) Q_EMIT changed();
}

Task<void> Subsequences::createTask() {
  if (!m_formShown || creating()) co_return;
  const QString name = m_name.trimmed();
  if (name.isEmpty()) m_nameError = u"Give the subsequence a name"_s;
  if (m_picked.isEmpty()) m_labelsError = u"Pick at least one label"_s;
  Q_EMIT changed();
  if (name.isEmpty() || m_picked.isEmpty()) co_return;
  auto request = Requests::createSubsequence(m_context.id, {name, {m_picked}});
  const auto made = co_await m_actions.perform<Campaign>(
      {busyKey, m_context.id}, [request] { return request; }, u"Couldn’t create the subsequence."_s);
  if (!made) co_return;
  cancel();
  m_list.markStale();
  // The answer may come when the person has gone elsewhere; they are not to be fetched back.
  if (context().openedItem(Page::campaigns) == m_context.id) open(made->id);
}

}  // namespace orv
