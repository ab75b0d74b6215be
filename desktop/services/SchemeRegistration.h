#pragma once

#include <QString>
#include <functional>

class QObject;

namespace orv {

/// Looks which desktop entry opens links of `scheme` and reports it, empty when none does or nothing can tell. Changes
/// nothing: whose links they are is the person's choice. Not called when `context` dies first.
void findSchemeHandler(const QString& scheme, QObject* context,
                       std::function<void(const QString& desktopEntry)> report);

}  // namespace orv
