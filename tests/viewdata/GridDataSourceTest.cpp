#include "viewdata/frame/GridDataSource.h"
#include "platform/rtl/Numbers.h"
#include "platform/widgets/GridTableView.h"
#include "tests/support/ServicesFixture.h"
#include "viewdata/services/ConfigKeys.h"

#include <gtest/gtest.h>

namespace quorin {
namespace {

Integer LivingControls = 0;

// Three rows whose values name their row and column, and a last signal from the destructor.
class TNamingControl : public TCustomDataControl {
    QUORIN_CLASS(TNamingControl, TCustomDataControl)

    explicit TNamingControl(TComponent* owner = nullptr) : TCustomDataControl(owner) {
        ++LivingControls;
    }
    ~TNamingControl() override {
        Changed();
        --LivingControls;
    }
    Integer GetCount() override { return 3; }
    Variant GetValue(Integer row, Integer attribute) override {
        ++Asked;
        return IntegerToText(row) + u":" + IntegerToText(attribute);
    }
    Integer Asked = 0;
};

// A source as a form makes one; tells which settings it has read.
class TGridSource : public TCustomGridDataSource {
    QUORIN_CLASS(TGridSource, TCustomGridDataSource)
    using TCustomGridDataSource::TCustomGridDataSource;

    void DataUpdate(TObject* sender) override {
        ++Updates;
        EXPECT_EQ(sender, static_cast<TObject*>(DataControl()));
        TCustomGridDataSource::DataUpdate(sender);
    }
    String Settings() const {
        String text;
        for (const Integer value :
             {FBondStyle, FDefaultBondDenominator, FAmountPrecision, Integer{FAmountKeepDecimal},
              FQtyPrecision, Integer{FQtyKeepDecimal}, FAvgPricePrecision,
              Integer{FAvgPricekeepDecimal}, FFxRatioPrecision, Integer{FFxRatioKeepDecimal}}) {
            text += IntegerToText(value) + u" ";
        }
        return text + u"'" + FAvgPriceMode + u"'";
    }
    Integer Updates = 0;
};

struct TGridDataSourceTest : TServicesFixture {
    TGridDataSourceTest() {
        View->AddColumn(1);
        View->AddColumn(-1);
        View->AddColumn(100000);
    }
    ~TGridDataSourceTest() override { EXPECT_EQ(LivingControls, 0); }
    const TcxFetchCounters& Counters() { return View->DataController().Counters(); }

