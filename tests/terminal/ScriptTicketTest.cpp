// Order tickets in scripts.

#include "tests/terminal/ScriptPlay.h"

#include <gtest/gtest.h>

namespace quorin {
namespace {

const std::filesystem::path Tickets =
    std::filesystem::path(QUORIN_DATA_DIR) / "scripts" / "ticket.txt";

// A command of the shipped script, the next of its kind, and what one of the lines behind it says.
struct TFact {
    const char* Command;
    const char* Line;
};

constexpr TFact Facts[] = {
    {"type price 1234.5", R"(ticket 1 price    "1,234.5", caret 7, real 1234.5, step 1, focus)"},
    {"key price up", R"("1,235.5", caret 7, real 1235.5)"},
    {"key symbol return", R"(symbol   "00700, HKD, Tencent Holdings", caret 0, "00700", focus)"},
    {"step 1", R"(price    "0", caret 1, real 0, step 0.001)"},
    {"leave symbol", R"(quantity "", caret 0, null, step 100)"},
    {"type symbol hsiz6", R"(symbol   "hsiz6", caret 5, "00700")"},
    {"leave symbol", R"(symbol   "HSIZ6, HKD, HSI Futures Dec26", caret 0, "HSIZ6")"},
    {"type symbol nosuch", R"("HSIZ6", focus)"},
    {"leave symbol", R"(symbol   "NOSUCH", caret 0, "NOSUCH")"},
    {"click symbol", R"(selected "NOSUCH")"},
    {"leave symbol", R"("00700, HKD, Tencent Holdings", caret 0, "00700")"},
    {"click symbol 2", R"(caret 2, "00700", focus)"},
    {"key symbol f4", R"(list of )"},
    {"key symbol escape", R"(caret 28, "00700", focus)"},
    {"type price 601.33", R"("601.33", caret 6, real 601.33, step 0.5)"},
    // The same four steps of time, with and without going on; the step is given back.
    {"hold price up 4", R"("123,515", caret 7, real 123515, step 5)"},
    {"hold price up 4", R"("123,520", caret 7, real 123520, step 5)"},
    {"spin price up", R"("123,525")"},
    {"wheel price -2", R"("123,520")"},
    {"type price 2147483648", R"("0", caret 1, real 2147483648)"},
    {"key price escape", R"(real 123520)"},
    {"type quantity 5k", R"("5,000", caret 5, long 5000, step 100)"},
    {"spin quantity up", R"(long 100)"},
    {"hold quantity up 3", R"(long 400)"},
    {"paste quantity -300", R"(long 0)"},
    {"type account p50001", R"("P50001", caret 6, "")"},
    {"key account return", R"("P50001, [CHN]Chan Tai Man", caret 0, "P50001", focus)"},
    {"key account return", R"(message  This account is not known.)"},
    {"leave account", R"(account  "NOBODY", caret 0, "")"},
    {"leave account", R"(account  "NOONE", caret 5, "", focus)"},
    {"leave account", R"("P50001, [CHN]Chan Tai Man", caret 0, "P50001")"},
    {"leave account", R"(account  "", caret 0, "")"},
    {"layoutaccount C30001", R"("C30001")"},
    {"layoutaccount nobody", R"(account  "", caret 0, "")"},
    {"key account alt+down", R"(list of 12)"},
    {"pick account C30001", R"(caret 0, "C30001", focus)"},
    {"pick symbol 00939", R"(quantity "", caret 0, null, step 1000)"},
    {"type quantity 5k", R"(long 5000)"},
    {"type quantity K", R"("0", caret 1, long 0, step 1000)"},
    // The other ticket follows, and from when groups are kept apart only within its group.
    {"ticket 2", R"(ticket 2 symbol   "00700, HKD, Tencent Holdings")"},
    {"leave symbol", R"(ticket 1 symbol   "00005, HKD, HSBC Holdings")"},
    {"leave symbol", R"(ticket 2 symbol   "", caret 0, "")"},
    {"pick account C30001", R"(ticket 1 account  "C30001)"},
    {"group symbol A", R"(ticket 2 symbol   "00939)"},
    {"group symbol A", R"(ticket 1 symbol   "00939)"},
    {"leave symbol", R"(ticket 2 symbol   "00700)"},
    {"enable symbol", R"(ticket 1 symbol   "00700)"}, // while the other has gone on
    {"type symbol 939", R"("00700", focus)"},
    {"leave symbol", R"(ticket 2 symbol   "00939)"},
    {"language 1", R"(ticket 2 symbol   "00939, HKD, 建設銀行")"},
    {"send buy", R"(report      1 09:30:0)"},
    {"send buy", R"(question Account P50001: Buy 100 of 00700 Tencent Holdings at 640.0?)"},
    {"send buy", R"(Refused      #4 P50001 Buy 100 00700 @ 640.03: Price off the tick)"},
    {"send sell", R"(Refused      #5 P50001 Sell 150 00700 @ 640.0: Not a multiple of the lot)"},
    {"send sell market", R"(Quantity out of range)"},
};

// What stands behind the command from `from` on, which goes on behind that.
std::string Behind(const std::string& out, const std::string& command, std::size_t& from) {
    std::size_t begin = out.find(" " + command + "\n", from);
    while (begin != out.npos && out.rfind("\n> ", begin) < out.rfind('\n', begin)) {
        begin = out.find(" " + command + "\n", begin + 1);
    }
    if (begin == out.npos) return {};
    begin += command.size() + 2;
    from = std::min(out.find("\n> ", begin - 1), out.size());
    return out.substr(begin, from - std::min(from, begin));
}

TEST(ScriptTicketTest, TheShippedScriptShowsWhatFieldsDo) {
    TScriptPlay play(TAnswerBy::Yes);
    const std::string out = play.RunFile(Tickets);
    EXPECT_EQ(play.Wrong, 0) << play.Errors.str();
    std::size_t place = 0;
    for (const TFact& fact : Facts) {
        const std::string shown = Behind(out, fact.Command, place);
        EXPECT_NE(shown.find(fact.Line), shown.npos) << fact.Command << "\n"
                                                     << fact.Line << "\nis not in\n"
                                                     << shown;
    }
    // A field of a group, one that is alone and one that is disabled follow nobody else.
    EXPECT_EQ(out.find("ticket 1 account  \"T10020"), out.npos);
    EXPECT_EQ(play.Session->Services().Desk().Orders().size(), 6U);
}

TEST(ScriptTicketTest, WrongLinesAreToldAndChangeNothing) {
    struct TCase {
        const char* Line;
        const char* Reason;
    };
    static constexpr TCase Cases[] = {
        {"type bid 5", "there is no field bid; there are account, symbol, price and quantity"},
        {"key price f13", "there is no key f13"},
        {"key price hyper+a", "there is no key hyper+a"},
        {"wheel price many", "NOTCHES is a whole number from -100 to 100"},
        {"spin account up", "usage: spin price|quantity up|down [COUNT]"},
        {"hold price up 0", "usage: hold price|quantity up|down COUNT"},
        {"pick symbol nosuch", "the list shows no nosuch"},
        {"send", "usage: send buy|sell [market]"},
        {"ticket 2 close", "ticket 2 is not open"},
        {"ticket close\nleave price", "no ticket is open"},
    };
    for (const TCase& row : Cases) {
        TScriptPlay play;
        const std::string before = play.Run("ticket\ntype price 5\nticket\n");
        const std::string line = row.Line;
        play.Run(line + "\n");
        const std::size_t end = play.Errors.str().find(": ") + 2;
        EXPECT_EQ(play.Errors.str().substr(end), std::string(row.Reason) + "\n") << line;
        EXPECT_EQ(play.Wrong, 1) << line;
        if (line.starts_with("ticket close")) continue;
        const std::string after = play.Run("ticket\n");
        EXPECT_NE(before.find(after.substr(after.find("\n  ticket"))), before.npos) << line;
    }
}

} // namespace
} // namespace quorin
