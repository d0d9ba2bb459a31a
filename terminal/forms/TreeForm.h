#pragma once

#include "platform/widgets/TreeListView.h"
#include "terminal/forms/AccountColumns.h"
#include "terminal/forms/AccountView.h"
#include "terminal/forms/PartialTotals.h"
#include "viewdata/account/AccountDataControl.h"
#include "viewdata/frame/TreeDataSource.h"

namespace quorin {

// A tree of account figures without its pixels: a control, its source and the tree list, with every
// node open to begin with and captions in the language in force. The services must be installed for
// as long as it lives.
class TTreeForm : public TShownForm, public TAccountView {
    QUORIN_CLASS(TTreeForm, TShownForm)

    ~TTreeForm() override;

    TcxVirtualTreeList& View() { return *FView; }
    TCustomAccountInfoDataControl& Tree() { return *FTree; }

    TFormView FormView() override;
    Integer RowCount() override { return FView->RowCount(); }
    Integer Depth(Integer row) override { return FView->Row(row).Depth; }
    Integer ColumnCount() override { return FView->GetColumnCount(); }
    TcxViewColumn& Column(Integer index) override { return *FView->GetColumn(index); }
    String CellText(Integer row, Integer column) override {
        return FView->CellText(row, *FView->GetColumn(column));
    }
    Variant Value(Integer row, Integer attribute) override;
    String Text(Integer row, Integer attribute) override;
    std::vector<Integer> Attributes() override;
    bool TakeRepaint() override { return FView->TakeRepaint(); }
    // Found once and told until ForgetPartial, which a skin calls now and then. Not of China
    // Connect figures.
    StringView CellPartialReason(Integer row, Integer tag) override;
    void ForgetPartial() { FPartial.Forget(); }

    void SetAggregate() override { FTree->SetAggregate(); }
    Boolean Aggregated() const override { return FTree->Aggregated(); }
    // The account, whether it is a sum, and the currency of the totals.
    String Title() override;

protected:
    TTreeForm();
    // To be called once, by the constructor of a descendant.
    template <class Control>
    void Bind(TcxTreeShape shape) {
        Bind(std::make_unique<TCustomTreeDataSource>(nullptr, TComponentClass::Of<Control>()),
             shape);
    }
    // The control's columns, which it turns into rows or shows as they are.
    void SetColumns(std::span<const TFormColumn> columns);
    void SetAccount(StringView account) override { FTree->SetAccount(account); }

    // A cell that shows a total, and of which account; nil for any other cell.
    struct TTotal {
        const String* Account = nullptr;
        Integer Attribute = NoAttribute;
    };
    virtual TTotal TotalOf(Pointer node, Integer tag) = 0;
    virtual String ColumnText(Integer tag) = 0;
    // What the view's columns are, the one that names the row first: those of the control, unless
    // it has made rows of them.
    virtual const TColumnList& LayoutColumns() const { return *FColumns->List(); }
    // A cell of a node that is there.
    virtual String NodeText(Pointer node, Integer tag) { return FTree->GetDisplayValue(node, tag); }
    void UpdateCaptions() { LanguageChanged({}, {}); }

private:
    void Bind(std::unique_ptr<TCustomTreeDataSource> source, TcxTreeShape shape);
    void LanguageChanged(Pointer Sender, Pointer Data);
    void GetCellText(TcxDataRecordHandle node, TcxTreeListColumn& column, String& text);

    TCustomAccountInfoDataControl* FTree = nullptr; // the source's
    std::unique_ptr<TFormColumns> FColumns;         // outlive the source
    std::unique_ptr<TCustomTreeDataSource> FSource;
    std::unique_ptr<TcxVirtualTreeList> FView;
    TPartialTotals FPartial;
};

// A control of the view layer with the terminal's custom columns.
template <class Tree>
class TTerminalAccountControl : public Tree {
    QUORIN_CLASS(TTerminalAccountControl, Tree)

    explicit TTerminalAccountControl(TComponent* AOwner = nullptr) : Tree(AOwner) {
        this->FCustomColumnTagID = AccountCustomColumns;
    }
};

} // namespace quorin
