#pragma once

#include <QtQml/qqml.h>

#include <QAbstractListModel>

#include "app/base/Choice.h"

namespace orv {

struct ChoiceType {
  Q_GADGET
  QML_FOREIGN(orv::Choice)
  QML_VALUE_TYPE(choice)
};

/// The choices of a control and the one that holds. Stores hand over records; a page may write its own as objects.
///
/// As a model it gives each as `modelData`; the same choices with other marks leave the items, and so the focus, alone.
class ChoiceList : public QAbstractListModel {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QList<orv::Choice> options READ options WRITE setOptions NOTIFY optionsChanged)
  Q_PROPERTY(QString current READ current WRITE setCurrent NOTIFY currentChanged)
  Q_PROPERTY(int count READ count NOTIFY optionsChanged)
  /// -1 where the current one is none of them.
  Q_PROPERTY(int currentIndex READ currentIndex NOTIFY placeChanged)
  Q_PROPERTY(QString currentLabel READ currentLabel NOTIFY placeChanged)

 public:
  explicit ChoiceList(QObject* parent = nullptr);

  const QList<Choice>& options() const { return m_options; }
  void setOptions(const QList<Choice>& options);
  const QString& current() const { return m_current; }
  void setCurrent(const QString& key);
  int count() const { return int(m_options.size()); }
  int currentIndex() const { return indexOf(m_current); }
  QString currentLabel() const;

  int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : count(); }
  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override { return {{Qt::UserRole, "choice"}}; }

  Q_INVOKABLE int indexOf(const QString& key) const;
  Q_INVOKABLE QString keyAt(int index) const { return m_options.value(index).key; }
  /// The key so many further, empty beyond the ends.
  Q_INVOKABLE QString next(int by) const { return keyAt(currentIndex() + by); }
  /// The same, around the ends.
  Q_INVOKABLE QString around(int by) const;
  /// The next one whose label begins so, empty for none. More than one letter may still mean the current one.
  Q_INVOKABLE QString startingWith(const QString& text) const;
  /// The one whose label is the time of day that "9:30", "930", "0930" or "9" means, empty for none.
  Q_INVOKABLE QString timeNamed(const QString& text) const;

 Q_SIGNALS:
  void optionsChanged();
  void currentChanged();
  /// Where the current one stands, or what it says. Not the above: choices may follow from the current key.
  void placeChanged();

 private:
  QList<Choice> m_options;
  QString m_current;
};

}  // namespace orv
