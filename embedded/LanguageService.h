#pragma once

#include "embedded/Registrations.h"
#include "platform/rtl/TDictionary.h"
#include "viewdata/services/LanguageManager.h"

#include <array>
#include <filesystem>

namespace quorin {

// The table of messages, by message code.
inline constexpr StringView MessageTag = u"Message";

// Texts from data files, one per language, and from setters. Tables and keys are matched exactly,
// case included. An entry that a language lacks is read from the English texts, and attributes
// always are. English is in force to begin with.
class TEmbeddedLanguageManager : public TCustomLanguageManager {
public:
    // Replaces all texts of a language by those of the file: records table,key,text,type below a
    // first record of these names, in UTF-8. Throws EDataError on a file that is missing or
    // damaged, also by an empty table or key or an entry that comes twice, or that has no entry,
    // and then keeps the texts as they were. What is already shown changes with the next
    // SetLanguage only.
    void Load(TAppLanguage language, const std::filesystem::path& path);
    // Loads the files "en.csv", "zh-Hant.csv" and "zh-Hans.csv" of the folder, all or none; a
    // language other than English may be missing.
    void LoadFolder(const std::filesystem::path& folder);
    void SetText(TAppLanguage language, StringView tag, StringView key, StringView text,
                 StringView type = {});
    // Tells everybody when it is another language than before; None changes nothing.
    void SetLanguage(TAppLanguage language);

    // Operations of the contract
    void RegisterLanguageCallback(const TDataCallbackEvent& Callback, TObject* Owner) override;
    void RemoveLanguageCallback(TObject* Owner) override;
    TAppLanguage GetCurrentLanguage() const override { return FLanguage; }
    String GetResourceString(StringView Tag, StringView Key, TAppLanguage Language,
                             Integer Argument, Pointer Extra) const override;
    String GetResourceAttribute(StringView Tag, StringView Key,
                                StringView Attribute) const override;

    Integer RegistrationCount() const { return FCallbacks.Count(); }

private:
    struct TEntry {
        String Text;
        String Type;
    };
    using TTable = TDictionary<String, TEntry>;
    using TTables = TDictionary<String, TTable>;
    static constexpr std::size_t LanguageCount = 3;

    static TTables ReadTables(const std::filesystem::path& path);
    const TEntry* Find(TAppLanguage language, StringView tag, StringView key) const;

    std::array<TTables, LanguageCount> FTables; // by TAppLanguage
    TAppLanguage FLanguage = TAppLanguage::English;
    TDeliveryClock FDeliveries;
    TRegistrations<TDataCallbackEvent> FCallbacks{FDeliveries};
};

} // namespace quorin
