#pragma once

#include <QtQml/qqml.h>

#include "app/figures/Figure.h"
#include "app/figures/RangeForm.h"

// Types of app/ by the names that pages use. They are registered here because app/ knows no QML.

namespace orv::qml {

struct FigureType {
  Q_GADGET
  QML_FOREIGN(orv::Figure)
  QML_VALUE_TYPE(figure)
};

struct RangeFormType {
  Q_GADGET
  QML_FOREIGN(orv::RangeForm)
  QML_NAMED_ELEMENT(RangeForm)
  QML_UNCREATABLE("The application model owns it.")
};

}  // namespace orv::qml
