#pragma once

#include "viewdata/services/Account.h"

namespace quorin {

// What the host says of an account.
struct TAccountDetails {
    String Tag = {};
    String Name = {};
    Integer Type = 0; // one of AccountType, or another number
    String MasterAccount = {};
    String Tel = {};
    String HomeTel = {};
    String Mobile = {};
    String NationalID = {};
    String Gender = {};
    Integer MarginType = MarginType::Cash;
    String Title = {};
    String PrincipalType = {};
    Integer Status = 0; // bits of AccountStatus
    bool IsAggregate = false;
    String GroupID = {};
    bool IsProfessionalInvestor = false;
    TDictionary<String, String> Fields = {}; // named attributes
};

// An account with its holder's details. It has no figures: no record in any currency.
class TEmbeddedAccount : public TCustomAccount {
    QUORIN_CLASS(TEmbeddedAccount, TCustomAccount)
public:
    explicit TEmbeddedAccount(StringView account) : FAccount(account) {}

    void SetDetails(const TAccountDetails& details) { FDetails = details; }

    String GetAccountField(StringView Key) const override {
        const String* value = FDetails.Fields.Find(Key);
        return value != nullptr ? *value : String();
    }
    const String& GetAccount() const override { return FAccount; }
    const String& GetAccountTag() const override { return FDetails.Tag; }
    const String& GetName() const override { return FDetails.Name; }
    TCustomAccountData* GetAccountData(StringView) const override { return nullptr; }
    String GetProfessionalFlag(StringView) const override {
        return FDetails.IsProfessionalInvestor ? u"1" : u"";
    }
    Integer GetAccountType() const override { return FDetails.Type; }
    const String& GetMasterAccount() const override { return FDetails.MasterAccount; }
    const String& GetTel() const override { return FDetails.Tel; }
    const String& GetHomeTel() const override { return FDetails.HomeTel; }
    const String& GetMobile() const override { return FDetails.Mobile; }
    const String& GetNationalID() const override { return FDetails.NationalID; }
    const String& GetGender() const override { return FDetails.Gender; }
    Integer GetMarginType() const override { return FDetails.MarginType; }
    const String& GetTitle() const override { return FDetails.Title; }
    const String& GetPrincipalType() const override { return FDetails.PrincipalType; }
    Integer GetAccountStatus() const override { return FDetails.Status; }
    Boolean IsAggregateAccount() const override { return FDetails.IsAggregate; }
    Boolean IsSubAccount() const override { return !FDetails.MasterAccount.empty(); }
    const String& GetAccountGroupID() const override { return FDetails.GroupID; }
    Integer GetCurrencyCount() const override { return 0; }
    const String& GetCurrency(Integer) const override { return FNoCurrency; }

private:
    const String FAccount;
    const String FNoCurrency;
    TAccountDetails FDetails;
};

} // namespace quorin
