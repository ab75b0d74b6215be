#pragma once

#include <QtQml/qqml.h>

#include "app/analytics/AnalyticsStore.h"
#include "app/analytics/DashboardStore.h"

// Types of app/ by the names that pages use. They are registered here because app/ knows no QML.

namespace orv::qml {

struct AnalyticsStoreType {
  Q_GADGET
  QML_FOREIGN(orv::AnalyticsStore)
  QML_NAMED_ELEMENT(AnalyticsStore)
  QML_UNCREATABLE("The application model owns it.")
};

struct DashboardStoreType {
  Q_GADGET
  QML_FOREIGN(orv::DashboardStore)
  QML_NAMED_ELEMENT(DashboardStore)
  QML_UNCREATABLE("The application model owns it.")
};

}  // namespace orv::qml
