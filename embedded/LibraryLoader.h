#pragma once

#include "viewdata/services/LibraryLoader.h"

#include <filesystem>

namespace quorin {

// Loads shared libraries of the system that this runs on.
class TEmbeddedLibraryLoader : public TCustomLibraryLoader {
public:
    Pointer LoadLibrary(StringView Path) override;
    Pointer FindExport(Pointer Library, const char* Name) override;

    // Where relative paths are looked up; the folder of the running program to begin with.
    void SetFolder(const std::filesystem::path& folder) { FFolder = folder; }

private:
    std::filesystem::path FFolder;
};

} // namespace quorin
