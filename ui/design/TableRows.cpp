#include "ui/design/TableRows.h"

#include <QClipboard>
#include <QGuiApplication>

void TableRows::setModel(QAbstractItemModel* model) {
  if (model == m_model) return;
  if (m_model) m_model->disconnect(this);
  m_model = model;
  m_current = QPersistentModelIndex();
  m_currentKey.clear();
  dropAnchor();
  findKeyRole();
  watchModel();
  Q_EMIT modelChanged();
  Q_EMIT countChanged();
  Q_EMIT currentChanged();
  bumpRevision();
}

void TableRows::setKeyRole(const QString& role) {
  const QByteArray name = role.toUtf8();
  if (name == m_keyRole) return;
  m_keyRole = name;
  findKeyRole();
  Q_EMIT modelChanged();
  bumpRevision();
}

void TableRows::findKeyRole() { m_role = m_model ? m_model->roleNames().key(m_keyRole, -1) : -1; }

void TableRows::watchModel() {
  if (!m_model) return;
  const QAbstractItemModel* model = m_model;
  using M = QAbstractItemModel;
  connect(model, &M::rowsAboutToBeInserted, this, &TableRows::aboutToChange);
  connect(model, &M::rowsAboutToBeMoved, this, &TableRows::aboutToChange);
  connect(model, &M::rowsAboutToBeRemoved, this, [this](const QModelIndex&, int first, int last) {
    Q_EMIT aboutToChange();
    replaceRemovedCurrent(first, last);
  });
  const auto beforeReset = [this] {
    Q_EMIT aboutToChange();
    m_rowBeforeReset = currentRow();
  };
  connect(model, &M::layoutAboutToBeChanged, this, beforeReset);
  connect(model, &M::modelAboutToBeReset, this, beforeReset);
  connect(model, &M::rowsInserted, this, &TableRows::finishChange);
  connect(model, &M::rowsRemoved, this, &TableRows::finishChange);
  connect(model, &M::rowsMoved, this, &TableRows::finishChange);
  connect(model, &M::layoutChanged, this, &TableRows::afterReset);
  connect(model, &M::modelReset, this, &TableRows::afterReset);
  connect(model, &M::dataChanged, this,
          [this](const QModelIndex&, const QModelIndex&, const QList<int>& roles) { afterDataChange(roles); });
  connect(model, &QObject::destroyed, this, [this] {
    Q_EMIT countChanged();
    Q_EMIT currentChanged();
  });
}

QString TableRows::keyAt(int row) const {
  if (!m_model || m_role < 0 || row < 0 || row >= count()) return {};
  return m_model->index(row, 0).data(m_role).toString();
}

int TableRows::rowOf(const QString& key) const {
  if (key.isEmpty() || m_role < 0 || count() == 0) return -1;
  const auto found =
      m_model->match(m_model->index(0, 0), m_role, key, 1, Qt::MatchFixedString | Qt::MatchCaseSensitive);
  return found.isEmpty() ? -1 : found.first().row();
}

QString TableRows::textAt(int row, const QString& column) const {
  if (!m_model || row < 0 || row >= count()) return {};
  const auto roles = m_model->roleNames();
  const QByteArray name = column.toUtf8();
  for (const QByteArray& candidate : {name + "Text", name + "Label", name}) {
    if (const int role = roles.key(candidate, -1); role >= 0)
      return m_model->index(row, 0).data(role).toString().simplified();
  }
  return {};
}

void TableRows::copy(const QStringList& keys, const QStringList& columns) const {
  const QSet<QString> wanted(keys.begin(), keys.end());
  QStringList lines;
  for (int row = 0, n = count(); row < n; ++row) {
    if (!wanted.contains(keyAt(row))) continue;
    QStringList cells;
    for (const QString& column : columns) cells.append(textAt(row, column));
    lines.append(cells.join(QLatin1Char('\t')));
  }
  QGuiApplication::clipboard()->setText(lines.join(QLatin1Char('\n')));
}

void TableRows::setCurrentKey(const QString& key) {
  if (key != m_currentKey) setCurrentRow(rowOf(key));
}

void TableRows::setCurrentRow(int row) {
  const QString key = keyAt(row);
  if (key == m_currentKey && row == currentRow()) return;
  m_currentKey = key;
  m_current = key.isEmpty() ? QModelIndex() : m_model->index(row, 0);
  Q_EMIT currentChanged();
}

void TableRows::setTickedKeys(const QStringList& keys) {
  if (keys == m_tickedList) return;
  m_tickedList = keys;
  m_ticked = QSet<QString>(keys.begin(), keys.end());
  ++m_marks;
  Q_EMIT marksChanged();
}

void TableRows::setBusyKeys(const QStringList& keys) {
  if (keys == m_busyList) return;
  m_busyList = keys;
  m_busy = QSet<QString>(keys.begin(), keys.end());
  ++m_marks;
  Q_EMIT marksChanged();
}

void TableRows::holdAnchor(int row, int spare) {
  dropAnchor();
  for (int i = row, end = qMin(count(), row + spare + 1); i < end; ++i) {
    m_anchors.append(m_model->index(i, 0));
    m_anchorKeys.append(keyAt(i));
  }
}

void TableRows::dropAnchor() {
  m_anchors.clear();
  m_anchorKeys.clear();
}

int TableRows::anchorRow() const {
  for (const QPersistentModelIndex& anchor : m_anchors) {
    if (anchor.isValid()) return anchor.row();
  }
  // A reset has invalidated every index; the ids still tell.
  for (const QString& key : m_anchorKeys) {
    if (const int row = rowOf(key); row >= 0) return row;
  }
  return -1;
}

void TableRows::replaceRemovedCurrent(int first, int last) {
  if (currentRow() < first || currentRow() > last) return;
  const int next = last + 1 < count() ? last + 1 : first - 1;
  m_currentKey = keyAt(next);
  m_current = next >= 0 ? m_model->index(next, 0) : QModelIndex();
}

void TableRows::finishChange() {
  // A ListModel has no roles before its first row.
  if (m_role < 0) findKeyRole();
  Q_EMIT countChanged();
  bumpRevision();
  Q_EMIT currentChanged();
  settleLater();
}

void TableRows::settleLater() {
  if (m_settling) return;
  m_settling = true;
  QMetaObject::invokeMethod(
      this,
      [this] {
        m_settling = false;
        Q_EMIT settled();
      },
      Qt::QueuedConnection);
}

void TableRows::afterReset() {
  findKeyRole();
  int row = rowOf(m_currentKey);
  if (row < 0 && m_rowBeforeReset >= 0) row = qMin(m_rowBeforeReset, count() - 1);
  m_rowBeforeReset = -1;
  m_currentKey = keyAt(row);
  m_current = m_currentKey.isEmpty() ? QModelIndex() : m_model->index(row, 0);
  finishChange();
}

void TableRows::afterDataChange(const QList<int>& roles) {
  if (!roles.isEmpty() && !roles.contains(m_role)) return;
  if (m_current.isValid()) m_currentKey = keyAt(m_current.row());
  bumpRevision();
}

void TableRows::bumpRevision() {
  ++m_revision;
  Q_EMIT revisionChanged();
}
