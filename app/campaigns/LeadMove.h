#pragma once

#include "app/base/Choice.h"
#include "app/base/Form.h"
#include "app/base/Store.h"
#include "app/campaigns/CampaignContext.h"
#include "kit/models/campaigns/campaignSummary.h"

namespace orv {

/// The dialog that moves leads to another campaign.
class LeadMove final : public Store {
  Q_OBJECT
  Q_PROPERTY(bool shown READ shown NOTIFY changed)
  Q_PROPERTY(QString title READ title NOTIFY changed)
  Q_PROPERTY(orv::ResourceBase* campaigns READ campaigns CONSTANT)
  Q_PROPERTY(QString query READ query WRITE setQuery NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> options READ options NOTIFY optionsChanged)
  Q_PROPERTY(QString target READ target WRITE setTarget NOTIFY changed)
  Q_PROPERTY(bool canSubmit READ canSubmit NOTIFY changed)
  Q_PROPERTY(bool busy READ busy NOTIFY changed)
  Q_PROPERTY(QString error READ error NOTIFY changed)

 public:
  /// `moved` is called with what was asked for once the service has answered, and with none where it may have moved
  /// them unanswered.
  LeadMove(CampaignContext& context, std::function<void(const QStringList& ids)> moved);

  bool shown() const { return m_form.shown(); }
  /// "Move 3 leads".
  QString title() const;
  Resource<CampaignList>* campaigns() { return &m_campaigns; }
  const QString& query() const { return m_query; }
  void setQuery(const QString& query);
  /// Key, label and text of the campaigns that leads can go to and whose name holds the search text.
  QList<Choice> options() const;
  const QString& target() const { return m_target; }
  void setTarget(const QString& campaignId);
  bool canSubmit() const { return !busy() && !m_target.isEmpty(); }
  bool busy() const { return m_form.busy(); }
  QString error() const { return m_form.error(); }

  void show(const QStringList& leadIds);
  Q_INVOKABLE void submit();
  Q_INVOKABLE void retry() { m_campaigns.load(); }
  /// Closes the dialog. Leads that are being moved move on.
  Q_INVOKABLE void cancel();

 Q_SIGNALS:
  void changed();
  void optionsChanged();

 private:
  Task<void> move(QStringList leadIds, QString target);
  /// The campaign that leads may have come to, and the one that they left.
  void tellBoth(const QString& target, const QStringList& moved);
  QString nameOf(const QString& campaignId) const;

  CampaignContext& m_context;
  std::function<void(const QStringList&)> m_moved;
  Resource<CampaignList> m_campaigns;
  QStringList m_leadIds;
  QString m_query;
  QString m_target;
  Form m_form;
};

}  // namespace orv
