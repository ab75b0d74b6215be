#include "app/campaigns/CampaignSettings.h"

#include "kit/models/campaigns/campaign.h"
#include "kit/models/campaigns/campaignRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

const auto busyKey = u"settings"_s;

QVariantMap chip(const QString& key, const QString& label) { return {{u"key"_s, key}, {u"label"_s, label}}; }

}  // namespace

CampaignSettings::CampaignSettings(CampaignContext& context, QObject* parent)
    : Store(parent),
      m_context(context),
      m_actions(context.api, context.services.toasts, m_busy, [this] { m_context.refresh(); }),
      m_tagList(
          context.services.clock, [&api = context.api] { return api.send(Requests::listTags()); },
          [](const TagList& list) { return list.items.isEmpty(); }),
      m_senders(context, m_draft, [this](const QString& field, const QStringList& list) { set(field, list); }),
      m_schedule(context, m_actions, m_busy) {
  connect(&context.campaign, &ResourceBase::valueChanged, this, &CampaignSettings::follow);
  connect(&m_busy, &BusySet::changed, this, &CampaignSettings::changed);
  connect(&m_tagList, &ResourceBase::changed, this, &CampaignSettings::changed);
  follow();
}

void CampaignSettings::ensureLoaded() {
  m_senders.ensureLoaded();
  if (!std::exchange(m_loaded, true)) m_tagList.load();
}

bool CampaignSettings::saving() const { return m_busy.contains(busyKey); }

QString CampaignSettings::notice() const {
  const Campaign* campaign = m_context.campaign.value();
  const bool runs = campaign && campaign->status.rawValue == "running"_L1;
  return runs ? u"This campaign is running. Changes apply to the next sends."_s : QString();
}

QList<Label> CampaignSettings::knownTags() const {
  return m_tagList.value() ? m_tagList.value()->items : QList<Label>();
}

QVariantList CampaignSettings::tags() const {
  QVariantList chips;
  const QList<Label> known = knownTags();
  for (const QString& key : m_draft.tags) {
    const auto found = std::ranges::find(known, key, &Label::key);
    chips.append(chip(key, found == known.end() ? key : found->title()));
  }
  return chips;
}

QVariantList CampaignSettings::tagSuggestions() const {
  QVariantList chips;
  for (const Label& tag : knownTags())
    if (!m_draft.tags.contains(tag.key)) chips.append(chip(tag.key, tag.title()));
  return chips;
}

QString CampaignSettings::tagNote() const {
  return m_tagList.value() && m_tagList.value()->items.isEmpty() ? u"No tags yet. Type one below."_s : QString();
}

/// The campaign came again. What the person changed stays; everything else is as the service has it.
void CampaignSettings::follow() {
  const Campaign* campaign = m_context.campaign.value();
  if (!campaign) return;
  const SettingsDraft fresh = draftOf(*campaign);
  m_draft = rebased(m_draft, m_base, fresh);
  m_base = fresh;
  announce();
}

void CampaignSettings::announce() {
  m_senders.refresh();
  Q_EMIT changed();
}

void CampaignSettings::set(const QString& field, const QVariant& value) {
  if (!setField(m_draft, field, value)) return;
  m_errors.remove(field);
  if (field.startsWith("sender"_L1)) m_senders.refresh();
  Q_EMIT changed();
}

void CampaignSettings::addTags(const QStringList& texts) {
  for (const QString& text : texts) addTag(text);
}

void CampaignSettings::addTag(const QString& text) {
  QString key = text.trimmed();
  for (const Label& tag : knownTags())
    if (tag.title().compare(key, Qt::CaseInsensitive) == 0) key = tag.key;
  if (key.isEmpty() || m_draft.tags.contains(key)) return;
  if (m_draft.tags.size() >= mostTags) {
    m_errors.insert(u"tags"_s, u"20 tags is the most"_s);
    Q_EMIT changed();
    return;
  }
  QStringList tags = m_draft.tags;
  tags.append(key);
  tags.sort();
  set(u"tags"_s, tags);
}

void CampaignSettings::removeTag(const QString& key) {
  QStringList tags = m_draft.tags;
  tags.removeOne(key);
  set(u"tags"_s, tags);
}

void CampaignSettings::discard() {
  m_draft = m_base;
  m_errors.clear();
  announce();
}

Task<void> CampaignSettings::saveTask() {
  const Campaign* campaign = m_context.campaign.value();
  if (!campaign || !canSave()) co_return;
  m_errors = problemsIn(m_draft, m_base);
  Q_EMIT changed();
  if (!m_errors.isEmpty()) co_return;
  const SettingsDraft sent = m_draft;
  const CampaignPatch patch = patchOf(sent, m_base, *campaign);
  // Blanks around a name, say.
  if (patch == CampaignPatch()) co_return discard();
  auto request = Requests::updateCampaign(m_context.id, patch, campaign->version);
  const auto saved = co_await m_actions.perform(busyKey, std::move(request), u"Couldn’t save."_s);
  if (!saved) co_return;
  // What was typed meanwhile differs from what was sent, and so outlives the answer.
  m_base = sent;
  m_context.take(*saved);
  m_context.services.toasts.success(u"Settings saved"_s);
}

void CampaignSettings::close() {
  m_tagList.cancel();
  m_senders.close();
  m_schedule.close();
  Store::close();
}

}  // namespace orv
