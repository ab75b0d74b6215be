#pragma once

#include <QtQml/qqmlregistration.h>
#include <QPointer>
#include <QQuickItem>

/// Keeps what is typed into a field from whoever listens on the accessibility bus, which is every program of the
/// session: the field answers bullets, as it shows them. The toolkit marks such a field, and reads it out all the same.
class SecretText : public QObject {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QQuickItem* field READ field WRITE setField NOTIFY changed)
  /// The toolkit keeps a password field's name to itself along with its text.
  Q_PROPERTY(QString name MEMBER m_name NOTIFY changed)
  Q_PROPERTY(bool kept READ isKept WRITE setKept NOTIFY changed)

 public:
  using QObject::QObject;

  QQuickItem* field() const { return m_field; }
  void setField(QQuickItem* field);
  const QString& name() const { return m_name; }
  bool isKept() const { return m_kept; }
  void setKept(bool kept);

 Q_SIGNALS:
  void changed();

 private:
  void follow();

  QPointer<QQuickItem> m_field;
  QString m_name;
  bool m_kept = false;
};
