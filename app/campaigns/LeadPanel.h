#pragma once

#include <QVariantList>

#include "app/base/Choice.h"
#include "app/base/Draft.h"
#include "app/base/Form.h"
#include "app/base/Recovery.h"
#include "app/base/Store.h"
#include "app/campaigns/CampaignContext.h"
#include "kit/models/campaigns/campaignLead.h"

namespace orv {

/// The drawer about one lead: what is known, what happened, and its custom fields, which can be changed.
///
/// What was typed stays until the service has that very text; it is given up only when the person says so.
class LeadPanel final : public Store {
  Q_OBJECT
  Q_PROPERTY(bool shown READ shown NOTIFY changed)
  Q_PROPERTY(QString leadId READ leadId NOTIFY changed)
  Q_PROPERTY(QString name READ name NOTIFY changed)
  Q_PROPERTY(QString statusWord READ statusWord NOTIFY changed)
  Q_PROPERTY(QString statusLabel READ statusLabel NOTIFY changed)
  Q_PROPERTY(bool removed READ removed NOTIFY changed)
  Q_PROPERTY(orv::ResourceBase* detail READ detail CONSTANT)
  Q_PROPERTY(bool detailed READ detailed NOTIFY changed)
  Q_PROPERTY(QString next READ next NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> facts READ facts NOTIFY leadChanged)
  Q_PROPERTY(QVariantList activity READ activity NOTIFY leadChanged)
  Q_PROPERTY(QStringList fieldNames READ fieldNames NOTIFY fieldsChanged)
  Q_PROPERTY(int fieldsRevision READ fieldsRevision NOTIFY fieldTextsChanged)
  Q_PROPERTY(orv::Recovery* recovery READ recovery CONSTANT)
  Q_PROPERTY(bool dirty READ dirty NOTIFY changed)
  Q_PROPERTY(bool saving READ saving NOTIFY changed)
  Q_PROPERTY(QString error READ error NOTIFY changed)
  Q_PROPERTY(QString conflict READ conflict NOTIFY changed)

 public:
  /// `changedLead` gets the lead as the service has it after a save.
  LeadPanel(CampaignContext& context, std::function<void(const CampaignLead&)> changedLead);

  bool shown() const { return m_form.shown(); }
  QString leadId() const { return m_lead.id; }
  QString name() const;
  QString statusWord() const { return m_lead.status.rawValue; }
  QString statusLabel() const { return m_lead.status.label(); }
  bool removed() const { return m_lead.removedAt.has_value(); }
  Resource<LeadDetail>* detail() { return &m_detail; }
  /// The detail is that of the lead shown; until then the list's own record is what is known.
  bool detailed() const;
  /// "Step 2 of 4 goes out 7 Mar, 14:20"; empty when nothing is booked.
  QString next() const;
  /// Label and detail of what is known.
  QList<Choice> facts() const;
  /// Title, text and moment of what happened, the newest first.
  QVariantList activity() const;

  const QStringList& fieldNames() const { return m_fieldNames; }
  /// Changes when texts of fields changed other than by typing.
  int fieldsRevision() const { return m_fieldsRevision; }
  Q_INVOKABLE QString fieldText(const QString& name) const { return m_draft.values().value(name).toString(); }
  Q_INVOKABLE void setField(const QString& name, const QString& text) { m_draft.set(name, text); }
  bool dirty() const { return m_draft.dirty(); }
  bool saving() const { return m_form.busy(); }
  QString error() const { return m_form.error(); }
  /// Which of the fields that were typed in somebody else has changed as well.
  QString conflict() const;
  FieldDraft* draft() { return &m_draft; }
  Recovery* recovery() { return &m_recovery; }

  void show(const CampaignLead& lead);
  /// Reads again what is shown.
  void refresh() override;
  Q_INVOKABLE void save() { m_tasks.start(saveTask()); }
  Q_INVOKABLE void discard();
  /// Closes the drawer; asks first when something is not even on its way to the service.
  Q_INVOKABLE void dismiss() { m_asking.start(dismissTask()); }
  /// Closes when its lead is one of those that are gone from the list. What was typed is there again when the lead is.
  void leadsLeft(const QStringList& ids);
  /// The lead is no more, and so is what was typed about it.
  void leadGone(const QString& id);
  /// Asks, when something is typed about one of these leads, before that is given up.
  Task<bool> mayGiveUp(QStringList ids);

  void close() override;

 Q_SIGNALS:
  void changed();
  void leadChanged();
  void fieldsChanged();
  void fieldTextsChanged();

 private:
  Task<void> dismissTask();
  Task<void> showTask(CampaignLead lead);
  Task<void> saveTask();
  Task<bool> mayLeave();
  void take(const CampaignLead& lead);
  void leave();
  QString keyOf(const QString& lead) const;
  void keep(const QString& key, const QJsonObject& typed);

  CampaignContext& m_context;
  std::function<void(const CampaignLead&)> m_changedLead;
  Resource<LeadDetail> m_detail;
  TaskSlot m_asking;
  CampaignLead m_lead;
  QStringList m_fieldNames;
  Form m_form;
  FieldDraft m_draft;
  Recovery m_recovery;
  /// What a save under way sends.
  QVariantMap m_sent;
  int m_fieldsRevision = 0;
};

}  // namespace orv
