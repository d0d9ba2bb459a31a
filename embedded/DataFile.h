#pragma once

#include "embedded/DataError.h"

#include <filesystem>
#include <fstream>

namespace quorin {

// Opens a data file for reading. Throws EDataError where there is no file that can be read; a
// folder is none.
inline std::ifstream OpenDataFile(const std::filesystem::path& path) {
    std::error_code ignored;
    std::ifstream file(path, std::ios::binary);
    if (!file || std::filesystem::is_directory(path, ignored)) {
        throw EDataError(path.string(), 0, "cannot be read");
    }
    return file;
}

} // namespace quorin
