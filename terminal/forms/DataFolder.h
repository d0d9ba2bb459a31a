#pragma once

#include <filesystem>

namespace quorin {

// Where a program finds the data files: the folder that the environment variable QUORIN_DATA names;
// else the one at `fromProgram` of the program's own folder, where the files of an installation
// lie wherever it was moved to; else `ofTree`, that of the sources.
std::filesystem::path DataFolder(const std::filesystem::path& fromProgram,
                                 const std::filesystem::path& ofTree);

} // namespace quorin
