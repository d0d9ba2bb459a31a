#pragma once

#include "embedded/Host.h"
#include "viewdata/services/LogFile.h"

#include <filesystem>
#include <fstream>

namespace quorin {

// Hands every line to the host and, once a file is open, appends it there as UTF-8.
class TEmbeddedLogFile : public TCustomLogFile {
public:
    explicit TEmbeddedLogFile(THost& host) : FHost(host) {}

    // Lines go to the end of this file from here on. Throws EDataError when it cannot be written.
    void OpenFile(const std::filesystem::path& path);

    // One call is one line: line breaks inside the text become blanks in the file.
    void WriteLog(StringView Text, Byte Level) override;

private:
    THost& FHost;
    std::ofstream FFile;
};

} // namespace quorin
