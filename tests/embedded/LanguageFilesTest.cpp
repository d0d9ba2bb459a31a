// The texts that are delivered, taken from their files: a look-up would fall back on English.

#include "embedded/CsvReader.h"
#include "platform/rtl/Numbers.h"
#include "platform/rtl/Utf.h"
#include "viewdata/services/ResourceKeys.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace quorin {
namespace {

const std::filesystem::path DataFolder = QUORIN_DATA_DIR;
const std::filesystem::path SourceRoot = DataFolder.parent_path();

constexpr const char* MarketColumns = "MarketCustomColumn";
constexpr const char* AccountColumns = "AccountCustomColumn";

struct TText {
    std::string Text;
    std::string Type;
};
using TKey = std::pair<std::string, std::string>; // table and key
using TTexts = std::map<TKey, TText>;

std::string Show(const TKey& key) {
    return key.first + "/" + key.second;
}

TTexts ReadTexts(const std::string& language) {
    std::ifstream file(DataFolder / "language" / (language + ".csv"), std::ios::binary);
    EXPECT_TRUE(file.good()) << language;
    TCsvReader reader(file);
    TTexts texts;
    for (reader.Next(); reader.Next();) {
        const auto fields = reader.Fields();
        if (fields.size() != 4) {
            ADD_FAILURE() << language << ":" << reader.Line();
            continue;
        }
        texts[{std::string(fields[0]), std::string(fields[1])}] = {std::string(fields[2]),
                                                                   std::string(fields[3])};
    }
    return texts;
}

const TTexts& Texts(const std::string& language) {
    static std::map<std::string, TTexts> read;
    const auto known = read.find(language);
    return known != read.end() ? known->second
                               : read.emplace(language, ReadTexts(language)).first->second;
}

const char* const Languages[] = {"en", "zh-Hant", "zh-Hans"};
const char* const ChineseLanguages[] = {"zh-Hant", "zh-Hans"};

// All that the first group of the pattern takes from a source file.
std::set<std::string> FindInSource(const std::filesystem::path& source, const char* pattern) {
    std::ifstream file(SourceRoot / source);
    EXPECT_TRUE(file.good()) << source;
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    const std::regex wanted(pattern);
    std::set<std::string> found;
    for (std::sregex_iterator hit(text.begin(), text.end(), wanted), end; hit != end; ++hit) {
        found.insert((*hit)[1]);
    }
    return found;
}

std::multiset<std::string> Placeholders(const std::string& text) {
    static const std::regex placeholder("%[0-9]*s");
    const std::sregex_iterator first(text.begin(), text.end(), placeholder);
    std::multiset<std::string> found;
    std::for_each(first, std::sregex_iterator(),
                  [&](const std::smatch& hit) { found.insert(hit.str()); });
    return found;
}

TEST(LanguageFilesTest, EveryKeyOfTheProgramsHasATextInEveryLanguage) {
    const char* const pattern = "= u\"([Rr]es_[A-Za-z_]+)\"";
    std::set<std::string> keys = FindInSource("viewdata/services/ResourceKeys.h", pattern);
    EXPECT_GT(keys.size(), 80u);
    keys.merge(FindInSource("terminal/forms/TerminalKeys.h", pattern));
    keys.merge(FindInSource("embedded/OrderKeys.h", pattern));
    const std::string table = ToUtf8(Const_ResourceStringTag);
    for (const char* language : Languages) {
        std::vector<std::string> missing;
        for (const std::string& key : keys) {
            if (Texts(language).count({table, key}) == 0) missing.push_back(key);
        }
        EXPECT_EQ(missing, std::vector<std::string>()) << language;
    }
}

TEST(LanguageFilesTest, LanguagesHaveTheSameKeysAndTypes) {
    for (const char* language : ChineseLanguages) {
        std::vector<std::string> missing;
        std::vector<std::string> extra;
        for (const auto& [key, text] : Texts("en")) {
            const auto translated = Texts(language).find(key);
            if (translated == Texts(language).end()) {
                missing.push_back(Show(key));
            } else {
                EXPECT_EQ(translated->second.Type, text.Type) << language << " " << Show(key);
            }
        }
        for (const auto& [key, text] : Texts(language)) {
            if (Texts("en").count(key) == 0) extra.push_back(Show(key));
        }
        EXPECT_EQ(missing, std::vector<std::string>()) << language;
        EXPECT_EQ(extra, std::vector<std::string>()) << language;
    }
}

TEST(LanguageFilesTest, PlaceholdersAgree) {
    int count = 0;
    for (const auto& [key, text] : Texts("en")) {
        const std::multiset<std::string> wanted = Placeholders(text.Text);
        count += static_cast<int>(wanted.size());
        for (const char* language : ChineseLanguages) {
            const auto translated = Texts(language).find(key);
            if (translated == Texts(language).end()) continue;
            EXPECT_EQ(Placeholders(translated->second.Text), wanted) << language << Show(key);
        }
    }
    EXPECT_GE(count, 2) << "the largest order is named in a question";
}

TEST(LanguageFilesTest, NoTextIsEmptyOrHasBlanksAround) {
    const String blanks = u" \t\r\n\u00A0\u3000";
    for (const char* language : Languages) {
        for (const auto& [key, text] : Texts(language)) {
            const String wide = FromUtf8(text.Text);
            ASSERT_FALSE(wide.empty()) << language << " " << Show(key);
            EXPECT_EQ(blanks.find(wide.front()), String::npos) << language << " " << Show(key);
            EXPECT_EQ(blanks.find(wide.back()), String::npos) << language << " " << Show(key);
        }
    }
}

// Characters that only one of the two writings has, of words that are frequent here.
TEST(LanguageFilesTest, ChineseIsWrittenInItsOwnCharacters) {
    const String traditional =
        u"戶號稱幣長倉狀態類別貨權認購沽價後結約數單現與專業確將過買賣開關時間週";
    const String simplified =
        u"户号称币长仓状态类别货权认购沽价后结约数单现与专业确将过买卖开关时间周";
    ASSERT_EQ(traditional.size(), simplified.size());
    for (const char* language : ChineseLanguages) {
        const bool isTraditional = language == std::string("zh-Hant");
        const String& own = isTraditional ? traditional : simplified;
        const String& other = isTraditional ? simplified : traditional;
        for (const auto& [key, text] : Texts(language)) {
            const String wide = FromUtf8(text.Text);
            const bool isChinese = std::any_of(wide.begin(), wide.end(), [](Char unit) {
                return unit >= 0x3000 || (unit >= u'0' && unit <= u'9'); // or a bare figure
            });
            EXPECT_TRUE(isChinese) << language << " " << Show(key) << " is not translated";
            for (std::size_t i = 0; i < own.size(); ++i) {
                if (own[i] == other[i]) continue;
                EXPECT_EQ(wide.find(other[i]), String::npos) << language << " " << Show(key);
            }
        }
    }
}

TEST(LanguageFilesTest, CustomColumnsAreTypedFields) {
    const std::set<std::string> types = {"price",   "qty",     "amount", "ratio",
                                         "percent", "integer", "string"};
    const std::set<std::string> fields =
        FindInSource("viewdata/services/FieldNumbers.h", "Integer [A-Za-z0-9]+ = ([0-9]+);");
    std::map<std::string, int> columns;
    for (const auto& [key, text] : Texts("en")) {
        const bool isColumn = key.first == MarketColumns || key.first == AccountColumns;
        EXPECT_EQ(types.count(text.Type), isColumn ? 1u : 0u) << Show(key);
        if (!isColumn) continue;
        ++columns[key.first];
        EXPECT_GE(ToIntegerOr(FromUtf8(key.second), -1), 0) << Show(key);
        if (key.first == MarketColumns) {
            EXPECT_EQ(fields.count(key.second), 1u) << Show(key);
        }
    }
    EXPECT_GE(columns[MarketColumns], 5);
    EXPECT_GE(columns[AccountColumns], 5);
}

TEST(LanguageFilesTest, CodesOfTheUniverseHaveTexts) {
    const std::map<std::string, std::string> tables = {
        {"exchange", "Exchange"}, {"currency", "Currency"}, {"state", "MarketState"}};
    int checked = 0;
    for (const auto& entry : std::filesystem::directory_iterator(DataFolder / "universe")) {
        if (entry.path().extension() != ".csv") continue;
        std::ifstream file(entry.path(), std::ios::binary);
        TCsvReader reader(file);
        ASSERT_TRUE(reader.Next()) << entry.path();
        const std::vector<std::string> head(reader.Fields().begin(), reader.Fields().end());
        while (reader.Next()) {
            for (std::size_t i = 0; i < std::min(head.size(), reader.Fields().size()); ++i) {
                const auto table = tables.find(head[i]);
                const std::string code(reader.Fields()[i]);
                if (table == tables.end() || code.empty()) continue;
                ++checked;
                EXPECT_EQ(Texts("en").count({table->second, code}), 1u)
                    << entry.path() << ":" << reader.Line() << ": " << code;
            }
        }
    }
    EXPECT_GT(checked, 0);
}

} // namespace
} // namespace quorin
