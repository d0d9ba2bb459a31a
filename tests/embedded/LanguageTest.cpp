#include "embedded/LanguageService.h"

#include "embedded/DataError.h"
#include "tests/support/ServicesFixture.h"
#include "tests/support/TempFile.h"
#include "viewdata/services/ResourceKeys.h"

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace quorin {
namespace {

using namespace std::string_view_literals;

String Text(const TCustomLanguageManager& language, StringView tag, StringView key,
            TAppLanguage wanted = TAppLanguage::None) {
    return language.GetResourceString(tag, key, wanted, 0, nullptr);
}

class LanguageServiceTest : public TServicesFixture {};

TEST(LanguageBoundsTest, ALanguageThatDoesNotExistReadsEnglish) {
    TEmbeddedLanguageManager manager;
    manager.SetText(TAppLanguage::English, u"T", u"K", u"text");
    EXPECT_EQ(manager.GetResourceString(u"T", u"K", static_cast<TAppLanguage>(200), 0, nullptr),
              u"text");
}

TEST_F(LanguageServiceTest, TextsThatTheViewsFillIn) {
    const TEmbeddedLanguageManager& language = Services().Language();
    const String question = Text(language, Const_ResourceStringTag, ResourceKey::Res_MaxOrdQty);
    EXPECT_NE(question.find(u"%1s"), String::npos);
    EXPECT_NE(question.find(u"%2s"), String::npos);
    EXPECT_NE(Text(language, ResourceTag::Exchange, u"SEHK"), u"");
    EXPECT_NE(Text(language, ResourceTag::Currency, u"HKD"), u"");
    EXPECT_NE(Text(language, ResourceTag::MarketState, u"CT"), u"");
}

TEST_F(LanguageServiceTest, MessageCodesShowTheirTextOrThemselves) {
    TCustomMessageBoxCtrl& box = *TCustomMessageBoxCtrl::GetInstance();
    Host().ExpectMessage(u"This account is not known.");
    box.ShowMessageCode(nullptr, Variant(UnknownAccountCode), u"", nullptr, nullptr);
    Host().ExpectMessage(u"XX1");
    box.ShowMessageCode(nullptr, Variant(u"XX1"), u"", nullptr, nullptr);
}

TEST(LanguageTest, LookUps) {
    TEmbeddedLanguageManager language;
    const TTempFile english("table,key,text,type\r\n"
                            "T,a,\"one, two\",qty\r\n"
                            "T,b,only here,\r\n");
    const TTempFile chinese("\xEF\xBB\xBFtable,key,text,type\n"
                            "T,a,\xE4\xB8\x80,price\n");
    language.Load(TAppLanguage::English, english.Path());
    language.Load(TAppLanguage::TraditionalChinese, chinese.Path());

    struct TCase {
        const char* Name;
        StringView Tag;
        StringView Key;
        TAppLanguage Language;
        StringView Text;
    };
    const TCase cases[] = {
        {"language in force", u"T", u"a", TAppLanguage::None, u"one, two"},
        {"another language", u"T", u"a", TAppLanguage::TraditionalChinese, u"一"},
        {"English instead", u"T", u"b", TAppLanguage::TraditionalChinese, u"only here"},
        {"language without texts", u"T", u"a", TAppLanguage::SimplifiedChinese, u"one, two"},
        {"unknown key", u"T", u"c", TAppLanguage::None, u""},
        {"case counts", u"T", u"A", TAppLanguage::None, u""},
        {"empty key", u"T", u"", TAppLanguage::None, u""},
        {"unknown table", u"U", u"a", TAppLanguage::None, u""},
    };
    for (const TCase& row : cases) {
        EXPECT_EQ(Text(language, row.Tag, row.Key, row.Language), row.Text) << row.Name;
    }
    language.SetLanguage(TAppLanguage::TraditionalChinese);
    EXPECT_EQ(Text(language, u"T", u"a"), u"一");
    EXPECT_EQ(language.GetResourceAttribute(u"T", u"a", u"type"), u"qty") << "in every language";
    EXPECT_EQ(language.GetResourceAttribute(u"T", u"b", u"type"), u"");
    EXPECT_EQ(language.GetResourceAttribute(u"T", u"a", u"width"), u"");
}

TEST(LanguageTest, CallbackOnlyForAnotherLanguage) {
    TEmbeddedLanguageManager language;
    TCountingReceiver receiver;
    language.RegisterLanguageCallback(receiver.Event(), &receiver);
    language.SetLanguage(TAppLanguage::English);
    language.SetLanguage(TAppLanguage::None);
    EXPECT_EQ(receiver.Count(), 0);
    language.SetLanguage(TAppLanguage::SimplifiedChinese);
    EXPECT_EQ(receiver.Count(), 1);
    EXPECT_EQ(language.GetCurrentLanguage(), TAppLanguage::SimplifiedChinese);
}

// Owner of a callback that reads a text inside the call, as a view does that is shown anew.
class TReadingView : public TObject {
public:
    explicit TReadingView(TEmbeddedLanguageManager& language) : FLanguage(language) {
        FLanguage.RegisterLanguageCallback(MakeEvent<&TReadingView::Refresh>(this), this);
    }
    ~TReadingView() override { FLanguage.RemoveLanguageCallback(this); }
    const String& Shown() const { return FShown; }

private:
    void Refresh(Pointer, Pointer) { FShown += Text(FLanguage, u"T", u"a") + u";"; }

    TEmbeddedLanguageManager& FLanguage;
    String FShown;
};

TEST(LanguageTest, SwitchingAtRunTimeShowsTheNewTextsOnce) {
    TEmbeddedLanguageManager language;
    language.SetText(TAppLanguage::English, u"T", u"a", u"bid");
    language.SetText(TAppLanguage::TraditionalChinese, u"T", u"a", u"買入");
    language.SetText(TAppLanguage::SimplifiedChinese, u"T", u"a", u"买入");
    const TReadingView view(language);
    for (const TAppLanguage next : {TAppLanguage::TraditionalChinese, TAppLanguage::None,
                                    TAppLanguage::SimplifiedChinese, TAppLanguage::English}) {
        language.SetLanguage(next);
    }
    EXPECT_EQ(view.Shown(), u"買入;买入;bid;");
}

TEST(LanguageTest, DeliveredTextsSwitchOnceForEveryOwner) {
    TEmbeddedLanguageManager language;
    language.LoadFolder(QUORIN_DATA_DIR "/language");
    TCountingReceiver first;
    TCountingReceiver second;
    language.RegisterLanguageCallback(first.Event(), &first);
    language.RegisterLanguageCallback(first.Event(), &first);
    language.RegisterLanguageCallback(second.Event(), &second);
    language.SetLanguage(TAppLanguage::SimplifiedChinese);
    EXPECT_EQ(first.Count(), 1);
    EXPECT_EQ(second.Count(), 1);
    EXPECT_EQ(Text(language, Const_ResourceStringTag, ResourceKey::Res_Put), u"认沽");
    language.SetLanguage(TAppLanguage::TraditionalChinese);
    EXPECT_EQ(Text(language, Const_ResourceStringTag, ResourceKey::Res_Put), u"認沽");
    language.SetLanguage(TAppLanguage::English);
    EXPECT_EQ(Text(language, Const_ResourceStringTag, ResourceKey::Res_Put), u"Put");
    EXPECT_EQ(first.Count(), 3);
}

// The folder of a test's language files.
class TTempFolder {
public:
    TTempFolder() : FPlace(""), FPath(FPlace.Path().string() + ".d") {
        std::filesystem::create_directory(FPath);
    }
    TTempFolder(const TTempFolder&) = delete;
    TTempFolder& operator=(const TTempFolder&) = delete;
    ~TTempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(FPath, ignored);
    }
    const std::filesystem::path& Path() const { return FPath; }
    void Write(const char* name, std::string_view content) const {
        std::ofstream(FPath / name, std::ios::binary) << content;
    }

private:
    TTempFile FPlace;
    std::filesystem::path FPath;
};

TEST(LanguageTest, FolderIsLoadedAsAWholeOrNotAtAll) {
    const TTempFolder folder;
    folder.Write("en.csv", "table,key,text,type\nT,a,new,\n");
    folder.Write("zh-Hant.csv", "table,key,text,type\nT,a,\xE6\x96\xB0,\n");
    folder.Write("zh-Hans.csv", "table,key,text,type\nT,a\n");
    TEmbeddedLanguageManager language;
    language.SetText(TAppLanguage::English, u"T", u"a", u"before");
    EXPECT_THROW(language.LoadFolder(folder.Path()), EDataError);
    EXPECT_EQ(Text(language, u"T", u"a", TAppLanguage::English), u"before");
    EXPECT_EQ(Text(language, u"T", u"a", TAppLanguage::TraditionalChinese), u"before");

    std::filesystem::remove(folder.Path() / "zh-Hans.csv");
    language.LoadFolder(folder.Path());
    EXPECT_EQ(Text(language, u"T", u"a", TAppLanguage::English), u"new");
    EXPECT_EQ(Text(language, u"T", u"a", TAppLanguage::TraditionalChinese), u"新");

    std::filesystem::remove(folder.Path() / "en.csv");
    EXPECT_THROW(language.LoadFolder(folder.Path()), EDataError) << "English must be there";
}

TEST(LanguageTest, DamagedFileIsRefusedWithItsLine) {
    struct TCase {
        const char* Name;
        std::string_view Content;
        const char* Line;
    };
    const TCase cases[] = {
        {"empty", "", ":1: "},
        {"another head", "table,key,text\nT,a,x\n", ":1: "},
        {"a field too few", "table,key,text,type\nT,a,x,\nT,b\n", ":3: "},
        {"no key", "table,key,text,type\nT,,x,\n", ":2: "},
        {"no table", "table,key,text,type\n,a,x,\n", ":2: "},
        {"a key twice", "table,key,text,type\nT,a,x,\nT,a,y,\n", ":3: "},
        {"an open quote", "table,key,text,type\nT,a,\"x,\n", ":2: "},
        {"no UTF-8", "table,key,text,type\nT,a,\xFF,\n", ":2: "},
        {"nothing but the head", "table,key,text,type\n", ":2: "},
        {"a head in another order", "key,table,text,type\nT,a,x,\n", ":1: "},
        {"no head", "T,a,x,\n", ":1: "},
        {"a field too many", "table,key,text,type\nT,a,x,,\n", ":2: "},
        {"an empty line", "table,key,text,type\nT,a,x,\n\nT,b,x,\n", ":3: "},
        {"a key twice, other fields between", "table,key,text,type\nT,a,x,\nU,a,x,\nT,a,x,\n",
         ":4: "},
        {"cut off in a record", "table,key,text,type\nT,a,x,\nT,b,half a te", ":3: "},
        {"cut off in a character", "table,key,text,type\nT,a,\xE8\xB2", ":2: "},
        {"text behind a quote", "table,key,text,type\nT,a,\"x\"y,\n", ":2: "},
        {"zero bytes", "table,key,text,type\nT,a,x\0y,\n"sv, ":2: "},
        {"control characters", "table,key,text,type\nT,a,x\x1By,\n", ":2: "},
        {"a packed file", "\x1F\x8B\x08\0\0\0\0\0\0\x03"sv, ":1: "},
        {"UTF-16", "\xFF\xFEt\0a\0b\0l\0e\0,\0"sv, ":1: "},
    };
    for (const TCase& row : cases) {
        const TTempFile file(row.Content);
        TEmbeddedLanguageManager language;
        language.SetText(TAppLanguage::English, u"T", u"a", u"before");
        try {
            language.Load(TAppLanguage::English, file.Path());
            ADD_FAILURE() << row.Name;
        } catch (const EDataError& error) {
            const std::string message = error.what();
            EXPECT_EQ(message.find(file.Path().string() + row.Line), 0u)
                << row.Name << ": " << message;
            EXPECT_EQ(message.find('\n'), std::string::npos) << row.Name;
        }
        EXPECT_EQ(Text(language, u"T", u"a"), u"before") << row.Name;
    }
}

} // namespace
} // namespace quorin
