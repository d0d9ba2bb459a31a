#include "terminal/console/ScriptCommands.h"

#include "platform/rtl/Numbers.h"
#include "platform/rtl/Utf.h"
#include "terminal/console/AuditText.h"
#include "terminal/console/ScriptScreen.h"
#include "viewdata/frame/ServiceTexts.h"
#include "viewdata/services/AccountAdapter.h"

#include <algorithm>

namespace quorin {

namespace {

constexpr StringView ResultLabel = u"result";
constexpr StringView TakenText = u"taken";
constexpr StringView DoneText = u"done";
constexpr StringView RefusedText = u"refused";
constexpr StringView On = u"on";
constexpr Char SectionMark = u'/';
constexpr Integer LanguageCount = 3;

void Print(std::ostream& out, StringView label, StringView text) {
    out << ToUtf8(LabelledLine(label, text)) << '\n';
}

[[noreturn]] void Fail(StringView reason) {
    throw EScriptError(ToUtf8(reason));
}

void CheckRow(TListForm& list, Integer row) {
    const Integer count = list.View().RowCount();
    if (row < count) return;
    Fail(u"there is no row " + IntegerToText(row) + u", the list has " + IntegerToText(count));
}

// The record that the row still stands for; NoRow, which the lists refuse, when it is another now.
Integer RecordOf(TListForm& list, Integer row) {
    CheckRow(list, row);
    return list.ActionRecord(row);
}

void PrintResult(std::ostream& out, bool isTaken, StringView taken) {
    Print(out, ResultLabel, isTaken ? taken : RefusedText);
}

void CheckExchange(StringView exchange) {
    const TCustomMarketAdapter& market = Market();
    for (Integer index = 0; index < market.GetExchangeCount(); ++index) {
        if (market.GetExchangeCode(index) == exchange) return;
    }
    Fail(u"there is no exchange " + String(exchange));
}

// What is shown.

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
        Print(out, u"series", code + (series == nullptr ? String() : u"  " + NameOf(*series)));
    }
}

void Months(TScriptScreen& screen, const TScriptArguments&, std::ostream& out) {
    if (screen.Underlyer().Control().Series().empty()) Fail(u"no series is chosen");
    for (const String& month : screen.Underlyer().Months()) Print(out, u"month", month);
}

