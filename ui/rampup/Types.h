#pragma once

#include <QtQml/qqml.h>

#include "app/rampup/RampupAccountStore.h"
#include "app/rampup/RampupStore.h"

// Types of app/ by the names that pages use. They are registered here because app/ knows no QML.

namespace orv::qml {

struct AddToTemplateType {
  Q_GADGET
  QML_FOREIGN(orv::AddToTemplate)
  QML_NAMED_ELEMENT(AddToTemplate)
  QML_UNCREATABLE("The application model owns it.")
};

struct RampupAccountStoreType {
  Q_GADGET
  QML_FOREIGN(orv::RampupAccountStore)
  QML_NAMED_ELEMENT(RampupAccountStore)
  QML_UNCREATABLE("The application model owns it.")
};

struct RampupBulkType {
  Q_GADGET
  QML_FOREIGN(orv::RampupBulk)
  QML_NAMED_ELEMENT(RampupBulk)
  QML_UNCREATABLE("The application model owns it.")
};

struct RampupDetailsType {
  Q_GADGET
  QML_FOREIGN(orv::RampupDetails)
  QML_NAMED_ELEMENT(RampupDetails)
  QML_UNCREATABLE("The application model owns it.")
};

struct RampupStoreType {
  Q_GADGET
  QML_FOREIGN(orv::RampupStore)
  QML_NAMED_ELEMENT(RampupStore)
  QML_UNCREATABLE("The application model owns it.")
};

struct RoadmapActionsType {
  Q_GADGET
  QML_FOREIGN(orv::RoadmapActions)
  QML_NAMED_ELEMENT(RoadmapActions)
  QML_UNCREATABLE("The application model owns it.")
};

struct RoadmapEditorType {
  Q_GADGET
  QML_FOREIGN(orv::RoadmapEditor)
  QML_NAMED_ELEMENT(RoadmapEditor)
  QML_UNCREATABLE("The application model owns it.")
};

struct RoadmapTemplatesType {
  Q_GADGET
  QML_FOREIGN(orv::RoadmapTemplates)
  QML_NAMED_ELEMENT(RoadmapTemplates)
  QML_UNCREATABLE("The application model owns it.")
};

struct StagePartType {
  Q_GADGET
  QML_FOREIGN(orv::StagePart)
  QML_VALUE_TYPE(stagePart)
};

struct WarmupFormType {
  Q_GADGET
  QML_FOREIGN(orv::WarmupForm)
  QML_NAMED_ELEMENT(WarmupForm)
  QML_UNCREATABLE("The application model owns it.")
};

}  // namespace orv::qml
