#include "embedded/ConfigService.h"

#include "embedded/DataFile.h"
#include "platform/rtl/Numbers.h"
#include "platform/rtl/Text.h"
#include "platform/rtl/Utf.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <ini.h>
#include <string>
#include <utility>

namespace quorin {

namespace {

// The parser cuts a section's name off at this length without a word.
constexpr std::size_t SectionNameRoom = 49;

constexpr std::size_t ChunkSize = 4096;
constexpr std::string_view Utf8Mark = "\xEF\xBB\xBF";

constexpr const char* LineTooLong = "the line is too long";
constexpr const char* SectionNameTooLong = "the section name is too long";
constexpr const char* NotUtf8 = "the line is not UTF-8";
constexpr const char* OutsideSection = "a setting stands before the first section";
constexpr const char* GivenTwice = "the setting is given twice";
constexpr const char* NoKey = "a value without a key";
constexpr const char* ControlCharacter = "a control character: this is no text file";
constexpr const char* TextBehindSection = "text behind the section name";
constexpr const char* NoSetting = "neither a [section] nor a key = value";

std::string ReadWholeFile(const std::filesystem::path& path) {
    std::ifstream file = OpenDataFile(path);
    std::string content;
    std::array<char, ChunkSize> chunk;
    do {
        file.read(chunk.data(), chunk.size());
        content.append(chunk.data(), static_cast<std::size_t>(file.gcount()));
    } while (file);
    if (file.bad()) throw EDataError(path.string(), 0, "cannot be read");
    return content;
}

bool IsControl(char byte) {
    constexpr unsigned char FirstPrintable = 0x20;
    return static_cast<unsigned char>(byte) < FirstPrintable && byte != '\t';
}

// The parser ignores what follows the bracket; only a comment may.
bool HasTextBehindSection(std::string_view line) {
    if (line.empty() || line.front() != '[') return false;
    const std::size_t end = line.find(']');
    if (end == line.npos) return false;
    const std::size_t behind = line.find_first_not_of(" \t", end + 1);
    return behind != line.npos && line[behind] != ';' && line[behind] != '#';
}

} // namespace

// Feeds the parser line by line and takes what it finds. Lines go in without the blanks before
// them: to the parser an indented line continues the value above, and no setting needs that.
class TSettingsReader {
public:
    explicit TSettingsReader(std::string content) : FContent(std::move(content)) {}

    // Answers the number of the first line that cannot be read, 0 when all could.
    int Read() {
        const int unreadable = ini_parse_stream(&NextLine, this, &TakeSetting, this);
        if (unreadable > 0 && (FBadLine == 0 || unreadable < FBadLine)) {
            FBadLine = unreadable;
            FReason = NoSetting;
        }
        return FBadLine;
    }
    const char* Reason() const { return FReason; }
    TEmbeddedConfigManager::TSections TakeSections() { return std::move(FSections); }

private:
    static char* NextLine(char* buffer, int size, void* stream) {
        auto& self = *static_cast<TSettingsReader*>(stream);
        if (self.FPosition >= self.FContent.size()) return nullptr;
        ++self.FLine;
        std::string_view line = self.CutLine();
        if (self.FLine == 1 && line.starts_with(Utf8Mark)) line.remove_prefix(Utf8Mark.size());
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        if (!IsValidUtf8(line)) self.Refuse(NotUtf8);
        if (std::any_of(line.begin(), line.end(), IsControl)) self.Refuse(ControlCharacter);
        line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
        if (HasTextBehindSection(line)) self.Refuse(TextBehindSection);
        if (line.size() + 1 >= static_cast<std::size_t>(size)) {
            self.Refuse(LineTooLong);
            line = {};
        }
        line.copy(buffer, line.size());
        buffer[line.size()] = '\0';
        return buffer;
    }
    std::string_view CutLine() {
        const std::size_t end = FContent.find('\n', FPosition);
        const std::string_view line = std::string_view(FContent).substr(
            FPosition, end == std::string::npos ? end : end - FPosition);
        FPosition = end == std::string::npos ? FContent.size() : end + 1;
        return line;
    }

    static int TakeSetting(void* user, const char* section, const char* key, const char* value) {
        auto& self = *static_cast<TSettingsReader*>(user);
        if (*section == '\0') self.Refuse(OutsideSection);
        if (*key == '\0') self.Refuse(NoKey);
        if (std::strlen(section) >= SectionNameRoom) self.Refuse(SectionNameTooLong);
        auto& settings = self.FSections.Obtain(FromUtf8(section));
        if (!settings.Add(FromUtf8(key), FromUtf8(value))) self.Refuse(GivenTwice);
        return 1;
    }
    void Refuse(const char* reason) {
        if (FBadLine != 0) return;
        FBadLine = FLine;
        FReason = reason;
    }

    const std::string FContent;
    std::size_t FPosition = 0;
    int FLine = 0;
    int FBadLine = 0;
    const char* FReason = "";
    TEmbeddedConfigManager::TSections FSections;
};

void TEmbeddedConfigManager::Load(const std::filesystem::path& path) {
    TSettingsReader reader(ReadWholeFile(path));
    if (const int line = reader.Read(); line != 0)
        throw EDataError(path.string(), line, reader.Reason());
    FSections = reader.TakeSections();
    FChanged = true;
}

void TEmbeddedConfigManager::Set(StringView section, StringView key, StringView value) {
    const String* known = Find(section, key);
    if (known != nullptr ? *known == value : value.empty()) return;
    FSections.Obtain(section).AddOrSetValue(key, String(value));
    FChanged = true;
}

void TEmbeddedConfigManager::SetCurrentSection(StringView section) {
    if (FCurrentSection == section) return;
    FCurrentSection = section;
    FChanged = true;
}

void TEmbeddedConfigManager::Commit() {
    if (!std::exchange(FChanged, false)) return;
    FCallbacks.Deliver(FDeliveries.Begin(), Pointer(), Pointer());
}

void TEmbeddedConfigManager::RegisterConfigCallback(const TDataCallbackEvent& Callback,
                                                    TObject* Owner) {
    FCallbacks.Add(Owner, Callback);
}

void TEmbeddedConfigManager::RemoveConfigCallback(TObject* Owner) {
    FCallbacks.Remove(Owner);
}

String TEmbeddedConfigManager::ReadString(StringView Section, StringView Key) const {
    const String* value = Find(Section, Key);
    return value != nullptr ? *value : String();
}

Integer TEmbeddedConfigManager::ReadInteger(StringView Section, StringView Key) const {
    const String* value = Find(Section, Key);
    return value != nullptr ? ToIntegerOr(*value, 0) : 0;
}

Boolean TEmbeddedConfigManager::ReadBool(StringView Section, StringView Key) const {
    const String* value = Find(Section, Key);
    if (value == nullptr || value->empty()) return false;
    const Char first = UpperCase(value->front());
    return first == u'Y' || first == u'T' || ToIntegerOr(*value, 0) != 0;
}

const String* TEmbeddedConfigManager::Find(StringView section, StringView key) const {
    const TSection* settings = FSections.Find(section);
    return settings != nullptr ? settings->Find(key) : nullptr;
}

} // namespace quorin
