#pragma once

#include "app/base/Actions.h"
#include "app/base/RecordModel.h"
#include "app/base/Resource.h"
#include "app/base/RowFields.h"
#include "kit/models/leads/leadImport.h"

namespace orv {

/// An import in the history.
struct LeadImportRow {
  QString id;
  QString name;
  QString statusWord;
  QString statusText;
  /// Where it goes and when: "Into Trade fair, October · 16 Nov, 17:02".
  QString placeText;
  /// What came of it, or how far it is.
  QString resultText;
  bool isFailed = false;
  bool canCancel = false;
  bool isBusy = false;
  /// From 0 to 1; below 0 where there is nothing to show.
  double progress = -1;
  bool operator==(const LeadImportRow&) const = default;
};
BOOST_DESCRIBE_STRUCT(LeadImportRow, (),
                      (id, name, statusWord, statusText, placeText, resultText, isFailed, canCancel, isBusy, progress))
ORV_DECLARE_ROW(LeadImportRow)

class LeadImportRows final : public RecordModel<LeadImportRow> {
 public:
  using RecordModel::RecordModel;
};

/// The imports of files, newest first. While one is under way the history is read again and again.
class LeadImports final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::ResourceBase* list READ list CONSTANT)
  Q_PROPERTY(orv::ListModel* rows READ rows CONSTANT)
  Q_PROPERTY(int active READ active NOTIFY changed)

 public:
  /// `nameOf` gives the name of a list, empty where it is not known.
  LeadImports(WorkspaceContext& context, Store& whole, std::function<QString(const QString& listId)> nameOf);

  Resource<LeadImportPage>* list() { return &m_list; }
  LeadImportRows* rows() { return &m_rows; }
  /// How many are under way.
  int active() const;

  Q_INVOKABLE void cancel(const QString& id) { m_tasks.start(cancelTask(id)); }
  Task<void> cancelTask(QString id);
  Q_INVOKABLE void retry() { m_list.load(); }
  /// The lists have other names by now.
  void showNames() { show(); }

  void close() override;

 Q_SIGNALS:
  void changed();

 private:
  Task<LeadImportPage> load();
  void readAnew();
  void arrived();
  void show();
  LeadImportRow rowOf(const LeadImport& import) const;
  Task<void> follow();
  Task<bool> readAgain();
  const LeadImport* find(const QString& id) const;

  std::function<QString(const QString&)> m_nameOf;
  BusySet m_busy;
  Actions m_actions;
  Resource<LeadImportPage> m_list;
  LeadImportRows m_rows;
  /// Those that were under way when last read, and those that had ended.
  QSet<QString> m_wereActive;
  QSet<QString> m_hadEnded;
  /// One was begun here since, and may have ended before it was ever read.
  bool m_hasBegun = false;
  /// Readings are counted as they are asked for: one that is not newer than what is known counts no more.
  int m_asked = 0;
  int m_known = 0;
  TaskSlot m_following;
};

}  // namespace orv
