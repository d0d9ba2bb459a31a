#pragma once

#include "platform/rtl/Numbers.h"
#include "viewdata/services/SubscribeAdapter.h"

#include <algorithm>
#include <vector>

namespace quorin {

inline constexpr std::size_t LineCount = 5;

// What one update of the feed says. Lines are parted by ",", the last one is the newest.
struct TUpdate {
    String Lines;
    String Bid = u"9";
    String Ask = u"11";
    Integer Status = ItemStatus::Ready;
};

inline std::vector<String> FiveLines(const String& lines) {
    std::vector<String> five(1);
    for (const Char c : lines) {
        if (c == u',')
            five.emplace_back();
        else
            five.back() += c;
    }
    while (five.size() < LineCount) five.insert(five.begin(), String());
    return five;
}

inline String TradeText(const String& time, const String& qty, Double price, const String& side) {
    if (time.empty()) return side.empty() ? u"-" : u"- " + side;
    const String text = time + u" " + qty + u" " + DoubleToText(price);
    return side.empty() ? text : text + u" " + side;
}

// The detector's rules once more, told step by step over plain vectors; slow and without
// cleverness.
class TPlainModel {
public:
    void Clear() { *this = TPlainModel(); }
    void Take(const TUpdate& update) {
        if (update.Status != ItemStatus::Ready) return;
        TSide bid, ask;
        bid.Valid = TryParseDouble(update.Bid, bid.Price);
        ask.Valid = TryParseDouble(update.Ask, ask.Price);
        const std::vector<String> current = FiveLines(update.Lines);
        if (FInit) {
            TakeLater(current, bid, ask);
        } else {
            for (const String& line : current) {
                FLast.push_back(line);
                FTrades.emplace_back();
                if (!line.empty()) Parse(line, FTrades.back());
            }
        }
        FBid = bid;
        FAsk = ask;
        FInit = true;
    }
    String Trades() const {
        String text;
        for (const TTrade& trade : FTrades) {
            if (&trade != FTrades.data()) text += u',';
            text += TradeText(trade.Time, trade.Qty, trade.Price, trade.Side);
        }
        return text;
    }

private:
    struct TSide {
        Double Price = 0.0;
        bool Valid = false;
    };
    struct TTrade {
        String Time, Qty, Side;
        Double Price = 0.0;
    };

    static const String& At(const std::vector<String>& lines, int index) {
        return lines[static_cast<std::size_t>(index)];
    }
    static String Trimmed(const String& text) {
        const std::size_t first = text.find_first_not_of(u' ');
        if (first == String::npos) return String();
        return text.substr(first, text.find_last_not_of(u' ') + 1 - first);
    }
    bool IsNew(const std::vector<String>& current, int index, int anchor) const {
        if (Trimmed(At(current, index)) != At(FLast, anchor)) return true;
        for (int k = index - 1, j = anchor - 1; k >= 0; --k, --j) {
            if (j < 0 || At(current, k) != At(FLast, j)) return true;
        }
        return false;
    }
    void TakeLater(const std::vector<String>& current, const TSide& bid, const TSide& ask) {
        int anchor = 4;
        while (anchor > 0 && Trimmed(At(FLast, anchor)).empty()) --anchor;
        std::vector<String> latest;
        for (int index = 4; index >= 0; --index) {
            const String line = Trimmed(At(current, index));
            if (line.empty()) continue;
            if (!IsNew(current, index, anchor)) break;
            TTrade trade = FTrades.front();
            FTrades.erase(FTrades.begin());
            trade.Side = SideOf(Parse(line, trade), bid, ask);
            FTrades.insert(FTrades.begin() + index, trade);
            latest.insert(latest.begin(), line);
        }
        if (latest.empty()) return;
        for (int old = 4; old >= 0 && latest.size() < LineCount; --old) {
            latest.insert(latest.begin(), At(FLast, old));
        }
        FLast = latest;
    }
    String SideOf(const String& text, const TSide& bid, const TSide& ask) const {
        constexpr Double tolerance = 1e-8;
        Double price = 0.0;
        if (!TryParseDouble(text, price)) return u"";
        if (FAsk.Valid && price - FAsk.Price >= -tolerance) return u"A";
        if (FBid.Valid && price - FBid.Price <= tolerance) return u"B";
        if (ask.Valid && price - ask.Price >= -tolerance) return u"A";
        if (bid.Valid && price - bid.Price <= tolerance) return u"B";
        return u"";
    }
    static String Parse(const String& line, TTrade& trade) {
        const std::size_t blank = line.find(u' ');
        if (blank == String::npos) return u"";
        std::size_t cut = 6;
        const std::size_t colon = line.find(u':');
        if (colon != String::npos && line.find(u':', colon + 1) < 6) cut = 9;
        const std::size_t end = std::min(blank, cut);
        const String rest = Trimmed(line.substr(end));
        const std::size_t second = rest.find(u' ');
        String qty, price;
        if (second != String::npos) {
            qty = rest.substr(0, second);
            price = rest.substr(second);
        }
        if (end > 0) {
            trade.Time = Trimmed(line.substr(0, end));
            trade.Qty = Trimmed(qty);
            trade.Price = ToDoubleOr(Trimmed(price), 0.0);
        }
        return price;
    }

    std::vector<TTrade> FTrades;
    std::vector<String> FLast;
    TSide FBid, FAsk;
    bool FInit = false;
};

} // namespace quorin
