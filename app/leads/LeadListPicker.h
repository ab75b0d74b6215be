#pragma once

#include "app/base/Choice.h"
#include "app/base/Resource.h"
#include "kit/models/leads/leadList.h"

namespace orv {

/// Which list leads go into: one that is there, or a new one, which gets a name.
class LeadListPicker final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::ResourceBase* lists READ lists CONSTANT)
  Q_PROPERTY(QList<orv::Choice> options READ options NOTIFY changed)
  Q_PROPERTY(QString current READ current WRITE setCurrent NOTIFY changed)
  Q_PROPERTY(bool isNew READ isNew NOTIFY changed)
  Q_PROPERTY(QString newName READ newName WRITE setNewName NOTIFY changed)

 public:
  static constexpr QLatin1String makeNew{"__new__"};

  /// With `takesNone`, no list is a choice as well.
  LeadListPicker(Store& whole, bool takesNone);

  Resource<LeadListPage>* lists() { return &m_lists; }
  QList<Choice> options() const;
  /// An id, "__new__", or empty for none.
  const QString& current() const { return m_current; }
  void setCurrent(const QString& key);
  bool isNew() const { return m_current == makeNew; }
  /// As typed, or proposed.
  const QString& newName() const { return m_newName; }
  void setNewName(const QString& name);
  /// A name for a new list, for as long as nobody has typed one.
  void proposeName(const QString& name);
  /// A name that was typed before; with one, a new list is meant.
  void takeName(const QString& name);
  /// Of the list that leads go into; empty for none.
  QString name() const;
  /// Nothing is missing.
  bool isChosen() const;

  /// Forgets what was chosen and reads the lists.
  void startWith(const QString& current);
  Q_INVOKABLE void retry() { m_lists.load(); }

 Q_SIGNALS:
  void changed();

 private:
  Resource<LeadListPage> m_lists;
  bool m_takesNone;
  QString m_current;
  QString m_newName;
  bool m_isTyped = false;
};

}  // namespace orv
