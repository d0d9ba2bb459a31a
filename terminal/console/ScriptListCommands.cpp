#include "terminal/console/ScriptAnswers.h"
#include "viewdata/frame/ServiceTexts.h"
#include "viewdata/services/AccountAdapter.h"

namespace quorin {

namespace {

constexpr StringView On = u"on";

void CheckExchange(StringView exchange) {
    const TCustomMarketAdapter& market = Market();
    for (Integer index = 0; index < market.GetExchangeCount(); ++index) {
        if (market.GetExchangeCode(index) == exchange) return;
    }
    Fail(u"there is no exchange " + String(exchange));
}

void Watch(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream&) {
    CheckExchange(arguments.Word(1));
    screen.ShowWatch(arguments.Word(1));
}

void Favourites(TScriptScreen& screen, const TScriptArguments&, std::ostream&) {
    screen.ShowWatch(FavoriteExchange);
}

struct TModeName {
    StringView Name;
    TUnderlyerPriceDisplayMode Mode;
};

constexpr TModeName ModeNames[] = {
    {u"futures", udmFutures},
    {u"options", udmOptions},
    {u"spread-futures", udmSpreadFutures},
    {u"spread-options", udmSpreadOptions},
};

TOptionsType CallPutOf(const TScriptArguments& arguments, std::size_t place) {
    if (!arguments.Has(place)) return otAll;
    return arguments.Is(place, u"call") ? otCall : otPut;
}

void CheckSeries(const String& exchange, const String& series) {
    const TCustomMarketAdapter& market = Market();
    for (Integer index = 0; index < market.GetSeriesCount(exchange); ++index) {
        if (market.GetSeriesCode(exchange, index) == series) return;
    }
    Fail(u"there is no series " + series + u" on " + exchange);
}

void CheckMonth(const String& exchange, const String& series, const String& month) {
    const TCustomMarketAdapter& market = Market();
    for (Integer index = 0; index < market.GetMarketDataCount(exchange, series); ++index) {
        const TCustomMarketData* data = market.GetMarketDataAt(exchange, series, index);
        if (data != nullptr && data->GetExpiryMonth() == month) return;
    }
    Fail(u"nothing of " + series + u" expires in " + month);
}

void Underlyer(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream&) {
    TUnderlyerChoice choice;
    choice.Exchange = arguments.Word(1);
    choice.Series = arguments.Word(2);
    CheckExchange(choice.Exchange);
    CheckSeries(choice.Exchange, choice.Series);
    if (arguments.Has(4)) {
        choice.Month = arguments.Word(4);
        CheckMonth(choice.Exchange, choice.Series, choice.Month);
    }
    for (const TModeName& mode : ModeNames) {
        if (arguments.Is(3, mode.Name)) choice.Mode = mode.Mode;
    }
    choice.CallPut = CallPutOf(arguments, 5);
    String title = choice.Series + u" " + arguments.Word(3);
    for (const std::size_t place : {4u, 5u}) {
        if (arguments.Has(place)) title += u" " + arguments.Word(place);
    }
    screen.ShowUnderlyer(choice, title);
}

const String& NameOf(const TCustomSeriesData& series) {
    switch (TCustomLanguageManager::GetInstance()->GetCurrentLanguage()) {
    case TAppLanguage::TraditionalChinese: return series.GetNameLanguage1();
    case TAppLanguage::SimplifiedChinese: return series.GetNameLanguage2();
    default: return series.GetName();
    }
}

void Series(TScriptScreen& screen, const TScriptArguments&, std::ostream& out) {
    if (screen.Exchange().empty()) Fail(u"the favourites are no exchange with series");
    screen.Underlyer().ChooseExchange(screen.Exchange());
    for (const String& code : screen.Underlyer().SeriesCodes()) {
        const TCustomSeriesData* series = Market().FindSeries(code);
        PrintAnswer(out, u"series",
                    code + (series == nullptr ? String() : u"  " + NameOf(*series)));
    }
}

void Months(TScriptScreen& screen, const TScriptArguments&, std::ostream& out) {
    if (screen.Underlyer().Control().Series().empty()) Fail(u"no series is chosen");
    for (const String& month : screen.Underlyer().Months()) PrintAnswer(out, u"month", month);
}

void Account(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream&) {
    // Market lists keep their account rather than take one that is not known, and orders with them.
    const TCustomAccountAdapter& accounts = *TCustomAccountAdapter::GetInstance();
    if (!accounts.IsAccountReady()) Fail(u"the accounts are not there yet");
    if (!accounts.IsAccountKnown(arguments.Word(1))) {
        Fail(u"there is no account " + arguments.Word(1));
    }
    screen.ShowAccount(arguments.Word(1));
}

void Positions(TScriptScreen& screen, const TScriptArguments&, std::ostream&) {
    screen.ShowPositions();
}

void Move(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream&) {
    TMarketListForm& market = screen.Market();
    const Integer to = RecordOf(market, arguments.Number(2));
    market.List().MoveRecord(RecordOf(market, arguments.Number(1)), to);
}

void BatchMode(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream&) {
    screen.Watch().List().SetIsBatchMode(arguments.Is(1, On));
    screen.Underlyer().List().SetIsBatchMode(arguments.Is(1, On));
}

void ShowPosition(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream&) {
    screen.Watch().ShowPositions(arguments.Is(1, On));
    screen.Underlyer().ShowPositions(arguments.Is(1, On));
}

// Favourites.

void ChangeFavourite(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream& out) {
    TMarketListForm& market = screen.Market();
    const bool isRemoval = arguments.Is(1, u"remove");
    TListForm& list = isRemoval ? market : screen.LastList();
    const Integer record = RecordOf(list, arguments.Number(2));
    bool isDone = false;
    if (isRemoval) {
        isDone = market.List().RemoveFavoritePrice(record);
    } else if (&list == &screen.Positions()) {
        isDone = screen.Positions().Control().AddToFavorite(record);
    } else if (&list == &screen.PositionView()) {
        isDone = screen.PositionView().Control().AddToFavorite(record);
    } else {
        isDone = market.List().AddToFavorite(record);
    }
    PrintResult(out, isDone, DoneText);
}

void AddFavourite(TScriptScreen& screen, const TScriptArguments&, std::ostream&) {
    screen.Market().List().AddFavoritePrice();
}

void ClearFavourites(TScriptScreen& screen, const TScriptArguments&, std::ostream& out) {
    PrintResult(out, screen.Market().List().ClearAllFavoritePrice(), DoneText);
}

constexpr TScriptCommand Commands[] = {
    {"watch EXCHANGE", "shows an exchange", Watch},
    {"favourites", "shows the favourites", Favourites},
    {"favourite add|remove ROW", "adds a row of the list shown last, removes a market row",
     ChangeFavourite},
    {"favourite add", "adds the symbol of order entry, after a question", AddFavourite},
    {"favourite clear", "removes all favourites", ClearFavourites},
    {"underlyer EXCHANGE SERIES futures|options|spread-futures|spread-options [MONTH] [call|put]",
     "shows the contracts of one series; options need a month", Underlyer},
    {"series", "lists the series of the exchange shown", Series},
    {"months", "lists the months of the series' options", Months},
    {"account CODE", "changes the account of everything shown and of orders", Account},
    {"positions", "shows the account's positions", Positions},
    {"move FROM TO", "moves a market row", Move},
    {"batchmode on|off", "whether rows that come on screen are followed in batches", BatchMode},
    {"showposition on|off", "positions in the market lists", ShowPosition},
};

} // namespace

std::span<const TScriptCommand> ListCommands() {
    return Commands;
}

} // namespace quorin
