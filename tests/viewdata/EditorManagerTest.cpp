#include "tests/viewdata/EditorFixture.h"

#include "platform/rtl/FormatSettings.h"
#include "platform/widgets/ResourceStrings.h"
#include "viewdata/frame/ColumnInfo.h"
#include "viewdata/services/LibraryLoader.h"
#include "viewdata/services/ResourceKeys.h"

#include <stdexcept>

namespace quorin {
namespace {

// A form with one field of each kind.
struct TEditorManagerTest : TEditorFixture {
    enum TKind { Price, Quantity, Symbol, Account, KindCount };

    TEditorManagerTest() { Start(); }

    void Start() override {
        Kind = Price;
        for (auto& edit : Spins) edit = CreateComponent<TcxSpinEdit>();
        for (auto& edit : Popups) edit = CreateComponent<TcxPopupEdit>();
        for (int kind = 0; kind < KindCount; ++kind) {
            TcxCustomEdit& edit = FieldOfKind(kind);
            edit.SetParent(&Form);
            Traces[kind] = std::make_unique<TEditTrace>(edit, [] { return ""; });
        }
    }
    std::string State() override { return {}; }

    TcxCustomEdit& FieldOfKind(int kind) {
        if (kind < Symbol) return *Spins[kind];
        return *Popups[kind - Symbol];
    }
    void Free(int kind) {
        if (kind < Symbol) return Spins[kind].reset();
        Popups[kind - Symbol].reset();
    }
    void Register(int kind, StringView group) {
        switch (kind) {
        case Price: return Manager().RegisterPriceEditor(Spins[kind].get(), group);
        case Quantity: return Manager().RegisterQuantityEditor(Spins[kind].get(), group);
        case Symbol: return Manager().RegisterSymbolEditor(Popups[0].get(), group, false, true);
        default: return Manager().RegisterAccountEditor(Popups[1].get(), group, false, true);
        }
    }
    void Remove(int kind) {
        switch (kind) {
        case Price: return Manager().RemovePriceEditor(Spins[kind].get());
        case Quantity: return Manager().RemoveQuantityEditor(Spins[kind].get());
        case Symbol: return Manager().RemoveSymbolEditor(Popups[0].get());
        default: return Manager().RemoveAccountEditor(Popups[1].get());
        }
    }
    Integer Registered() { return Services().RegistrationCount(); }
    TcxCustomEdit* Edited() override {
        const bool isThere =
            Kind < Symbol ? Spins[Kind] != nullptr : Popups[Kind - Symbol] != nullptr;
        return isThere ? &FieldOfKind(Kind) : nullptr;
    }

