#pragma once

#include "benchmarks/BenchMarket.h"
#include "viewdata/market/MarketAttributes.h"

#include <array>
#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

namespace quorin {

inline constexpr std::array<Integer, 11> NumericColumns{
    MarketAttribute::LastPrice,       MarketAttribute::BestBid,
    MarketAttribute::BestAsk,         MarketAttribute::Volume,
    MarketAttribute::BestBidQuantity, MarketAttribute::BestAskQuantity,
    MarketAttribute::StrikePrice,     MarketAttribute::PreviousClose,
    MarketAttribute::HighPrice,       MarketAttribute::LowPrice,
    MarketAttribute::OpenPrice};

inline Integer TagOfColumn(Integer column) {
    return NumericColumns[static_cast<std::size_t>(column) % NumericColumns.size()];
}

// What somebody would write who wants the same road and no more: a source, a control and a feed
// behind virtual calls, one hash look-up per cell and an array of fields.
namespace ByHand {

struct TItem {
    virtual ~TItem() = default;
    virtual Double Number(Integer field) const { return Fields[static_cast<std::size_t>(field)]; }
    std::array<Double, 256> Fields{};
};

struct TTextHash {
    using is_transparent = void;
    std::size_t operator()(StringView text) const { return std::hash<StringView>()(text); }
};

struct TFeed {
    virtual ~TFeed() = default;
    virtual TItem* Find(StringView key) {
        const auto found = Items.find(key);
        return found == Items.end() ? nullptr : found->second.get();
    }
    std::unordered_map<String, std::unique_ptr<TItem>, TTextHash, std::equal_to<>> Items;
};

struct TControl {
    explicit TControl(TFeed& feed) : Feed(feed) {}
    virtual ~TControl() = default;
    virtual Variant GetValue(Integer record, Integer attribute) {
        if (record < 0 || record >= static_cast<Integer>(Rows.size())) return Variant(u"");
        const TItem* item = Feed.Find(Rows[static_cast<std::size_t>(record)]);
        return item != nullptr ? Variant(item->Number(attribute)) : Variant(u"");
    }
    TFeed& Feed;
    std::vector<String> Rows;
};

struct TSource {
    explicit TSource(TControl& control) : Control(control) {}
    virtual ~TSource() = default;
    virtual Variant GetValue(Pointer record, Pointer item) {
        const auto column = static_cast<std::size_t>(TcxCustomDataSource::IndexOfHandle(item));
        if (column >= Tags.size()) return Variant(u"");
        return Control.GetValue(TcxCustomDataSource::IndexOfHandle(record), Tags[column]);
    }
    TControl& Control;
    std::vector<Integer> Tags;
};

} // namespace ByHand

// The three with so many symbols. The same size again gives the same object.
class THandChain {
public:
    static THandChain& OfSize(Integer size) {
        static std::unique_ptr<THandChain> chain;
        if (chain == nullptr || static_cast<Integer>(chain->FItems.size()) != size) {
            chain.reset();
            chain = std::make_unique<THandChain>(size);
        }
        return *chain;
    }
    explicit THandChain(Integer size) {
        for (Integer index = 0; index < size; ++index) {
            const String symbol = SymbolAt(index);
            auto item = std::make_unique<ByHand::TItem>();
            for (const Integer field : NumericColumns) {
                item->Fields[static_cast<std::size_t>(field)] = 100.0 + field;
            }
            FControl.Rows.push_back(symbol);
            FItems.push_back(item.get());
            FFeed.Items.emplace(symbol, std::move(item));
        }
        for (Integer column = 0; column < WindowColumns; ++column) {
            FSource.Tags.push_back(TagOfColumn(column));
        }
    }
    ByHand::TSource& Source() { return FSource; }
    Double& Field(Integer row, Integer field) {
        return FItems[static_cast<std::size_t>(row)]->Fields[static_cast<std::size_t>(field)];
    }

private:
    ByHand::TFeed FFeed;
    ByHand::TControl FControl{FFeed};
    ByHand::TSource FSource{FControl};
    std::vector<ByHand::TItem*> FItems; // by row
};

} // namespace quorin
