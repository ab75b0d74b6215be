#pragma once

#include <QDBusConnection>

#include "app/base/Toasts.h"
#include "desktop/services/LogFile.h"
#include "desktop/services/SettingsPreferences.h"

namespace orv {

/// Says what this start goes on without: in the log, and in a message what the person would otherwise find out by
/// losing something. The keyring and the network are told where they are asked.
void tellWhatIsMissing(const QDBusConnection& sessionBus, const LogFile& log, const SettingsPreferences& preferences,
                       Toasts& toasts);

}  // namespace orv
