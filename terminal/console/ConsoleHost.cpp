#include "terminal/console/ConsoleHost.h"

#include "platform/rtl/Utf.h"
#include "viewdata/services/MessageBoxCtrl.h"

namespace quorin {

namespace {
constexpr Integer AnswerNo = 0;
static_assert(AnswerNo != ConfirmYes);
} // namespace

void TConsoleHost::ShowMessage(StringView text) {
    FErrors << ToUtf8(text) << '\n';
}

Integer TConsoleHost::Confirm(StringView text, Integer) {
    ShowMessage(text);
    return AnswerNo;
}

} // namespace quorin
