#pragma once

#include <QtQml/qqmlregistration.h>
#include <QMap>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <optional>

#include "ui/design/TableMemory.h"

namespace orv {

/// What a person made of a table's columns: widths, order, which show, and the sort. Kept at every change.
class TableLayout : public QObject {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QString table READ table WRITE setTable NOTIFY changed)
  Q_PROPERTY(orv::TableMemory* memory READ memory WRITE setMemory NOTIFY changed)
  Q_PROPERTY(QString sortKey READ sortKey NOTIFY changed)
  Q_PROPERTY(bool sortDescending READ sortDescending NOTIFY changed)

 public:
  using QObject::QObject;

  const QString& table() const { return m_table; }
  /// Empty for a table that keeps nothing.
  void setTable(const QString& table);
  TableMemory* memory() const { return m_memory; }
  void setMemory(TableMemory* memory);
  const QString& sortKey() const { return m_sortKey; }
  bool sortDescending() const { return m_sortDescending; }

  /// 0 for a column that was never dragged.
  Q_INVOKABLE int width(const QString& column) const { return m_widths.value(column); }
  Q_INVOKABLE void setWidth(const QString& column, int width);
  /// What the person said of a column; undefined where they said nothing.
  Q_INVOKABLE QVariant shown(const QString& column) const;
  Q_INVOKABLE void setShown(const QString& column, bool shown);
  /// The declared columns as the person arranged them. One they never saw stands where it was declared, after the same
  /// neighbour.
  Q_INVOKABLE QStringList arranged(const QStringList& declared) const;
  /// Puts a column before another, or last of all.
  Q_INVOKABLE void move(const QStringList& declared, const QString& column, const QString& before);
  Q_INVOKABLE void setSort(const QString& column, bool descending);
  /// Widths, order and columns as they were declared. The sort is not the columns' and stays.
  Q_INVOKABLE void reset();

 Q_SIGNALS:
  void changed();

 private:
  void load();
  void save();

  QString m_table;
  QPointer<TableMemory> m_memory;
  QMap<QString, int> m_widths;
  QMap<QString, bool> m_shown;
  QStringList m_order;
  QString m_sortKey;
  bool m_sortDescending = true;
};

}  // namespace orv
