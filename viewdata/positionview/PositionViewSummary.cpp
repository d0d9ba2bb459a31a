#include "platform/rtl/Text.h"
#include "viewdata/frame/AccountLookups.h"
#include "viewdata/frame/ServiceTexts.h"
#include "viewdata/positionview/PositionViewDataControl.h"

namespace quorin {

namespace {

constexpr StringView LineBreak = u"\r\n";
constexpr StringView Gap = u"   "; // between two parts of a line
constexpr StringView GrossBasis = u"2";
constexpr StringView IsProfessional = u"1";
constexpr std::size_t LongestMarkedLine = 50; // in 16-bit units

// Adds "label: value", unless there is no value.
void AddPart(String& line, StringView key, const String& value) {
    if (value.empty()) return;
    if (!line.empty()) line += Gap;
    line += FormatText(u"%s: %s", {InterfaceText(key), value});
}

Boolean IsTitle(const String& title) {
    return !title.empty() && !SameText(title, u"na") && !SameText(title, u"n/a");
}

String NameLine(const TCustomAccount& account) {
    const String& name = account.GetName();
    if (name.empty()) return String();
    const String label = InterfaceText(ResourceKey::Res_Name);
    const String& title = account.GetTitle();
    if (IsTitle(title)) return FormatText(u"%s: %s %s", {label, title, name});
    return FormatText(u"%s: %s", {label, name});
}

String ContactLine(const TCustomAccount& account) {
    String line;
    AddPart(line, ResourceKey::Res_Tel, account.GetTel());
    AddPart(line, ResourceKey::Res_HomeTel, account.GetHomeTel());
    AddPart(line, ResourceKey::Res_Mobile, account.GetMobile());
    return line;
}

StringView MarginTypeKey(Integer type) {
    switch (type) {
    case MarginType::Cash: return ResourceKey::Res_MarginType_Cash;
    case MarginType::Margin: return ResourceKey::Res_MarginType_Margin;
    case MarginType::DVP: return ResourceKey::Res_MarginType_DVP;
    case MarginType::Custodian: return ResourceKey::Res_MarginType_Custodian;
    default: return StringView();
    }
}

void AddMarginType(String& line, Integer type, const String& groupID) {
    const StringView key = MarginTypeKey(type);
    if (key.empty()) return;
    if (!line.empty()) line += u'/';
    const String group = groupID.empty() ? String() : FormatText(u"(%s)", {groupID});
    line = FormatText(u"%s%s%s", {line, InterfaceText(key), group});
}

Boolean IsProfessionalInvestor(const TCustomAccount& account) {
    const String value =
        Accounts().GetCustomAccountValue(CustomAccountInfoSection, ProfessionalInvestorKey);
    return Trim(account.GetProfessionalFlag(value)) == IsProfessional;
}

// In words where that keeps the line short.
String MarkedAsProfessional(const String& line) {
    const String mark = InterfaceText(ResourceKey::res_ProfessionalInvestor);
    if (line.empty()) return mark;
    String marked = FormatText(u"(%s)%s", {mark, line});
    return marked.size() <= LongestMarkedLine ? marked : FormatText(u"(P.I.)%s", {line});
}

void AddLine(String& text, const String& line) {
    if (line.empty()) return;
    text += LineBreak;
    text += line;
}

} // namespace

String TPositionViewDataControl::GetAccountInfo(String& Status) {
    Status.clear();
    if (FAccount.empty()) return String();
    const TCustomAccount* account = FindAccount(FAccount);
    if (account == nullptr) return String();
    Status = InterfaceText(ResourceKey::Res_Status) + u": " + StatusWord();
    String text = NameLine(*account);
    AddLine(text, ContactLine(*account));
    AddLine(text, KindLine(*account));
    return text;
}

String TPositionViewDataControl::StatusWord() const {
    if (!FLoadAccountStatus) return InterfaceText(ResourceKey::Res_AcctStatus_Active);
    if ((FAccountStatus & AccountStatus::Suspended) != 0) {
        return InterfaceText(ResourceKey::Res_AcctStatus_Suspend);
    }
    if ((FAccountStatus & AccountStatus::SellOnly) != 0) {
        return InterfaceText(ResourceKey::Res_AcctStatus_Sell);
    }
    return InterfaceText(ResourceKey::Res_AcctStatus_Normal);
}

String TPositionViewDataControl::KindLine(const TCustomAccount& account) const {
    String line;
    if (SameText(account.GetAccountField(ClientFeatureKey), GrossBasis)) {
        line = InterfaceText(ResourceKey::res_MarginingBasis_Gross);
    }
    AddMarginType(line, account.GetMarginType(), FAccountGroupID);
    AddPart(line, ResourceKey::Res_nationalID, account.GetNationalID());
    AddPart(line, ResourceKey::Res_Gender, account.GetGender());
    return IsProfessionalInvestor(account) ? MarkedAsProfessional(line) : line;
}

String TPositionViewDataControl::GetPrincipalType(TCustomPositionData* Position) {
    if (Position == nullptr || Position->GetSide() == TPositionSide::Net) return String();
    const TCustomAccount* account = Accounts().GetAccount(FAccount, /*Flag=*/false);
    if (account == nullptr) return String();
    const String& type = account->GetPrincipalType();
    if (type == PrincipalType::Arbitrage) {
        return InterfaceText(ResourceKey::Res_Principal_Arbitrage);
    }
    if (type == PrincipalType::Speculation) {
        return InterfaceText(ResourceKey::Res_Principal_Speculation);
    }
    if (type == PrincipalType::Hedge) return InterfaceText(ResourceKey::Res_Principal_Hedge);
    return String();
}

} // namespace quorin