    std::unique_ptr<TcxGridTableView> View = CreateComponent<TcxGridTableView>();
};

TEST_F(TGridDataSourceTest, ClassThatIsNoDataControlGivesAnInertSource) {
    for (const auto& controlClass : {TComponentClass(), TComponentClass::Of<TcxGridTableView>()}) {
        TGridSource source(controlClass);
        EXPECT_EQ(source.DataControl(), nullptr);
        EXPECT_EQ(source.GetRecordCount(), 0);
        View->SetCustomDataSource(&source);
        EXPECT_EQ(View->RowCount(), 0);
        EXPECT_EQ(source.GetValue(nullptr, nullptr), Variant::EmptyText());
        SetConfig(ConfigKey::QtyPrecision, controlClass ? u"3" : u"4");
        EXPECT_TRUE(Counted(Counters().Refreshes, controlClass ? 2 : 1));
        EXPECT_EQ(Services().RegistrationCount(), 1);
    }
}

TEST_F(TGridDataSourceTest, ValuesGoByRowAndTag) {
    TGridSource source(TComponentClass::Of<TNamingControl>());
    auto& control = static_cast<TNamingControl&>(*source.DataControl());
    View->SetCustomDataSource(&source);
    EXPECT_EQ(View->RowCount(), 3);
    EXPECT_EQ(View->Value(2, *View->GetColumn(0)), Variant(u"2:1"));
    EXPECT_EQ(View->Value(0, *View->GetColumn(2)), Variant(u"0:100000"));
    // Only the low 32 bits of the record handle count.
    const auto handle = reinterpret_cast<Pointer>(std::uintptr_t{0x500000001});
    EXPECT_EQ(source.GetValue(handle, source.GetItemHandle(0)), Variant(u"1:1"));
    control.Asked = 0;
    EXPECT_EQ(View->Value(0, *View->GetColumn(1)), Variant::EmptyText()); // negative tag
    EXPECT_EQ(source.GetValue(nullptr, source.GetItemHandle(9)), Variant::EmptyText());
    EXPECT_EQ(control.Asked, 0);
    EXPECT_EQ(source.AppendRecord(), nullptr);
    EXPECT_EQ(source.InsertRecord(nullptr), nullptr);
    source.SetValue(nullptr, source.GetItemHandle(0), Variant(1));
    source.DeleteRecord(nullptr);
    EXPECT_EQ(View->RowCount(), 3);
}

TEST_F(TGridDataSourceTest, ChangeOfTheControlReachesAnAttachedView) {
    TGridSource source(TComponentClass::Of<TNamingControl>());
    source.DataControl()->Changed(); // no view yet
    EXPECT_EQ(source.Updates, 1);
    View->SetCustomDataSource(&source);
    const Integer before = Counters().Changes;
    source.DataControl()->Changed();
    EXPECT_EQ(source.Updates, 2);
    EXPECT_EQ(Counters().Changes, before + 1);
    EXPECT_EQ(Counters().Refreshes, 0);
    View->SetCustomDataSource(nullptr);
    source.DataControl()->Changed();
    EXPECT_EQ(Counters().Changes, before + 1);
}

TEST_F(TGridDataSourceTest, EndFreesTheControlWithoutAnotherSignal) {
    auto handedOver = CreateComponent<TNamingControl>();
    const TBaseDataControl* address = handedOver.get();
    auto given =
        std::make_unique<TGridSource>(std::unique_ptr<TBaseDataControl>(std::move(handedOver)));
    EXPECT_EQ(given->DataControl(), address);
    given->DataControl()->Changed();
    EXPECT_EQ(given->Updates, 1);
    auto made = std::make_unique<TGridSource>(TComponentClass::Of<TNamingControl>());
    EXPECT_EQ(Services().RegistrationCount(), 4); // two sources, two controls
    EXPECT_EQ(LivingControls, 2);
    View->SetCustomDataSource(made.get());
    const Integer before = Counters().Changes;
    given.reset();
    made.reset();
    EXPECT_EQ(Counters().Changes, before);
    EXPECT_EQ(Services().RegistrationCount(), 0);
    EXPECT_EQ(LivingControls, 0);
    EXPECT_EQ(View->RowCount(), 0);
}

TEST_F(TGridDataSourceTest, ReadsItsSettingsFromTheirKeys) {
    const struct {
        const char* Name;
        StringView Key, Value;
        String Settings;
    } steps[] = {
        {"another key refreshes nothing", u"Unrelated", u"1", u"0 -1 -1 0 -1 0 -1 0 -1 0 ''"},
        {"bond style", u"DenominatorModeValue", u"2", u"2 -1 -1 0 -1 0 -1 0 -1 0 ''"},
        {"denominator", u"BondPriceDenominator", u"32", u"2 32 -1 0 -1 0 -1 0 -1 0 ''"},
        {"amount", u"AmountPrecision", u"0", u"2 32 0 0 -1 0 -1 0 -1 0 ''"},
        {"amount keeps", u"AmountDecimal", u"Y", u"2 32 0 1 -1 0 -1 0 -1 0 ''"},
        {"quantity", u"QtyPrecision", u"3", u"2 32 0 1 3 0 -1 0 -1 0 ''"},
        {"quantity keeps", u"QtyDecimal", u"1", u"2 32 0 1 3 1 -1 0 -1 0 ''"},
        {"average price", u"DefaultPrecision", u"4", u"2 32 0 1 3 1 4 0 -1 0 ''"},
        {"average price keeps", u"DefaultDecimal", u"true", u"2 32 0 1 3 1 4 1 -1 0 ''"},
        {"ratio", u"CurrencyPrecision", u"6", u"2 32 0 1 3 1 4 1 6 0 ''"},
        {"ratio keeps", u"CurrencyDecimal", u"T", u"2 32 0 1 3 1 4 1 6 1 ''"},
        {"mode", u"AvgPriceMode", u"fifo", u"2 32 0 1 3 1 4 1 6 1 'fifo'"},
        {"no number", u"AmountPrecision", u"2.5", u"2 32 -1 1 3 1 4 1 6 1 'fifo'"},
        {"gone", u"BondPriceDenominator", u"", u"2 -1 -1 1 3 1 4 1 6 1 'fifo'"},
    };
    TGridSource source(TComponentClass::Of<TNamingControl>());
    EXPECT_EQ(source.Settings(), steps[0].Settings);
    View->SetCustomDataSource(&source);
    const Integer changes = Counters().Changes;
    for (const auto& step : steps) {
        SCOPED_TRACE(step.Name);
        const String settings = source.Settings();
        const Integer refreshes = Counters().Refreshes;
        SetConfig(step.Key, step.Value);
        EXPECT_EQ(source.Settings(), step.Settings);
        EXPECT_TRUE(Counted(Counters().Refreshes - refreshes, settings == step.Settings ? 0 : 1));
    }
    EXPECT_EQ(Counters().Changes, changes);
    EXPECT_EQ(source.Updates, 0);
    const TGridSource later(TComponentClass::Of<TNamingControl>());
    EXPECT_EQ(later.Settings(), source.Settings());
    Services().Config().SetCurrentSection(u"another"); // has no settings
    Services().Config().Commit();
    EXPECT_EQ(source.Settings(), steps[0].Settings);
}

} // namespace
} // namespace quorin
