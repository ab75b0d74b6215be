#pragma once

#include "app/base/Resource.h"
#include "app/base/RowFields.h"
#include "app/base/WrittenRows.h"
#include "app/figures/Figure.h"
#include "kit/models/deliverability/deliverabilityReport.h"

namespace orv {

/// A decision of the watcher in the list.
struct DecisionRow {
  QString id;
  QString title;
  QString why;
  QString when;
  /// "Done" or "Would do".
  QString mark;
  bool executed = false;
  bool operator==(const DecisionRow&) const = default;
};
BOOST_DESCRIBE_STRUCT(DecisionRow, (), (id, title, why, when, mark, executed))
ORV_DECLARE_ROW(DecisionRow)

class DecisionRows final : public WrittenRows<DecisionRow> {
 public:
  explicit DecisionRows(QObject* parent = nullptr) : WrittenRows({"why"}, parent) {}
};

/// One inbox as the watcher sees it: its figures, where its mail landed lately, and what was decided.
class InboxDetail final : public Store {
  Q_OBJECT
  Q_PROPERTY(QString id READ id NOTIFY changed)
  Q_PROPERTY(QString address READ address NOTIFY changed)
  Q_PROPERTY(orv::ResourceBase* detail READ detail CONSTANT)
  Q_PROPERTY(QString stage READ stage NOTIFY changed)
  Q_PROPERTY(QString stageTone READ stageTone NOTIFY changed)
  Q_PROPERTY(QString since READ since NOTIFY changed)
  Q_PROPERTY(QString lastScan READ lastScan NOTIFY changed)
  Q_PROPERTY(QString checksText READ checksText NOTIFY changed)
  Q_PROPERTY(QList<orv::Figure> figures READ figures NOTIFY changed)
  Q_PROPERTY(QStringList days READ days NOTIFY changed)
  Q_PROPERTY(QVariantList series READ series NOTIFY changed)
  Q_PROPERTY(orv::ListModel* decisions READ decisions CONSTANT)

 public:
  InboxDetail(WorkspaceContext& context, Store& whole);

  /// Empty when none is shown.
  const QString& id() const { return m_known.id; }
  QString address() const;
  Resource<DeliverabilityInboxDetail>* detail() { return &m_detail; }
  QString stage() const;
  QString stageTone() const;
  QString since() const;
  QString lastScan() const;
  QString checksText() const;
  QList<Figure> figures() const;
  QStringList days() const;
  QVariantList series() const;
  DecisionRows* decisions() { return &m_decisions; }

  /// Shows the inbox, at first as the list knows it.
  void show(const DeliverabilityInbox& inbox, std::optional<double> poolRate);
  /// The list has it anew.
  void follow(const DeliverabilityInbox& inbox, std::optional<double> poolRate);
  void hide();
  void markStale();
  void refresh() override;

 Q_SIGNALS:
  void changed();
  /// The service told of the inbox.
  void learned(const orv::DeliverabilityInbox& inbox);

 private:
  Task<DeliverabilityInboxDetail> load();
  void arrived();
  bool isAnswered() const;

  DeliverabilityInbox m_known;
  std::optional<double> m_poolRate;
  Resource<DeliverabilityInboxDetail> m_detail;
  DecisionRows m_decisions;
};

}  // namespace orv
