#include "terminal/console/ViewDialogs.h"

#include "platform/rtl/Text.h"
#include "platform/rtl/Utf.h"
#include "terminal/console/ConsoleHost.h"
#include "terminal/forms/TerminalKeys.h"
#include "viewdata/frame/ServiceTexts.h"
#include "viewdata/services/ChannelMessages.h"

#include <filesystem>
#include <utility>

namespace quorin {

TViewDialogs::TViewDialogs(TConsoleHost& host) : FHost(host) {
    FHost.SetViewDialogs(this);
    TSaveDialogHost::Install(this);
    TcxExportLinks::Install(&FLinks);
}

TViewDialogs::~TViewDialogs() {
    TcxExportLinks::Install(nullptr);
    TSaveDialogHost::Install(nullptr);
    FHost.SetViewDialogs(nullptr);
}

Boolean TViewDialogs::Answer(Integer number, Pointer data) {
    if (data == nullptr) return false;
    if (number == ChannelMessage::CustomColumn) {
        FAskedColumns = *static_cast<const TCustomColumnRecord*>(data);
        auto choice = std::exchange(FColumns, std::nullopt);
        if (choice && FAskedColumns.Callback) FAskedColumns.Callback(nullptr, Pointer(&*choice));
        return true;
    }
    if (number == ChannelMessage::CustomFilter) {
        auto& filter = *static_cast<TCustomFilterRecord*>(data);
        FAskedFilter = filter;
        if (const auto answer = std::exchange(FFilter, std::nullopt)) {
            filter.Value = answer->Value;
            filter.Operator = answer->Operator;
        }
        return true;
    }
    return false;
}

Boolean TViewDialogs::ChooseFile(TSaveDialog& dialog) {
    FWasFileChosen = false;
    const auto answer = std::exchange(FFileName, std::nullopt);
    if (!answer) return false;
    std::error_code ignored;
    const String name = dialog.FullName(*answer);
    const bool isThere = std::filesystem::is_regular_file(ToUtf8(name), ignored);
    if (isThere && dialog.Has(ofOverwritePrompt) &&
        !FHost.Ask(FormatText(InterfaceText(TerminalKey::Res_OverwriteQuestion), {*answer}))) {
        return false;
    }
    dialog.FileName = *answer;
    FWasFileChosen = true;
    return true;
}

} // namespace quorin