void Account(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream&) {
    if (!TCustomAccountAdapter::GetInstance()->IsAccountKnown(arguments.Word(1))) {
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

// Orders.

struct TQuickOrder {
    StringView Side;
    StringView Price;
    Boolean (TCustomMarketDataControl::*Take)(Integer);
};

constexpr TQuickOrder QuickOrders[] = {
    {u"buy", u"market", &TCustomMarketDataControl::BuyMarketOrder},
    {u"buy", u"last", &TCustomMarketDataControl::BuyLastOrder},
    {u"buy", u"best", &TCustomMarketDataControl::BuyBestAskOrder},
    {u"sell", u"market", &TCustomMarketDataControl::SellMarketOrder},
    {u"sell", u"last", &TCustomMarketDataControl::SellLastOrder},
    {u"sell", u"best", &TCustomMarketDataControl::SellBestBidOrder},
};

void QuickOrder(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream& out) {
    const Integer record = RecordOf(screen.Market(), arguments.Number(2));
    for (const TQuickOrder& order : QuickOrders) {
        if (!arguments.Is(0, order.Side) || !arguments.Is(1, order.Price)) continue;
        PrintResult(out, (screen.Market().List().*order.Take)(record), TakenText);
    }
}

TPositionForm& ShownPositions(TScriptScreen& screen) {
    if (!screen.IsShowingPositions()) Fail(u"no positions are shown");
    return screen.Positions();
}

struct TClose {
    StringView Price;
    Boolean (TCustomPositionDataControl::*Take)(Integer);
};

constexpr TClose Closes[] = {
    {u"best", &TCustomPositionDataControl::CloseToBest},
    {u"last", &TCustomPositionDataControl::CloseToLast},
    {u"market", &TCustomPositionDataControl::CloseToMarket},
};

void Close(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream& out) {
    TPositionForm& positions = ShownPositions(screen);
    const Integer record = RecordOf(positions, arguments.Number(2));
    for (const TClose& close : Closes) {
        if (!arguments.Is(1, close.Price)) continue;
        PrintResult(out, (positions.Control().*close.Take)(record), TakenText);
    }
}

void CloseAll(TScriptScreen& screen, const TScriptArguments&, std::ostream& out) {
    PrintResult(out, screen.Positions().Control().CloseAllPositions(), TakenText);
}

void CopyOrder(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream& out) {
    TPositionForm& positions = ShownPositions(screen);
    const Integer record = RecordOf(positions, arguments.Number(1));
    PrintResult(out, positions.Control().CopyOrder(record), DoneText);
}

void CopyPrice(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream&) {
    const Integer record = RecordOf(screen.Market(), arguments.Number(1));
    screen.Market().List().CopyPrice(record, arguments.Number(2));
}

void Orders(TScriptScreen& screen, const TScriptArguments&, std::ostream&) {
    screen.ShowOrders();
}

void Cancel(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream& out) {
    const Integer number = arguments.Number(1);
    if (screen.Desk().FindOrder(number) == nullptr) {
        Fail(u"there is no order " + IntegerToText(number));
    }
    PrintResult(out, screen.Desk().CancelOrder(number), DoneText);
}

void Audit(TScriptScreen& screen, const TScriptArguments&, std::ostream& out) {
    const TOrderAudit& audit = screen.Desk().Audit();
    for (Integer index = 0; index < audit.Count(); ++index) {
        Print(out, u"audit", AuditLine(audit[index], screen.Desk()));
    }
}

// The rest.

void Step(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream&) {
    for (Integer step = 0; step < arguments.Number(1) && screen.Session().Step(); ++step) {
        screen.Follow();
    }
}

void Set(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream&) {
    TEmbeddedConfigManager& config = screen.Session().Services().Config();
    const String& name = arguments.Word(1);
    const std::size_t mark = name.find(SectionMark);
    const bool hasSection = mark != String::npos;
    const String key = hasSection ? name.substr(mark + 1) : name;
    const String section = hasSection ? name.substr(0, mark) : config.GetCurrentSection();
    if (key.empty() || section.empty()) Fail(u"a setting is KEY or SECTION/KEY");
    config.Set(section, key, arguments.Word(2));
    config.Commit();
}

void Language(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream&) {
    const Integer language = arguments.Number(1);
    if (language >= LanguageCount) Fail(u"there is no language " + IntegerToText(language));
    screen.Session().Services().Language().SetLanguage(static_cast<TAppLanguage>(language));
}

String Quoted(StringView text) {
    return u"\"" + String(text) + u"\"";
}

String KindText(const Variant& value) {
    switch (value.Kind()) {
    case Variant::TKind::Null: return u"null";
    case Variant::TKind::Whole: return u"whole " + value.ToText();
    case Variant::TKind::LongWhole: return u"long " + value.ToText();
    case Variant::TKind::Real: return u"real " + ShortestText(value.ToDouble());
    case Variant::TKind::Text: return u"text " + Quoted(value.ToText());
    case Variant::TKind::Array: break;
    }
    String text = u"array [";
    for (const Variant& element : value.Elements()) {
        if (text.back() != u'[') text += u", ";
        text += KindText(element);
    }
    return text + u"]";
}

void Cell(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream& out) {
    TListForm& list = screen.LastList();
    const Integer row = arguments.Number(1);
    CheckRow(list, row);
    const Integer attribute = arguments.Number(2);
    Print(out, u"cell",
          KindText(list.Value(row, attribute)) + u" | " + Quoted(list.Text(row, attribute)));
}

void Help(TScriptScreen&, const TScriptArguments&, std::ostream& out) {
    out << ScriptHelp();
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
    {"account CODE", "changes the account of lists, orders and positions", Account},
    {"buy|sell market|last|best ROW", "one lot of a market row", QuickOrder},
    {"positions", "shows the account's positions", Positions},
    {"close best|last|market ROW", "closes a position", Close},
    {"closeall", "closes every position at the market", CloseAll},
    {"copyorder ROW", "copies a position into order entry", CopyOrder},
    {"copyprice ROW ATTRIBUTE", "copies a cell of a market row into order entry", CopyPrice},
    {"move FROM TO", "moves a market row", Move},
    {"batchmode on|off", "how rows that come on screen are followed", BatchMode},
    {"showposition on|off", "positions in the market lists", ShowPosition},
    {"orders", "shows all orders of the day", Orders},
    {"cancel NUMBER", "cancels what is left of an order, by its number", Cancel},
    {"audit", "lists everything that happened to orders", Audit},
    {"step COUNT", "goes so many deliveries on", Step},
    {"set KEY VALUE", "changes a setting, KEY or SECTION/KEY; \"\" takes it away", Set},
    {"language N", "0 English, 1 Traditional, 2 Simplified Chinese", Language},
    {"cell ROW ATTRIBUTE", "raw value and text of a cell of the list shown last", Cell},
    {"help", "prints this", Help},
};

} // namespace

std::span<const TScriptCommand> ScriptCommands() {
    return Commands;
}

void RunScriptCommand(TScriptScreen& screen, const std::vector<String>& words, std::ostream& out) {
    String usage;
    for (const TScriptCommand& command : Commands) {
        if (const auto arguments = MatchPattern(command.Pattern, words)) {
            command.Run(screen, *arguments, out);
            return;
        }
        if (!MatchesFirstWord(command.Pattern, words.front())) continue;
        usage += (usage.empty() ? u"usage: " : u", or ") + FromUtf8(command.Pattern);
    }
    if (usage.empty()) usage = u"there is no command " + words.front() + u"; see help";
    Fail(usage);
}

std::string ScriptHelp() {
    std::string text =
        "Commands of a script, one a line, # begins a comment, \"...\" holds blanks. ROW counts\n"
        "from 0; for buy, sell, copyprice and move it is a row of the market list, for close and\n"
        "copyorder of the positions, for cell of the list that was shown last:\n";
    for (const TScriptCommand& command : Commands) {
        text += std::string("  ") + command.Pattern + "\n      " + command.Help + "\n";
    }
    return text;
}

} // namespace quorin
