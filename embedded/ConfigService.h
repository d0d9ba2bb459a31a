#pragma once

#include "embedded/Registrations.h"
#include "platform/rtl/TDictionary.h"
#include "viewdata/services/ConfigManager.h"

#include <filesystem>

namespace quorin {

// The section in which an application keeps its settings unless it names another.
inline constexpr StringView DefaultConfigSection = u"quorin.terminal";

// Settings from an INI file and from setters. Sections and keys are matched exactly, case included.
// Nothing calls back but Commit, so that a whole change is one delivery.
class TEmbeddedConfigManager : public TCustomConfigManager {
public:
    // Replaces all settings by those of the file, UTF-8 with an optional mark at its start. Throws
    // EDataError on a file that is missing or damaged and then keeps the settings as they were.
    // Damaged is also: a setting before the first section, one given twice or without a key, text
    // that is no comment behind a section, a control character, a line or a section name too long
    // to be read whole.
    void Load(const std::filesystem::path& path);
    // An empty value takes the setting away.
    void Set(StringView section, StringView key, StringView value);
    void SetCurrentSection(StringView section);
    // One callback to everybody if anything was loaded or reads differently since the last one.
    void Commit();

    // Operations of the contract
    void RegisterConfigCallback(const TDataCallbackEvent& Callback, TObject* Owner) override;
    void RemoveConfigCallback(TObject* Owner) override;
    String ReadString(StringView Section, StringView Key) const override;
    Integer ReadInteger(StringView Section, StringView Key) const override;
    Boolean ReadBool(StringView Section, StringView Key) const override;
    const String& GetCurrentSection() const override { return FCurrentSection; }

    Integer RegistrationCount() const { return FCallbacks.Count(); }

private:
    using TSection = TDictionary<String, String>;
    using TSections = TDictionary<String, TSection>;
    friend class TSettingsReader;

    const String* Find(StringView section, StringView key) const;

    TSections FSections;
    String FCurrentSection{DefaultConfigSection};
    bool FChanged = false;
    TDeliveryClock FDeliveries;
    TRegistrations<TDataCallbackEvent> FCallbacks{FDeliveries};
};

} // namespace quorin
