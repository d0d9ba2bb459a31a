#pragma once

#include "platform/rtl/Types.h"

#include <filesystem>
#include <istream>
#include <string>
#include <vector>

namespace quorin {

// One command as it stands in a script.
struct TScriptLine {
    Integer Number = 0;        // from 1
    String Text;               // without the blanks around it
    std::vector<String> Words; // none where the line cannot be read
    const char* Fault = "";    // why it cannot
};

// The lines that say something: blank ones and comments are left out. UTF-8.
std::vector<TScriptLine> ReadScript(std::istream& script);
// Raises EDataError for a file that can't be read.
std::vector<TScriptLine> ReadScriptFile(const std::filesystem::path& path);

} // namespace quorin
