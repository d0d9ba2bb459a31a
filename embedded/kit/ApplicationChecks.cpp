#include "embedded/kit/ContractKit.h"
#include "embedded/kit/RegistrationRules.h"

#include "platform/rtl/Numbers.h"

namespace quorin {

namespace {

constexpr StringView TestSection = u"contract-kit";
constexpr StringView TestKey = u"Setting";

struct TSettingRow {
    StringView Text;
    Integer Number;
    bool Flag;
};
constexpr TSettingRow Settings[] = {
    {u"1", 1, true},      {u"0", 0, false},   {u"-3", -3, true},  {u"Y", 0, true},
    {u"yes", 0, true},    {u"true", 0, true}, {u"T", 0, true},    {u"N", 0, false},
    {u"false", 0, false}, {u"12x", 0, false}, {u"1.5", 0, false}, {u"99999999999", 0, false},
    {u"text", 0, true},   {u"a b", 0, false},
};

constexpr StringView TestTable = u"ContractKit";
constexpr StringView TestEntry = u"Entry";
constexpr StringView TypeAttribute = u"type";

} // namespace

void CheckConfigManager(TConfigDriver& driver, TContractReport& report) {
    TChecker check(report, u"ConfigManager");
    TCustomConfigManager& service = driver.Service();
    const String section = service.GetCurrentSection();
    driver.Set(TestSection, TestKey, {});
    driver.Set(TestSection, u"Other", u"1");
    driver.Deliver();
    const auto expectAbsent = [&](StringView in, StringView key) {
        const String where = String(in) + u"/" + String(key);
        check.Reads(u"an absent key reads empty", {}, service.ReadString(in, key), where);
        check.Equal(u"an absent key reads 0", 0, service.ReadInteger(in, key), where);
        check.False(u"an absent key reads false", service.ReadBool(in, key), where);
    };
    expectAbsent(TestSection, TestKey);
    expectAbsent(u"no such section", u"Other");
    expectAbsent(TestSection, {});
    expectAbsent({}, {});
    for (const TSettingRow& row : Settings) {
        driver.Set(TestSection, TestKey, row.Text);
        driver.Deliver();
        const String where = ShowValue(row.Text);
        check.Reads(u"ReadString gives the text as it stands", row.Text,
                    service.ReadString(TestSection, TestKey));
        check.Equal(u"ReadInteger gives a whole number, 0 for any other text", row.Number,
                    service.ReadInteger(TestSection, TestKey), where);
        check.Equal(u"ReadBool is true for Y, T and whole numbers other than 0", row.Flag,
                    service.ReadBool(TestSection, TestKey), where);
    }
    check.Reads(u"settings leave the current section as it is", section,
                service.GetCurrentSection());

    Integer serial = 0;
    const auto change = [&] { driver.Set(TestSection, TestKey, IntegerToText(++serial)); };
    TCallRecorder& recorder = check.NewRecorder();
    service.RegisterConfigCallback(recorder.Event(), recorder.Owner());
    change();
    driver.Deliver();
    driver.Set(TestSection, TestKey, IntegerToText(serial));
    driver.Deliver();
    check.Equal(u"the same value again is no change", 1, recorder.Count());
    String seen;
    recorder.OnCall([&](Pointer) { seen = service.ReadString(TestSection, TestKey); });
    change();
    driver.Deliver();
    check.Reads(u"a callback reads the new value", IntegerToText(serial), seen);
    recorder.OnCall(nullptr);
    service.RemoveConfigCallback(recorder.Owner());

    CheckRegistrationRules(check, driver,
                           {.Name = u"RegisterConfigCallback",
                            .Register =
                                [&](TCallRecorder& receiver, TObject* owner) {
                                    service.RegisterConfigCallback(receiver.Event(), owner);
                                },
                            .Remove = [&](TObject* owner) { service.RemoveConfigCallback(owner); },
                            .Change = change,
                            .Inspect = InspectNil});
    driver.Set(TestSection, TestKey, {});
    driver.Set(TestSection, u"Other", {});
    driver.Deliver();
    expectAbsent(TestSection, TestKey);
}

void CheckLanguageManager(TLanguageDriver& driver, TContractReport& report) {
    TChecker check(report, u"LanguageManager");
    TCustomLanguageManager& service = driver.Service();
    struct TTextRow {
        TAppLanguage Language;
        StringView Text;
    };
    const TTextRow texts[] = {{TAppLanguage::English, u"Text"},
                              {TAppLanguage::TraditionalChinese, u"繁體"},
                              {TAppLanguage::SimplifiedChinese, u"简体"}};
    for (const TTextRow& row : texts) {
        driver.FeedText(row.Language, TestTable, TestEntry, row.Text, u"price");
    }
    driver.Deliver();
    const auto text = [&](StringView tag, StringView key, TAppLanguage language) {
        return service.GetResourceString(tag, key, language, 0, nullptr);
    };
    const TAppLanguage before = service.GetCurrentLanguage();
    check.True(u"the language in force is a particular one", before != TAppLanguage::None);
    Integer switches = 0;
    TCallRecorder& recorder = check.NewRecorder();
    service.RegisterLanguageCallback(recorder.Event(), recorder.Owner());
    for (const TTextRow& row : texts) {
        if (service.GetCurrentLanguage() != row.Language) ++switches;
        driver.SetLanguage(row.Language);
        driver.Deliver();
        const String where = u"language " + ShowValue(static_cast<Integer>(row.Language));
        check.True(u"GetCurrentLanguage is what was switched to",
                   service.GetCurrentLanguage() == row.Language, where);
        check.Reads(u"no particular language gives the one in force", row.Text,
                    text(TestTable, TestEntry, TAppLanguage::None), where);
        for (const TTextRow& other : texts) {
            check.Reads(u"a particular language gives its own text", other.Text,
                        text(TestTable, TestEntry, other.Language), where);
        }
        const StringView absent = u"an absent table, entry or empty key gives empty text";
        check.Reads(absent, {}, text(TestTable, u"no such entry", TAppLanguage::None), where);
        check.Reads(absent, {}, text(u"no such table", TestEntry, TAppLanguage::None), where);
        check.Reads(absent, {}, text(TestTable, {}, TAppLanguage::None), where);
        check.Reads(absent, {}, text({}, {}, TAppLanguage::None), where);
        check.Reads(u"an attribute is the same in every language", u"price",
                    service.GetResourceAttribute(TestTable, TestEntry, TypeAttribute), where);
        const StringView noAttribute = u"an absent attribute gives empty text";
        check.Reads(noAttribute, {},
                    service.GetResourceAttribute(TestTable, TestEntry, u"no such attribute"));
        check.Reads(noAttribute, {},
                    service.GetResourceAttribute(TestTable, u"no such entry", TypeAttribute));
        check.Reads(noAttribute, {},
                    service.GetResourceAttribute(u"no such table", TestEntry, TypeAttribute));
    }
    check.Equal(u"a switch of the language is told of", switches, recorder.Count());
    driver.SetLanguage(service.GetCurrentLanguage());
    driver.Deliver();
    check.Equal(u"the same language again is no change", switches, recorder.Count());
    service.RemoveLanguageCallback(recorder.Owner());

    const auto change = [&] {
        const bool isEnglish = service.GetCurrentLanguage() == TAppLanguage::English;
        driver.SetLanguage(isEnglish ? TAppLanguage::SimplifiedChinese : TAppLanguage::English);
    };
    CheckRegistrationRules(
        check, driver,
        {.Name = u"RegisterLanguageCallback",
         .Register =
             [&](TCallRecorder& receiver, TObject* owner) {
                 service.RegisterLanguageCallback(receiver.Event(), owner);
             },
         .Remove = [&](TObject* owner) { service.RemoveLanguageCallback(owner); },
         .Change = change,
         .Inspect = InspectNil});
    driver.SetLanguage(before);
    driver.Deliver();
}

} // namespace quorin
