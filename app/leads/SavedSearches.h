#pragma once

#include "app/base/Archive.h"
#include "app/base/Choice.h"
#include "app/base/NameForm.h"
#include "app/base/Resource.h"
#include "kit/models/leads/savedSearch.h"

namespace orv {

/// Searches that were kept under a name, and the archive of those deleted.
class SavedSearches final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::ResourceBase* list READ list CONSTANT)
  Q_PROPERTY(orv::ResourceBase* archived READ archived CONSTANT)
  Q_PROPERTY(QList<orv::Choice> choices READ choices NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> archivedChoices READ archivedChoices NOTIFY changed)
  Q_PROPERTY(orv::NameForm* form READ form CONSTANT)
  Q_PROPERTY(orv::Form* archiveForm READ archiveForm CONSTANT)
  Q_PROPERTY(QStringList busyIds READ busyIds NOTIFY changed)

 public:
  using Values = QMap<QString, QString>;

  SavedSearches(WorkspaceContext& context, Store& whole);

  Resource<SavedSearchList>* list() { return &m_list; }
  Resource<SavedSearchList>* archived() { return &m_archived; }
  /// Id and name of each.
  QList<Choice> choices() const;
  /// With the day on which each goes for good.
  QList<Choice> archivedChoices() const;
  /// Asks for the name.
  NameForm* form() { return &m_form; }
  /// Shows the archive.
  Form* archiveForm() { return &m_archiveForm; }
  QStringList busyIds() const { return m_busy.ids().values(); }

  /// Asks under which name these are kept.
  void beginSave(const Values& values);
  /// A search of this name is there and would be replaced.
  Q_INVOKABLE bool replaces(const QString& name) const;
  /// What the search is of; nothing when it is not there.
  std::optional<Values> valuesOf(const QString& id) const;
  Q_INVOKABLE void showArchive();
  Q_INVOKABLE void remove(const QString& id) { m_tasks.start(removeTask(id)); }
  Q_INVOKABLE void restore(const QString& id) { m_tasks.start(restoreTask(id)); }
  Q_INVOKABLE void removeForGood(const QString& id) { m_tasks.start(removeForGoodTask(id)); }

 Q_SIGNALS:
  void changed();

 private:
  Task<void> saveTask(QString name, Values values);
  Task<void> removeTask(QString id);
  Task<void> restoreTask(QString id);
  Task<void> removeForGoodTask(QString id);
  QString nameOf(const QString& id) const;

  BusySet m_busy;
  Actions m_actions;
  Archive<SavedSearch, Empty> m_archive;
  Resource<SavedSearchList> m_list;
  Resource<SavedSearchList> m_archived;
  NameForm m_form;
  Form m_archiveForm;
  /// What is saved when the name has been given.
  Values m_values;
};

}  // namespace orv
