#include "platform/rtl/Numbers.h"
#include "terminal/console/ScriptAnswers.h"

namespace quorin {

// What happens on the side of the services, for views to follow.

namespace {

TEmbeddedAccountAdapter& Accounts(TScriptScreen& screen) {
    return screen.Session().Services().Accounts();
}

TEmbeddedAccount& AccountOf(TScriptScreen& screen, const String& code) {
    TEmbeddedAccount* account = Accounts(screen).FindAccount(code);
    if (account == nullptr) Fail(u"there is no account " + code);
    return *account;
}

void AccountsReady(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream&) {
    Accounts(screen).SetReadyAfter(arguments.Number(1));
}

// Holder and group of the new account come with a later delivery than the account itself.
void SubAccount(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream&) {
    const String& code = arguments.Word(1);
    const TEmbeddedAccount& master = AccountOf(screen, arguments.Word(2));
    if (code.empty() || Accounts(screen).FindAccount(code) != nullptr) {
        Fail(code.empty() ? String(u"an account needs a code")
                          : u"there is already an account " + code);
    }
    TAccountDetails details;
    details.Name = code;
    details.MasterAccount = master.GetAccount();
    details.MarginType = MarginType::Margin;
    details.GroupID = master.GetAccountGroupID();
    Accounts(screen).SetDetailsLate(true);
    Accounts(screen).FeedAccount(code, details);
    Accounts(screen).SetDetailsLate(false);
}

void AccountStatus(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream&) {
    TEmbeddedAccount& account = AccountOf(screen, arguments.Word(1));
    TAccountDetails details = account.Details();
    details.Status = arguments.Number(2);
    Accounts(screen).FeedAccount(arguments.Word(1), details);
}

void MarginRatio(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream&) {
    const String& symbol = arguments.Word(1);
    TEmbeddedServices& services = screen.Session().Services();
    if (services.Market().FindMarketData(symbol) == nullptr) {
        Fail(u"there is no symbol " + symbol);
    }
    Double ratio = 0.0;
    if (!TryParseDouble(arguments.Word(2), ratio) || ratio < 0.0 || ratio > 1.0) {
        Fail(u"a margin ratio is a number from 0 to 1");
    }
    services.Products().FeedProduct(symbol, {}).SetMarginRatio(ratio);
}

constexpr TScriptCommand Commands[] = {
    {"accountsready COUNT", "no account is known until so many deliveries are over", AccountsReady},
    {"subaccount CODE MASTER", "a new sub-account of a master; its details load later", SubAccount},
    {"accountstatus CODE N", "an account's status: 1024 suspended, 2048 sales only, 0 normal",
     AccountStatus},
    {"marginratio SYMBOL RATIO", "the margin ratio of a product, for accounts without their own",
     MarginRatio},
};

} // namespace

std::span<const TScriptCommand> ServiceCommands() {
    return Commands;
}

} // namespace quorin
