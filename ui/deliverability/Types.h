#pragma once

#include <QtQml/qqml.h>

#include "app/deliverability/DeliverabilityStore.h"

// Types of app/ by the names that pages use. They are registered here because app/ knows no QML.

namespace orv::qml {

struct DeliverabilityStoreType {
  Q_GADGET
  QML_FOREIGN(orv::DeliverabilityStore)
  QML_NAMED_ELEMENT(DeliverabilityStore)
  QML_UNCREATABLE("The application model owns it.")
};

struct InboxDetailType {
  Q_GADGET
  QML_FOREIGN(orv::InboxDetail)
  QML_NAMED_ELEMENT(InboxDetail)
  QML_UNCREATABLE("The application model owns it.")
};

}  // namespace orv::qml