    int Kind = Price;
    std::array<std::unique_ptr<TcxSpinEdit>, 2> Spins;
    std::array<std::unique_ptr<TcxPopupEdit>, 2> Popups;
    std::array<std::unique_ptr<TEditTrace>, KindCount> Traces;
};

TEST_F(TEditorManagerTest, GivesTheFieldBackToTheForm) {
    for (int kind = 0; kind < KindCount; ++kind) {
        SCOPED_TRACE(kind);
        const auto forms = EventsOf(FieldOfKind(kind));
        Manager();
        const Integer before = Registered();
        Remove(kind); // unknown
        Register(kind, u"G");
        Register(kind, u"G");
        EXPECT_NE(EventsOf(FieldOfKind(kind)), forms);
        Remove(kind);
        EXPECT_EQ(EventsOf(FieldOfKind(kind)), forms);
        Remove(kind);
        EXPECT_EQ(EventsOf(FieldOfKind(kind)), forms);
        EXPECT_EQ(Registered(), before);
        Register(kind, u"G");
        Register(kind, u"");
        TEditorManager::ReleaseInstance();
        EXPECT_EQ(EventsOf(FieldOfKind(kind)), forms) << "released";
    }
}

TEST_F(TEditorManagerTest, GivesTheWheelBackIfItIsItsOwn) {
    SetConfig(ConfigKey::EnableMouseWheel, u"N");
    SetConfig(ConfigKey::EnableQtyMouseWheel, u"N");
    for (const int kind : {Price, Quantity}) {
        SCOPED_TRACE(kind);
        TcxCustomEdit& edit = FieldOfKind(kind);
        const TMouseWheelEvent own = edit.OnMouseWheel();
        Register(kind, u"");
        EXPECT_FALSE(edit.OnMouseWheel() == own);
        Remove(kind);
        EXPECT_FALSE(edit.OnMouseWheel());
        Register(kind, u"");
        edit.SetOnMouseWheel(own);
        Remove(kind);
        EXPECT_TRUE(edit.OnMouseWheel() == own) << "the form's, set meanwhile";
    }
}

// Each row acts inside a handler of the form.
TEST_F(TEditorManagerTest, MayLoseTheFieldInsideAHandler) {
    struct TCase {
        int Kind;
        const char* Inside;
        StringView Script;
    };
    // clang-format off
    const TCase cases[] = {
        {Price, "change", u"type:1"}, {Price, "change", u"up"}, {Price, "down", u"type:1"},
        {Price, "up", u"type:1"}, {Price, "validate", u"type:1 leave"}, {Price, "exit", u"leave"},
        {Price, "mousedown", u"press:0 release"}, {Price, "mouseup", u"press:0 release"},
        {Price, "click", u"click:0"}, {Quantity, "change", u"type:1"},
        {Quantity, "press", u"type:1k"}, {Quantity, "change", u"type:k"},
        {Quantity, "validate", u"type:1 leave"}, {Quantity, "exit", u"leave"},
        {Quantity, "mousedown", u"press:0 release"}, {Symbol, "down", u"type:700 return"},
        {Symbol, "change", u"text:700 return"}, {Symbol, "change", u"text:700 leave"},
        {Symbol, "change", u"type:7 return"}, {Symbol, "exit", u"type:700 leave"},
        {Symbol, "enter", u"leave enter type:7"}, {Account, "press", u"type:a"},
        {Account, "change", u"type:a"}, {Account, "exit", u"leave"},
    };
    // clang-format on
    for (const TCase& row : cases) {
        for (const bool frees : {false, true}) {
            SCOPED_TRACE(std::to_string(row.Kind) + " in " + row.Inside + " of " +
                         ToUtf8(row.Script) + (frees ? ", freed" : ", removed"));
            Start();
            Kind = row.Kind;
            Manager();
            const Integer before = Registered();
            const auto forms = EventsOf(FieldOfKind(Kind));
            Edited()->Enter();
            Register(Kind, u"G");
            Do(u"all");
            Traces[Kind]->Take();
            bool acted = false;
            Traces[Kind]->ActsOn = row.Inside;
            Traces[Kind]->Act = [&] {
                acted = true;
                if (frees) {
                    Free(Kind);
                } else {
                    Remove(Kind);
                }
            };
            Do(row.Script);
            EXPECT_TRUE(acted);
            EXPECT_EQ(Registered(), before);
            EXPECT_TRUE(frees || EventsOf(FieldOfKind(Kind)) == forms);
            const std::string words = " " + Traces[Kind]->Take();
            const bool isLast = words.substr(words.rfind(' ') + 1).starts_with(row.Inside);
            EXPECT_TRUE(!frees || isLast) << "heard of a dead field:" << words;
        }
    }
}

// A quantity field rounds the fraction that stands in it, a symbol field decorates its code.
TEST_F(TEditorManagerTest, MayLoseTheFieldWhileItIsRegistered) {
    for (const int kind : {Quantity, Symbol}) {
        for (const bool frees : {false, true}) {
            SCOPED_TRACE(std::to_string(kind) + (frees ? ", freed" : ", removed"));
            Start();
            Manager();
            const Integer before = Registered();
            Spins[Quantity]->Properties().SetValueType(TcxSpinEditValueType::Float);
            Spins[Quantity]->SetEditValue(1.5);
            Popups[0]->SetText(u"00700");
            Popups[0]->SetHint(u"00700");
            const auto forms = EventsOf(FieldOfKind(kind));
            Traces[kind]->Take();
            Traces[kind]->ActsOn = "change";
            Traces[kind]->Act = [&] { frees ? Free(kind) : Remove(kind); };
            Register(kind, u"");
            EXPECT_EQ(Traces[kind]->Take(), "change:");
            EXPECT_EQ(Registered(), before);
            EXPECT_TRUE(frees || EventsOf(FieldOfKind(kind)) == forms);
        }
    }
}

TEST_F(TEditorManagerTest, ForgetsFieldsThatDie) {
    Manager();
    const Integer before = Registered();
    for (int kind = 0; kind < KindCount; ++kind) {
        SCOPED_TRACE(kind);
        Register(kind, u"G");
        EXPECT_EQ(Registered() > before, kind != Quantity);
        Free(kind);
        EXPECT_EQ(Registered(), before);
    }
    SetConfig(ConfigKey::EnableMouseWheel, u"N"); // walks all records
    TCustomGlobalChannelManager::GetInstance()->PublishValue(Channel::CurrentSymbol, u"00700", {},
                                                             u"G");
}

TEST_F(TEditorManagerTest, LooksUpColumns) {
    using TColumn = std::pair<Integer, StringView>;
    std::vector<std::unique_ptr<TColumnInfo>> columns;
    TColumnList list;
    for (const auto& [id, key] : {TColumn{5, u"Five"}, TColumn{6, u""}, TColumn{7, u"6"},
                                  TColumn{8, u"Five"}, TColumn{5, u"Again"}}) {
        columns.push_back(TColumnInfo::AddColumn(id, u"Caption", 80, key, false));
        list.Add(columns.back().get());
    }
    for (const auto& [id, key] : {TColumn{5, u"Five"}, TColumn{6, u"6"}, TColumn{-1, u"five"},
                                  TColumn{-1, u"5"}, TColumn{-1, u""}, TColumn{5, u"Again"}}) {
        EXPECT_EQ(TEditorManager::GetColumnIDByKey(key, &list), id) << ToUtf8(key);
    }
    EXPECT_EQ(TEditorManager::GetColumnIDByKey(u"Five", nullptr), -1);
    const std::pair<Integer, StringView> keys[] = {{5, u"Five"}, {6, u""}, {7, u"6"}, {9, u""}};
    for (const auto& [id, key] : keys) {
        EXPECT_EQ(TEditorManager::GetColumnKeyByID(id, &list), key) << id;
    }
    EXPECT_EQ(TEditorManager::GetColumnKeyByID(5, nullptr), u"");
}

TEST_F(TEditorManagerTest, ConvertsSymbolsByALibrary) {
    struct TCase {
        const char* Name;
        String Symbol;
        String Converted;
    };
    const TCase cases[] = {
        {"mapped", u"00700", u"X00700"},
        {"empty", u"", u""},
        {"no answer", u"NOTHING", u"NOTHING"},
        {"nil", u"NULL", u"NULL"},
        {"longest", u"LONG", String(255, u'L')},
        {"text of its own", u"OWN", u"\u00C4OWN"},
        {"one byte", u"\u00C9", u"X\u00C9"},
        {"no byte", u"A\u0100", u"A\u0100"},
        {"no end in the buffer", u"ENDLESS", String(256, u'E')},
        {"nor behind its beginning", u"INSIDE", String(255, u'I')},
    };
    SetConfig(ConfigKey::SymbolmapDLL, u"quorin-conversion-good.so");
    for (const TCase& row : cases) {
        EXPECT_EQ(ToUtf8(Manager().GetConvertSymbol(row.Symbol)), ToUtf8(row.Converted))
            << row.Name;
    }
    Kind = Symbol;
    Register(Symbol, u"");
    Edited()->Enter();
    Do(u"type:700 return");
    EXPECT_EQ(ToUtf8(Edited()->Hint()), "X00700") << "the padded code";
    TEditorManager::ReleaseInstance();
    TEditorManager another;
    SetConfig(ConfigKey::SymbolmapDLL, u""); // for any manager from here on
    another.RegisterSymbolEditor(Popups[0].get(), u"", false, true);
    Do(u"all type:5 return");
    EXPECT_EQ(ToUtf8(Edited()->Hint()), "X00005") << "its own manager's library";
}

struct TThrowingLoader : TCustomLibraryLoader {
    Pointer LoadLibrary(StringView) override { throw std::runtime_error("no disk"); }
    Pointer FindExport(Pointer, const char*) override { return {}; }
};

TEST_F(TEditorManagerTest, PassesSymbolsOnWithoutALibrary) {
    SetConfig(ConfigKey::SymbolmapDLL, u"quorin-conversion-broken.so");
    Host().ExpectLogLine(
        u"Can not find mapping function in symbol map DLL:quorin-conversion-broken.so");
    EXPECT_EQ(Manager().GetConvertSymbol(u"700"), u"700");
    for (const StringView missing : {u"", u"no-such-library.so"}) {
        TEditorManager::ReleaseInstance();
        SetConfig(ConfigKey::SymbolmapDLL, missing);
        EXPECT_EQ(Manager().GetConvertSymbol(u"700"), u"700") << ToUtf8(missing);
    }
    TEditorManager::ReleaseInstance();
    TCustomLibraryLoader* const loader = TCustomLibraryLoader::GetInstance();
    TThrowingLoader throwing;
    ServiceRegistry::Install(&throwing);
    Host().ExpectLogLine(u"Load symbol map DLL no-such-library.so failed: no disk");
    EXPECT_EQ(Manager().GetConvertSymbol(u"700"), u"700");
    ServiceRegistry::Install(loader);
}

// The texts that widgets bring along, in the order of their keys, and the names of days and months.
std::string WidgetTexts() {
    std::string texts;
    const auto add = [&texts](const String& text) { texts += ToUtf8(text) + "|"; };
    for (int target = static_cast<int>(scxGridFindPanelClearButtonCaption);
         target <= static_cast<int>(cxSDatePopupNow); ++target) {
        add(cxGetResourceString(static_cast<TcxResourceString>(target)));
    }
    for (const String& name : FormatSettings().ShortDayNames) add(name);
    for (const String& name : FormatSettings().ShortMonthNames) add(name);
    return texts;
}

TEST_F(TEditorManagerTest, WritesTheTextsOfWidgets) {
    // Without their "Res_"; an empty one for each place 0.
    const String names = u"Find_Clear Find_Find Search_Hints Filter_Equals Filter_NotEqual "
                         u"Filter_Contains Filter_NotContain Filter_Greater Filter_GreaterOrEqual "
                         u"Filter_Less Filter_LessOrEqual Filter_Between Filter_NotBetween "
                         u"Filter_And Filter_Or Today OK_Btn Cancel_Btn Clear Now  Sun Mon Tue Wed "
                         u"Thur Fri Sat  Jan Feb Mar Apr May Jun Jul Aug Sep Oct Nov Dec";
    TEmbeddedLanguageManager& language = Services().Language();
    std::string marked;
    for (const StringView name : Split(names, u' ')) {
        const String key = u"Res_" + String(name);
        if (!name.empty()) {
            language.SetText(TAppLanguage::SimplifiedChinese, Const_ResourceStringTag, key, key);
        }
        marked += (name.empty() ? "" : ToUtf8(key)) + "|";
    }
    Manager();
    const std::string english = WidgetTexts();
    language.SetLanguage(TAppLanguage::SimplifiedChinese);
    EXPECT_EQ(WidgetTexts(), marked);
    cxSetResourceString(cxSDatePopupToday, u"mine");
    Manager().RefreshResourceLabel();
    EXPECT_EQ(cxGetResourceString(cxSDatePopupToday), u"mine") << "the same language writes once";
    language.SetLanguage(TAppLanguage::English);
    EXPECT_EQ(WidgetTexts(), english);
    language.SetText(TAppLanguage::English, Const_ResourceStringTag, u"Res_Today", {});
    language.SetLanguage(TAppLanguage::SimplifiedChinese);
    language.SetLanguage(TAppLanguage::English);
    EXPECT_EQ(cxGetResourceString(cxSDatePopupToday), u"") << "no text of its own comes back";
}

TEST_F(TEditorManagerTest, SharesSevenPictures) {
    TIImageResourceList& list = *TIImageResourceList::GetInstance();
    EXPECT_EQ(&list, TIImageResourceList::GetInstance());
    EXPECT_EQ(list.Width(), 320);
    EXPECT_EQ(list.Height(), 240);
    TcxImageList& images = list.DefaultImageList();
    ASSERT_EQ(images.Count(), 7);
    constexpr std::uint32_t alpha = 0xFF000000u;
    constexpr std::uint32_t white = 0xFFFFFFu;
    for (Integer index = 0; index < images.Count(); ++index) {
        SCOPED_TRACE(index);
        TcxImage image;
        ASSERT_TRUE(images.GetImage(index, image));
        EXPECT_EQ(image.Width, 16);
        EXPECT_EQ(image.Height, 16);
        ASSERT_EQ(image.Pixels.size(), 256u);
        const bool isSeen = std::any_of(image.Pixels.begin(), image.Pixels.end(),
                                        [](std::uint32_t pixel) { return (pixel & alpha) != 0; });
        EXPECT_EQ(isSeen, index != ResourceImage::Empty);
        EXPECT_EQ(images.MaskColor(index) == white, index == ResourceImage::Empty);
        EXPECT_EQ(images.MaskColor(index).has_value(), index == ResourceImage::Empty);
    }
    TcxImage none;
    EXPECT_FALSE(images.GetImage(7, none));
}

} // namespace
} // namespace quorin
