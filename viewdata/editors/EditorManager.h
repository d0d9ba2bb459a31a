#pragma once

#include "viewdata/editors/AccountEditor.h"
#include "viewdata/editors/PriceEditor.h"
#include "viewdata/editors/QuantityEditor.h"
#include "viewdata/editors/SymbolConversion.h"
#include "viewdata/editors/SymbolEditor.h"
#include "viewdata/presentation/CustomColumnDialog.h"
#include "viewdata/presentation/CustomFilterDialog.h"
#include "viewdata/presentation/ViewExports.h"
#include "viewdata/presentation/ViewLayouts.h"
#include "viewdata/services/LanguageManager.h"

#include <span>

namespace quorin {

// The one object through which forms give their input fields trading behaviour and their grids and
// trees layouts, choosers, filters and exports. A field has at most one record of a kind, known by
// the field's address; registering it again binds the record anew. A field that dies takes its
// records with it. Loads the user's settings and the texts of the widgets, and follows both.
class TEditorManager : public TComponent {
    QUORIN_CLASS(TEditorManager, TComponent)

    explicit TEditorManager(TComponent* AOwner = nullptr);
    ~TEditorManager() override;

    // Made on first use. The host releases it before the services go; a later use makes a new one.
    static TEditorManager* GetInstance();
    static void ReleaseInstance();

    // Operations, in order

    // Writes the widgets' own texts in the language in force, if it has changed.
    void RefreshResourceLabel();
    // Fields of an order. `GroupID` names the set of linked fields, empty for none; an `Alone`
    // field follows no others; `showName` adds a name to the code. Removing gives the field back to
    // the form and does nothing for an unknown field.
    void RegisterPriceEditor(TcxSpinEdit* Editor, StringView GroupID);
    void RemovePriceEditor(TcxSpinEdit* Editor);
    void SetPriceSymbol(TcxSpinEdit* Editor, StringView Symbol);
    void RegisterQuantityEditor(TcxSpinEdit* Editor, StringView GroupID);
    void RemoveQuantityEditor(TcxSpinEdit* Editor);
    void SetQuantitySymbol(TcxSpinEdit* Editor, StringView Symbol);
    void RegisterAccountEditor(TcxPopupEdit* Editor, StringView GroupID, Boolean Alone,
                               Boolean showName);
    void RemoveAccountEditor(TcxPopupEdit* Editor);
    void SetAccountLayoutAccount(TcxPopupEdit* Editor, StringView Account);
    void RegisterSymbolEditor(TcxPopupEdit* Editor, StringView GroupID, Boolean Alone,
                              Boolean showName);
    void RemoveSymbolEditor(TcxPopupEdit* Editor);
    // Dialogs about a view, see TCustomColumnDialog and TGridCustomFilterRecord.
    void GridCustomColumn(TcxGridTableView& Grid, std::span<const Integer> ReservedCol,
                          const TDataCallbackEvent& Callback);
    void TreeCustomColumn(TcxVirtualTreeList& Tree, std::span<const Integer> ReservedCol,
                          const TDataCallbackEvent& Callback);
    void GridCustomFilter(TcxGridTableView& Grid, TcxGridColumn& Column);
    // A view as text and back, see ViewLayouts.h.
    String GetGridColumnLayout(TcxGridTableView& Grid, const TColumnList* DefaultColumnList);
    Boolean SetGridColumnLayout(TcxGridTableView& Grid, StringView Layout,
                                const TColumnList* DefaultColumnList);
    String GetTreeColumnLayout(TcxVirtualTreeList& Tree, const TColumnList* DefaultColumnList);
    Boolean SetTreeColumnLayout(TcxVirtualTreeList& Tree, StringView Layout,
                                const TColumnList* DefaultColumnList);
    String GetGridSortLayout(TcxGridTableView& Grid);
    void SetGridSortLayout(TcxGridTableView& Grid, StringView Layout);
    String GetTreeSortLayout(TcxVirtualTreeList& Tree);
    void SetTreeSortLayout(TcxVirtualTreeList& Tree, StringView Layout);
    // A view as a file that the user names, see ViewExports.h. They raise what the exporter raises.
    void ExportTreeToCSV(TcxVirtualTreeList& Tree, StringView DefaultFileName,
                         StringView DefaultDir);
    void ExportTreeToXLS(TcxVirtualTreeList& Tree, StringView DefaultFileName,
                         StringView DefaultDir);
    void ExportTreeToXLSX(TcxVirtualTreeList& Tree, StringView DefaultFileName,
                          StringView DefaultDir);
    void ExportGridToCSV(TcxGrid& Grid, StringView DefaultFileName, StringView DefaultDir);
    void ExportGridToXLS(TcxGrid& Grid, StringView DefaultFileName, StringView DefaultDir);
    void ExportGridToXLSX(TcxGrid& Grid, StringView DefaultFileName, StringView DefaultDir);
    // The symbol as the conversion library of the setting "SymbolmapDLL" writes it; unchanged
    // without one.
    String GetConvertSymbol(StringView Symbol);

    // Column numbers and the keys of saved layouts, see ColumnInfo.h.
    static Integer GetColumnIDByKey(StringView Key, const TColumnList* List) {
        return ColumnIDByKey(Key, List);
    }
    static String GetColumnKeyByID(Integer ID, const TColumnList* List) {
        return ColumnKeyByID(ID, List);
    }

protected:
    template <class Record>
    using TRecords = TDictionary<Int64, std::unique_ptr<Record>>;

    void UpdateLanguage(Pointer Sender, Pointer Data);
    void AllAccountInitialized(Pointer Sender, Pointer Data);
    void AccountInfoLoad(Pointer Sender, Pointer Data);
    void ConfigUpdate(Pointer Sender, Pointer Data);

    TRecords<TPriceEditorRecord> FPriceEditorRecordList;
    TRecords<TQuantityEditorRecord> FQuantityEditorRecordList;
    TRecords<TAccountEditorRecord> FAccountEditorRecordList;
    TRecords<TSymbolEditorRecord> FSymbolEditorRecordList;
    std::unique_ptr<TGridCustomColumnRecord> FGridCustomColumnRecord; // made on first use
    std::unique_ptr<TGridCustomFilterRecord> FGridCustomFilterRecord;
    std::unique_ptr<TTreeCustomColumnRecord> FTreeCustomColumnRecord;
    TAppLanguage FCurrentLanguage = TAppLanguage::None; // of the last refresh
    Boolean FEnableThousandQty = false;
    Boolean FEnableMouseWheelPrice = true;
    Boolean FEnableMouseWheelQty = true;
    Boolean FEnablePressKeepChangePrice = true;
    Boolean FEnablePressKeepChangeQty = true;
    Boolean FShowSymbolName = true;
    TConvertSymbol FOnConvertSymbol = nullptr;

private:
    // The record of the field, made with `arguments` and bound to it; nil when the field was taken
    // away meanwhile.
    template <class Record, class Editor, class... A>
    Record* Bind(TRecords<Record>& records, Editor* editor, StringView groupID, A&... arguments);
    template <class Record>
    void Drop(TRecords<Record>& records, Int64 identity);
    void DropAll();
    Boolean IsKnown(Int64 identity) const;
    void ForgetWidget(TObject* widget);
};

} // namespace quorin
