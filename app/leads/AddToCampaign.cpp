#include "app/leads/AddToCampaign.h"

#include "app/base/shownName.h"
#include "kit/api/Format.h"
#include "kit/models/campaigns/campaignRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

AddToCampaign::AddToCampaign(WorkspaceContext& context, Store& whole)
    : Store(context, &whole),
      m_campaigns(*this, [this] { return api().send(Requests::listCampaigns(false)); }, {.loadsByItself = false}),
      m_kept(
          context, m_form,
          [this] {
            return CampaignAddingFields{m_newName, m_skipOthers};
          },
          [this](const CampaignAddingFields& fields) { fill(fields); }) {
  connect(this, &AddToCampaign::changed, m_kept.recovery(), [this] { m_kept.follow(); });
  connect(&m_campaigns, &ResourceBase::changed, this, &AddToCampaign::campaignsArrived);
  connect(&m_form, &Form::changed, this, &AddToCampaign::changed);
}

QList<Choice> AddToCampaign::options() const {
  QList<Choice> options{{.key = makeNew, .label = u"New campaign"_s}};
  if (m_campaigns.value())
    for (const CampaignSummary& campaign : m_campaigns.value()->items)
      options.append({.key = campaign.id, .label = campaign.name, .detail = campaign.status.label()});
  // Made by an adding that then failed.
  if (m_added && m_added->isMade)
    options.append({.key = m_added->campaignId, .label = m_added->campaignName, .detail = u"New"_s});
  return options;
}

void AddToCampaign::campaignsArrived() {
  // With nothing to pick the way on is a new one.
  if (hasNone() && m_current.isEmpty()) m_current = makeNew;
  Q_EMIT changed();
}

void AddToCampaign::setCurrent(const QString& key) {
  if (std::exchange(m_current, key) == key) return;
  m_form.clearError();
  Q_EMIT changed();
}

void AddToCampaign::setNewName(const QString& name) {
  if (std::exchange(m_newName, name) == name) return;
  m_form.clearError();
  Q_EMIT changed();
}

void AddToCampaign::fill(const CampaignAddingFields& fields) {
  if (!fields.newName.isEmpty()) setCurrent(makeNew);
  setNewName(fields.newName);
  setSkipOthers(fields.skipOthers);
}

void AddToCampaign::setSkipOthers(bool skip) {
  if (std::exchange(m_skipOthers, skip) != skip) Q_EMIT changed();
}

QString AddToCampaign::need() const {
  if (m_current.isEmpty()) return u"Pick a campaign"_s;
  return isNew() && m_newName.trimmed().isEmpty() ? u"Name your campaign"_s : QString();
}

QString AddToCampaign::summary() const { return m_added ? campaignAddSummary(*m_added) : QString(); }

QList<Choice> AddToCampaign::result() const {
  if (!m_added) return {};
  return campaignAddLines(m_added->sum);
}

void AddToCampaign::open(const LeadTarget& target) {
  if (!canWrite() || m_form.showRunning()) return;
  m_target = target;
  m_about = target.description();
  m_current.clear();
  m_newName.clear();
  m_skipOthers = false;
  m_added.reset();
  m_isEnded = false;
  m_campaigns.load();
  m_kept.open(u"leads/tab:/adding-to-campaign"_s);
  m_form.show();
}

void AddToCampaign::submit() {
  if (!canSubmit() || !m_form.shown()) return;
  QString name = m_newName.trimmed();
  for (const Choice& option : options())
    if (!isNew() && option.key == m_current) name = option.label;
  m_added = std::make_shared<CampaignAdded>(
      CampaignAdded{.campaignId = isNew() ? QString() : m_current, .campaignName = name});
  m_form.run(
      context(), u"Adding "_s + m_about + u" to "_s + shownName(name),
      u"Stopped. Leads that were taken by then are in the campaign."_s,
      [target = m_target, skip = m_skipOthers, added = m_added](Job& job) {
        return addToCampaign(&job, target, skip, added);
      },
      [this](Job& job, bool isShown) { return took(job, isShown); });
}

/// The form goes on with what came of it; true where that is shown.
bool AddToCampaign::took(const Job& job, bool isShown) {
  // Tried again, the adding goes into the campaign that is there by now.
  if (m_added->isMade) {
    m_current = m_added->campaignId;
    m_campaigns.load();
  }
  m_isEnded = isShown && !job.failed();
  if (m_isEnded) m_kept.taken();
  Q_EMIT changed();
  return m_isEnded;
}

void AddToCampaign::openCampaign() {
  if (!m_added || m_added->campaignId.isEmpty()) return;
  const QString id = m_added->campaignId;
  m_form.cancel();
  context().openItem(Page::campaigns, id);
}

void AddToCampaign::close() {
  m_kept.leave();
  m_form.letGo();
  Store::close();
}

}  // namespace orv
