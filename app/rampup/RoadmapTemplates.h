#pragma once

#include "app/base/Archive.h"
#include "app/base/NameForm.h"
#include "app/base/RecordModel.h"
#include "app/base/Resource.h"
#include "app/base/RowFields.h"
#include "app/rampup/RoadmapEditor.h"
#include "app/rampup/StagePart.h"
#include "kit/models/rampup/roadmapTemplate.h"

namespace orv {

/// A template in the list, or in the archive.
struct TemplateRow {
  QString id;
  QString name;
  QString facts;
  QString lengthText;
  QList<StagePart> stages;
  QString stagesText;
  QString updatedText;
  QString archivedText;
  QString goneText;
  bool isDefault = false;
  bool operator==(const TemplateRow&) const = default;
};
BOOST_DESCRIBE_STRUCT(TemplateRow, (),
                      (id, name, facts, lengthText, stages, stagesText, updatedText, archivedText, goneText, isDefault))
ORV_DECLARE_ROW(TemplateRow)

class TemplateRows final : public RecordModel<TemplateRow> {
 public:
  using RecordModel::RecordModel;
};

/// The templates of roadmaps, and those that wait in the archive.
class RoadmapTemplates final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::ResourceBase* list READ list CONSTANT)
  Q_PROPERTY(orv::ResourceBase* archived READ archived CONSTANT)
  Q_PROPERTY(orv::ListModel* rows READ rows CONSTANT)
  Q_PROPERTY(orv::ListModel* archivedRows READ archivedRows CONSTANT)
  Q_PROPERTY(orv::NameForm* newTemplate READ newTemplate CONSTANT)
  Q_PROPERTY(orv::NameForm* rename READ rename CONSTANT)
  Q_PROPERTY(QStringList busyIds READ busyIds NOTIFY changed)
  Q_PROPERTY(bool showArchived READ showArchived WRITE setShowArchived NOTIFY changed)
  Q_PROPERTY(int archivedCount READ archivedCount NOTIFY changed)
  Q_PROPERTY(QString countText READ countText NOTIFY changed)
  Q_PROPERTY(QString createHint READ createHint NOTIFY changed)

 public:
  RoadmapTemplates(WorkspaceContext& context, Store& whole, RoadmapEditor& editor);

  Resource<TemplatePage>* list() { return &m_list; }
  Resource<TemplatePage>* archived() { return &m_archived; }
  TemplateRows* rows() { return &m_rows; }
  TemplateRows* archivedRows() { return &m_archivedRows; }
  NameForm* newTemplate() { return &m_new; }
  NameForm* rename() { return &m_rename; }
  QStringList busyIds() const { return m_busy.ids().values(); }
  bool showArchived() const { return m_showArchived; }
  void setShowArchived(bool shown);
  /// -1 while unknown.
  int archivedCount() const;
  /// Live ones; -1 while unknown.
  int count() const;
  QString countText() const;
  QString createHint() const;
  const RoadmapTemplate* find(const QString& id) const;

  void refresh() override { m_showArchived ? m_archived.load() : m_list.load(); }
  Q_INVOKABLE void beginCreate();
  void beginRename(const QString& id);
  void edit(const QString& id);
  void remove(const QString& id) { m_tasks.start(removeTask(id)); }
  void restore(const QString& id) { m_tasks.start(restoreTask(id)); }
  void removeForGood(const QString& id) { m_tasks.start(removeForGoodTask(id)); }

  Task<void> createTask(QString name);
  Task<void> renameTask(QString id, QString name);
  Task<void> editTask(QString id, QList<RoadmapStage> stages);
  Task<void> removeTask(QString id);
  Task<void> restoreTask(QString id);
  Task<void> removeForGoodTask(QString id);

  /// Accounts are added to the template.
  std::function<void(const RoadmapTemplate&)> onAddAccounts;

 Q_SIGNALS:
  void changed();

 protected:
  QList<PageAction> offered(const QString& record) override;

 private:
  QList<PageAction> offeredLive(const RoadmapTemplate& known);
  void take(const Change<RoadmapTemplate>& change);
  void takeArchived(const Change<Archived<RoadmapTemplate>>& change);
  void show();
  QList<RoadmapStage> googleStages() const;

  RoadmapEditor& m_editor;
  BusySet m_busy;
  Actions m_actions;
  Archive<RoadmapTemplate> m_archive;
  Resource<TemplatePage> m_list;
  Resource<TemplatePage> m_archived;
  TemplateRows m_rows;
  TemplateRows m_archivedRows;
  NameForm m_new;
  NameForm m_rename;
  /// As it was when the form was filled.
  RoadmapTemplate m_renamed;
  /// The one that has just been made, until its schedule is saved.
  QString m_fresh;
  bool m_showArchived = false;
};

}  // namespace orv
