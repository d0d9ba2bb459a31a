#include "viewdata/frame/DataControl.h"
#include "tests/support/ServicesFixture.h"
#include "viewdata/services/ConfigKeys.h"

#include <gtest/gtest.h>

namespace quorin {
namespace {

// A row-list and a tree control that add nothing but looks into themselves.
template <class Base>
struct TPlain : Base {
    explicit TPlain(TComponent* owner = nullptr) : Base(owner) { this->EmptyDisplayText = u"--"; }
    void ConfigUpdate(Pointer sender, Pointer data) override {
        Base::ConfigUpdate(sender, data);
        if (!TFaultPlan::IsInFault()) ++ConfigUpdates;
    }
    Integer ConfigUpdates = 0;
};
class TPlainRows : public TPlain<TCustomDataControl> {
    QUORIN_CLASS(TPlainRows, TCustomDataControl)
    using TPlain::TPlain;
    Variant GetValue(Integer, Integer) override { return 7; }
    String GetDisplayValue(Integer, Integer) override { return u"seven"; }
};
class TPlainTree : public TPlain<TCustomTreeDataControl> {
    QUORIN_CLASS(TPlainTree, TCustomTreeDataControl)
    using TPlain::TPlain;
};

template <class Control>
struct TDataControlTest : TServicesFixture {
    void Signalled(TObject* sender) {
        ++Signals;
        Sender = sender;
    }
    Integer Signals = 0;
    TObject* Sender = nullptr;
};
using TControls = testing::Types<TPlainRows, TPlainTree>;
TYPED_TEST_SUITE(TDataControlTest, TControls);

TYPED_TEST(TDataControlTest, HearsOfEachConfigurationOnceForAsLongAsItLives) {
    auto control = CreateComponent<TypeParam>();
    EXPECT_EQ(control->ConfigUpdates, 1); // stored settings count from the start
    EXPECT_EQ(this->Services().RegistrationCount(), 1);
    this->SetConfig(ConfigKey::AvgPriceMode, u"1");
    EXPECT_EQ(control->ConfigUpdates, 2);
    this->Services().Config().Commit(); // nothing has changed
    EXPECT_EQ(control->ConfigUpdates, 2);
    control.reset();
    EXPECT_EQ(this->Services().RegistrationCount(), 0);

    const auto made = TComponentClass::Of<TypeParam>().Create(); // by its class
    EXPECT_EQ(static_cast<TypeParam&>(*made).ConfigUpdates, 1);
    EXPECT_EQ(this->Services().RegistrationCount(), 1);
}

TYPED_TEST(TDataControlTest, ChangedFiresTheSignalWithTheControlAsSender) {
    const auto control = CreateComponent<TypeParam>();
    control->Changed();
    control->SetOnDataChanged(MakeEvent<&TDataControlTest<TypeParam>::Signalled>(this));
    control->Changed();
    EXPECT_EQ(this->Signals, 1);
    EXPECT_EQ(this->Sender, control.get());
    control->SetOnDataChanged(nullptr);
    control->Changed();
    EXPECT_EQ(this->Signals, 1);
}

TYPED_TEST(TDataControlTest, OffersNoRowOrColumnPointers) {
    const auto control = CreateComponent<TypeParam>();
    Integer marker = 0;
    for (const Integer index : {-1, 0, 2147483647}) {
        Pointer value = &marker;
        EXPECT_FALSE(control->GetRowValue(index, value));
        EXPECT_FALSE(control->GetColValue(index, value));
        EXPECT_EQ(value, &marker);
    }
    EXPECT_EQ(control->GetCount(), 0);
    EXPECT_EQ(control->GetColList(), nullptr);
}

using TTreeControlTest = TServicesFixture;

TEST_F(TTreeControlTest, RowIndexedOperationsHaveNothingToAnswer) {
    const auto tree = CreateComponent<TPlainTree>();
    EXPECT_EQ(tree->GetValue(Integer{0}, 0), Variant());
    EXPECT_EQ(tree->GetDisplayValue(Integer{0}, 0), u"--");
}

TEST_F(TTreeControlTest, CaptionsComeFromTheCaptionKeyOrTheFieldNumber) {
    std::unique_ptr<TColumnInfo> columns[] = {
        TColumnInfo::AddColumn(21, u"Res_SymbolName", 150, u"Name", false),
        TColumnInfo::AddColumn(4, u"Res_Long", 70, u"", true),
        TColumnInfo::AddColumn(5, u"Res_NoSuchKey", 70, u"", false),
        TColumnInfo::AddColumn(99999, u"Res_Short", 70, u"", false),
        TColumnInfo::AddColumn(100000, u"Res_Short", 70, u"", false),
        TColumnInfo::AddColumn(100021, u"Res_Short", 70, u"", false),
    };
    TColumnList list;
    for (const auto& column : columns) list.Add(column.get());
    Services().Language().SetText(TAppLanguage::English, u"Mine", u"0", u"Field nought");
    Services().Language().SetText(TAppLanguage::English, u"Mine", u"21", u"Field 21");
    const struct {
        const char* Name;
        Integer Attribute;
        String Caption;
    } cases[] = {
        {"built-in", 21, u"Name"},
        {"key without a text", 5, u""},
        {"last built-in", 99999, u"Short"},
        {"first custom column", 100000, u"Field nought"},
        {"custom column", 100021, u"Field 21"},
        {"no such column", 0, u""},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(ColumnCaption(&list, row.Attribute, u"Mine"), row.Caption) << row.Name;
    }
    EXPECT_EQ(ColumnCaption(nullptr, 21, u"Mine"), u"");
    EXPECT_EQ(FindColumn(&list, 6), nullptr);
    const TColumnInfo& quantity = *FindColumn(&list, 4);
    EXPECT_EQ(quantity.ID(), 4);
    EXPECT_EQ(quantity.Width(), 70);
    EXPECT_TRUE(quantity.Flag() && quantity.Key().empty());
    EXPECT_TRUE(!columns[0]->Flag() && columns[0]->Key() == u"Name");
}

} // namespace
} // namespace quorin
