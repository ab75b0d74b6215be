#pragma once

#include <QtQml/qqmlregistration.h>
#include <QAbstractItemModel>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QSet>
#include <QStringList>

/// Knows the rows of a list model by their records' ids, so that a table keeps its current row, its scroll position
/// and its marks on records while rows come, go and move. Row numbers never leave the table; ids do.
class TableRows : public QObject {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QAbstractItemModel* model READ model WRITE setModel NOTIFY modelChanged)
  /// The role that holds a record's id.
  Q_PROPERTY(QString keyRole READ keyRole WRITE setKeyRole NOTIFY modelChanged)
  Q_PROPERTY(int count READ count NOTIFY countChanged)
  /// Changes whenever a row number may have come to stand for another record.
  Q_PROPERTY(int revision READ revision NOTIFY revisionChanged)
  /// The record the keyboard is at; empty when there is none. When it is removed its neighbour takes over.
  Q_PROPERTY(QString currentKey READ currentKey WRITE setCurrentKey NOTIFY currentChanged)
  /// The current record's row, -1 when there is none.
  Q_PROPERTY(int currentRow READ currentRow NOTIFY currentChanged)
  Q_PROPERTY(QStringList tickedKeys READ tickedKeys WRITE setTickedKeys NOTIFY marksChanged)
  Q_PROPERTY(QStringList busyKeys READ busyKeys WRITE setBusyKeys NOTIFY marksChanged)
  /// Changes with the ticks and busy marks; read beside isTicked() and isBusy() in bindings.
  Q_PROPERTY(int marks READ marks NOTIFY marksChanged)

 public:
  using QObject::QObject;

  QAbstractItemModel* model() const { return m_model; }
  void setModel(QAbstractItemModel* model);
  QString keyRole() const { return QString::fromUtf8(m_keyRole); }
  void setKeyRole(const QString& role);
  int count() const { return m_model ? m_model->rowCount() : 0; }
  int revision() const { return m_revision; }
  QString currentKey() const { return m_currentKey; }
  void setCurrentKey(const QString& key);
  int currentRow() const { return m_current.isValid() ? m_current.row() : -1; }
  QStringList tickedKeys() const { return m_tickedList; }
  void setTickedKeys(const QStringList& keys);
  QStringList busyKeys() const { return m_busyList; }
  void setBusyKeys(const QStringList& keys);
  int marks() const { return m_marks; }

  /// The id of the record in `row`; empty outside the model.
  Q_INVOKABLE QString keyAt(int row) const;
  /// The row of the record, -1 when it is not there. Looks at every row: not for bindings of delegates.
  Q_INVOKABLE int rowOf(const QString& key) const;
  Q_INVOKABLE void setCurrentRow(int row);
  Q_INVOKABLE bool isTicked(const QString& key) const { return m_ticked.contains(key); }
  Q_INVOKABLE bool isBusy(const QString& key) const { return m_busy.contains(key); }

  /// What a cell says: by the role of the column's name, or of that name with "Text" or "Label" behind it, which is how
  /// models call what is meant to be read.
  Q_INVOKABLE QString textAt(int row, const QString& column) const;
  /// Puts these columns of these records on the clipboard, a record to a line, in the order of the rows.
  Q_INVOKABLE void copy(const QStringList& keys, const QStringList& columns) const;

  /// Remembers the record in `row` as the one that must not move on the screen, until dropAnchor(). `spare` rows
  /// after it stand in for it should it go.
  Q_INVOKABLE void holdAnchor(int row, int spare);
  Q_INVOKABLE void dropAnchor();
  /// Where the anchored record is now, -1 when neither it nor a spare is left.
  Q_INVOKABLE int anchorRow() const;

 Q_SIGNALS:
  void modelChanged();
  void countChanged();
  void revisionChanged();
  void currentChanged();
  void marksChanged();
  /// The rows are about to change: the last moment at which row numbers and the screen agree.
  void aboutToChange();
  /// The changes of this turn of the event loop are over.
  void settled();

 private:
  void watchModel();
  void findKeyRole();
  void finishChange();
  void replaceRemovedCurrent(int first, int last);
  void afterReset();
  void afterDataChange(const QList<int>& roles);
  void bumpRevision();
  void settleLater();

  QPointer<QAbstractItemModel> m_model;
  QByteArray m_keyRole = "id";
  int m_role = -1;
  int m_revision = 0;
  int m_marks = 0;
  QString m_currentKey;
  QPersistentModelIndex m_current;
  int m_rowBeforeReset = -1;
  bool m_settling = false;
  QStringList m_anchorKeys;
  QList<QPersistentModelIndex> m_anchors;
  QStringList m_tickedList;
  QStringList m_busyList;
  QSet<QString> m_ticked;
  QSet<QString> m_busy;
};
