#include "embedded/SubscribeService.h"
#include "tests/support/AllocationCount.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace quorin;

namespace {

constexpr Integer CustomField = 777; // below 4096, without a slot
constexpr Integer FarField = 700001; // beyond the table
constexpr Integer NegativeField = -3;

class LiveItemTest : public testing::Test {
protected:
    void TearDown() override { EXPECT_EQ(Adapter.RegistrationCount(), 0); }

    TEmbeddedSubscribeAdapter Adapter;
    TEmbeddedSubItem& Item = Adapter.Item(u"00700");
};

TEST_F(LiveItemTest, NumbersReadAsText) {
    const struct {
        const char* name;
        Double value;
        StringView text;
    } cases[] = {
        {"whole", 350.0, u"350"},
        {"decimals", 350.2, u"350.2"},
        {"negative", -0.5, u"-0.5"},
        {"zero", 0.0, u"0"},
        {"zero with a sign", -0.0, u"0"},
        {"small tick", 0.255, u"0.255"},
        {"noise of a sum", 0.1 + 0.2, u"0.3"},
    };
    for (const Integer field : {Field::LastPrice, Field::AskPrice10, CustomField, FarField}) {
        for (const auto& row : cases) {
            SCOPED_TRACE(row.name);
            Item.SetField(field, row.value);
            EXPECT_EQ(Item.FieldText(field), row.text);
            EXPECT_EQ(Item.GetFieldDouble(field), row.value);
        }
    }
}

TEST_F(LiveItemTest, TextsReadAsNumbers) {
    const struct {
        const char* name;
        StringView text;
        Double value;
    } cases[] = {
        {"number", u"17.25", 17.25}, {"blanks around", u" 2 ", 2.0},
        {"no number", u"SEHK", 0.0}, {"empty", u"", 0.0},
        {"nan", u"nan", 0.0},        {"beyond Double", u"1E999", 0.0},
    };
    for (const Integer field : {Field::Exchange, CustomField, FarField, NegativeField}) {
        for (const auto& row : cases) {
            SCOPED_TRACE(row.name);
            Item.SetField(field, row.text);
            EXPECT_EQ(Item.FieldText(field), row.text);
            EXPECT_EQ(Item.GetFieldDouble(field), row.value);
            EXPECT_TRUE(Item.HasField(field));
        }
    }
}

TEST_F(LiveItemTest, ClearedFieldsAreAbsent) {
    for (const Integer field : {Field::BestBid, Field::NewestTrade, CustomField, FarField}) {
        SCOPED_TRACE(field);
        EXPECT_FALSE(Item.HasField(field));
        Item.ClearField(field);
        Item.SetField(field, u"12");
        Item.ClearField(field);
        EXPECT_FALSE(Item.HasField(field));
        EXPECT_EQ(Item.GetFieldDouble(field), 0.0);
        String text = u"old";
        Item.GetFieldString(field, text);
        EXPECT_EQ(text, u"");
        Item.SetField(field, 3.5);
        EXPECT_EQ(Item.FieldText(field), u"3.5");
    }
}

TEST_F(LiveItemTest, FieldsDoNotMix) {
    for (Integer field = -5; field < 5000; ++field) Item.SetField(field, field + 0.5);
    for (Integer field = 4999; field >= -5; --field) {
        ASSERT_EQ(Item.GetFieldDouble(field), field + 0.5);
    }
}

TEST_F(LiveItemTest, RepeatedWritesAndReadsAllocateNothing) {
    const String line = u"09:30:00 100 601.5, a text that no small buffer holds";
    Item.SetField(Field::NewestTrade, line);
    Item.SetField(Field::BestBid, 1.5);
    Item.SetField(CustomField, 1.5);
    String text;
    text.reserve(100);
    const std::size_t before = AllocationCount();
    for (int round = 0; round < 3; ++round) {
        Item.SetField(Field::NewestTrade, 2.5);
        Item.SetField(Field::NewestTrade, line);
        Item.SetField(Field::BestBid, 601.5 + round);
        Item.SetField(CustomField, 601.5 + round);
        Item.GetFieldString(Field::BestBid, text);
        Item.GetFieldString(Field::NewestTrade, text);
        EXPECT_EQ(Item.GetFieldDouble(CustomField), 601.5 + round);
        EXPECT_EQ(Item.GetFieldDouble(CustomField + 1), 0.0);
    }
    EXPECT_EQ(AllocationCount(), before);
}

} // namespace
