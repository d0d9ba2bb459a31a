#include "platform/rtl/Numbers.h"
#include "viewdata/account/AccountAttributes.h"
#include "viewdata/account/AccountDataControl.h"
#include "viewdata/account/AccountPin.h"
#include "viewdata/frame/AccountLookups.h"

#include <utility>

// The nodes of the account information tree: made, taken back, dropped, walked.

namespace quorin {

namespace {

namespace A = AccountAttribute;

using TNodes = TAccountNodeList::TNodes;

// Attributes that say something of the account as a whole.
Boolean HasValueRows(Integer attribute) {
    switch (attribute) {
    case A::AccountCode:
    case A::AccountTag:
    case A::HolderName:
    case A::MarketValue:
    case A::Value1205:
    case A::Value9028: return false;
    default: return true;
    }
}

String KeyOf(Integer attribute, const String& currency) {
    return IntegerToText(attribute) + u'-' + currency;
}

Boolean IsCurrencyNode(TObject* node) {
    return ObjectAs<TAccountDataValueNode>(node) != nullptr ||
           ObjectAs<TConvertAccountDataValueNode>(node) != nullptr;
}

} // namespace

void TCustomAccountInfoDataControl::Park(std::unique_ptr<TObject> node) {
    if (FPins == 0) return;
    TObject* const address = node.get();
    FParkedNodes.Add(address, std::move(node));
}

void TCustomAccountInfoDataControl::ReleaseParked() {
    if (FParkedNodes.IsEmpty()) return;
    FFormerRows.Clear();
    FFormerValueRows.Clear();
    FParkedNodes.Clear();
}

// A row that comes back keeps its node, so that a view that knows rows by their nodes keeps what
// is open and what has the focus.
template <class Node, class... Arguments>
Node* TCustomAccountInfoDataControl::AddNode(Node* former, Arguments&&... arguments) {
    std::unique_ptr<TObject> node;
    if (former != nullptr) node = FParkedNodes.Extract(former);
    if (node == nullptr) {
        auto made = std::make_unique<Node>(std::forward<Arguments>(arguments)...);
        former = made.get();
        node = std::move(made);
    }
    FNodeList.Add(std::move(node));
    return former;
}

void TCustomAccountInfoDataControl::AddRow(TColumnInfo* column) {
    if (column == nullptr || FAccountDataNodeList.ContainsKey(column->ID())) return;
    const Integer attribute = column->ID();
    FColumnList.Add(column);
    TAccountDataNode* node = AddNode(FFormerRows.Extract(attribute), attribute);
    FDummyNodeList.Add(node);
    FAccountDataNodeList.Add(attribute, node);
}

void TCustomAccountInfoDataControl::AddValueRow(Integer attribute, const String& currency) {
    TAccountDataNode* const* parent = FAccountDataNodeList.Find(attribute);
    if (parent == nullptr || !HasValueRows(attribute)) return;
    const String key = KeyOf(attribute, currency);
    if (FAccountDataValueNodeList.ContainsKey(key)) return;
    TAccountDataValueNode* former = FFormerValueRows.Extract(key);
    if (former != nullptr && former->Parent() != *parent) former = nullptr;
    FAccountDataValueNodeList.Add(key, AddNode(former, *parent, currency));
}

void TCustomAccountInfoDataControl::SetColumnList(const TColumnList* List) {
    const TPin pin(*this);
    const TColumnList columns = List != nullptr ? *List : TColumnList(); // it may be our own
    ClearAll();
    for (TColumnInfo* column : columns) AddRow(column);
    if (!FAccount.empty()) InitCurrencyNode();
}

// What the service says is read first. It may tell of changes while it is asked, and so build the
// rows inside this call: that has read later, and there is nothing left to add.
void TCustomAccountInfoDataControl::InitCurrencyNode() {
    const TPin pin(*this);
    const Integer build = ++FBuilds;
    const TCustomAccount* account = FindAccount(FAccount);
    if (!pin.IsAlive()) return;
    const Boolean isMultiCurrency = Currencies().IsMultiCurrency();
    if (!pin.IsAlive() || build != FBuilds) return;
    if (account == nullptr || !isMultiCurrency) return;
    const Integer count = account->GetCurrencyCount();
    FAccountCurrencyDataCount = count;
    for (Integer index = 0; index < count; ++index) {
        const String& currency = account->GetCurrency(index);
        for (const TColumnInfo* column : FColumnList) AddValueRow(column->ID(), currency);
    }
}

void TCustomAccountInfoDataControl::ClearAccountCurrencyNode() {
    FAccountCurrencyDataCount = 0;
    DropCurrencyRows();
}

void TCustomAccountInfoDataControl::DropCurrencyRows() {
    TNodes kept;
    TNodes dropped;
    TNodes& nodes = FNodeList.Edit();
    for (std::unique_ptr<TObject>& node : nodes) {
        (IsCurrencyNode(node.get()) ? dropped : kept).Add(std::move(node));
    }
    nodes = std::move(kept);
    if (FPins > 0) {
        for (const auto& [key, node] : FAccountDataValueNodeList) {
            FFormerValueRows.AddOrSetValue(key, node);
        }
    }
    FAccountDataValueNodeList.Clear();
    FConvertAccountDataNodeList.Clear();
    for (std::unique_ptr<TObject>& node : dropped) Park(std::move(node));
}

void TCustomAccountInfoDataControl::ClearAll() {
    DropCurrencyRows();
    TNodes dropped = std::exchange(FNodeList.Edit(), {});
    if (FPins > 0) {
        for (const auto& [attribute, node] : FAccountDataNodeList) {
            FFormerRows.AddOrSetValue(attribute, node);
        }
    }
    FDummyNodeList.Clear();
    FAccountDataNodeList.Clear();
    FColumnList.Clear();
    for (std::unique_ptr<TObject>& node : dropped) Park(std::move(node));
}

Integer TCustomAccountInfoDataControl::GetCount() {
    return FAccount.empty() ? FDummyNodeList.Count() : FNodeList.Count();
}

Pointer TCustomAccountInfoDataControl::GetNode(Integer Index) {
    if (FAccount.empty()) {
        return FDummyNodeList.Has(Index) ? AsPointer(FDummyNodeList[Index]) : nullptr;
    }
    return FNodeList.Has(Index) ? AsPointer(FNodeList[Index].get()) : nullptr;
}

Pointer TCustomAccountInfoDataControl::GetParentNode(Pointer Node) {
    if (Node == GetRootNode()) return nullptr;
    if (const auto* row = ObjectAs<TAccountDataValueNode>(Node)) return AsPointer(row->Parent());
    if (const auto* row = ObjectAs<TConvertAccountDataValueNode>(Node)) {
        return AsPointer(row->Parent());
    }
    return nullptr;
}

// Choosing another account, or none, drops the rows of currencies, which counts as well.
Int64 TCustomAccountInfoDataControl::ShapeVersion() const {
    return FNodeList.Version();
}

String TCustomAccountInfoDataControl::NodeIdentity(Pointer Node) const {
    if (Node == static_cast<const TObject*>(&FNodeList)) return String();
    if (const auto* row = ObjectAs<TAccountDataNode>(Node)) return IntegerToText(row->Serial());
    if (const auto* row = ObjectAs<TAccountDataValueNode>(Node)) {
        return IntegerToText(row->Serial());
    }
    const auto* row = ObjectAs<TConvertAccountDataValueNode>(Node);
    return row != nullptr ? IntegerToText(row->Serial()) : String();
}

Pointer TCustomAccountInfoDataControl::GetRootNode() {
    return AsPointer(&FNodeList);
}

Pointer TCustomAccountInfoDataControl::GetChildNode(Pointer, Integer) {
    return nullptr;
}

Integer TCustomAccountInfoDataControl::GetChildNodeCount(Pointer) {
    return 0;
}

Boolean TCustomAccountInfoDataControl::GetRowValue(Integer, Pointer&) {
    return false;
}

Boolean TCustomAccountInfoDataControl::GetColValue(Integer, Pointer&) {
    return false;
}

} // namespace quorin
