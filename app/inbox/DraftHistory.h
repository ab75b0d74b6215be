#pragma once

#include "app/base/Choice.h"
#include "app/base/PagedList.h"
#include "app/base/RowFields.h"
#include "app/base/WrittenRows.h"
#include "app/inbox/DraftDecisions.h"

namespace orv {

/// A draft that was decided, with what was made of it.
struct DraftHistoryRow {
  QString id;
  QString contact;
  QString kind;
  QString when;
  QString subject;
  QString aiText;
  /// Empty where it was sent as the agent wrote it, or not at all.
  QString sentText;
  /// "You wrote your own", say.
  QString outcome;
  QString why;
  QString lesson;
  ReviewDraft item;
  bool operator==(const DraftHistoryRow&) const = default;
};
BOOST_DESCRIBE_STRUCT(DraftHistoryRow, (), (id, contact, kind, when, subject, aiText, sentText, outcome, why, lesson))
ORV_DECLARE_ROW(DraftHistoryRow)

class DraftHistoryRows final : public WrittenRows<DraftHistoryRow> {
 public:
  explicit DraftHistoryRows(QObject* parent = nullptr) : WrittenRows({"aiText", "sentText", "why", "lesson"}, parent) {}
};

/// What was decided, in three lists; what was skipped can be put back.
class DraftHistory final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::PagedListBase* list READ list CONSTANT)
  Q_PROPERTY(QList<orv::Choice> tabs READ tabs CONSTANT)
  Q_PROPERTY(QString tab READ tab WRITE setTab NOTIFY changed)
  Q_PROPERTY(QString description READ description NOTIFY changed)
  Q_PROPERTY(bool canPutBack READ canPutBack NOTIFY changed)
  Q_PROPERTY(QStringList busyIds READ busyIds NOTIFY changed)

 public:
  DraftHistory(WorkspaceContext& context, Store* whole, DraftDecisions& decisions);

  /// What is being put back is marked among the decisions, which tell it once more as its task goes.
  ~DraftHistory() override { m_tasks.cancel(); }

  PagedList<ReviewDraftPage, DraftHistoryRows>* list() { return &m_list; }
  static QList<Choice> tabs();
  const QString& tab() const { return m_tab; }
  void setTab(const QString& tab);
  /// What lands in the tab.
  QString description() const;
  bool canPutBack() const;
  QStringList busyIds() const { return m_decisions.busyIds(); }

  void refresh() override { m_list.load(); }
  Q_INVOKABLE void putBack(const QString& draftId) { m_tasks.start(putBackTask(draftId)); }
  Task<void> putBackTask(QString draftId);

 Q_SIGNALS:
  void changed();

 private:
  DraftHistoryRow row(const ReviewDraft& item) const;

  DraftDecisions& m_decisions;
  QString m_tab;
  PagedList<ReviewDraftPage, DraftHistoryRows> m_list;
};

}  // namespace orv
