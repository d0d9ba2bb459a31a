#include "platform/widgets/CustomDataSource.h"
#include "platform/widgets/GridTableView.h"

#include <gtest/gtest.h>

#include <array>

namespace quorin {
namespace {

struct TNames : TcxCustomDataSource {
    Integer GetRecordCount() override { return 4; }
    Variant GetValue(TcxDataRecordHandle record, TcxDataItemHandle item) override {
        const auto row = static_cast<std::size_t>(IndexOfHandle(record));
        return GetDataController()->GetItem(item)->Tag() == 1 ? Names[row] : Numbers[row];
    }
    std::array<Variant, 4> Names{u"Alpha", u"BETA", u"Über", u"alphabet"};
    std::array<Variant, 4> Numbers{1200, 35, 12, Variant()};
};

struct GridFindPanel : testing::Test {
    GridFindPanel() {
        Grid->SetCustomDataSource(&Source);
        Grid->SetOnGetCellText(MakeEvent<&GridFindPanel::Text>(this));
        Grid->AddColumn(1);
        Grid->AddColumn(2);
    }
    // Numbers with group marks, which the raw values do not have.
    void Text(Integer record, TcxCustomGridTableItem& column, String& text) {
        const auto row = static_cast<std::size_t>(record);
        text = column.Tag() == 1 ? Source.Names[row].ToText() : Source.Numbers[row].ToText();
        if (text == u"1200") text = u"1,200";
    }
    String Rows() {
        String rows;
        for (Integer row = 0; row < Grid->RowCount(); ++row) {
            rows += static_cast<Char>(u'0' + Grid->RecordIndex(row));
        }
        return rows;
    }
    String Find(StringView text) {
        Grid->FindPanel().SetText(text);
        Grid->FindPanel().PressFind();
        return Rows();
    }
    TNames Source;
    std::unique_ptr<TcxGridTableView> Grid = CreateComponent<TcxGridTableView>();
};

TEST_F(GridFindPanel, LeavesTheRowsInWhichTheTextStands) {
    const struct {
        const char* Name;
        const char16_t* Text;
        const char16_t* Rows;
    } cases[] = {
        {"any case", u"ALPHA", u"03"},    {"beyond ASCII", u"üB", u"2"},
        {"in the middle", u"et", u"13"},  {"any column", u"2", u"02"},
        {"as it is shown", u"1,2", u"0"}, {"no pattern", u"%", u""},
        {"nowhere", u"gamma", u""},       {"nothing", u"", u"0123"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.Name);
        EXPECT_EQ(Find(row.Text), row.Rows);
        EXPECT_EQ(Grid->FindPanel().FoundText(), row.Text);
    }
}

TEST_F(GridFindPanel, WorksWithSortFilterHiddenColumnsAndChanges) {
    Grid->GetColumn(1)->SetSortOrder(soDescending);
    EXPECT_EQ(Find(u"2"), u"02");
    Grid->GetColumn(1)->SetVisible(false);
    EXPECT_EQ(Rows(), u"") << "only hidden cells have it";
    Grid->GetColumn(1)->SetVisible(true);
    EXPECT_EQ(Rows(), u"02");
    Source.Names[3] = u"alphabet 2";
    Source.DataChanged();
    EXPECT_EQ(Rows(), u"023");
    auto& binding = Grid->GetColumn(0)->DataBinding();
    binding.AddToFilter(Grid->Filter().Root(), foNotEqual, u"Über", u"Über", false);
    Grid->Filter().SetActive(true);
    Grid->Filter().Refresh();
    EXPECT_EQ(Rows(), u"03");
    Grid->FindPanel().Close();
    EXPECT_EQ(Rows(), u"013");
    EXPECT_EQ(Grid->FindPanel().Text(), u"");
}

TEST_F(GridFindPanel, TextCountsOnceTheButtonIsPressed) {
    Grid->FindPanel().Open();
    Grid->FindPanel().SetText(u"beta");
    EXPECT_EQ(Rows(), u"0123");
    Grid->TakeRepaint();
    Grid->FindPanel().PressFind();
    EXPECT_TRUE(Grid->TakeRepaint());
    Grid->FindPanel().SetText(u"alpha");
    EXPECT_EQ(Rows(), u"1");
    Grid->FindPanel().PressClear();
    EXPECT_EQ(Rows(), u"0123");
    EXPECT_TRUE(Grid->FindPanel().IsOpen());
}

TEST_F(GridFindPanel, SpeaksTheLanguageInForce) {
    const TcxGridFindPanel& panel = Grid->FindPanel();
    const struct {
        TcxResourceString Target;
        const String& (TcxGridFindPanel::*Text)() const;
    } texts[] = {
        {scxGridFindPanelInfoText, &TcxGridFindPanel::InfoText},
        {scxGridFindPanelFindButtonCaption, &TcxGridFindPanel::FindButtonCaption},
        {scxGridFindPanelClearButtonCaption, &TcxGridFindPanel::ClearButtonCaption},
    };
    for (const auto& row : texts) {
        const String before = (panel.*row.Text)();
        cxSetResourceString(row.Target, u"查找");
        EXPECT_EQ((panel.*row.Text)(), u"查找");
        cxSetResourceString(row.Target, before);
    }
}

} // namespace
} // namespace quorin
