#include "app/campaigns/CampaignSettings.h"

#include "kit/models/campaigns/campaign.h"
#include "kit/models/campaigns/campaignRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

const auto busyKey = u"settings"_s;

struct Section {
  QString key;
  QString label;
  /// Names of the draft's.
  QStringList fields;
};

const QList<Section>& allSections() {
  static const QList<Section> sections{
      {u"campaign"_s, u"Campaign"_s, {u"name"_s, u"tags"_s}},
      {u"senders"_s, u"Senders"_s, {u"senders"_s, u"senderTags"_s}},
      {u"sending"_s,
       u"Sending"_s,
       {u"prioritizeNew"_s, u"stopOnReply"_s, u"stopOnAutoReply"_s, u"stopCompanyOnReply"_s, u"unsubscribeHeader"_s}},
      {u"limits"_s, u"Limits"_s, {u"dailyCap"_s, u"gap"_s, u"dailyLimit"_s, u"maxNewPerDay"_s}},
      {u"copies"_s, u"Copies"_s, {u"cc"_s, u"bcc"_s}},
      {u"dates"_s, u"Dates"_s, {u"startDate"_s, u"endDate"_s}},
      {u"schedules"_s, u"Schedules"_s, {}}};
  return sections;
}

}  // namespace

CampaignSettings::CampaignSettings(CampaignContext& context)
    : Store(context.workspace, &context.whole),
      m_context(context),
      m_actions(context.workspace, m_busy, [this] { m_context.refresh(); }),
      m_recovery(context.workspace, Recovery::of(m_draft)),
      m_tagList(*this, [&api = context.api] { return api.send(Requests::listTags()); },
                {.failed = u"Couldn’t load the tags"_s}),
      m_senders(context, m_draft),
      m_schedule(context, m_actions, m_busy) {
  connect(&context.campaign, &ResourceBase::valueChanged, this, &CampaignSettings::follow);
  connect(&m_busy, &BusySet::changed, this, &CampaignSettings::changed);
  connect(&m_tagList, &ResourceBase::changed, this, &CampaignSettings::changed);
  connect(&m_draft, &FieldDraft::changed, this, &CampaignSettings::changed);
  connect(&m_schedule, &ScheduleForm::changed, this, &CampaignSettings::changed);
  connect(&m_draft, &FieldDraft::changed, &m_recovery, &Recovery::follow);
  connect(&m_recovery, &Recovery::changed, &m_senders, &SenderPicker::show);
  context.failedSaves.follow(m_draft);
  m_draft.setKey(u"campaigns/"_s + context.id + u"/settings"_s);
  // Before the page takes it over: a rename in its header or in the list is nobody else's.
  context.workspace.changes().watch<Campaign>(this, [this](const Change<Campaign>& change) {
    if (change.record && change.id == m_context.id && change.madeOn && m_context.campaign.value())
      m_draft.rebase(settingsOf(*change.record), change.record->version, change.madeOn);
  });
  follow();
}

void CampaignSettings::refresh() {
  m_senders.refresh();
  m_tagList.load();
}

bool CampaignSettings::saving() const { return m_busy.contains(busyKey); }

QString CampaignSettings::notice() const {
  const Campaign* campaign = m_context.campaign.value();
  const bool runs = campaign && campaign->status.isRunning();
  return runs ? u"This campaign is running. Changes apply to the next sends."_s : QString();
}

QList<Choice> CampaignSettings::sections() const {
  QList<Choice> sections;
  for (const Section& section : allSections()) {
    const bool isTyped =
        std::ranges::any_of(section.fields, [this](const auto& field) { return m_draft.isDirty(field); });
    const bool isUnsaved = isTyped || (section.fields.isEmpty() && m_schedule.unsaved());
    sections.append({.key = section.key, .label = section.label, .ticked = isUnsaved});
  }
  return sections;
}

void CampaignSettings::ask(const QString& section) {
  m_asked = section;
  Q_EMIT sectionAsked();
}

QList<Label> CampaignSettings::tagItems() const {
  return m_tagList.value() ? m_tagList.value()->items : QList<Label>();
}

QList<Choice> CampaignSettings::tags() const {
  QList<Choice> chips;
  const QList<Label> known = tagItems();
  for (const QString& key : m_draft.typed().tags) {
    const auto found = std::ranges::find(known, key, &Label::key);
    chips.append({.key = key, .label = found == known.end() ? key : found->title()});
  }
  return chips;
}

QList<Choice> CampaignSettings::tagSuggestions() const {
  QList<Choice> chips;
  const QStringList picked = m_draft.typed().tags;
  for (const Label& tag : tagItems())
    if (!picked.contains(tag.key)) chips.append({.key = tag.key, .label = tag.title()});
  return chips;
}

QString CampaignSettings::tagNote() const {
  if (!m_tagList.message().isEmpty()) return u"Couldn’t load the tags. "_s + m_tagList.message();
  return m_tagList.value() && m_tagList.value()->items.isEmpty() ? u"No tags yet. Type one below."_s : QString();
}

void CampaignSettings::follow() {
  const Campaign* campaign = m_context.campaign.value();
  if (!campaign) return;
  m_draft.rebase(settingsOf(*campaign), campaign->version);
  m_recovery.begin(m_draft.key(), campaign->version);
  m_senders.show();
}

void CampaignSettings::addTags(const QStringList& texts) {
  for (const QString& text : texts) addTag(text);
}

void CampaignSettings::addTag(const QString& text) {
  QString key = text.trimmed();
  for (const Label& tag : tagItems())
    if (tag.title().compare(key, Qt::CaseInsensitive) == 0) key = tag.key;
  QStringList tags = m_draft.typed().tags;
  if (key.isEmpty() || tags.contains(key)) return;
  tags.append(key);
  tags.sort();
  m_draft.set(u"tags"_s, tags);
}

void CampaignSettings::removeTag(const QString& key) {
  QStringList tags = m_draft.typed().tags;
  tags.removeOne(key);
  m_draft.set(u"tags"_s, tags);
}

Task<void> CampaignSettings::saveTask() {
  const Campaign* campaign = m_context.campaign.value();
  if (!campaign || !canSave()) co_return;
  const SettingsFields sent = m_draft.sending(), base = m_draft.base();
  m_draft.setProblems(problemsIn(sent, base));
  if (!m_draft.problems().isEmpty()) co_return;
  // Blanks around a name, say.
  if (patchOf(sent, base, *campaign) == CampaignPatch()) co_return discard();
  // Of the campaign as it is when the turn comes: its hours go along with changed dates.
  const auto build = [this, sent, base] {
    const CampaignPatch patch = patchOf(sent, base, *m_context.campaign.value());
    return Requests::updateCampaign(m_context.id, patch, m_draft.version());
  };
  const auto saved = co_await m_actions.perform<Campaign>(
      {busyKey, m_context.id}, build, u"Couldn’t save."_s,
      [this](const Campaign& answer) { m_draft.taken(settingsOf(answer), answer.version); },
      [this](const APIError& error) {
        return m_context.failedSaves.failed(m_draft, u"Couldn’t save the settings."_s, error);
      });
  if (!saved) co_return;
  m_context.services.toasts.success(u"Settings saved"_s);
}

Task<void> CampaignSettings::saveAllTask() {
  co_await saveTask();
  if (m_schedule.dirty()) co_await m_schedule.saveTask();
}

}  // namespace orv
