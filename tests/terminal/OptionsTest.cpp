#include "terminal/console/Options.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace quorin {
namespace {

TCommandLine Parse(std::vector<const char*> words) {
    words.insert(words.begin(), "quorin-console");
    return ParseCommandLine(static_cast<int>(words.size()), words.data());
}

TEST(OptionsTest, TakesEveryWord) {
    const TCommandLine line =
        Parse({"--text", "--replay", "a.csv", "--poll", "1", "--exchange", "HKFE", "--frames", "3",
               "--rows=7", "--settings", "b.ini", "--sides", "c.csv", "--trades", "\xE9\xA8\xB0"});
    ASSERT_TRUE(line.Options.has_value()) << line.Error;
    EXPECT_EQ(line.Options->Replay, "a.csv");
    EXPECT_EQ(line.Options->PollInterval, 1.0);
    EXPECT_EQ(line.Options->Exchange, u"HKFE");
    EXPECT_EQ(line.Options->Frames, 3);
    EXPECT_EQ(line.Options->Rows, 7);
    EXPECT_EQ(line.Options->Settings, "b.ini");
    EXPECT_EQ(line.Options->Sides, "c.csv");
    EXPECT_EQ(line.Options->TradesSymbol, u"\u9A30");

    const TCommandLine form =
        Parse({"--form", "accounttree", "--account", "C30001", "--aggregate"});
    ASSERT_TRUE(form.Options.has_value()) << form.Error;
    EXPECT_EQ(form.Options->Form, TFrameForm::AccountTree);
    EXPECT_EQ(form.Options->Account, u"C30001");
    EXPECT_TRUE(form.Options->IsAggregated);
    EXPECT_EQ(form.Options->Rows, 1000); // all of them

    const TCommandLine script = Parse({"--script", "s.txt", "--answer", "yes"});
    ASSERT_TRUE(script.Options.has_value()) << script.Error;
    EXPECT_EQ(script.Options->Script, "s.txt");
    EXPECT_EQ(script.Options->Answer, true);

    const TCommandLine venue =
        Parse({"--seed", "9223372036854775807", "--universe", "u.csv", "--language", "2",
               "--logged-out", "--market-ready", "3", "--accounts-ready", "4", "--single-currency",
               "--no-china-connect"});
    ASSERT_TRUE(venue.Options.has_value()) << venue.Error;
    EXPECT_EQ(venue.Options->Seed, 9223372036854775807u);
    EXPECT_EQ(venue.Options->Universe, "u.csv");
    EXPECT_EQ(venue.Options->Language, TAppLanguage::SimplifiedChinese);
    EXPECT_EQ(venue.Options->MarketReadyAfter, 3);
    EXPECT_EQ(venue.Options->Switches.AccountsReadyAfter, 4);
    EXPECT_TRUE(venue.Options->Switches.LoggedOut);
    EXPECT_TRUE(venue.Options->Switches.SingleCurrency);
    EXPECT_TRUE(venue.Options->Switches.NoChinaConnect);
}

TEST(OptionsTest, RefusesInOneLine) {
    const struct {
        const char* Name;
        std::vector<const char*> Words;
    } cases[] = {
        {"unknown option", {"--bogus", "1"}},
        {"seed of a recording", {"--replay", "a.csv", "--seed", "1"}},
        {"universe of a recording", {"--replay", "a.csv", "--universe", "u.csv"}},
        {"seed below nothing", {"--seed", "-1"}},
        {"language that does not exist", {"--language", "3"}},
        {"ready in the past", {"--market-ready", "-1"}},
        {"word without option", {"a.csv"}},
        {"value missing", {"--poll"}},
        {"poll of nothing", {"--poll", "0"}},
        {"poll below nothing", {"--poll", "-0.25"}},
        {"poll below a nanosecond", {"--poll", "1e-10"}},
        {"poll no number", {"--poll", "fast"}},
        {"poll not finite", {"--poll", "inf"}},
        {"poll nan", {"--poll", "nan"}},
        {"no frames", {"--frames", "0"}},
        {"frames with a fraction", {"--frames", "1.5"}},
        {"frames too large", {"--frames", "99999999999"}},
        {"no rows", {"--rows", "0"}},
        {"line break in a value", {"--poll", "1\n2"}},
        {"empty file name", {"--replay", ""}},
        {"empty exchange", {"--exchange", ""}},
        {"symbol in no valid text", {"--trades", "\xFF"}},
        {"twice", {"--poll", "1", "--poll", "2"}},
    };
    for (const auto& row : cases) {
        const TCommandLine line = Parse(row.Words);
        EXPECT_FALSE(line.Options.has_value()) << row.Name;
        EXPECT_EQ(line.ExitStatus, 2) << row.Name;
        EXPECT_FALSE(line.Error.empty()) << row.Name;
        EXPECT_EQ(line.Error.find('\n'), std::string::npos) << row.Name;
        EXPECT_NE(line.Error.find("usage: "), std::string::npos) << row.Name;
        EXPECT_EQ(line.Output, "") << row.Name;
    }
}

TEST(OptionsTest, HelpNamesTheOptions) {
    const TCommandLine line = Parse({"--help"});
    EXPECT_FALSE(line.Options.has_value());
    EXPECT_EQ(line.ExitStatus, 0);
    EXPECT_EQ(line.Error, "");
    const std::string all = "--text --replay --poll --exchange --frames --rows --settings --sides "
                            "--trades --seed --universe --language --logged-out --market-ready "
                            "--accounts-ready --single-currency --no-china-connect --script "
                            "--answer underlyer";
    std::istringstream options(all);
    for (std::string option; options >> option;) {
        EXPECT_NE(line.Output.find(option), std::string::npos) << option;
    }
}

} // namespace
} // namespace quorin
