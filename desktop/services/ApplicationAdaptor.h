#pragma once

#include <QDBusAbstractAdaptor>
#include <QVariantMap>

#include "desktop/services/SingleInstance.h"

namespace orv {

/// The desktop's way to start, show and hand links to an application.
class ApplicationAdaptor final : public QDBusAbstractAdaptor {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

 public:
  explicit ApplicationAdaptor(SingleInstance* instance) : QDBusAbstractAdaptor(instance), m_instance(instance) {}

 public Q_SLOTS:
  void Activate(const QVariantMap& platformData) { Open({}, platformData); }
  void Open(const QStringList& links, const QVariantMap& platformData) {
    const QString token = platformData.value(QStringLiteral("activation-token")).toString();
    m_instance->receive(links,
                        token.isEmpty() ? platformData.value(QStringLiteral("desktop-startup-id")).toString() : token);
  }
  /// The desktop entry declares no actions; one from elsewhere shows the window.
  void ActivateAction(const QString&, const QVariantList&, const QVariantMap& platformData) { Activate(platformData); }

 private:
  SingleInstance* m_instance;
};

}  // namespace orv
