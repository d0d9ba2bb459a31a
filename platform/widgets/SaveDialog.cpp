#include "platform/widgets/SaveDialog.h"

#include "platform/rtl/Utf.h"

#include <filesystem>
#include <string>
#include <system_error>

namespace quorin {

namespace {

namespace fs = std::filesystem;

TSaveDialogHost* installedHost = nullptr;

// Gives the process its working folder back, if that is wanted.
class TKeptFolder {
public:
    explicit TKeptFolder(bool isWanted) {
        if (isWanted) FFolder = fs::current_path(FError);
    }
    TKeptFolder(const TKeptFolder&) = delete;
    TKeptFolder& operator=(const TKeptFolder&) = delete;
    ~TKeptFolder() {
        if (!FFolder.empty()) fs::current_path(FFolder, FError);
    }

private:
    std::error_code FError;
    fs::path FFolder;
};

} // namespace

void TSaveDialogHost::Install(TSaveDialogHost* host) {
    installedHost = host;
}

String TSaveDialog::FullName(StringView name) const {
    if (name.empty()) return {};
    fs::path path = fs::path(ToUtf8(InitialDir)) / ToUtf8(name);
    if (path.has_filename() && !path.has_extension() && !DefaultExt.empty()) {
        path += "." + ToUtf8(DefaultExt);
    }
    std::error_code error;
    const fs::path full = fs::absolute(path, error);
    return FromUtf8((error ? path : full).string());
}

Boolean TSaveDialog::Execute() {
    if (installedHost == nullptr) return false;
    {
        const TKeptFolder kept(Has(ofNoChangeDir));
        if (!installedHost->ChooseFile(*this)) return false;
    }
    FileName = FullName(FileName);
    return !FileName.empty();
}

} // namespace quorin
