#pragma once

#include "platform/rtl/TDictionary.h"
#include "platform/rtl/TList.h"

namespace quorin {

enum class TCheckResult : Byte { Passed, Failed, Skipped };

// What one rule of one service came to. A rule that is looked at in many places is one check, and
// fails with the first place where it is not kept.
struct TContractCheck {
    String Service;
    String Rule;
    TCheckResult Result = TCheckResult::Passed;
    String Expected; // of a failed check; of a skipped one the reason
    String Came;     // of a failed check
};

// All checks of a run, in the order in which they were made.
class TContractReport {
public:
    void Pass(StringView service, StringView rule);
    void Fail(StringView service, StringView rule, StringView expected, StringView came);
    // Says that a rule was not looked at; a check of it that was made stays.
    void Skip(StringView service, StringView rule, StringView reason);

    const TList<TContractCheck>& Checks() const { return FChecks; }
    Integer Count(TCheckResult result) const;
    // Nil for a check that was not made.
    const TContractCheck* Find(StringView service, StringView rule) const;
    // At least one check was made and none failed.
    bool IsKept() const;
    // One line for each check, two more below a failed one, and a line of counts at the end.
    String Table() const;

private:
    TContractCheck& Obtain(StringView service, StringView rule, TCheckResult first);

    TList<TContractCheck> FChecks;
    TDictionary<String, Integer> FIndexes; // by service and rule
};

} // namespace quorin
