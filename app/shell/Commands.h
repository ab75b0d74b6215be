#pragma once

#include "app/shell/AppModel.h"
#include "app/shell/CommandPalette.h"

namespace orv {

/// Everything that can be done from anywhere, in the palette's order: pages, actions, campaigns, workspaces, settings.
/// The palette, the shortcut sheet and the shortcuts all read this one list.
QList<Command> commandsOf(AppModel& app);

/// The shortcut sheet's lines: group, title and keys of every command that has keys, and of what controls do by
/// themselves.
QVariantList shortcutSheet(AppModel& app);

}  // namespace orv
