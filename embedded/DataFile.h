#pragma once

#include "embedded/CsvReader.h"
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

// A path that cannot be looked at counts as there: opening it says why.
inline bool IsThere(const std::filesystem::path& path) {
    std::error_code error;
    return std::filesystem::exists(path, error) || error;
}

// Throws EDataError where the records ended early; for the end of every reading.
inline void CheckEnd(const TCsvReader& reader, std::string_view file) {
    if (reader.Failed()) throw EDataError(file, 0, "cannot be read");
}

} // namespace quorin
