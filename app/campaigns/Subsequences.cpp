#include "app/campaigns/Subsequences.h"

#include "app/base/cellText.h"
#include "app/base/shownName.h"
#include "kit/api/Format.h"
#include "kit/models/campaigns/campaign.h"
#include "kit/models/campaigns/campaignRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

ORV_DEFINE_ROW(SubsequenceRow)

namespace {

/// Who asks not to be written to is written to no more.
const auto neverATrigger = u"unsubscribe"_s;

QString countText(const std::optional<qint64>& count) { return count ? Format::grouped(*count) : noValue; }

}  // namespace

Subsequences::Subsequences(CampaignContext& context)
    : Store(context.workspace, &context.whole),
      m_context(context),
      m_actions(context.workspace, m_busy, [this] { m_list.load(); }),
      m_list(*this, [this] { return m_context.api.send(Requests::listSubsequences(m_context.id)); },
             {.failed = u"Couldn’t load the subsequences"_s}),
      m_labels(*this, [this] { return m_context.api.send(Requests::listReplyLabels()); },
               {.failed = u"Couldn’t load the labels"_s}),
      m_recovery(context.workspace, Recovery::of(m_draft)) {
  connect(&m_list, &ResourceBase::valueChanged, this, &Subsequences::show);
  connect(&m_labels, &ResourceBase::changed, this, &Subsequences::show);
  connect(&m_draft, &FieldDraft::changed, this, &Subsequences::changed);
  m_recovery.keep(m_form, m_draft);
  m_draft.setKey(u"campaigns/"_s + context.id + u"/new-subsequence"_s);
  context.workspace.changes().watch<Campaign>(this, [this](const Change<Campaign>& change) { take(change); });
}

/// Subsequences are campaigns, and may be changed on their own pages.
void Subsequences::take(const Change<Campaign>& change) {
  if (change.kind == Change<Campaign>::Kind::stale || !m_list.value()) return m_list.markStale();
  const auto found = std::ranges::find(m_list.value()->items, change.id, &Subsequence::id);
  if (found == m_list.value()->items.end()) {
    // Somebody here made it or brought it back; one of the other campaigns' is none of this one's.
    const bool mayBeOurs =
        change.acted && change.record && (!change.record->parent || change.record->parent->id == m_context.id);
    if (mayBeOurs && change.id != m_context.id) m_list.markStale();
    return;
  }
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

void Subsequences::ensureLoaded() {
  m_list.ensureLoaded();
  m_labels.load();
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

QList<Choice> Subsequences::labels() const {
  QList<Choice> list;
  if (!m_labels.value()) return list;
  const QStringList picked = m_draft.typed().labels;
  for (const Label& label : m_labels.value()->items) {
    if (label.key == neverATrigger) continue;
    list.append({.key = label.key, .label = label.title(), .ticked = picked.contains(label.key)});
  }
  return list;
}

QString Subsequences::labelsNote() const {
  return m_labels.message().isEmpty() ? QString() : u"Couldn’t load the labels. "_s + m_labels.message();
}

QString Subsequences::explanation() const {
  const Campaign* campaign = m_context.campaign.value();
  return u"It starts with "_s + (campaign ? shownName(campaign->name) : QString()) +
         u"’s inboxes, schedule and options, and one step that replies in the lead’s conversation."_s;
}

void Subsequences::beginCreate() {
  m_draft.fill(NewSubsequence());
  m_labels.load();
  m_form.show();
}

void Subsequences::toggleLabel(const QString& key) {
  if (key == neverATrigger) return;
  QStringList picked = m_draft.typed().labels;
  if (!picked.removeOne(key)) picked.append(key);
  m_draft.set(u"labels"_s, picked);
}

Task<void> Subsequences::createTask() {
  if (!m_form.shown() || m_form.busy()) co_return;
  const NewSubsequence typed = m_draft.typed();
  const QString name = typed.name.trimmed();
  QVariantMap problems;
  if (name.isEmpty()) problems.insert(u"name"_s, u"Give the subsequence a name"_s);
  if (typed.labels.isEmpty()) problems.insert(u"labels"_s, u"Pick at least one label"_s);
  m_draft.setProblems(problems);
  if (!problems.isEmpty()) co_return;
  auto submission = m_form.begin();
  const auto made = co_await m_actions.send(
      Requests::createSubsequence(m_context.id, {name, {typed.labels}}), u"Couldn’t create the subsequence."_s, {},
      [&submission](const APIError& error) { return submission.fail(error.message()); });
  if (!made) co_return;
  m_list.ensureLoaded();
  // Who closed the form, or has gone elsewhere, is not to be fetched back.
  const bool isHere = context().openedItem(Page::campaigns) == m_context.id;
  if (submission.succeed() && isHere) co_return open(made->id);
  services().toasts.success(shownName(made->name) + u" created"_s);
}

}  // namespace orv
