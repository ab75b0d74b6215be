#pragma once

#include <QtQml/qqmlregistration.h>
#include <QAbstractListModel>

#include "ui/design/ChartData.h"

namespace orv {

/// The figures of a chart as rows of a table, a day each: what the drawing says, for those who read rather than see it.
class ChartRows : public QAbstractListModel {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QStringList days READ days WRITE setDays NOTIFY changed)
  Q_PROPERTY(QVariantList series READ series WRITE setSeries NOTIFY changed)
  Q_PROPERTY(QString unit READ unit WRITE setUnit NOTIFY changed)
  /// A further column, of what more there is to say of each day, under its title.
  Q_PROPERTY(QStringList dayNotes READ dayNotes WRITE setDayNotes NOTIFY changed)
  Q_PROPERTY(QString noteTitle MEMBER m_noteTitle NOTIFY changed)
  /// A map for each column: key, label and shown.
  Q_PROPERTY(QVariantList legend READ legend NOTIFY changed)

 public:
  enum Role { IdRole = Qt::UserRole, DayRole, TextsRole };

  using QAbstractListModel::QAbstractListModel;

  QStringList days() const { return m_days; }
  void setDays(const QStringList& days);
  QVariantList series() const { return m_series; }
  void setSeries(const QVariantList& series);
  QString unit() const { return m_unit; }
  void setUnit(const QString& unit);
  QStringList dayNotes() const { return m_dayNotes; }
  void setDayNotes(const QStringList& notes);
  QVariantList legend() const;

  int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : m_data.count(); }
  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;

 Q_SIGNALS:
  void changed();

 private:
  void textsChanged();

  ChartData m_data;
  QStringList m_days;
  QVariantList m_series;
  QString m_unit;
  QStringList m_dayNotes;
  QString m_noteTitle;
};

}  // namespace orv
