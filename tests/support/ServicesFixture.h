#pragma once

#include "embedded/EmbeddedServices.h"
#include "tests/support/FaultInjection.h"
#include "tests/support/RecordingHost.h"

#include <gtest/gtest.h>

#include <iostream>
#include <memory>

namespace quorin {

// Owner and receiver of callbacks that counts them.
class TCountingReceiver : public TObject {
public:
    TDataCallbackEvent Event() { return MakeEvent<&TCountingReceiver::Called>(this); }
    Integer Count() const { return FCount; }

private:
    void Called(Pointer, Pointer) {
        if (!TFaultPlan::IsInFault()) ++FCount;
    }

    Integer FCount = 0;
};

// All embedded services around a host that fails on boxes and log lines that the test did not
// expect, with English texts and a tiny universe:
//
//   SEHK, HKD, open     series MAIN: 00005 and 00700, tick table HK (0.01 to 10, 0.02 to 20, 0.05
//                       to 100, 0.1 to 200, 0.2 to 500), lots of 400 and 100
//   HKFE, HKD, open     series HSI: HSIF, a future with a tick size of 1 and a size of 50;
//                       series TCH: TCHC, a call on 00700 struck at 350, a size of 100
//
// Nothing has a quote. The end checks that every registration is gone. It is checked here and not
// in TearDown, so that controls may be members of a derived fixture.
class TServicesFixture : public ::testing::Test {
protected:
    TServicesFixture() {
        FServices = std::make_unique<TEmbeddedServices>(
            TEmbeddedOptions{.Host = FHost, .DataDirectory = QUORIN_DATA_DIR, .SettingsPath = {}});
        FeedUniverse();
        FServices->Deliver();
        FFaults = TFaultInjection::IfAskedFor(*FServices);
    }
    ~TServicesFixture() override {
        EXPECT_EQ(FServices->RegistrationCount(), 0) << "registrations left behind";
        FHost.Verify();
        if (FFaults != nullptr && HasFailure()) std::cerr << FFaults->Recipe() << '\n';
    }

    // The services of this run misbehave, see TFaultInjection. A story ends as it ever does, and a
    // counter that leaves out what happens inside a fault counts as it ever does.
    static bool FaultsOn() { return TFaultInjection::IsAskedFor(); }
    // Nil in a run without.
    TFaultInjection* Faults() { return FFaults.get(); }
    static bool IsInFault() { return TFaultPlan::IsInFault(); }
    // For counters that cannot leave it out: so many, and with faults also more.
    static ::testing::AssertionResult Counted(Integer counted, Integer expected) {
        if (counted == expected || (FaultsOn() && counted > expected)) {
            return ::testing::AssertionSuccess();
        }
        return ::testing::AssertionFailure() << counted << " instead of " << expected;
    }
    // For a test that cannot stand faults at all, or none inside the calls of the view layer.
    void WithoutFaults([[maybe_unused]] const char* reason) {
        if (FFaults != nullptr) FFaults->Plan().SetOn(false);
    }
    void WithoutCallsInside([[maybe_unused]] const char* reason) {
        if (FFaults != nullptr) FFaults->Plan().SetCallsInside(false);
    }

    TRecordingHost& Host() { return FHost; }
    TEmbeddedServices& Services() { return *FServices; }

    // Changes a setting of the current section and delivers it.
    void SetConfig(StringView key, StringView value) {
        TEmbeddedConfigManager& config = Services().Config();
        config.Set(config.GetCurrentSection(), key, value);
        config.Commit();
    }
    // Writes a field of the symbol's live item; the next Deliver tells of it.
    template <class Value>
    void SetField(StringView symbol, Integer fieldNo, Value value) {
        TEmbeddedSubItem& item = Services().Items().Item(symbol);
        item.SetField(fieldNo, value);
        Services().Items().Touch(item);
    }

private:
    void FeedUniverse() {
        TEmbeddedMarketAdapter& market = FServices->Market();
        static constexpr TSpreadBand bands[] = {
            {0.0, 10.0, 0.01},   {10.0, 20.0, 0.02},  {20.0, 100.0, 0.05},
            {100.0, 200.0, 0.1}, {200.0, 500.0, 0.2},
        };
        market.SetSpreadTablesAtOnce(true);
        bool added = market.AddSpreadTable(u"HK", bands);
        added &= market.AddExchange({.Code = u"SEHK",
                                     .Currency = u"HKD",
                                     .MarketState = u"CT",
                                     .MarketStatus = MarketOpen});
        added &= market.AddExchange({.Code = u"HKFE",
                                     .Currency = u"HKD",
                                     .MarketState = u"CT",
                                     .MarketStatus = MarketOpen});
        added &= market.AddCategory({.CategoryID = 1, .Names = {.Name = u"Stocks"}});
        added &= market.AddCategory({.CategoryID = 2, .Names = {.Name = u"Index futures"}});
        added &= market.AddCategory({.CategoryID = 3, .Names = {.Name = u"Stock options"}});
        added &= market.AddSeries({.Code = u"MAIN",
                                   .Exchange = u"SEHK",
                                   .CategoryID = 1,
                                   .Names = {.Name = u"Main board"}});
        added &= market.AddSeries({.Code = u"HSI",
                                   .Exchange = u"HKFE",
                                   .CategoryID = 2,
                                   .Names = {.Name = u"Hang Seng"}});
        added &= market.AddSeries({.Code = u"TCH",
                                   .Exchange = u"HKFE",
                                   .CategoryID = 3,
                                   .Names = {.Name = u"Tencent options"}});
        const bool symbolsAdded = market.AddSymbol({.Symbol = u"00005",
                                                    .Exchange = u"SEHK",
                                                    .Series = u"MAIN",
                                                    .Names = {.Name = u"HSBC"},
                                                    .SpreadCode = u"HK",
                                                    .LotSize = 400.0}) &&
                                  market.AddSymbol({.Symbol = u"00700",
                                                    .Exchange = u"SEHK",
                                                    .Series = u"MAIN",
                                                    .Names = {.Name = u"Tencent"},
                                                    .SpreadCode = u"HK",
                                                    .LotSize = 100.0}) &&
                                  market.AddSymbol({.Symbol = u"HSIF",
                                                    .Exchange = u"HKFE",
                                                    .Series = u"HSI",
                                                    .Names = {.Name = u"Hang Seng future"},
                                                    .ProductType = ProductType::Futures,
                                                    .TickSize = u"1",
                                                    .ContractSize = 50.0}) &&
                                  market.AddSymbol({.Symbol = u"TCHC",
                                                    .Exchange = u"HKFE",
                                                    .Series = u"TCH",
                                                    .Names = {.Name = u"Tencent 350 call"},
                                                    .ProductType = ProductType::Options,
                                                    .Underlyer = u"00700",
                                                    .StrikePrice = u"350",
                                                    .CallPut = u"C",
                                                    .TickSize = u"0.01",
                                                    .ContractSize = 100.0});
        EXPECT_TRUE(added && symbolsAdded) << "the universe of the fixture is refused";
    }

    TRecordingHost FHost;
    std::unique_ptr<TEmbeddedServices> FServices;
    std::unique_ptr<TFaultInjection> FFaults;
};

} // namespace quorin
