#pragma once

#include "app/base/Choice.h"
#include "app/base/JobForm.h"
#include "app/base/KeptFields.h"
#include "app/base/Resource.h"
#include "app/leads/CampaignAddJob.h"
#include "kit/models/campaigns/campaignSummary.h"

namespace orv {

/// What a person fills in to add leads to a campaign.
struct CampaignAddingFields {
  QString newName;
  bool skipOthers = false;
};
BOOST_DESCRIBE_STRUCT(CampaignAddingFields, (), (newName, skipOthers))

/// The form that adds leads to a campaign, or to a new one, and then shows what came of it. Whom it adds is fixed when
/// it opens; the adding is a job of the workspace.
class AddToCampaign final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::JobForm* form READ form CONSTANT)
  Q_PROPERTY(orv::Recovery* recovery READ recovery CONSTANT)
  Q_PROPERTY(orv::ResourceBase* campaigns READ campaigns CONSTANT)
  Q_PROPERTY(QString about READ about NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> options READ options NOTIFY changed)
  Q_PROPERTY(QString current READ current WRITE setCurrent NOTIFY changed)
  Q_PROPERTY(bool isNew READ isNew NOTIFY changed)
  Q_PROPERTY(bool hasNone READ hasNone NOTIFY changed)
  Q_PROPERTY(QString newName READ newName WRITE setNewName NOTIFY changed)
  Q_PROPERTY(bool skipOthers READ skipOthers WRITE setSkipOthers NOTIFY changed)
  Q_PROPERTY(QString submitLabel READ submitLabel NOTIFY changed)
  Q_PROPERTY(QString need READ need NOTIFY changed)
  Q_PROPERTY(bool canSubmit READ canSubmit NOTIFY changed)
  Q_PROPERTY(bool ended READ ended NOTIFY changed)
  Q_PROPERTY(QString summary READ summary NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> result READ result NOTIFY changed)

 public:
  static constexpr QLatin1String makeNew{"__new__"};

  AddToCampaign(WorkspaceContext& context, Store& whole);

  JobForm* form() { return &m_form; }
  Recovery* recovery() { return m_kept.recovery(); }
  Resource<CampaignList>* campaigns() { return &m_campaigns; }
  /// Whom: "3 selected leads".
  QString about() const { return m_about; }
  QList<Choice> options() const;
  /// An id, or "__new__"; empty while none is picked.
  const QString& current() const { return m_current; }
  void setCurrent(const QString& key);
  bool isNew() const { return m_current == makeNew; }
  /// There is no campaign to pick.
  bool hasNone() const { return m_campaigns.state().isEmpty(); }
  const QString& newName() const { return m_newName; }
  void setNewName(const QString& name);
  /// Leads that are in another campaign are left out.
  bool skipOthers() const { return m_skipOthers; }
  void setSkipOthers(bool skip);
  QString submitLabel() const { return isNew() ? QStringLiteral("Create and add") : QStringLiteral("Add to campaign"); }
  /// What is missing; empty for nothing.
  QString need() const;
  bool canSubmit() const { return !m_form.busy() && !ended() && need().isEmpty(); }

  /// It is done: what came of it is shown.
  bool ended() const { return m_isEnded; }
  QString summary() const;
  /// A line for each kind of lead, and how many that are.
  QList<Choice> result() const;

  void open(const LeadTarget& target);
  Q_INVOKABLE void submit();
  Q_INVOKABLE void openCampaign();
  Q_INVOKABLE void retry() { m_campaigns.load(); }

  void close() override;

 Q_SIGNALS:
  void changed();

 private:
  void fill(const CampaignAddingFields& fields);
  void campaignsArrived();
  bool took(const Job& job, bool isShown);

  Resource<CampaignList> m_campaigns;
  JobForm m_form;
  LeadTarget m_target;
  QString m_about;
  QString m_current;
  QString m_newName;
  bool m_skipOthers = false;
  KeptFields<CampaignAddingFields> m_kept;
  /// What the job that was sent off has come to; its own as well.
  std::shared_ptr<CampaignAdded> m_added;
  bool m_isEnded = false;
};

}  // namespace orv
