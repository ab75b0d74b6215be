#pragma once

#include <QObject>
#include <QString>

#include "kit/api/Clearable.h"

namespace orv {

/// A secret that the service keeps and never gives back: that there is one, the one that is typed to take its place, or
/// that it is to be taken away. What is typed is held here and nowhere else.
class SecretField : public QObject {
  Q_OBJECT
  Q_PROPERTY(QString text READ text WRITE setText NOTIFY changed)
  Q_PROPERTY(bool stored READ stored NOTIFY changed)
  Q_PROPERTY(bool open READ isOpen NOTIFY changed)
  Q_PROPERTY(bool clearing READ clearing NOTIFY changed)
  Q_PROPERTY(QString problem READ problem NOTIFY changed)

 public:
  using QObject::QObject;
  ~SecretField() override { wipe(); }

  const QString& text() const { return m_text; }
  void setText(const QString& typed);
  bool stored() const { return m_stored; }
  /// It can be typed in: there is none yet, or it is being replaced.
  bool isOpen() const { return !m_clearing && (m_replacing || !m_stored); }
  /// A save takes it away.
  bool clearing() const { return m_clearing; }
  const QString& problem() const { return m_problem; }
  void setProblem(const QString& sentence);

  bool isDirty() const { return m_clearing || !m_text.isEmpty(); }
  /// The service has one once this is saved.
  bool willBeStored() const { return !m_clearing && (m_stored || !m_text.isEmpty()); }
  Clearable<QString> change() const;

  Q_INVOKABLE void replace();
  Q_INVOKABLE void clear();
  /// Nothing is changed after all.
  Q_INVOKABLE void keep();

  void follow(bool stored);
  /// The service has taken the change. What was typed since stays.
  void taken(const Clearable<QString>& sent);
  void wipe();

 Q_SIGNALS:
  void changed();

 private:
  QString m_text;
  QString m_problem;
  bool m_stored = false;
  bool m_replacing = false;
  bool m_clearing = false;
};

}  // namespace orv
