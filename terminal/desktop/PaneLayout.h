#pragma once

#include "terminal/desktop/Pane.h"
#include "terminal/desktop/Workspace.h"

namespace quorin {

// Keeps what a form shows and how under its code: choice, group, columns and sorting.
void StorePane(TPane& pane, const QString& code, TWorkspace& workspace);
// Gives it back as far as it is there and can be used.
void RestorePane(TPane& pane, const QString& code, const TWorkspace& workspace);

} // namespace quorin
