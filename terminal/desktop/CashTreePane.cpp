#include "terminal/desktop/CashTreePane.h"

#include "terminal/desktop/QtText.h"
#include "terminal/forms/TerminalKeys.h"
#include "viewdata/frame/ServiceTexts.h"

namespace quorin {

namespace {

constexpr bool HasAll = true;
constexpr StringView AllMark = u"*";

} // namespace

TCashTreePane::TCashTreePane(StringView account, QWidget* parent)
    : TTreePane(TPaneKind::CashTree, std::make_unique<TCashTreeForm>(), HasAll, parent) {
    Show(account);
    Follow();
}

QString TCashTreePane::Caption() {
    return ToQt(InterfaceText(TerminalKey::Res_CashTree) + u"  " + TreeForm().Title());
}

String TCashTreePane::Choice() {
    return Form().IsShowingAll() ? String(AllMark) : TTreePane::Choice();
}

void TCashTreePane::SetChoice(StringView choice) {
    if (choice == AllMark) {
        Show({});
    } else {
        TTreePane::SetChoice(choice);
    }
}

String TCashTreePane::Shows() {
    return Form().IsShowingAll() ? String() : TTreePane::Shows();
}

void TCashTreePane::Show(StringView account) {
    if (account.empty()) {
        Form().ShowAll();
        return;
    }
    Form().ShowOne();
    TTreePane::Show(account);
}

} // namespace quorin
