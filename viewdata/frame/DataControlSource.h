#pragma once

#include "platform/rtl/TComponent.h"
#include "platform/widgets/CustomDataSource.h"
#include "viewdata/frame/DisplaySettings.h"
#include "viewdata/services/ConfigManager.h"

#include <memory>

namespace quorin {

// What the grid source and the tree source have in common: `Widget` is the widget suite's source
// class, `Control` the base of the controls that fit. The source owns its control; without one, or
// with a class that is no such control, it stays inert for its whole life.
template <class Widget, class Control>
class TDataControlSource : public Widget, protected TDisplaySettings {
public:
    // Removes the configuration callback, unhooks the control and frees it. While the control dies
    // the source has none any more, and an attached view is not asked to fetch.
    ~TDataControlSource() override {
        TCustomConfigManager::GetInstance()->RemoveConfigCallback(this);
        if (FMyDataControl == nullptr) return;
        FMyDataControl->SetOnDataChanged(nullptr);
        const std::unique_ptr<Control> dying = std::move(FMyDataControl);
    }

    // The control, or nil. It stays the source's.
    Control* DataControl() const { return FMyDataControl.get(); }

    // The control has changed: asks the view to fetch again, once a view is attached.
    virtual void DataUpdate(TObject*) {
        if (this->GetProvider() != nullptr) this->DataChanged();
    }

    // What the control says of the signal under way; nothing without one.
    bool ChangedRecords(TList<Integer>& records) override {
        return FMyDataControl != nullptr && FMyDataControl->NameChangedRows(records);
    }

    // Reads the display settings again and, if one of them differs, refreshes the attached view.
    // The control hears of the configuration by itself.
    void ConfigUpdate(Pointer, Pointer) {
        const TDisplaySettings& settings = *this;
        const TDisplaySettings before = settings;
        ReadConfig();
        if (before == settings) return;
        if (auto* controller = this->GetDataController()) controller->Refresh();
    }

    void ReadConfig() { ReadDisplaySettings(); }

protected:
    TDataControlSource() = default;

    // The two steps of every constructor; what a class does between them is its own.
    void TakeControl(std::unique_ptr<Control> control) {
        FMyDataControl = std::move(control);
        FMyDataControl->SetOnDataChanged(MakeEvent<&TDataControlSource::DataUpdate>(this));
        FMyDataControl->SetDataSource(this);
    }
    void MakeControl(const TComponentClass& controlClass) {
        if (!controlClass.InheritsFrom<Control>()) return;
        TakeControl(
            std::unique_ptr<Control>(static_cast<Control*>(controlClass.Create().release())));
    }
    void FollowConfig() {
        ReadConfig();
        TCustomConfigManager::GetInstance()->RegisterConfigCallback(
            MakeEvent<&TDataControlSource::ConfigUpdate>(this), this);
    }

    std::unique_ptr<Control> FMyDataControl;
};

} // namespace quorin
