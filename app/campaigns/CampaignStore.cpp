#include "app/campaigns/CampaignStore.h"

#include <QPointer>

#include "app/base/shownName.h"
#include "app/campaigns/CampaignRecords.h"
#include "app/campaigns/LaunchQuestion.h"
#include "kit/api/PlatformDate.h"
#include "kit/api/wholeNumber.h"
#include "kit/models/campaigns/campaignRequests.h"
#include "kit/models/campaigns/launchCheck.h"
#include "kit/models/mailboxes/mailbox.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

const ConfirmRequest pauseQuestion{
    .title = u"Pause this campaign?"_s,
    .text = u"Nothing more goes out until you resume. Leads keep their place in the sequence."_s,
    .confirm = u"Pause campaign"_s};

ConfirmRequest removeQuestion(const QString& name) {
  return {.title = u"Delete "_s + shownName(name) + u'?',
          .text = u"Stops sending at once. The campaign waits in Archived for 30 days, so you can restore it."_s,
          .confirm = u"Delete campaign"_s,
          .destructive = true};
}

Archive<Campaign>::Words archiveWords() {
  return {
      .removed = [](const QString& name) { return u"Deleted “"_s + name + u"”. It’s in Archived."_s; },
      .removedForGood = [](const QString& name) { return name + u" deleted for good"_s; },
      .restored = [](const QString&, const Campaign& campaign) { return shownName(campaign.name) + u" restored"_s; },
      .cannotRemove = [](const QString&) { return u"Couldn’t delete the campaign."_s; },
      .cannotRestore = [](const QString&) { return u"Couldn’t restore the campaign."_s; }};
}

/// Says what keeps the campaign from being launched, and offers the tab where the first of it is mended.
ConfirmRequest blockedQuestion(const Campaign& campaign, const QList<QcCheck>& blocking) {
  QStringList lines;
  for (const QcCheck& check : blocking) lines.append(shownName(check.label) + u": "_s + shownName(check.detail));
  return {.title = shownName(campaign.name) + u" can’t launch yet"_s,
          .text = lines.join(u'\n'),
          .confirm = u"Show me"_s,
          .cancel = u"Close"_s};
}

const auto campaignResumed = u"Campaign resumed. Sends are being booked."_s;

}  // namespace

CampaignStore::CampaignStore(QString id, WorkspaceContext& context)
    : Store(context),
      m_id(std::move(id)),
      m_actions(context, m_busy, [this] { refresh(); }),
      m_archive(context, m_actions, campaignArchiveRequests(), archiveWords()),
      m_campaign(*this, [this] { return api().send(Requests::getCampaign(m_id)); },
                 {.failed = u"Couldn’t load this campaign"_s}),
      m_context{
          .id = m_id, .workspace = context, .whole = *this, .campaign = m_campaign, .refresh = [this] { refresh(); }},
      m_sequence(m_context),
      m_stats(m_context),
      m_leads(m_context),
      m_settings(m_context),
      m_subsequences(m_context),
      m_proof(m_context, *m_sequence.autosave(),
              {.openLead =
                   [this](const CampaignLead& lead) {
                     setTab(enumName(Tab::leads));
                     m_leads.panel()->show(lead);
                   },
               .openText = [this](const auto& lead, const auto& letter) { openText(lead, letter); }}),
      m_rename({u"Rename campaign"_s, {}, u"Campaign name"_s, u"Rename"_s}, context) {
  connect(&m_campaign, &ResourceBase::changed, this, &CampaignStore::changed);
  connect(&m_campaign, &ResourceBase::valueChanged, this, [this] { m_renamed.follow(m_campaign.value()); });
  connect(&m_busy, &BusySet::changed, this, &CampaignStore::busyChanged);
  connect(m_subsequences.list(), &ResourceBase::valueChanged, this, &CampaignStore::changed);
  connect(&m_settings, &CampaignSettings::changed, this, &CampaignStore::followUnsaved);
  connect(&m_campaign, &ResourceBase::valueChanged, this, &CampaignStore::followLaunchPath);
  connect(&m_sequence, &SequenceEditor::changed, this, &CampaignStore::followLaunchPath);
  connect(m_sequence.autosave(), &SequenceAutosave::typed, this, &CampaignStore::followLaunchPath);
  context.changes().watch<Campaign>(this, [this](const auto& change) { take(change); });
  // Its senders are accounts, and have their states with it.
  context.changes().watch<Mailbox>(this, [this](const Change<Mailbox>& change) {
    if (change.acted) m_campaign.markStale();
  });
  m_rename.onSubmit = [this](const QString& name) { m_tasks.start(renameTask(name)); };
}

void CampaignStore::take(const Change<Campaign>& change) {
  using Kind = Change<Campaign>::Kind;
  if (!change.id.isEmpty() && change.id != m_id) return;
  if (change.kind == Kind::gone) {
    // Whoever is looking at it is led to where it can be brought back.
    if (this->context().openedItem(Page::campaigns) == m_id) this->context().open(Page::campaigns);
    m_campaign.markStale();
  } else if (change.kind == Kind::stale) {
    m_campaign.markStale();
  } else if (m_campaign.value() && *m_campaign.value() != *change.record) {
    const auto amend = [&change](Campaign& shown) { shown = *change.record; };
    change.acted ? m_campaign.update(amend) : m_campaign.amend(amend);
  }
}

