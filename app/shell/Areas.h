#pragma once

#include "app/base/Area.h"

namespace orv {

/// The areas that are registered in cmake/Areas.cmake.
const QList<Area>& areas();

/// The page, where one of the areas has it.
const AreaPage* areaPage(Page page);

}  // namespace orv
