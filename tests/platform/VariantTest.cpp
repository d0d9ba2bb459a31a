#include "platform/rtl/Variant.h"

#include <gtest/gtest.h>

#include <limits>
#include <optional>

namespace quorin {
namespace {

TEST(VariantTest, KindsStayApart) {
    const Variant values[] = {Variant(),    Variant(0),           Variant(Int64{0}),
                              Variant(0.0), Variant::EmptyText(), Variant(Variant::TArray{})};
    for (const Variant& left : values) {
        for (const Variant& right : values) {
            EXPECT_EQ(left == right, &left == &right)
                << static_cast<int>(left.Kind()) << " against " << static_cast<int>(right.Kind());
        }
    }
}

struct TConversion {
    const char* Name;
    Variant Value;
    std::optional<Double> Number;
    std::optional<Int64> Whole;
    std::optional<String> Text;
};

TEST(VariantTest, ConvertsOrRaises) {
    constexpr Int64 most = std::numeric_limits<Int64>::max();
    const TConversion cases[] = {
        {"null", Variant(), {}, {}, u""},
        {"whole", Variant(-7), -7.0, -7, u"-7"},
        {"long whole", Variant(Int64{5000000000}), 5e9, 5000000000, u"5000000000"},
        {"longest", Variant(most), 9223372036854775807.0, most, u"9223372036854775807"},
        {"real without fraction", Variant(350.0), 350.0, 350, u"350"},
        {"real", Variant(350.2), 350.2, 350, u"350.2"},
        {"half to even, down", Variant(2.5), 2.5, 2, u"2.5"},
        {"half to even, up", Variant(-3.5), -3.5, -4, u"-3.5"},
        {"saturates", Variant(1e30), 1e30, most, u"1E30"},
        {"text that is a number", Variant(u" 12.75 "), 12.75, 13, u" 12.75 "},
        {"long whole text is exact", Variant(u"9007199254740993"), 9007199254740992.0,
         9007199254740993, u"9007199254740993"},
        {"empty text", Variant::EmptyText(), {}, {}, u""},
        {"other text", Variant(u"12a"), {}, {}, u"12a"},
        {"array", Variant(Variant::TArray{Variant(1)}), {}, {}, {}},
    };
    for (const TConversion& row : cases) {
        SCOPED_TRACE(row.Name);
        Double number = -1.5;
        EXPECT_EQ(row.Value.TryToDouble(number), row.Number.has_value());
        EXPECT_EQ(number, row.Number.value_or(-1.5));
        if (row.Number) {
            EXPECT_EQ(row.Value.ToDouble(), *row.Number);
            EXPECT_EQ(row.Value.ToInt64(), row.Whole.value_or(0));
        } else {
            EXPECT_THROW((void)row.Value.ToDouble(), EVariantError);
            EXPECT_THROW((void)row.Value.ToInt64(), EVariantError);
        }
        if (row.Text) {
            EXPECT_EQ(row.Value.ToText(), *row.Text);
        } else {
            EXPECT_THROW((void)row.Value.ToText(), EVariantError);
        }
    }
}

TEST(VariantTest, CopiesAndMovesOwnTheirContent) {
    Variant text(u"a text that does not fit in place");
    Variant copy = text;
    const Variant moved = std::move(text);
    EXPECT_TRUE(text.IsNull()); // NOLINT: a moved-out variant is null
    EXPECT_EQ(copy, moved);
    copy = 1.5;
    EXPECT_EQ(copy, Variant(1.5));
    Variant list(Variant::TArray{Variant(u"another text that is long"), Variant(2)});
    list = Variant(list.Elements()[0]); // the source lies inside the target
    EXPECT_EQ(list, Variant(u"another text that is long"));
    Variant& self = list;
    list = self;
    EXPECT_TRUE(list.IsText());
    EXPECT_TRUE(list.Elements().empty());
}

} // namespace
} // namespace quorin
