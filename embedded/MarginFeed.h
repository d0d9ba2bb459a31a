#pragma once

#include "embedded/SubscribeService.h"

#include <array>
#include <optional>

namespace quorin {

// The sixteen figures of one margin item, from Field::FirstMargin on; those that are not there are
// fields that the item does not have.
inline constexpr std::size_t MarginFigureCount = Field::LastMargin - Field::FirstMargin + 1;
using TMarginFigures = std::array<std::optional<Double>, MarginFigureCount>;

// The margins of the clearing house, by the code of a symbol, an underlyer, a series, or a series
// followed by "*" for its options. Serves the live items whose keys begin with SpanKeyPrefix: with
// the delivery after somebody asked, an item becomes ready with its figures, or has no data.
class TMarginFeed final : public TItemFeed {
public:
    // `items` must live longer.
    explicit TMarginFeed(TEmbeddedSubscribeAdapter& items) : FItems(items) {}
    TMarginFeed(const TMarginFeed&) = delete;
    TMarginFeed& operator=(const TMarginFeed&) = delete;
    ~TMarginFeed() override;

    // Answers what is asked for from here on, until it dies. Before, margin items just wait.
    void Serve() { FItems.SetPrefixFeed(SpanKeyPrefix, this); }
    // The figures of a code, from the next delivery on; earlier ones are replaced.
    void FeedMargin(StringView code, const TMarginFigures& figures);
    // What one contract needs: the largest of the figures, whatever their sign, under the first of
    // these codes that has any: the symbol, for an option its series followed by "*", the
    // underlyer, the series. 0.0 without figures and for nil.
    Double Requirement(const TEmbeddedMarketData* symbol) const;
    void Requested(TEmbeddedSubItem& item) override;

private:
    const TMarginFigures* FindFigures(StringView code, StringView suffix = {}) const;
    void Write(TEmbeddedSubItem& item, const TMarginFigures& figures);

    TEmbeddedSubscribeAdapter& FItems;
    TDictionary<String, TMarginFigures> FMargins; // by item key
    mutable String FKey;                          // of the last look-up, for its room
};

} // namespace quorin