QString CampaignStore::name() const {
  const Campaign* campaign = m_campaign.value();
  return campaign ? campaign->name : QString();
}

QString CampaignStore::statusWord() const {
  const Campaign* campaign = m_campaign.value();
  return campaign ? campaign->status.rawValue : QString();
}

QString CampaignStore::statusLabel() const {
  const Campaign* campaign = m_campaign.value();
  return campaign ? campaign->status.label() : QString();
}

QString CampaignStore::parentId() const {
  const Campaign* campaign = m_campaign.value();
  return campaign && campaign->parent ? campaign->parent->id : QString();
}

QString CampaignStore::parentName() const {
  const Campaign* campaign = m_campaign.value();
  return campaign && campaign->parent ? campaign->parent->name : QString();
}

QString CampaignStore::mainAction() const {
  const Campaign* campaign = m_campaign.value();
  if (!campaign) return {};
  if (campaign->status.isRunning()) return u"pause"_s;
  if (campaign->status.isPaused()) return u"resume"_s;
  // As the row and the figures count it: a date that cannot be read is none.
  return parsePlatformDate(campaign->launchedAt) ? QString() : u"launch"_s;
}

void CampaignStore::setTab(const QString& name) {
  const auto tab = enumNamed<Tab>(name);
  if (!tab || std::exchange(m_tab, *tab) == *tab) return;
  Q_EMIT changed();
  Q_EMIT moved();
}

void CampaignStore::showSection(const QString& section) {
  setTab(enumName(Tab::settings));
  m_settings.ask(section);
}

/// The first email for that lead, and the variant that it gets.
void CampaignStore::openText(const QString& lead, const QString& letter) {
  setTab(enumName(Tab::sequence));
  m_sequence.selectPlace(0);
  for (const Choice& variant : m_sequence.variants())
    if (variant.label == letter) m_sequence.showVariant(variant.key);
  m_sequence.preview()->setLead(lead);
}

void CampaignStore::followUnsaved() {
  if (std::exchange(m_unsavedSettings, m_settings.unsaved()) != m_settings.unsaved()) Q_EMIT changed();
}

void CampaignStore::followLaunchPath() {
  const Campaign* campaign = m_campaign.value();
  QList<Choice> path;
  if (campaign && mainAction() == "launch"_L1) path = orv::launchPath(*campaign, m_sequence.draft().steps());
  if (std::exchange(m_launchPath, path) != path) Q_EMIT launchPathChanged();
}

bool CampaignStore::readyToLaunch() const {
  return !m_launchPath.isEmpty() && std::ranges::all_of(m_launchPath, &Choice::ticked);
}

void CampaignStore::openLaunchStep(const QString& key) {
  if (enumNamed<Tab>(key))
    setTab(key);
  else
    showSection(key);
}

QList<Choice> CampaignStore::tabs() const {
  const Campaign* campaign = m_campaign.value();
  const auto tab = [](Tab key, const QString& label, qint64 count = -1) {
    return Choice{.key = enumName(key), .label = label, .count = saturated(count)};
  };
  const qint64 leads = campaign && campaign->stats ? campaign->stats->leads.total : -1;
  QList<Choice> tabs{tab(Tab::sequence, u"Sequence"_s), tab(Tab::leads, u"Leads"_s, leads),
                     tab(Tab::settings, u"Settings"_s)};
  tabs.last().ticked = m_unsavedSettings;
  // A subsequence has none of its own.
  const auto subsequences = m_subsequences.count();
  if (parentId().isEmpty()) tabs.append(tab(Tab::subsequences, u"Subsequences"_s, subsequences.value_or(-1)));
  tabs.append(tab(Tab::stats, u"Stats"_s));
  return tabs;
}

void CampaignStore::refreshShown() {
  refresh();
  if (m_tab == Tab::leads) m_leads.refresh();
  if (m_tab == Tab::settings) m_settings.refresh();
  if (m_tab == Tab::subsequences) m_subsequences.refresh();
  if (m_tab == Tab::stats) m_stats.refresh();
  if (m_tab == Tab::proof) m_proof.refresh();
}

QStringList CampaignStore::unsavedWork() const {
  QStringList parts;
  if (m_sequence.isUnsaved()) parts.append(u"sequence"_s);
  if (m_settings.dirty()) parts.append(u"settings"_s);
  if (m_settings.schedule().dirty()) parts.append(u"schedule"_s);
  if (m_leads.panel().dirty()) parts.append(u"a lead’s details"_s);
  if (parts.isEmpty()) return {};
  return {u"“%1” has unsaved changes: %2."_s.arg(shownName(name()), parts.join(u", "_s))};
}

