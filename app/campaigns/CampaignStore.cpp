#include "app/campaigns/CampaignStore.h"

#include <QPointer>

#include "app/campaigns/LaunchQuestion.h"
#include "kit/models/campaigns/campaignRequests.h"
#include "kit/models/campaigns/launchCheck.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

const ConfirmRequest pauseQuestion{u"Pause this campaign?"_s,
                                   u"Nothing more goes out until you resume. Leads keep their place in the sequence."_s,
                                   u"Pause campaign"_s,
                                   u"Cancel"_s,
                                   false,
                                   {}};

ConfirmRequest removeQuestion(const QString& name) {
  return {u"Delete "_s + name + u'?',
          u"Stops sending at once. The campaign waits in Archived for 30 days, so you can restore it."_s,
          u"Delete campaign"_s,
          u"Cancel"_s,
          true,
          {}};
}

/// Says what keeps the campaign from being launched, and offers the tab where the first of it is mended.
ConfirmRequest blockedQuestion(const Campaign& campaign, const QList<QcCheck>& blocking) {
  QStringList lines;
  for (const QcCheck& check : blocking) lines.append(check.label + u": "_s + check.detail);
  return {campaign.name + u" can’t launch yet"_s, lines.join(u'\n'), u"Show me"_s, u"Close"_s, false, {}};
}

}  // namespace

CampaignStore::CampaignStore(QString id, APITransport& api, Services& services, std::function<void()> changedElsewhere,
                             QObject* parent)
    : Store(parent),
      m_id(std::move(id)),
      m_services(services),
      m_api(api),
      m_changedElsewhere(std::move(changedElsewhere)),
      m_actions(api, services.toasts, m_busy, [this] { refresh(); }),
      m_campaign(
          services.clock, [this] { return m_api.send(Requests::getCampaign(m_id)); },
          [](const Campaign&) { return false; }),
      m_context{
          m_id, api, services, m_campaign, [this](const Campaign& campaign) { take(campaign); }, [this] { refresh(); }},
      m_sequence(m_context),
      m_stats(m_context),
      m_leads(m_context),
      m_settings(m_context),
      m_subsequences(m_context),
      m_rename({u"Rename campaign"_s, {}, u"Campaign name"_s, u"Rename"_s}) {
  connect(&m_campaign, &ResourceBase::changed, this, &CampaignStore::changed);
  connect(&m_campaign, &ResourceBase::refreshFailed, this,
          [this](const APIError& error) { m_services.toasts.failure(u"Couldn’t load this campaign"_s, error); });
  connect(&m_busy, &BusySet::changed, this, &CampaignStore::busyChanged);
  connect(m_subsequences.list(), &ResourceBase::valueChanged, this, &CampaignStore::changed);
  m_rename.onSubmit = [this](const QString& name) { m_tasks.start(renameTask(name)); };
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
  return campaign->launchedAt ? QString() : u"launch"_s;
}

void CampaignStore::setTab(const QString& name) {
  const auto tab = enumNamed<Tab>(name);
  if (tab && std::exchange(m_tab, *tab) != *tab) Q_EMIT changed();
}

QVariantList CampaignStore::tabs() const {
  const Campaign* campaign = m_campaign.value();
  const auto tab = [](Tab key, const QString& label, const QVariant& count = {}) {
    QVariantMap map{{u"key"_s, enumName(key)}, {u"label"_s, label}};
    if (count.isValid()) map.insert(u"count"_s, count);
    return map;
  };
  const QVariant leads = campaign && campaign->stats ? QVariant(campaign->stats->leads.total) : QVariant();
  QVariantList tabs{tab(Tab::sequence, u"Sequence"_s), tab(Tab::leads, u"Leads"_s, leads),
                    tab(Tab::settings, u"Settings"_s)};
  // A subsequence has none of its own.
  const auto subsequences = m_subsequences.count();
  if (parentId().isEmpty())
    tabs.append(tab(Tab::subsequences, u"Subsequences"_s, subsequences ? QVariant(*subsequences) : QVariant()));
  tabs.append(tab(Tab::stats, u"Stats"_s));
  return tabs;
}

void CampaignStore::setCanWrite(bool canWrite) {
  if (std::exchange(m_canWrite, canWrite) != canWrite) Q_EMIT changed();
}

void CampaignStore::ensureLoaded() {
  if (std::exchange(m_loaded, true)) return;
  m_campaign.load();
}

void CampaignStore::refresh() {
  m_loaded = true;
  m_campaign.load();
}

void CampaignStore::refreshShown() {
  refresh();
  if (m_tab == Tab::leads) m_leads.refresh();
  if (m_tab == Tab::subsequences) m_subsequences.refresh();
  if (m_tab == Tab::stats) m_stats.refresh();
}

QStringList CampaignStore::unsavedWork() const {
  QStringList parts;
  if (m_sequence.isUnsaved()) parts.append(u"sequence"_s);
  if (m_settings.dirty()) parts.append(u"settings"_s);
  if (m_settings.schedule().dirty()) parts.append(u"schedule"_s);
  if (m_leads.panel().dirty()) parts.append(u"a lead’s details"_s);
  if (parts.isEmpty()) return {};
  return {u"“%1” has unsaved changes: %2."_s.arg(name(), parts.join(u", "_s))};
}

