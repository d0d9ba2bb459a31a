#include "embedded/LanguageService.h"

#include "embedded/CsvReader.h"
#include "embedded/DataFile.h"
#include "platform/rtl/Utf.h"
#include "viewdata/services/ResourceKeys.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace quorin {

namespace {

enum TColumn : std::size_t { TableColumn, KeyColumn, TextColumn, TypeColumn, ColumnCount };
constexpr std::array<std::string_view, ColumnCount> ColumnNames = {"table", "key", "text", "type"};

struct TLanguageFile {
    TAppLanguage Language;
    const char* Name;
};
constexpr TLanguageFile LanguageFiles[] = {
    {TAppLanguage::English, "en.csv"},
    {TAppLanguage::TraditionalChinese, "zh-Hant.csv"},
    {TAppLanguage::SimplifiedChinese, "zh-Hans.csv"},
};

// A text may break into lines; any other control character says that the file is no text.
bool IsPlainText(std::string_view bytes) {
    constexpr unsigned char LastControl = 0x1F;
    return IsValidUtf8(bytes) && std::none_of(bytes.begin(), bytes.end(), [](char byte) {
               const bool breaksLine = byte == '\n' || byte == '\r';
               return static_cast<unsigned char>(byte) <= LastControl && !breaksLine;
           });
}

} // namespace

void TEmbeddedLanguageManager::Load(TAppLanguage language, const std::filesystem::path& path) {
    if (language == TAppLanguage::None) return;
    FTables[static_cast<std::size_t>(language)] = ReadTables(path);
}

void TEmbeddedLanguageManager::LoadFolder(const std::filesystem::path& folder) {
    std::array<std::optional<TTables>, LanguageCount> loaded;
    for (const TLanguageFile& file : LanguageFiles) {
        const std::filesystem::path path = folder / file.Name;
        const bool isNeeded = file.Language == TAppLanguage::English;
        if (isNeeded || IsThere(path)) {
            loaded[static_cast<std::size_t>(file.Language)] = ReadTables(path);
        }
    }
    for (std::size_t language = 0; language < LanguageCount; ++language) {
        if (loaded[language]) FTables[language] = std::move(*loaded[language]);
    }
}

TEmbeddedLanguageManager::TTables
TEmbeddedLanguageManager::ReadTables(const std::filesystem::path& path) {
    std::ifstream file = OpenDataFile(path);
    TCsvReader reader(file);
    const auto refuse = [&](std::string_view what) -> void {
        throw EDataError(path.string(), reader.Line(), what);
    };
    const auto isHead = [](std::span<const std::string_view> fields) {
        return std::equal(fields.begin(), fields.end(), ColumnNames.begin(), ColumnNames.end());
    };

    TTables tables;
    const bool hasHead = reader.Next();
    CheckEnd(reader, path.string());
    if (!hasHead || !isHead(reader.Fields())) refuse("the head is not table,key,text,type");
    while (reader.Next()) {
        if (!reader.Problem().empty()) refuse(reader.Problem());
        const std::span<const std::string_view> fields = reader.Fields();
        if (fields.size() != ColumnCount) refuse("not four fields");
        if (!std::all_of(fields.begin(), fields.end(), IsPlainText)) refuse("not UTF-8 text");
        if (fields[TableColumn].empty()) refuse("no table");
        if (fields[KeyColumn].empty()) refuse("no key");
        TTable& table = tables.Obtain(FromUtf8(fields[TableColumn]));
        TEntry entry{FromUtf8(fields[TextColumn]), FromUtf8(fields[TypeColumn])};
        if (!table.Add(FromUtf8(fields[KeyColumn]), std::move(entry)))
            refuse("the key comes twice");
    }
    CheckEnd(reader, path.string());
    if (tables.Count() == 0) refuse("there is no text");
    return tables;
}

void TEmbeddedLanguageManager::SetText(TAppLanguage language, StringView tag, StringView key,
                                       StringView text, StringView type) {
    if (language == TAppLanguage::None) return;
    FTables[static_cast<std::size_t>(language)].Obtain(tag).AddOrSetValue(
        key, TEntry{String(text), String(type)});
}

void TEmbeddedLanguageManager::SetLanguage(TAppLanguage language) {
    if (language == TAppLanguage::None || language == FLanguage) return;
    FLanguage = language;
    FCallbacks.Deliver(FDeliveries.Begin(), Pointer(), Pointer());
}

void TEmbeddedLanguageManager::RegisterLanguageCallback(const TDataCallbackEvent& Callback,
                                                        TObject* Owner) {
    FCallbacks.Add(Owner, Callback);
}

void TEmbeddedLanguageManager::RemoveLanguageCallback(TObject* Owner) {
    FCallbacks.Remove(Owner);
}

String TEmbeddedLanguageManager::GetResourceString(StringView Tag, StringView Key,
                                                   TAppLanguage Language, Integer, Pointer) const {
    const TEntry* entry = Find(Language == TAppLanguage::None ? FLanguage : Language, Tag, Key);
    if (entry == nullptr) entry = Find(TAppLanguage::English, Tag, Key);
    return entry != nullptr ? entry->Text : String();
}

String TEmbeddedLanguageManager::GetResourceAttribute(StringView Tag, StringView Key,
                                                      StringView Attribute) const {
    if (Attribute != ResourceAttribute::Type) return {};
    const TEntry* entry = Find(TAppLanguage::English, Tag, Key);
    return entry != nullptr ? entry->Type : String();
}

const TEmbeddedLanguageManager::TEntry*
TEmbeddedLanguageManager::Find(TAppLanguage language, StringView tag, StringView key) const {
    const auto index = static_cast<std::size_t>(language);
    if (index >= FTables.size()) return nullptr;
    const TTable* table = FTables[index].Find(tag);
    return table != nullptr ? table->Find(key) : nullptr;
}

} // namespace quorin
