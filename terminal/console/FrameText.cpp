#include "terminal/console/FrameText.h"

#include "platform/rtl/Numbers.h"
#include "platform/rtl/Text.h"
#include "terminal/console/TextWidth.h"
#include "terminal/forms/TerminalKeys.h"
#include "viewdata/market/MarketAttributes.h"
#include "viewdata/services/LanguageManager.h"
#include "viewdata/services/ResourceKeys.h"

namespace quorin {

namespace {

constexpr Integer PixelsPerColumn = 8;
constexpr Integer ShownTrades = 5;
// Head, captions, an empty line, the title and the captions of the trades.
static_assert(FrameLinesBesideRows == 5 + ShownTrades);
constexpr StringView UpMark = u"\u25B2";
constexpr StringView DownMark = u"\u25BC";
constexpr StringView EqualMark = u"=";
constexpr StringView NoMark = u" ";

// Columns of the trades' table.
constexpr Integer TimeWidth = 10;
constexpr Integer QuantityWidth = 12;
constexpr Integer PriceWidth = 12;
constexpr Integer SideWidth = 6;

using TMarkReader = bool (TMarketWatchForm::*)(Integer, TPriceChangeState&);

// A price with a mark behind it; nil for every other column.
TMarkReader MarkReaderOf(Integer attribute) {
    switch (attribute) {
    case MarketAttribute::LastPrice: return &TMarketWatchForm::LastMove;
    case MarketAttribute::Change: return &TMarketWatchForm::ChangeDirection;
    default: return nullptr;
    }
}

StringView MarkText(TMarketWatchForm& watch, Integer row, TMarkReader reader) {
    TPriceChangeState state = pcsNone;
    if (!(watch.*reader)(row, state)) return NoMark;
    switch (state) {
    case pcsUp: return UpMark;
    case pcsDown: return DownMark;
    case pcsNone: break;
    }
    return EqualMark;
}

TAlign AlignOf(Integer attribute) {
    const bool isText =
        attribute == MarketAttribute::SymbolCode || attribute == MarketAttribute::SymbolName;
    return isText ? TAlign::Left : TAlign::Right;
}

constexpr Integer HeaderRow = -1;

String WatchLine(TMarketWatchForm& watch, Integer row) {
    String line;
    TcxGridTableView& view = watch.View();
    for (Integer index = 0; index < view.GetColumnCount(); ++index) {
        TcxGridColumn& column = *view.GetColumn(index);
        if (!column.GetVisible()) continue;
        const String text = row == HeaderRow ? column.Caption() : view.CellText(row, column);
        if (!line.empty()) line += u' ';
        line += FitText(text, column.GetWidth() / PixelsPerColumn, AlignOf(column.GetTag()));
        const TMarkReader reader = MarkReaderOf(column.GetTag());
        if (reader == nullptr) continue;
        line += u' ';
        line += row == HeaderRow ? NoMark : MarkText(watch, row, reader);
    }
    return String(TrimRight(line));
}

String TradeLine(StringView time, StringView quantity, StringView price, StringView side) {
    String line = FitText(time, TimeWidth);
    line += FitText(quantity, QuantityWidth, TAlign::Right);
    line += FitText(price, PriceWidth, TAlign::Right);
    line += FitText(side, SideWidth, TAlign::Right);
    return String(TrimRight(line));
}

String Caption(StringView key) {
    return TCustomLanguageManager::GetInstance()->GetResourceString(Const_ResourceStringTag, key,
                                                                    TAppLanguage::None, 0, nullptr);
}

String TwoDigits(Int64 number) {
    const String text = IntegerToText(number);
    return text.size() < 2 ? u"0" + text : text;
}

} // namespace

String ClockText(Double secondsAfterMidnight) {
    const Int64 milliseconds = RoundToInt64(secondsAfterMidnight * 1000.0);
    const Int64 seconds = milliseconds / 1000;
    const String thousandths = IntegerToText(1000 + milliseconds % 1000).substr(1);
    return TwoDigits(seconds / 3600) + u":" + TwoDigits(seconds / 60 % 60) + u":" +
           TwoDigits(seconds % 60) + u"." + thousandths;
}

std::vector<String> FrameLines(const TFrameHead& head, TMarketWatchForm& watch,
                               const TTradesForm& trades) {
    watch.FollowVisibleRows();
    std::vector<String> lines;
    lines.push_back(head.Exchange + u"  " + ClockText(head.PollTime) + u"  #" +
                    IntegerToText(head.Deliveries));
    lines.push_back(WatchLine(watch, HeaderRow));
    const Integer top = watch.View().TopRow();
    for (Integer offset = 0; offset < watch.View().VisibleRowCount(); ++offset) {
        lines.push_back(WatchLine(watch, top + offset));
    }
    lines.emplace_back();
    lines.push_back(Caption(TerminalKey::Res_Trades) + u" " + trades.Symbol());
    lines.push_back(TradeLine(Caption(TerminalKey::Res_Time), Caption(TerminalKey::Res_Qty),
                              Caption(TerminalKey::Res_Price), Caption(TerminalKey::Res_Side)));
    for (Integer index = 0; index < ShownTrades; ++index) {
        const TMarketDataTrade* trade = trades.Trade(index);
        if (trade == nullptr) {
            lines.emplace_back(); // the frame keeps its height
        } else {
            lines.push_back(
                TradeLine(trade->Time(), trade->Qty(), trades.PriceText(*trade), trade->Side()));
        }
    }
    return lines;
}

} // namespace quorin
