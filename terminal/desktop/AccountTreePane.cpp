#include "terminal/desktop/AccountTreePane.h"

#include "terminal/desktop/QtText.h"
#include "terminal/forms/AccountTreeForm.h"
#include "terminal/forms/TerminalKeys.h"
#include "viewdata/frame/ServiceTexts.h"

namespace quorin {

namespace {

constexpr bool NotAll = false;

} // namespace

TAccountTreePane::TAccountTreePane(StringView account, QWidget* parent)
    : TTreePane(TPaneKind::AccountTree, std::make_unique<TAccountTreeForm>(), NotAll, parent) {
    TreeForm().ShowAccount(account);
    Follow();
}

QString TAccountTreePane::Caption() {
    return ToQt(InterfaceText(TerminalKey::Res_AccountTree) + u"  " + TreeForm().Title());
}

} // namespace quorin
