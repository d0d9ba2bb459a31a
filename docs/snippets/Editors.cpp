#include "docs/snippets/Snippet.h"
#include "viewdata/editors/EditorManager.h"
#include "viewdata/frame/GridDataSource.h"
#include "viewdata/market/MarketAttributes.h"
#include "viewdata/market/MarketDataControl.h"

namespace quorin {

TEST_F(TSnippet, Layout) {
    TEditorManager& editors = *TEditorManager::GetInstance();
    // [layout]
    const auto name = TColumnInfo::AddColumn(MarketAttribute::SymbolName, u"Res_Name", 160, u"Name",
                                             /*Flag=*/false);
    TColumnList columns;
    columns.Add(name.get());

    TCustomGridDataSource source(TComponentClass::Of<TCustomMarketDataControl>());
    const auto view = CreateComponent<TcxGridTableView>();
    view->AddColumn(MarketAttribute::SymbolName, u"Name").SetWidth(160);
    view->SetCustomDataSource(&source);

    view->GetColumn(0)->SetWidth(90); // what a user does
    const String layout = editors.GetGridColumnLayout(*view, &columns);
    view->GetColumn(0)->SetWidth(200);
    editors.SetGridColumnLayout(*view, layout, &columns); // as it was
    // [/layout]
    EXPECT_EQ(layout, u"Name,1,90;");
    EXPECT_EQ(view->GetColumn(0)->GetWidth(), 90);
    TEditorManager::ReleaseInstance();
}

TEST_F(TSnippet, Linked) {
    Quote(u"00700", 199.8, 200.0, 199.9);
    Services.Deliver();
    // [linked]
    TEditorManager& editors = *TEditorManager::GetInstance();
    TFrame ticket; // what the fields stand in; the focus moves between them
    TcxPopupEdit symbol;
    TcxSpinEdit price;
    symbol.SetParent(&ticket);
    price.SetParent(&ticket);
    editors.RegisterSymbolEditor(&symbol, u"blue", /*Alone=*/false, /*showName=*/true);
    editors.RegisterPriceEditor(&price, u"blue");

    symbol.Enter();
    symbol.TypeText(u"700");
    symbol.Leave(); // the code is found, shown and published to the group "blue"
    editors.SetPriceSymbol(&price, symbol.Hint());
    price.SetEditValue(199.9);
    price.Enter();
    price.PressKey(Key::Up); // a step of the tick table: 200.0, then 200.2
    // [/linked]
    EXPECT_EQ(symbol.Hint(), u"00700");
    EXPECT_EQ(Services.Channels().GetGroupValue(u"blue", Channel::CurrentSymbol), u"00700");
    EXPECT_EQ(price.EditValue(), Variant(200.0));
    // [released]
    editors.RemovePriceEditor(&price);
    editors.RemoveSymbolEditor(&symbol);
    TEditorManager::ReleaseInstance(); // before the services go
    // [/released]
}

} // namespace quorin
