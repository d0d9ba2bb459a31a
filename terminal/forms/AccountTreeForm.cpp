#include "terminal/forms/AccountTreeForm.h"

#include "terminal/forms/TerminalKeys.h"
#include "viewdata/account/AccountAttributes.h"
#include "viewdata/frame/ServiceTexts.h"
#include "viewdata/services/ChinaConnect.h"

namespace quorin {

namespace {

namespace A = AccountAttribute;

constexpr Integer CaptionWidth = 200; // pixels
constexpr Integer ValueWidth = 160;
constexpr Integer MainFigures[] = {A::Value9028, A::MarketValue,   A::Cash,
                                   A::HeldCash,  A::AvailableCash, A::TotalPL,
                                   A::Value604,  A::Shortfall,     A::Value9018};

} // namespace

TAccountTreeForm::TAccountTreeForm() {
    Bind<TAccountTreeControl>(TcxTreeShape::FlatList);
    View().AddColumn(AccountTreeColumn::Caption).SetWidth(CaptionWidth);
    View().AddColumn(AccountTreeColumn::Value).SetWidth(ValueWidth);
    ShowMainFigures();
    UpdateCaptions();
}

void TAccountTreeForm::ShowMainFigures() {
    ShowFigures(MainFigures);
}

void TAccountTreeForm::ShowFigures(std::span<const Integer> attributes) {
    SetColumns(AccountColumns(attributes));
}

bool TAccountTreeForm::IsText(Integer attribute) const {
    return attribute == AccountTreeColumn::Caption;
}

String TAccountTreeForm::Title() {
    String title = Inherited::Title();
    const String& filter = Tree().FilterCurr();
    if (!filter.empty() && IsChinaConnectOn()) {
        title += u"  " + InterfaceText(TerminalKey::Res_ChinaConnect) + u": " + filter;
    }
    return title;
}

String TAccountTreeForm::ColumnText(Integer tag) {
    return InterfaceText(tag == AccountTreeColumn::Caption ? TerminalKey::Res_Figure
                                                           : TerminalKey::Res_Amount);
}

String TAccountTreeForm::NodeText(Pointer node, Integer tag) {
    String text = Inherited::NodeText(node, tag);
    const auto* figure = ObjectAs<TAccountDataNode>(node);
    if (tag == AccountTreeColumn::Caption && figure != nullptr && text.empty()) {
        text = Tree().GetResourceHeader(figure->Attribute());
    }
    return text;
}

} // namespace quorin
