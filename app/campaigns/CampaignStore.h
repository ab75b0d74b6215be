#pragma once

#include <QVariantList>

#include "app/base/Actions.h"
#include "app/base/Choice.h"
#include "app/base/EnumName.h"
#include "app/base/NameForm.h"
#include "app/base/Resource.h"
#include "app/base/Services.h"
#include "app/base/Store.h"
#include "app/campaigns/CampaignContext.h"
#include "app/campaigns/CampaignLeads.h"
#include "app/campaigns/CampaignRecords.h"
#include "app/campaigns/CampaignSettings.h"
#include "app/campaigns/CampaignStatsStore.h"
#include "app/campaigns/LaunchPath.h"
#include "app/campaigns/ProofWall.h"
#include "app/campaigns/SequenceEditor.h"
#include "app/campaigns/Subsequences.h"
#include "kit/api/APITransport.h"
#include "kit/models/campaigns/campaign.h"

namespace orv {

/// One campaign, kept warm while the person moves between a few of them: what its page shows and does.
///
/// Its words are its own: the list says the same things differently.
class CampaignStore final : public Store {
  Q_OBJECT
  Q_PROPERTY(QString id READ id CONSTANT)
  Q_PROPERTY(QString name READ name NOTIFY changed)
  Q_PROPERTY(QString statusWord READ statusWord NOTIFY changed)
  Q_PROPERTY(QString statusLabel READ statusLabel NOTIFY changed)
  Q_PROPERTY(QString parentId READ parentId NOTIFY changed)
  Q_PROPERTY(QString parentName READ parentName NOTIFY changed)
  Q_PROPERTY(QString mainAction READ mainAction NOTIFY changed)
  Q_PROPERTY(orv::ResourceBase* campaign READ campaign CONSTANT)
  Q_PROPERTY(orv::CampaignLeads* leads READ leads CONSTANT)
  Q_PROPERTY(orv::NameForm* renameForm READ renameForm CONSTANT)
  Q_PROPERTY(orv::SequenceEditor* sequence READ sequence CONSTANT)
  Q_PROPERTY(orv::ProofWall* proof READ proof CONSTANT)
  Q_PROPERTY(orv::CampaignStatsStore* stats READ stats CONSTANT)
  Q_PROPERTY(orv::CampaignSettings* settings READ settings CONSTANT)
  Q_PROPERTY(orv::Subsequences* subsequences READ subsequences CONSTANT)
  Q_PROPERTY(QString tab READ tabName WRITE setTab NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> tabs READ tabs NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> launchPath READ launchPath NOTIFY launchPathChanged)
  Q_PROPERTY(bool readyToLaunch READ readyToLaunch NOTIFY launchPathChanged)
  Q_PROPERTY(bool busy READ busy NOTIFY busyChanged)

 public:
  enum class Tab { sequence, leads, settings, subsequences, stats, proof };
  Q_ENUM(Tab)

  CampaignStore(QString id, WorkspaceContext& context);

  const QString& id() const { return m_id; }
  /// Empty until loaded, as everything that comes from the campaign.
  QString name() const;
  QString statusWord() const;
  QString statusLabel() const;
  /// The campaign that a subsequence belongs to.
  QString parentId() const;
  QString parentName() const;
  /// "launch", "pause", "resume", or nothing when the campaign is none of these three.
  QString mainAction() const;
  Resource<Campaign>* campaign() { return &m_campaign; }
  CampaignLeads* leads() { return &m_leads; }
  NameForm* renameForm() { return &m_rename; }
  SequenceEditor* sequence() { return &m_sequence; }
  ProofWall* proof() { return &m_proof; }
  CampaignStatsStore* stats() { return &m_stats; }
  CampaignSettings* settings() { return &m_settings; }
  Subsequences* subsequences() { return &m_subsequences; }

  Tab tab() const { return m_tab; }
  QString tabName() const { return enumName(m_tab); }
  /// By its name; another name changes nothing.
  void setTab(const QString& name);
  /// Key, label and, once known, count of each tab; ticked where something waits for its button.
  QList<Choice> tabs() const;
  /// Opens the settings at one of their sections.
  void showSection(const QString& section);

  /// What a campaign needs before it is launched; empty for any other.
  const QList<Choice>& launchPath() const { return m_launchPath; }
  /// Everything of that is there.
  bool readyToLaunch() const;
  /// Leads to where one of it is done.
  Q_INVOKABLE void openLaunchStep(const QString& key);

  /// An action on the campaign is under way; another one is not begun meanwhile.
  bool busy() const { return m_busy.contains(m_id); }

  PagePlace where() const override { return {.tab = tabName(), .value = {}}; }
  void goTo(const PagePlace& place) override { setTab(place.tab); }
  /// The list that it is one of.
  Q_INVOKABLE void openCampaigns() { context().open(Page::campaigns); }
  /// Another one.
  Q_INVOKABLE void openCampaign(const QString& id) { context().openItem(Page::campaigns, id); }

  /// Loads the open tab's own things again as well.
  Q_INVOKABLE void refreshShown();

  Q_INVOKABLE void beginRename();
  /// Launches or, when the campaign is paused, resumes it.
  Q_INVOKABLE void launch() { m_tasks.start(launchTask()); }
  Q_INVOKABLE void pause() { m_tasks.start(pauseTask()); }
  Q_INVOKABLE void duplicate() { m_tasks.start(duplicateTask()); }
  Q_INVOKABLE void remove() { m_tasks.start(removeTask()); }
  Q_INVOKABLE void restore() { m_tasks.start(restoreTask()); }
  Q_INVOKABLE void copyLink();

  Task<void> renameTask(QString name);
  Task<void> launchTask();
  Task<void> pauseTask();
  Task<void> duplicateTask();
  Task<void> removeTask();
  Task<void> restoreTask();

  /// One sentence that names what the service does not have yet: "“Fair” has unsaved changes: sequence, settings."
  QStringList unsavedWork() const override;
  /// Saves the sequence; what waits for a button stays. True when nothing is unsaved then; this object may go while
  /// the task waits, which then gives false.
  Task<bool> flush() override;

 Q_SIGNALS:
  void changed();
  void busyChanged();
  void launchPathChanged();

 protected:
  QList<PageAction> offered(const QString& record) override;

 private:
  QList<PageAction> offeredInTabs();
  Task<bool> checkBeforeLaunch();
  Task<bool> saveSequence(QString failure);
  void take(const Change<Campaign>& change);
  void followLaunchPath();
  void followUnsaved();
  void openText(const QString& lead, const QString& letter);

  QString m_id;
  BusySet m_busy;
  Actions m_actions;
  Archive<Campaign> m_archive;
  Resource<Campaign> m_campaign;
  CampaignContext m_context;
  SequenceEditor m_sequence;
  CampaignStatsStore m_stats;
  CampaignLeads m_leads;
  CampaignSettings m_settings;
  Subsequences m_subsequences;
  ProofWall m_proof;
  NameForm m_rename;
  RenamedCampaign m_renamed;
  Tab m_tab = Tab::sequence;
  QList<Choice> m_launchPath;
  bool m_unsavedSettings = false;
};

}  // namespace orv
