#include "platform/rtl/Numbers.h"
#include "platform/rtl/Text.h"
#include "terminal/console/ScriptAnswers.h"
#include "viewdata/frame/ServiceTexts.h"

namespace quorin {

namespace {

constexpr Char AttributeGap = u',';

// Neither a currency nor China Connect concerns the cash tree.
TCustomAccountInfoDataControl& ShownAccountTree(TScriptScreen& screen) {
    if (screen.AccountTree() == nullptr) Fail(u"the account tree is not shown");
    return screen.AccountTree()->Tree();
}

std::vector<Integer> AttributesOf(const String& text) {
    std::vector<Integer> attributes;
    for (const StringView piece : Split(text, AttributeGap)) {
        Integer attribute = 0;
        if (!TryParseInteger(piece, attribute) || !IsAccountColumn(attribute)) {
            Fail(u"there is no figure " + String(piece));
        }
        attributes.push_back(attribute);
    }
    return attributes;
}

// Empty without a code.
String CurrencyOf(const TScriptArguments& arguments) {
    if (!arguments.Has(1)) return {};
    const String& code = arguments.Word(1);
    if (ResourceText(ResourceTag::Currency, code).empty()) Fail(u"there is no currency " + code);
    return code;
}

void AccountTree(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream&) {
    if (!arguments.Has(1)) {
        screen.ShowAccountTree().ShowMainFigures();
        return;
    }
    const std::vector<Integer> attributes = AttributesOf(arguments.Word(1));
    if (attributes.empty()) Fail(u"no figure is named");
    screen.ShowAccountTree().ShowFigures(attributes);
}

void Cash(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream&) {
    screen.ShowCashTree(arguments.Has(1));
}

void FilterCurrency(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream&) {
    ShownAccountTree(screen).SetFilterCurr(CurrencyOf(arguments));
}

void DisplayCurrency(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream&) {
    ShownAccountTree(screen).SetCurrency(CurrencyOf(arguments));
}

constexpr TScriptCommand Commands[] = {
    {"accounttree [ATTRIBUTES]",
     "shows the figures of the account with a row per currency: the main ones, or those whose "
     "numbers are named, such as 991,604 (custom column 1601 is 101601)",
     AccountTree},
    {"cash [all]", "shows the account, or all accounts, with a row per currency", Cash},
    {"filtercurr [CODE]",
     "with a code the account tree shows the figures of the China Connect account", FilterCurrency},
    {"displaycurrency [CODE]",
     "totals and rates of the account tree in this currency; without a code in the base currency",
     DisplayCurrency},
};

} // namespace

std::span<const TScriptCommand> AccountCommands() {
    return Commands;
}

} // namespace quorin
