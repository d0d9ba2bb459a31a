#include "platform/rtl/Numbers.h"
#include "terminal/console/ListText.h"
#include "terminal/console/ScriptAnswers.h"
#include "terminal/console/TextWidth.h"

namespace quorin {

namespace {

constexpr Char SectionMark = u'/';
constexpr Integer AttributeWidth = 5;
constexpr Integer LanguageCount = 3;

void Step(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream&) {
    for (Integer step = 0; step < arguments.Number(1) && screen.Session().Step(); ++step) {
        screen.Follow();
    }
}

void Set(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream&) {
    TEmbeddedConfigManager& config = screen.Session().Services().Config();
    const String& name = arguments.Word(1);
    const std::size_t mark = name.find(SectionMark);
    const bool hasSection = mark != String::npos;
    const String key = hasSection ? name.substr(mark + 1) : name;
    const String section = hasSection ? name.substr(0, mark) : config.GetCurrentSection();
    if (key.empty() || section.empty()) Fail(u"a setting is KEY or SECTION/KEY");
    config.Set(section, key, arguments.Word(2));
    config.Commit();
}

void Language(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream&) {
    const Integer language = arguments.Number(1);
    if (language >= LanguageCount) Fail(u"there is no language " + IntegerToText(language));
    screen.Session().Services().Language().SetLanguage(static_cast<TAppLanguage>(language));
}

String CellText(TShownForm& list, Integer row, Integer attribute) {
    return KindText(list.Value(row, attribute)) + u" | " + Quoted(list.Text(row, attribute));
}

void Cell(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream& out) {
    TShownForm& list = screen.Last();
    const Integer row = arguments.Number(1);
    CheckRow(list, row);
    PrintAnswer(out, u"cell", CellText(list, row, arguments.Number(2)));
}

void Row(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream& out) {
    TShownForm& list = screen.Last();
    const Integer row = arguments.Number(1);
    CheckRow(list, row);
    for (const Integer attribute : list.Attributes()) {
        const String number = FitText(IntegerToText(attribute), AttributeWidth, TAlign::Right);
        PrintAnswer(out, u"cell", number + u"  " + CellText(list, row, attribute));
    }
}

void Help(TScriptScreen&, const TScriptArguments&, std::ostream& out) {
    out << ScriptHelp();
}

constexpr TScriptCommand Commands[] = {
    {"step COUNT", "goes so many deliveries on", Step},
    {"set KEY VALUE", "changes a setting, KEY or SECTION/KEY; \"\" takes it away", Set},
    {"language N", "0 English, 1 Traditional, 2 Simplified Chinese", Language},
    {"cell ROW ATTRIBUTE", "raw value and text of a cell of the list or tree shown last", Cell},
    {"row ROW", "raw value and text of every column of a row of the list or tree shown last", Row},
    {"help", "prints this", Help},
};

} // namespace

std::span<const TScriptCommand> GeneralCommands() {
    return Commands;
}

} // namespace quorin
