#pragma once

#include "embedded/kit/CallRecorder.h"
#include "embedded/kit/Report.h"

#include <deque>
#include <limits>
#include <type_traits>

namespace quorin {

// How a value reads in a report; texts in quotes, so that an empty one shows.
String ShowValue(StringView value);
String ShowValue(const char16_t* value);
String ShowValue(bool value);
String ShowValue(Integer value);
String ShowValue(Double value);
String ShowValue(const void* value);

// Asks the questions of one service and writes the answers into a report. Also keeps the recorders
// for as long as it lives.
class TChecker {
public:
    TChecker(TContractReport& report, StringView service) : FReport(report), FService(service) {}
    TChecker(const TChecker&) = delete;
    TChecker& operator=(const TChecker&) = delete;

    // Exact equality. `where` tells the places of one rule apart. Each answers whether it holds.
    template <class Value>
    bool Equal(StringView rule, const std::type_identity_t<Value>& expected, const Value& came,
               StringView where = {}) {
        return Record(rule, expected == came, ShowValue(expected), ShowValue(came), where);
    }
    // Of texts.
    bool Reads(StringView rule, StringView expected, StringView came, StringView where = {}) {
        return Record(rule, expected == came, ShowValue(expected), ShowValue(came), where);
    }
    // Of prices and amounts: equal but for the noise of binary fractions.
    bool Near(StringView rule, Double expected, Double came, StringView where = {});
    bool True(StringView rule, bool came, StringView where = {}) {
        return Record(rule, came, ShowValue(true), ShowValue(came), where);
    }
    bool False(StringView rule, bool came, StringView where = {}) {
        return Record(rule, !came, ShowValue(false), ShowValue(came), where);
    }
    bool IsNil(StringView rule, const void* came, StringView where = {}) {
        return Record(rule, came == nullptr, u"nil", ShowValue(came), where);
    }
    bool IsThere(StringView rule, const void* came, StringView where = {}) {
        return Record(rule, came != nullptr, u"an object", ShowValue(came), where);
    }
    bool IsSame(StringView rule, const void* expected, const void* came, StringView where = {}) {
        return Record(rule, expected == came, u"the same object",
                      came == nullptr ? u"nil" : u"another object", where);
    }
    // `problem` empty: it holds.
    bool NoProblem(StringView rule, StringView problem, StringView where = {}) {
        return Record(rule, problem.empty(), u"nothing wrong", problem, where);
    }
    void Skip(StringView rule, StringView reason) { FReport.Skip(FService, rule, reason); }

    TCallRecorder& NewRecorder() { return FRecorders.emplace_back(); }

private:
    bool Record(StringView rule, bool holds, StringView expected, StringView came,
                StringView where);

    TContractReport& FReport;
    const String FService;
    std::deque<TCallRecorder> FRecorders;
};

// Indexes that no list has, with the one just behind a list of `count` entries.
inline TList<Integer> IndexesOutside(Integer count) {
    TList<Integer> indexes;
    for (const Integer index :
         {-1, count, std::numeric_limits<Integer>::min(), std::numeric_limits<Integer>::max()}) {
        indexes.Add(index);
    }
    return indexes;
}

} // namespace quorin