Task<bool> CampaignStore::flush() {
  const QPointer store(this);
  if (!co_await m_sequence.flush() || !store) co_return false;
  co_return unsavedWork().isEmpty();
}

void CampaignStore::beginRename() {
  if (m_campaign.value() && !busy()) m_rename.show(name());
}

void CampaignStore::take(const Campaign& campaign) {
  const Campaign* current = m_campaign.value();
  if (current && current->version && campaign.version && *campaign.version < *current->version) {
    // Overtaken by another answer: neither of the two has everything.
    refresh();
  } else {
    m_campaign.update([&campaign](Campaign& shown) { shown = campaign; });
  }
  m_changedElsewhere();
}

Task<void> CampaignStore::renameTask(QString name) {
  const Campaign* campaign = m_campaign.value();
  if (!campaign || name == campaign->name) co_return m_rename.cancel();
  CampaignPatch patch;
  patch.name = name;
  auto submission = m_rename.begin();
  auto request = Requests::updateCampaign(m_id, patch, campaign->version);
  if (const auto renamed = co_await m_actions.perform(m_id, std::move(request), u"Couldn’t rename the campaign."_s)) {
    submission.succeed();
    take(*renamed);
  }
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
  const bool show = co_await m_services.overlays.confirm(blockedQuestion(*campaign, blocking));
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
  if (co_await m_sequence.flush()) co_return true;
  setTab(enumName(Tab::sequence));
  m_services.toasts.show(failure, Toasts::Tone::error, {}, {}, m_sequence.autosave()->message());
  co_return false;
}

Task<void> CampaignStore::launchTask() {
  if (!m_campaign.value()) co_return;
  const auto mark = m_busy.mark(m_id);
  if (!mark) co_return;
  if (!co_await saveSequence(u"Couldn’t launch the campaign."_s)) co_return;
  const bool resumes = isResume(*m_campaign.value());
  // What keeps a campaign from being launched is the service's to say of one that has been running.
  if (!resumes && !co_await checkBeforeLaunch()) co_return;
  const Campaign campaign = *m_campaign.value();
  if (!co_await m_services.overlays.confirm(launchQuestion(campaign))) co_return;
  const auto launched = co_await m_actions.send(Requests::launchCampaign(m_id, {namesExternal(campaign)}), {});
  if (!launched) co_return;
  take(*launched);
  m_services.toasts.success(resumes ? u"Campaign resumed. Sends are being booked."_s
                                    : u"Campaign launched. The first email goes out in about 2 minutes."_s);
}

Task<void> CampaignStore::pauseTask() {
  const auto mark = m_busy.mark(m_id);
  if (!mark || !co_await m_services.overlays.confirm(pauseQuestion)) co_return;
  if (const auto paused = co_await m_actions.send(Requests::pauseCampaign(m_id), u"Couldn’t pause the campaign."_s)) {
    take(*paused);
    m_services.toasts.success(u"Campaign paused. Booked sends were cancelled."_s);
  }
}

Task<void> CampaignStore::duplicateTask() {
  const auto mark = m_busy.mark(m_id);
  const auto failure = u"Couldn’t duplicate the campaign."_s;
  if (!mark || !co_await saveSequence(failure)) co_return;
  if (const auto copy = co_await m_actions.send(Requests::duplicateCampaign(m_id), failure)) {
    m_changedElsewhere();
    m_services.toasts.success(copy->name + u" created"_s);
  }
}

Task<void> CampaignStore::removeTask() {
  const QString name = this->name();
  const auto mark = m_busy.mark(m_id);
  if (!mark || !co_await m_services.overlays.confirm(removeQuestion(name))) co_return;
  const auto removed =
      co_await m_actions.send(Requests::deleteCampaign(m_id, false), u"Couldn’t delete the campaign."_s);
  if (!removed) co_return;
  m_changedElsewhere();
  if (m_services.router.openedItem(Page::campaigns) == m_id) m_services.router.open(Page::campaigns);
  m_services.toasts.show(u"Deleted “"_s + name + u"”. It’s in Archived."_s, Toasts::Tone::standard, u"Undo"_s,
                         [store = QPointer(this)] {
                           if (store) store->restore();
                         });
}

Task<void> CampaignStore::restoreTask() {
  if (const auto restored =
          co_await m_actions.perform(m_id, Requests::restoreCampaign(m_id), u"Couldn’t restore the campaign."_s)) {
    take(*restored);
    m_services.toasts.success(restored->name + u" restored"_s);
  }
}

void CampaignStore::copyLink() {
  QUrl link = m_services.webOrigin;
  link.setPath(u"/campaigns/"_s + m_id);
  m_services.clipboard.setText(link.toString(QUrl::FullyEncoded));
  m_services.toasts.success(u"Link copied"_s);
}

void CampaignStore::close() {
  m_campaign.cancel();
  m_sequence.close();
  m_stats.close();
  m_leads.close();
  m_settings.close();
  m_subsequences.close();
  Store::close();
}

}  // namespace orv
