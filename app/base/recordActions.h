#pragma once

#include "app/base/PageAction.h"

namespace orv {

/// A list page's own "new"; `whyNot` is told to who may not.
PageAction newAction(const QString& title, const QString& whyNot, std::function<void()> run);
/// Leads to the list's archive, unless it is on the screen.
PageAction archiveAction(const QString& title, bool isShown, std::function<void()> run);
/// What can be done with a record that waits in an archive. The titles say its name where one is given.
QList<PageAction> archivedActions(bool isFree, std::function<void()> restore, std::function<void()> removeForGood,
                                  const QString& name = {});

}  // namespace orv
