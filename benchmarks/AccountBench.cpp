#include "benchmarks/BenchMarket.h"

#include "platform/rtl/Numbers.h"
#include "platform/widgets/TreeListView.h"
#include "viewdata/account/AccountAttributes.h"
#include "viewdata/account/AccountDataControl.h"
#include "viewdata/frame/TreeDataSource.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

// What a repaint of the account tree costs when every value is a sum over the sub-accounts, against
// the same sums over the same records, which both sides ask the accounts for by currency.

namespace quorin {
namespace {

constexpr Integer CurrencyCount = 12;
constexpr StringView MasterCode = u"MASTER-0001";
constexpr StringView CustomTag = u"BenchColumns";

// 40 attributes that have a row per currency: those with an operation of their own, fields, and
// custom columns.
using TFigure = Double (TCustomAccountData::*)() const;
struct TOperation {
    Integer Attribute;
    TFigure Plus;
    TFigure Minus;
};
constexpr TOperation Operations[] = {
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
constexpr Integer FirstField = 2000;
constexpr Integer FieldCount = 12;
constexpr Integer FirstCustomField = 3000;
constexpr Integer CustomCount = 12;
static_assert(std::size(Operations) + FieldCount + CustomCount == 40);

String CurrencyAt(Integer index) {
    return u"C" + FormatDecimals(10.0 + index, 0, false);
}

// A master with so many sub-accounts, each with a record in every currency.
class TGroup {
public:
    explicit TGroup(Integer subAccounts) : FServices({.Host = FHost}) {
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

private:
    void Feed(StringView code, const TAccountDetails& details) {
        Accounts().FeedAccount(code, details);
        for (Integer index = 0; index < CurrencyCount; ++index) {
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

    TBenchHost FHost;
    TEmbeddedServices FServices;
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

// From the tree list to the text of every value cell, the frame's own rows of attributes apart.
void AggregatedCells(benchmark::State& state) {
    TGroup group(static_cast<Integer>(state.range(0)));
    TCustomTreeDataSource source(&group.Columns(), TComponentClass::Of<TBenchAccounts>());
    auto& control = static_cast<TBenchAccounts&>(*source.DataControl());
    control.SetAccount(MasterCode);
    control.SetAggregate();
    auto list = CreateComponent<TcxVirtualTreeList>();
    list->SetStartsExpanded(true);
    TcxTreeListColumn& value = list->AddColumn(AccountTreeColumn::Value);
    list->SetOnGetCellText(MakeEvent<&TBenchAccounts::CellText>(&control));
    list->SetCustomDataSource(&source);
    Integer cells = 0;
    for (auto _ : state) {
        source.DataChanged();
        cells = 0;
        for (Integer row = 0; row < list->RowCount(); ++row) {
            if (list->Row(row).Depth == 0) continue;
            benchmark::DoNotOptimize(list->CellText(row, value));
            ++cells;
        }
    }
    if (cells != group.Columns().Count() * CurrencyCount) state.SkipWithError("cells are missing");
    state.SetItemsProcessed(state.iterations() * cells);
}

// One cell: the master's own figure and those of the sub-accounts.
template <class Figure>
Double SumByHand(const TCustomAccount& master, const std::vector<TCustomAccount*>& subAccounts,
                 const String& currency, Figure figure) {
    Double sum = figure(*master.GetAccountData(currency));
    for (const TCustomAccount* account : subAccounts) {
        const TCustomAccountData* record = account->GetAccountData(currency);
        if (record != nullptr) sum += figure(*record);
    }
    return sum;
}

void PlainSums(benchmark::State& state) {
    TGroup group(static_cast<Integer>(state.range(0)));
    const TCustomAccount& master = *group.Accounts().GetAccount(MasterCode, false);
    TAccountDictionary listed;
    group.Accounts().GetSubAccountList(MasterCode, listed);
    std::vector<TCustomAccount*> subAccounts;
    for (const auto& item : listed) subAccounts.push_back(item.Value);
    String text;
    Integer cells = 0;
    const auto add = [&](const String& currency, auto figure) {
        benchmark::DoNotOptimize(SumByHand(master, subAccounts, currency, figure));
        ++cells;
    };
    const auto field = [&](Integer number) {
        return [&text, number](const TCustomAccountData& record) {
            record.GetFieldString(number, text);
            return ToDoubleOr(text, 0.0);
        };
    };
    for (auto _ : state) {
        cells = 0;
        for (Integer index = 0; index < CurrencyCount; ++index) {
            const String currency = CurrencyAt(index);
            for (const TOperation& operation : Operations) {
                add(currency, [&operation](const TCustomAccountData& record) {
                    const Double plus = (record.*operation.Plus)();
                    return operation.Minus ? plus - (record.*operation.Minus)() : plus;
                });
            }
            for (Integer number = 0; number < FieldCount; ++number) {
                add(currency, field(FirstField + number));
            }
            for (Integer number = 0; number < CustomCount; ++number) {
                add(currency, field(FirstCustomField + number));
            }
        }
    }
    state.SetItemsProcessed(state.iterations() * cells);
}

constexpr Integer SubAccounts = 200;

BENCHMARK(AggregatedCells)->Arg(SubAccounts);
BENCHMARK(PlainSums)->Arg(SubAccounts);

} // namespace
} // namespace quorin
