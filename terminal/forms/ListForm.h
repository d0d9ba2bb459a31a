#pragma once

#include "terminal/forms/ShownForm.h"
#include "viewdata/frame/GridDataSource.h"
#include "viewdata/market/MarketDataControl.h"
#include "viewdata/position/PositionAttributes.h"

#include <memory>
#include <span>

namespace quorin {

// What a cell of the terminal shows that has nothing to show.
inline constexpr StringView NothingToShow = u"-";

// One column as a control of the terminal describes it: see TColumnInfo::AddColumn.
struct TFormColumn {
    Integer Attribute;
    StringView Caption;
    Integer Width; // pixels
    StringView Key;
    Boolean IsQuantity;
};

// The columns of one control.
class TFormColumns {
public:
    explicit TFormColumns(std::span<const TFormColumn> columns);
    const TColumnList* List() const { return &FList; }

private:
    std::vector<std::unique_ptr<TColumnInfo>> FColumns;
    TColumnList FList;
};

// A list without its pixels: a control, its source and the grid, with captions in the language in
// force. The services must be installed for as long as it lives.
class TListForm : public TShownForm {
    QUORIN_CLASS(TListForm, TShownForm)

    ~TListForm() override;

    TcxGridTableView& View() { return *FView; }
    TFormView FormView() override;

    // The symbol that the row shows now; empty outside.
    String Symbol(Integer row);
    // What tells the row from all others: its symbol, unless a descendant has something better;
    // empty outside.
    String RowKey(Integer row);
    // Whether the row still is the one that the user saw there: to be asked before the row's index
    // is passed on with an action.
    bool RowStillShows(Integer row, StringView key);
    // Remembers which row stands where; for the skin, whenever it has drawn. Either all of them,
    // or those on screen.
    void NoteShown() { NoteRows(0, FView->RowCount()); }
    void NoteVisible() { NoteRows(FView->TopRow(), FView->VisibleRowCount()); }
    // The key of the row as it was noted last; empty where none was.
    String ShownKey(Integer row) const;
    // The record that an action on the row is for: the row's, as long as it is the one that was
    // noted last; NoRow otherwise.
    Integer ActionRecord(Integer row);

    Integer RowCount() override { return FView->RowCount(); }
    Integer ColumnCount() override { return FView->GetColumnCount(); }
    TcxViewColumn& Column(Integer index) override { return *FView->GetColumn(index); }
    String CellText(Integer row, Integer column) override {
        return FView->CellText(row, *FView->GetColumn(column));
    }
    Variant Value(Integer row, Integer attribute) override;
    String Text(Integer row, Integer attribute) override;
    // For cells that do not tell of moves, but have a number to compare with the one that was drawn
    // last; nothing for others and while there is no such number.
    virtual std::optional<Double> MovingNumber(Integer, Integer) { return {}; }
    // Differs where the row's numbers are no longer those of the same thing.
    virtual std::size_t RowIdentity(Integer) { return 0; }

    // Those shown, unless a descendant knows more.
    std::vector<Integer> Attributes() override;
    bool IsText(Integer attribute) const override;
    bool TakeRepaint() override { return FView->TakeRepaint(); }

protected:
    TListForm();
    // To be called once, by the constructor of a descendant: takes the control with its columns.
    void Bind(std::unique_ptr<TBaseDataControl> control, StringView customColumnTag = {});
    // The attribute behind RowKey.
    virtual Integer KeyAttribute() const { return PositionAttribute::SymbolCode; }

private:
    void LanguageChanged(Pointer Sender, Pointer Data);
    void NoteRows(Integer first, Integer count);
    void GetCellText(Integer record, TcxCustomGridTableItem& column, String& text);

    TBaseDataControl* FBase = nullptr; // the source's
    String FCustomColumnTag;
    std::unique_ptr<TCustomGridDataSource> FSource;
    std::unique_ptr<TcxGridTableView> FView;
    std::unique_ptr<TcxGrid> FGrid;
    std::vector<String> FShownKeys; // of the rows from FShownFirst on
    Integer FShownFirst = 0;
};

} // namespace quorin