Task<bool> CampaignStore::flush() {
  const QPointer store(this);
  if (!co_await m_sequence.flush() || !store) co_return false;
  co_return unsavedWork().isEmpty();
}

void CampaignStore::beginRename() {
  if (!m_campaign.value() || busy() || !canWrite()) return;
  m_renamed = RenamedCampaign::of(*m_campaign.value());
  m_rename.show(name(), renameKey(m_id), m_renamed.version);
}

Task<void> CampaignStore::renameTask(QString name) {
  const Campaign* campaign = m_campaign.value();
  if (!campaign || name == campaign->name) co_return m_rename.cancel();
  CampaignPatch patch;
  patch.name = name;
  auto submission = m_rename.begin();
  const auto build = [this, patch] {
    return Requests::updateCampaign(m_id, patch, m_renamed.versionBeside(m_campaign.value()));
  };
  const auto refused = [this](const APIError& error) { return m_renamed.failed(error); };
  if (co_await m_actions.perform<Campaign>({m_id, m_id}, build, u"Couldn’t rename the campaign."_s, {}, refused))
    submission.succeed();
}

Task<bool> CampaignStore::checkBeforeLaunch() {
  const Campaign* campaign = m_campaign.value();
  if (!campaign->qc || !campaign->qc->current) {
    const auto qc = co_await m_actions.send(Requests::checkCampaign(m_id), {});
    if (!qc) co_return false;
    m_campaign.update([&qc](Campaign& shown) { shown.qc = *qc; });
    campaign = m_campaign.value();
  }
  const auto blocking = blockingChecks(*campaign);
  if (blocking.isEmpty()) co_return true;
  const bool show = co_await services().overlays.confirm(blockedQuestion(*campaign, blocking));
  if (show) {
    for (const QcCheck& check : blocking) {
      if (tabOfCheck(check.key).isEmpty()) continue;
      setTab(tabOfCheck(check.key));
      break;
    }
  }
  co_return false;
}

/// What the service launches or copies is what it has, and the person means what they wrote.
Task<bool> CampaignStore::saveSequence(QString failure) {
  const QString why = co_await m_sequence.autosave()->saveFirst();
  if (why.isEmpty()) co_return true;
  setTab(enumName(Tab::sequence));
  services().toasts.show({.message = failure, .tone = Toasts::Tone::error, .detail = why});
  co_return false;
}

Task<void> CampaignStore::launchTask() {
  if (!m_campaign.value() || !canWrite()) co_return;
  const auto mark = m_busy.mark(m_id);
  if (!mark) co_return;
  const auto failure = u"Couldn’t launch the campaign."_s;
  if (!co_await saveSequence(failure)) co_return;
  const bool resumes = isResume(*m_campaign.value());
  // What keeps a campaign from being launched is the service's to say of one that has been running.
  if (!resumes && !co_await checkBeforeLaunch()) co_return;
  const Campaign campaign = *m_campaign.value();
  if (!co_await services().overlays.confirm(launchQuestion(campaign))) co_return;
  // Check and question take their time, and the text can be written on meanwhile.
  if (!co_await saveSequence(failure)) co_return;
  if (!co_await m_actions.change(m_id, Requests::launchCampaign(m_id, {namesExternal(campaign)}), {})) co_return;
  services().toasts.success(resumes ? campaignResumed
                                    : u"Campaign launched. The first email goes out in about 2 minutes."_s);
}

Task<void> CampaignStore::pauseTask() {
  const auto mark = m_busy.mark(m_id);
  if (!mark || !canWrite() || !co_await services().overlays.confirm(pauseQuestion)) co_return;
  if (!co_await m_actions.change(m_id, Requests::pauseCampaign(m_id), u"Couldn’t pause the campaign."_s)) co_return;
  services().toasts.show({.message = u"Campaign paused. Booked sends were cancelled."_s,
                          .tone = Toasts::Tone::success,
                          .actionLabel = u"Resume"_s,
                          .action = [store = QPointer(this), resume = laterResume(context(), m_id, campaignResumed)] {
                            store ? store->launch() : resume();
                          }});
}

Task<void> CampaignStore::duplicateTask() {
  const auto mark = m_busy.mark(m_id);
  const auto failure = u"Couldn’t duplicate the campaign."_s;
  if (!mark || !canWrite() || !co_await saveSequence(failure)) co_return;
  if (const auto copy = co_await m_actions.change(m_id, Requests::duplicateCampaign(m_id), failure))
    services().toasts.success(shownName(copy->name) + u" created"_s);
}

Task<void> CampaignStore::removeTask() {
  const QString name = this->name();
  const auto mark = m_busy.mark(m_id);
  if (!mark || !canWrite() || !co_await services().overlays.confirm(removeQuestion(name))) co_return;
  co_await m_archive.remove(m_id, name);
}

Task<void> CampaignStore::restoreTask() {
  if (const auto mark = m_busy.mark(m_id)) co_await m_archive.restore(m_id, name());
}

void CampaignStore::copyLink() { copyCampaignLink(services(), m_id); }

}  // namespace orv
