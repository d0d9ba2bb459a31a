// Trade lines and quotes of any text, update after update: six lines each, the bid, the ask and
// four trades; the fifth trade is the last update's.

#include "embedded/SubscribeService.h"
#include "tests/fuzz/FuzzInput.h"
#include "viewdata/market/MarketTradeSideDetector.h"

namespace quorin {
namespace {

constexpr StringView Symbol = u"00700";
constexpr Integer KnownTrades = 5;

void CheckTrades(const TSymbolMarketTrade& state) {
    ExpectLaw(state.Count() == 0 || state.Count() == KnownTrades, "none or five trades");
    for (Integer index = 0; index < state.Count(); ++index) {
        const String& side = state.GetTrade(index)->Side();
        ExpectLaw(side.empty() || side == u"A" || side == u"B", "a side is A, B or empty");
    }
    ExpectLaw(state.GetTrade(KnownTrades) == nullptr && state.GetTrade(-1) == nullptr, "borders");
}

} // namespace
} // namespace quorin

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quorin;
    TFuzzInput input(data, size);
    TEmbeddedSubscribeAdapter adapter;
    ServiceRegistry::Install(&adapter);
    {
        auto detector = CreateComponent<TMarketTradeSideDetector>();
        detector->AddSymbol(Symbol);
        TEmbeddedSubItem& item = adapter.Item(Symbol);
        String carried;
        while (!input.IsEmpty()) {
            item.SetField(Field::BestBid, StringView(input.TakeText()));
            item.SetField(Field::BestAsk, StringView(input.TakeText()));
            item.SetField(Field::OldestTrade, StringView(carried));
            for (Integer trade = 1; trade < KnownTrades; ++trade) {
                carried = input.TakeText();
                item.SetField(Field::OldestTrade + trade, StringView(carried));
            }
            item.SetStatus(ItemStatus::Ready);
            adapter.Touch(item);
            adapter.Deliver();
            CheckTrades(*detector->GetSymbolMarketTrade(Symbol));
        }
        detector->RemoveSymbol(Symbol);
    }
    ExpectLaw(adapter.RegistrationCount() == 0, "no registration is left");
    ServiceRegistry::Remove<TCustomSubscribeAdapter>();
    return 0;
}
