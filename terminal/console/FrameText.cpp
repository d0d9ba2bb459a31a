#include "terminal/console/FrameText.h"

#include "platform/rtl/Numbers.h"
#include "platform/rtl/Text.h"
#include "terminal/console/ListText.h"
#include "terminal/console/TextWidth.h"
#include "terminal/forms/TerminalKeys.h"
#include "viewdata/services/AccountAdapter.h"
#include "viewdata/services/ChinaConnect.h"
#include "viewdata/services/CurrencyAdapter.h"
#include "viewdata/services/LanguageManager.h"
#include "viewdata/services/LoginCtrl.h"
#include "viewdata/services/ResourceKeys.h"

#include <algorithm>

namespace quorin {

namespace {

constexpr Integer ShownTrades = 5;
// Product information has up to twelve lines; margin and the two positions follow.
constexpr Integer ProductLineCount = 15;
// Head, captions and an empty line; the block of the trades is lower than that of the product.
static_assert(FrameLinesBesideRows == 3 + ProductLineCount);
static_assert(2 + ShownTrades <= ProductLineCount);
constexpr StringView HeadGap = u"  ";

// Columns of the trades' table.
constexpr Integer TimeWidth = 10;
constexpr Integer QuantityWidth = 12;
constexpr Integer PriceWidth = 12;
constexpr Integer SideWidth = 10;
constexpr Integer TradesWidth = TimeWidth + QuantityWidth + PriceWidth + SideWidth;
constexpr Integer ProductGap = 6;
constexpr Integer ProductWidth = 60;

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

std::vector<String> TradeBlock(const TTradesForm& trades) {
    std::vector<String> lines;
    lines.push_back(Caption(TerminalKey::Res_Trades) + u" " + PlainText(trades.Symbol()));
    lines.push_back(TradeLine(Caption(TerminalKey::Res_Time), Caption(TerminalKey::Res_Qty),
                              Caption(TerminalKey::Res_Price), Caption(TerminalKey::Res_Side)));
    for (Integer index = 0; index < ShownTrades; ++index) {
        const TMarketDataTrade* trade = trades.Trade(index);
        if (trade == nullptr) continue;
        lines.push_back(
            TradeLine(trade->Time(), trade->Qty(), trades.PriceText(*trade), trade->Side()));
    }
    return lines;
}

// Left and right side by side, in at least so many lines as a full block of trades has.
void AppendBeside(std::vector<String>& lines, std::vector<String> left, std::vector<String> right) {
    const std::size_t height = std::max(right.size(), std::size_t{2 + ShownTrades});
    left.resize(height);
    right.resize(height);
    for (std::size_t index = 0; index < left.size(); ++index) {
        const String line =
            FitText(left[index], TradesWidth + ProductGap) + FitText(right[index], ProductWidth);
        lines.emplace_back(TrimRight(line));
    }
}

} // namespace

String HeadText(const TFrameHead& head) {
    String text = PlainText(head.Exchange);
    const auto append = [&text](StringView part) {
        text += HeadGap;
        text += part;
    };
    append(ClockText(head.PollTime));
    append(u"#" + IntegerToText(head.Deliveries));
    const auto add = [&append](bool applies, StringView key) {
        if (applies) append(Caption(key));
    };
    add(!TCustomLoginCtrl::GetInstance()->IsLogin(), TerminalKey::Res_LoggedOut);
    add(!TCustomMarketAdapter::GetInstance()->IsMarketDataReady(), TerminalKey::Res_MarketNotReady);
    add(!TCustomAccountAdapter::GetInstance()->IsAccountReady(), TerminalKey::Res_AccountsNotReady);
    // Without accounts these say nothing.
    const TCustomAccountAdapter& accounts = *TCustomAccountAdapter::GetInstance();
    const bool hasAccounts = !accounts.IsAccountReady() || accounts.GetAccountCount() > 0;
    const TCustomCurrencyAdapter& currencies = *TCustomCurrencyAdapter::GetInstance();
    add(hasAccounts && !currencies.IsMultiCurrency(), TerminalKey::Res_OneCurrency);
    add(hasAccounts && !IsChinaConnectOn(), TerminalKey::Res_NoChinaConnect);
    return text;
}

String ClockText(Double secondsAfterMidnight) {
    const Int64 milliseconds = RoundToInt64(secondsAfterMidnight * 1000.0);
    const Int64 seconds = milliseconds / 1000;
    const String thousandths = IntegerToText(1000 + milliseconds % 1000).substr(1);
    return TwoDigits(seconds / 3600) + u":" + TwoDigits(seconds / 60 % 60) + u":" +
           TwoDigits(seconds % 60) + u"." + thousandths;
}

std::vector<String> FrameLines(const TFrameHead& head, TMarketWatchForm& watch,
                               const TTradesForm& trades, TProductForm& product) {
    watch.FollowVisibleRows();
    std::vector<String> lines;
    lines.push_back(HeadText(head));
    lines.push_back(ListLine(watch, HeaderRow));
    const Integer top = watch.View().TopRow();
    for (Integer offset = 0; offset < watch.View().VisibleRowCount(); ++offset) {
        lines.push_back(ListLine(watch, top + offset));
    }
    lines.emplace_back();
    AppendBeside(lines, TradeBlock(trades), product.Lines());
    return lines;
}

std::vector<String> FormLines(TFrameHead head, TShownForm& form, Integer height) {
    head.Exchange = form.Title();
    std::vector<String> lines{HeadText(head), ListLine(form, HeaderRow)};
    const Integer rows = std::min(form.RowCount(), height);
    for (Integer row = 0; row < rows; ++row) lines.push_back(ListLine(form, row));
    const std::vector<String> summary = form.Summary();
    if (!summary.empty()) lines.emplace_back();
    for (const String& line : summary) lines.push_back(PlainText(line));
    return lines;
}

Integer FormLinesBesideRows(TShownForm& form) {
    constexpr Integer headAndCaptions = 2;
    const auto summary = static_cast<Integer>(form.Summary().size());
    return headAndCaptions + (summary > 0 ? 1 + summary : 0);
}

} // namespace quorin
