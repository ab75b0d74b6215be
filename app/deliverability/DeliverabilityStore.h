#pragma once

#include "app/base/Choice.h"
#include "app/deliverability/DeliverabilityRows.h"
#include "app/deliverability/InboxDetail.h"

namespace orv {

/// What the service's placement watcher sees and decides for every sending inbox. Nothing is changed here.
class DeliverabilityStore final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::ResourceBase* report READ report CONSTANT)
  Q_PROPERTY(orv::ListModel* rows READ rows CONSTANT)
  Q_PROPERTY(orv::InboxDetail* inbox READ inbox CONSTANT)
  Q_PROPERTY(QString stage READ stage WRITE setStage NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> stages READ stages NOTIFY changed)
  Q_PROPERTY(QString sortKey READ sortKey NOTIFY changed)
  Q_PROPERTY(bool sortDescending READ sortDescending NOTIFY changed)
  Q_PROPERTY(QString summary READ summary NOTIFY changed)
  Q_PROPERTY(QString lastScan READ lastScan NOTIFY changed)
  Q_PROPERTY(QString countText READ countText NOTIFY changed)

 public:
  explicit DeliverabilityStore(WorkspaceContext& context);

  Resource<DeliverabilityReport>* report() { return &m_report; }
  DeliverabilityRows* rows() { return &m_rows; }
  InboxDetail* inbox() { return &m_inbox; }

  /// Empty for every inbox.
  const QString& stage() const { return m_query.stage; }
  void setStage(const QString& stage);
  /// The tabs with how many there are of each; negative while unknown.
  QList<Choice> stages() const;
  QString sortKey() const { return m_query.sort ? m_query.sort->key : QString(); }
  bool sortDescending() const { return m_query.sort && m_query.sort->descending; }
  /// Empty before the first answer.
  const QString& summary() const { return m_summary; }
  QString lastScan() const;
  QString countText() const;

  /// An empty key is the service's order.
  Q_INVOKABLE void sort(const QString& key, bool descending);
  Q_INVOKABLE void showAll() { setStage({}); }
  Q_INVOKABLE void open(const QString& id);
  Q_INVOKABLE void closeInbox();

  void refresh() override;
  PagePlace where() const override;
  void goTo(const PagePlace& place) override;
  void begin() override;

 Q_SIGNALS:
  void changed();

 protected:
  QList<PageAction> offered(const QString& record) override;

 private:
  void arrived();
  void count();
  void learn(const DeliverabilityInbox& inbox);
  void markStale();

  DeliverabilityQuery m_query;
  Resource<DeliverabilityReport> m_report;
  DeliverabilityRows m_rows;
  InboxDetail m_inbox;
  /// Of thousands of inboxes, and asked for at every change.
  QMap<QString, int> m_counts;
  QString m_summary;
  /// To be shown once the report is there.
  QString m_wanted;
};

}  // namespace orv
