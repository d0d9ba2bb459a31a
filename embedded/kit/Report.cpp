#include "embedded/kit/Report.h"

#include "platform/rtl/Numbers.h"

#include <algorithm>

namespace quorin {

namespace {

constexpr Char KeySeparator = u'\0';
constexpr std::size_t ResultWidth = 9;

StringView ResultName(TCheckResult result) {
    switch (result) {
    case TCheckResult::Passed: return u"passed";
    case TCheckResult::Failed: return u"FAILED";
    case TCheckResult::Skipped: return u"skipped";
    }
    return {};
}

String KeyOf(StringView service, StringView rule) {
    return String(service) + KeySeparator + String(rule);
}

void AppendPadded(String& target, StringView text, std::size_t width) {
    target += text;
    target.append(width - std::min(width, text.size()), u' ');
}

} // namespace

TContractCheck& TContractReport::Obtain(StringView service, StringView rule, TCheckResult first) {
    const String key = KeyOf(service, rule);
    if (const Integer* index = FIndexes.Find(key)) return FChecks[*index];
    FIndexes.Add(key, FChecks.Count());
    FChecks.Add(TContractCheck{String(service), String(rule), first, {}, {}});
    return FChecks[FChecks.Count() - 1];
}

void TContractReport::Pass(StringView service, StringView rule) {
    TContractCheck& check = Obtain(service, rule, TCheckResult::Passed);
    if (check.Result != TCheckResult::Skipped) return;
    check.Result = TCheckResult::Passed;
    check.Expected.clear();
}

void TContractReport::Fail(StringView service, StringView rule, StringView expected,
                           StringView came) {
    TContractCheck& check = Obtain(service, rule, TCheckResult::Passed);
    if (check.Result == TCheckResult::Failed) return;
    check.Result = TCheckResult::Failed;
    check.Expected = expected;
    check.Came = came;
}

void TContractReport::Skip(StringView service, StringView rule, StringView reason) {
    TContractCheck& check = Obtain(service, rule, TCheckResult::Skipped);
    if (check.Result == TCheckResult::Skipped) check.Expected = reason;
}

Integer TContractReport::Count(TCheckResult result) const {
    return static_cast<Integer>(
        std::count_if(FChecks.begin(), FChecks.end(),
                      [result](const TContractCheck& check) { return check.Result == result; }));
}

const TContractCheck* TContractReport::Find(StringView service, StringView rule) const {
    const Integer* index = FIndexes.Find(KeyOf(service, rule));
    return index != nullptr ? &FChecks[*index] : nullptr;
}

bool TContractReport::IsKept() const {
    return Count(TCheckResult::Failed) == 0 && Count(TCheckResult::Passed) > 0;
}

String TContractReport::Table() const {
    std::size_t serviceWidth = 0;
    for (const TContractCheck& check : FChecks) {
        serviceWidth = std::max(serviceWidth, check.Service.size() + 1);
    }
    const String indent(ResultWidth + serviceWidth, u' ');
    String text;
    for (const TContractCheck& check : FChecks) {
        AppendPadded(text, ResultName(check.Result), ResultWidth);
        AppendPadded(text, check.Service, serviceWidth);
        text += check.Rule;
        if (check.Result == TCheckResult::Skipped) text += u" (" + check.Expected + u")";
        text += u'\n';
        if (check.Result != TCheckResult::Failed) continue;
        text += indent + u"expected " + check.Expected + u'\n';
        text += indent + u"came     " + check.Came + u'\n';
    }
    text += IntegerToText(FChecks.Count()) + u" checks: ";
    text += IntegerToText(Count(TCheckResult::Passed)) + u" passed, ";
    text += IntegerToText(Count(TCheckResult::Failed)) + u" failed, ";
    text += IntegerToText(Count(TCheckResult::Skipped)) + u" skipped\n";
    return text;
}

} // namespace quorin
