#pragma once

#include "app/base/RecordModel.h"
#include "app/base/RowFields.h"
#include "app/setup/SetupForm.h"

namespace orv {

/// A domain of a project, or one that was taken off it.
struct DomainRow {
  QString id;
  /// As it is shown; the same.
  QString domain;
  /// Who holds it; why and when it was taken off.
  QString detail;
  bool operator==(const DomainRow&) const = default;
};
BOOST_DESCRIBE_STRUCT(DomainRow, (), (id, domain, detail))
ORV_DECLARE_ROW(DomainRow)

class DomainRows final : public RecordModel<DomainRow> {
 public:
  using RecordModel::RecordModel;
};

/// A project's domains: added by pasting, taken off, put back, and who holds each.
class SetupDomains final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::ListModel* rows READ rows CONSTANT)
  Q_PROPERTY(orv::ListModel* archivedRows READ archivedRows CONSTANT)
  Q_PROPERTY(QString typed READ typed WRITE setTyped NOTIFY changed)
  Q_PROPERTY(QString problem READ problem NOTIFY changed)
  Q_PROPERTY(QString countText READ countText NOTIFY changed)
  Q_PROPERTY(bool lookingUp READ lookingUp NOTIFY changed)
  Q_PROPERTY(bool showArchived READ showArchived WRITE setShowArchived NOTIFY changed)
  Q_PROPERTY(QStringList busyDomains READ busyDomains NOTIFY changed)

 public:
  SetupDomains(QString id, Actions& actions, Resource<SetupProject>& project, SetupForm& form, Store& whole);

  DomainRows* rows() { return &m_rows; }
  int count() const { return m_rows.rowCount(); }
  DomainRows* archivedRows() { return &m_archivedRows; }
  /// In the field that adds domains; what is pasted joins the list at once.
  const QString& typed() const { return m_form.typedDomains(); }
  void setTyped(const QString& text);
  /// What of the pasted text is no domain.
  const QString& problem() const { return m_problem; }
  /// "Three inboxes a domain, 24 in all."; empty where none are made.
  QString countText() const;
  bool lookingUp() const { return m_busy.contains(lookup); }
  bool showArchived() const { return m_showArchived; }
  void setShowArchived(bool shown);
  QStringList busyDomains() const { return m_busy.ids().values(); }

  /// What is left of the text once its domains have joined the list.
  QString add(const QString& text);
  /// What was typed is meant, although no Enter ended it.
  Q_INVOKABLE void addTyped();
  Q_INVOKABLE void clear() { setTyped({}); }
  Q_INVOKABLE void remove(const QString& domain);
  Q_INVOKABLE void restore(const QString& domain) { m_tasks.start(restoreTask(domain)); }
  Q_INVOKABLE void lookUp() { m_tasks.start(lookUpTask()); }
  Q_INVOKABLE void connectRegistrar();
  Task<void> restoreTask(QString domain);
  Task<void> lookUpTask();

 Q_SIGNALS:
  void changed();

 private:
  static constexpr QLatin1String lookup{"lookup"};
  void show();

  QString m_id;
  Actions& m_actions;
  Resource<SetupProject>& m_project;
  SetupForm& m_form;
  BusySet m_busy;
  DomainRows m_rows;
  DomainRows m_archivedRows;
  QMap<QString, QString> m_registrars;
  /// Domains that somebody has asked about.
  QSet<QString> m_lookedUp;
  QString m_problem;
  bool m_showArchived = false;
};

}  // namespace orv
