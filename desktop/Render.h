#pragma once

#include <QString>

namespace orv {

/// Renders every page and state of the window to PNG files in `folder`: both smallest and usual size, light and dark.
/// Gives the program's exit code; says on standard error what could not be written.
int renderPages(const QString& folder, const QString& prefix = {});

}  // namespace orv
