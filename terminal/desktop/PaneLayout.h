#pragma once

#include "terminal/desktop/PaneDock.h"
#include "terminal/desktop/Workspace.h"

namespace quorin {

// Keeps what a form shows and how under the name of its dock: choice, group, columns and sorting.
void StorePane(TPaneDock& dock, TWorkspace& workspace);
// What is kept so far is how the form began, not what a person chose.
void NoteFirst(TPaneDock& dock, TWorkspace& workspace);
// Gives it back as far as it is there and can be used.
void RestorePane(TPaneDock& dock, const TWorkspace& workspace);

} // namespace quorin
