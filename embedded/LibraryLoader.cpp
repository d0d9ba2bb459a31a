#include "embedded/LibraryLoader.h"

#include "platform/rtl/Utf.h"

#include <dlfcn.h>

namespace quorin {

namespace {

// Empty where the system does not tell.
std::filesystem::path ProgramFolder() {
    std::error_code ignored;
    return std::filesystem::read_symlink("/proc/self/exe", ignored).parent_path();
}

} // namespace

Pointer TEmbeddedLibraryLoader::LoadLibrary(StringView Path) {
    std::filesystem::path path = ToUtf8(Path);
    if (path.is_relative()) path = (FFolder.empty() ? ProgramFolder() : FFolder) / path;
    return dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
}

Pointer TEmbeddedLibraryLoader::FindExport(Pointer Library, const char* Name) {
    return Library != nullptr ? dlsym(Library, Name) : nullptr;
}

} // namespace quorin
