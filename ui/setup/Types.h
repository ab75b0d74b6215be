#pragma once

#include <QtQml/qqml.h>

#include "app/setup/SetupProjectStore.h"

// Types of app/ by the names that pages use. They are registered here because app/ knows no QML.

namespace orv::qml {

struct InboxSetupStoreType {
  Q_GADGET
  QML_FOREIGN(orv::InboxSetupStore)
  QML_NAMED_ELEMENT(InboxSetupStore)
  QML_UNCREATABLE("The application model owns it.")
};

struct NewProjectType {
  Q_GADGET
  QML_FOREIGN(orv::NewProject)
  QML_NAMED_ELEMENT(NewProject)
  QML_UNCREATABLE("The application model owns it.")
};

struct SecretFieldType {
  Q_GADGET
  QML_FOREIGN(orv::SecretField)
  QML_NAMED_ELEMENT(SecretField)
  QML_UNCREATABLE("The application model owns it.")
};

struct SetupChecksType {
  Q_GADGET
  QML_FOREIGN(orv::SetupChecks)
  QML_NAMED_ELEMENT(SetupChecks)
  QML_UNCREATABLE("The application model owns it.")
};

struct SetupDomainsType {
  Q_GADGET
  QML_FOREIGN(orv::SetupDomains)
  QML_NAMED_ELEMENT(SetupDomains)
  QML_UNCREATABLE("The application model owns it.")
};

struct SetupFormType {
  Q_GADGET
  QML_FOREIGN(orv::SetupForm)
  QML_NAMED_ELEMENT(SetupForm)
  QML_UNCREATABLE("The application model owns it.")
};

struct SetupPhotoType {
  Q_GADGET
  QML_FOREIGN(orv::SetupPhoto)
  QML_NAMED_ELEMENT(SetupPhoto)
  QML_UNCREATABLE("The application model owns it.")
};

struct SetupProjectStoreType {
  Q_GADGET
  QML_FOREIGN(orv::SetupProjectStore)
  QML_NAMED_ELEMENT(SetupProjectStore)
  QML_UNCREATABLE("The application model owns it.")
};

}  // namespace orv::qml
