#include "viewdata/frame/DataControl.h"

#include "viewdata/services/ConfigManager.h"

#include <utility>

namespace quorin {

Variant TBaseDataControl::GetValue(Integer, Integer) {
    return Variant();
}

String TBaseDataControl::GetDisplayValue(Integer, Integer) {
    return EmptyDisplayText;
}

Boolean TBaseDataControl::GetRowValue(Integer, Pointer&) {
    return false;
}

Boolean TBaseDataControl::GetColValue(Integer, Pointer&) {
    return false;
}

// A signal inside this one takes the naming away: what is not its own it has no names for.
void TBaseDataControl::FireDataChanged() {
    if (!OnDataChanged) return;
    const TLifeline::TWatch watch(FSignalLine);
    FSignalled = std::exchange(FNaming, nullptr);
    OnDataChanged(this);
    if (watch.IsAlive()) FSignalled = nullptr;
}

Boolean TBaseDataControl::NameChangedRows(TList<Integer>& rows) {
    const TRowNaming* naming = std::exchange(FSignalled, nullptr);
    if (naming == nullptr) return false;
    TChangedRows changed(rows);
    naming->Name(changed);
    return changed.AreNamed();
}

TBaseDataControl::TNamingScope::TNamingScope(TBaseDataControl& control, const TRowNaming& naming)
    : FControl(control), FWatch(control.FSignalLine) {
    control.FNaming = &naming;
}

TBaseDataControl::TNamingScope::~TNamingScope() {
    if (FWatch.IsAlive()) FControl.FNaming = nullptr;
}

TCustomDataControl::TCustomDataControl(TComponent* AOwner) : TBaseDataControl(AOwner) {
    TCustomConfigManager::GetInstance()->RegisterConfigCallback(
        MakeEvent<&TCustomDataControl::ConfigUpdate>(this), this);
}

TCustomDataControl::~TCustomDataControl() {
    TCustomConfigManager::GetInstance()->RemoveConfigCallback(this);
}

void TCustomDataControl::AfterConstruction() {
    TBaseDataControl::AfterConstruction();
    ConfigUpdate(nullptr, nullptr);
}

void TCustomDataControl::ConfigUpdate(Pointer, Pointer) {}

Pointer TBaseTreeDataControl::GetParentNode(Pointer) {
    return nullptr;
}

Pointer TBaseTreeDataControl::GetNode(Integer) {
    return nullptr;
}

Pointer TBaseTreeDataControl::GetChildNode(Pointer, Integer) {
    return nullptr;
}

Integer TBaseTreeDataControl::GetChildNodeCount(Pointer) {
    return 0;
}

Variant TBaseTreeDataControl::GetValue(Pointer, Integer) {
    return Variant();
}

String TBaseTreeDataControl::GetDisplayValue(Pointer, Integer) {
    return EmptyDisplayText;
}

void TBaseTreeDataControl::SetColumnList(const TColumnList*) {}

TCustomTreeDataControl::TCustomTreeDataControl(TComponent* AOwner) : TBaseTreeDataControl(AOwner) {
    TCustomConfigManager::GetInstance()->RegisterConfigCallback(
        MakeEvent<&TCustomTreeDataControl::ConfigUpdate>(this), this);
}

TCustomTreeDataControl::~TCustomTreeDataControl() {
    TCustomConfigManager::GetInstance()->RemoveConfigCallback(this);
}

void TCustomTreeDataControl::AfterConstruction() {
    TBaseTreeDataControl::AfterConstruction();
    ConfigUpdate(nullptr, nullptr);
}

void TCustomTreeDataControl::ConfigUpdate(Pointer, Pointer) {}

} // namespace quorin
