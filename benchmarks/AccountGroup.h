#pragma once

#include "benchmarks/BenchMarket.h"
#include "platform/rtl/Numbers.h"
#include "platform/widgets/TreeListView.h"
#include "viewdata/account/AccountAttributes.h"
#include "viewdata/account/AccountDataControl.h"
#include "viewdata/frame/TreeDataSource.h"

#include <iterator>
#include <memory>
#include <vector>

namespace quorin {

inline constexpr StringView MasterCode = u"MASTER-0001";
inline constexpr StringView CustomTag = u"BenchColumns";

// 40 attributes that have a row per currency: those with an operation of their own, fields, and
// custom columns.
using TFigure = Double (TCustomAccountData::*)() const;
struct TOperation {
    Integer Attribute;
    TFigure Plus;
    TFigure Minus;
};
inline constexpr TOperation Operations[] = {
    {4, &TCustomAccountData::GetValue991, &TCustomAccountData::GetValue990},
    {155, &TCustomAccountData::GetValue155, nullptr},
    {156, &TCustomAccountData::GetValue156, nullptr},
    {185, &TCustomAccountData::GetValue185, nullptr},
    {186, &TCustomAccountData::GetValue186, nullptr},
    {189, &TCustomAccountData::GetValue607, &TCustomAccountData::GetValue446},
    {446, &TCustomAccountData::GetValue446, nullptr},
    {604, &TCustomAccountData::GetValue604, nullptr},
    {606, &TCustomAccountData::GetValue606, nullptr},
    {607, &TCustomAccountData::GetValue607, nullptr},
    {990, &TCustomAccountData::GetValue990, nullptr},
    {991, &TCustomAccountData::GetValue991, nullptr},
    {996, &TCustomAccountData::GetValue996, nullptr},
    {1502, &TCustomAccountData::GetValue1502, nullptr},
    {1503, &TCustomAccountData::GetValue1503, nullptr},
    {9018, &TCustomAccountData::GetValue9018A, &TCustomAccountData::GetValue9018B},
};
inline constexpr Integer FirstField = 2000;
inline constexpr Integer FieldCount = 12;
inline constexpr Integer FirstCustomField = 3000;
inline constexpr Integer CustomCount = 12;
inline constexpr Integer AttributeCount = 40;
static_assert(std::size(Operations) + FieldCount + CustomCount == AttributeCount);

inline String CurrencyAt(Integer index) {
    return u"C" + IntegerToText(10 + index);
}

// A master with so many sub-accounts, each with a record in each of so many currencies.
class TGroup {
public:
    TGroup(Integer subAccounts, Integer currencies) : FCurrencyCount(currencies) {
        FServices.Currencies().SetMultiCurrency(true);
        Feed(MasterCode, {.Type = AccountType::Master, .IsAggregate = true});
        for (Integer index = 0; index < subAccounts; ++index) {
            Feed(u"SUB-" + IntegerToText(100000 + index), {.MasterAccount = String(MasterCode)});
        }
        for (const TOperation& operation : Operations) AddColumn(operation.Attribute);
        for (Integer field = 0; field < FieldCount; ++field) AddColumn(FirstField + field);
        for (Integer field = FirstCustomField; field < FirstCustomField + CustomCount; ++field) {
            AddColumn(FirstCustomColumn + field);
            FServices.Language().SetText(TAppLanguage::English, CustomTag, IntegerToText(field),
                                         u"Custom", u"amount");
        }
        FServices.Deliver();
    }
    const TColumnList& Columns() const { return FColumns; }
    TEmbeddedAccountAdapter& Accounts() { return FServices.Accounts(); }
    TEmbeddedServices& Services() { return FServices; }

private:
    void Feed(StringView code, const TAccountDetails& details) {
        Accounts().FeedAccount(code, details);
        for (Integer index = 0; index < FCurrencyCount; ++index) {
            TBalanceFigures figures;
            Double amount = 1000.0 + index;
            for (const TBalanceColumn& column : BalanceColumns) figures.*column.Figure = amount++;
            for (Integer field = 0; field < FieldCount; ++field) {
                figures.Fields.Add(FirstField + field, DoubleToText(amount + 0.25));
            }
            for (Integer field = 0; field < CustomCount; ++field) {
                figures.Fields.Add(FirstCustomField + field, DoubleToText(amount + 0.5));
            }
            Accounts().FeedBalance(code, CurrencyAt(index), figures);
        }
    }
    void AddColumn(Integer attribute) {
        FOwned.push_back(TColumnInfo::AddColumn(attribute, {}, 80, {}, false));
        FColumns.Add(FOwned.back().get());
    }

    TBenchServices FServices;
    Integer FCurrencyCount;
    std::vector<std::unique_ptr<TColumnInfo>> FOwned;
    TColumnList FColumns;
};

class TBenchAccounts : public TCustomAccountInfoDataControl {
    QUORIN_CLASS(TBenchAccounts, TCustomAccountInfoDataControl)

    explicit TBenchAccounts(TComponent* owner = nullptr) : TCustomAccountInfoDataControl(owner) {
        FCustomColumnTagID = CustomTag;
    }
    void CellText(TcxDataRecordHandle node, TcxTreeListColumn& column, String& text) {
        text = GetDisplayValue(node, column.Tag());
    }
};

// A tree list over one account, every node open.
struct TTreeScreen {
    explicit TTreeScreen(TGroup& group)
        : Source(&group.Columns(), TComponentClass::Of<TBenchAccounts>()) {
        List->SetStartsExpanded(true);
        List->SetOnGetCellText(MakeEvent<&TBenchAccounts::CellText>(&Control()));
    }
    ~TTreeScreen() { List->SetCustomDataSource(nullptr); }
    TTreeScreen(const TTreeScreen&) = delete;
    TTreeScreen& operator=(const TTreeScreen&) = delete;

    TBenchAccounts& Control() { return static_cast<TBenchAccounts&>(*Source.DataControl()); }
    void Show() { List->SetCustomDataSource(&Source); }

    TCustomTreeDataSource Source;
    std::unique_ptr<TcxVirtualTreeList> List = CreateComponent<TcxVirtualTreeList>();
    TcxTreeListColumn& Value = List->AddColumn(AccountTreeColumn::Value);
};

} // namespace quorin
