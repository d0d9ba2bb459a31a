#include "terminal/forms/DataFolder.h"

#include <cstdlib>
#include <system_error>

namespace quorin {

namespace {

constexpr const char* DataVariable = "QUORIN_DATA";
constexpr const char* OwnProgram = "/proc/self/exe";

} // namespace

std::filesystem::path DataFolder(const std::filesystem::path& fromProgram,
                                 const std::filesystem::path& ofTree) {
    const char* named = std::getenv(DataVariable);
    if (named != nullptr && *named != '\0') return named;
    std::error_code error;
    const std::filesystem::path program = std::filesystem::read_symlink(OwnProgram, error);
    if (error) return ofTree;
    const std::filesystem::path installed =
        (program.parent_path() / fromProgram).lexically_normal();
    return std::filesystem::is_directory(installed, error) ? installed : ofTree;
}

} // namespace quorin
