#pragma once

#include "terminal/desktop/Workspace.h"
#include "terminal/forms/SettingsTable.h"

#include <vector>

namespace quorin {

// The settings that a person has changed in the window, kept in the workspace. What was not changed
// stays what the settings file says.
class TStoredSettings {
public:
    // Puts the stored ones in force. Both must live longer.
    TStoredSettings(TEmbeddedConfigManager& config, TWorkspace& workspace);

    // Hands those to the workspace that are others than the program began with.
    void Store();

private:
    TWorkspace& FWorkspace;
    std::vector<String> FFirst; // without the workspace, in the order of the table
};

// The favourites in the person's order, kept in the workspace once they are others than those that
// the program began with.
class TStoredFavourites {
public:
    // Puts the stored ones in force. `workspace` must live longer.
    explicit TStoredFavourites(TWorkspace& workspace);

    void Store();

private:
    TWorkspace& FWorkspace;
    QString FFirst; // without the workspace
};

} // namespace quorin
