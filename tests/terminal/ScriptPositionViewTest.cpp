// The position view as a script shows it.

#include "platform/rtl/Utf.h"
#include "tests/terminal/ScriptPlay.h"
#include "viewdata/positionview/PositionViewAttributes.h"

#include <gtest/gtest.h>

namespace quorin {
namespace {

TEST(ScriptPositionViewTest, WhatNeedsTheViewIsRefusedWithoutIt) {
    for (const char* line :
         {"filtercurrency CNY", "chinaconnect", "accountinfo", "totals", "copysymbol 0"}) {
        TScriptPlay play;
        play.Run(std::string("positions\n") + line + "\n");
        EXPECT_EQ(play.Errors.str(), "s.txt:2: the position view is not shown\n") << line;
    }
}

TEST(ScriptPositionViewTest, ModesByAccount) {
    // Line by line, with the title afterwards.
    constexpr struct {
        const char* Line;
        const char* Title;
    } Steps[] = {
        {"positionview M88001-01", "M88001-01"},
        {"aggregate", "M88001-01"},
        {"positionview \"\"", ""},
        {"aggregate", ""},
        {"positionview M88001", "M88001"},
        {"aggregate", "M88001  Aggregated"},
        {"aggregate", "M88001"},
        {"aggregate", "M88001  Aggregated"},
        {"positionview T10020", "T10020  Aggregated"},
        {"positionview \"\"", "  Aggregated"},
        {"aggregate", "  Aggregated"},
        {"positionview M88001", "M88001  Aggregated"},
        {"positionview M88001-01", "M88001-01"},
        {"positionview T10020", "T10020"},
        {"aggregate", "T10020  Aggregated"},
        {"positionview NOBODY", "NOBODY"},
        {"account C30001", "C30001"},
        {"chinaconnect CNY", "C30001  China Connect: CNY"},
        {"filtercurrency CNY", "C30001  Currency: CNY  China Connect: CNY"},
    };
    TScriptPlay play;
    for (const auto& step : Steps) {
        play.Run(step.Line);
        EXPECT_EQ(ToUtf8(play.Screen->PositionView().Title()), step.Title) << step.Line;
    }
    EXPECT_EQ(play.Wrong, 0) << play.Errors.str();
}

TEST(ScriptPositionViewTest, TotalsNameTheirCurrency) {
    TScriptPlay play;
    const std::string out =
        play.Run("account C30001\npositionview\ntotals\nchinaconnect CNY\n"
                 "totals\nchinaconnect HKD\ntotals\nchinaconnect JPY\ntotals\n");
    std::vector<std::string> totals;
    std::istringstream lines(out);
    for (std::string line; std::getline(lines, line);) {
        const std::size_t at = line.find("market value  ");
        if (at != line.npos) totals.push_back(line.substr(at + 14));
    }
    // 400 at 100.4; 100 at 1448.36, at 1.1463 a yuan; the yen's rate is not known.
    EXPECT_EQ(totals, (std::vector<std::string>{"40,160.00 HKD", "144,836.00 CNY", "166,025.51 HKD",
                                                "166,025.51 HKD"}));
}

TEST(ScriptPositionViewTest, RowHasEveryColumn) {
    TScriptPlay play;
    std::istringstream lines(play.Run("positionview\nrow 0\n"));
    std::vector<Integer> shown;
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string label;
        Integer attribute = 0;
        if (words >> label >> attribute && label == "cell") shown.push_back(attribute);
    }
    EXPECT_EQ(shown,
              (std::vector<Integer>{0,    3,    4,    10,   11,    20,    21,    23,    29,   31,
                                    35,   42,   46,   51,   61,    81,    91,    95,    101,  189,
                                    405,  406,  408,  446,  470,   479,   480,   481,   482,  483,
                                    484,  504,  607,  617,  618,   896,   997,   1105,  1302, 3101,
                                    3102, 3116, 3119, 9014, 10000, 10001, 10002, 10003, 10004}));
}

} // namespace
} // namespace quorin
