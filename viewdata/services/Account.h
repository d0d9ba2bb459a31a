#pragma once

#include "platform/rtl/TDictionary.h"
#include "platform/rtl/TObject.h"

namespace quorin {

// Answers of TCustomAccount::GetAccountType that the views treat apart.
namespace AccountType {
inline constexpr Integer Master = 9;           // of a group of sub-accounts
inline constexpr Integer SummedByService = 10; // GetSubAccountData has the summed record
} // namespace AccountType

// Answers of TCustomAccount::GetMarginType.
namespace MarginType {
inline constexpr Integer Cash = 0;
inline constexpr Integer Margin = 1;
inline constexpr Integer Custodian = 2;
inline constexpr Integer DVP = 5; // delivery versus payment
} // namespace MarginType

// Bits of TCustomAccount::GetAccountStatus.
namespace AccountStatus {
inline constexpr Integer Suspended = 1024;
inline constexpr Integer SellOnly = 2048;
} // namespace AccountStatus

// Answers of TCustomAccount::GetPrincipalType.
namespace PrincipalType {
inline constexpr StringView Arbitrage = u"A";
inline constexpr StringView Speculation = u"S";
inline constexpr StringView Hedge = u"G";
} // namespace PrincipalType

// Named attributes of an account, and the section and key of a text about all accounts.
inline constexpr StringView ClientFeatureKey = u"ClientFeature";
inline constexpr StringView CustomAccountInfoSection = u"qrn_CustomAccountInfo";
inline constexpr StringView ProfessionalInvestorKey = u"ProfessionalInvestor";

// The figures of one account in one currency, or in all together (the total record). Amounts are
// in that currency, of the total record in the base currency. Operations named by a number give
// the attribute of that number.
class TCustomAccountData : public TObject {
    QUORIN_CLASS(TCustomAccountData, TObject)
public:
    // Operations, in order

    virtual const String& GetAccount() const = 0;
    // Empty in the total record.
    virtual const String& GetCurrency() const = 0;
    virtual Double GetValue185() const = 0;
    virtual Double GetValue155() const = 0;
    virtual Double GetValue186() const = 0;
    virtual Double GetValue156() const = 0;
    virtual Double GetValue604() const = 0;
    virtual Double GetValue606() const = 0;
    virtual Double GetValue607() const = 0;
    virtual Double GetValue446() const = 0;
    virtual Double GetValue996() const = 0;
    // Every attribute that has no operation of its own, as text; replaces what `Text` holds, with
    // empty text when there is none.
    virtual void GetFieldString(Integer Attribute, String& Text) const = 0;
    // Attributes 604, 606 and 996 may be shown in a currency that is not the record's.
    virtual Boolean IsConvertible() const = 0;
    // Attribute 9018 is B taken from A.
    virtual Double GetValue9018B() const = 0;
    virtual Double GetValue9018A() const = 0;
    virtual Double GetValue445() const = 0;
    virtual Double GetValue1205() const = 0;
    virtual Double GetValue991() const = 0;
    virtual Double GetValue990() const = 0;
    virtual Double GetValue1502() const = 0;
    virtual Double GetValue1503() const = 0;
    virtual Double GetValue9028() const = 0;

    // GetFieldString where a text of one's own is wanted.
    String FieldText(Integer Attribute) const {
        String text;
        GetFieldString(Attribute, text);
        return text;
    }
};

// One account: who holds it, what it may do, and its figures per currency.
class TCustomAccount : public TObject {
    QUORIN_CLASS(TCustomAccount, TObject)
public:
    // Operations, in order

    // A named attribute, ClientFeatureKey for one; empty when there is none.
    virtual String GetAccountField(StringView Key) const = 0;
    // The account's code.
    virtual const String& GetAccount() const = 0;
    // A short mark that is shown in square brackets.
    virtual const String& GetAccountTag() const = 0;
    // The holder's.
    virtual const String& GetName() const = 0;
    // The record of a currency, of all together with the empty code; nil when there is none.
    virtual TCustomAccountData* GetAccountData(StringView Currency) const = 0;
    // What a text about professional investors says of this account; "1" when it is one.
    virtual String GetProfessionalFlag(StringView Value) const = 0;
    // One of AccountType, or another number.
    virtual Integer GetAccountType() const = 0;
    // Code of the master; empty without one.
    virtual const String& GetMasterAccount() const = 0;
    virtual const String& GetTel() const = 0;
    virtual const String& GetHomeTel() const = 0;
    virtual const String& GetMobile() const = 0;
    virtual const String& GetNationalID() const = 0;
    virtual const String& GetGender() const = 0;
    // One of MarginType, or another number.
    virtual Integer GetMarginType() const = 0;
    // How the holder is addressed; "na" and "n/a" in any case stand for nothing.
    virtual const String& GetTitle() const = 0;
    // One of PrincipalType, or another text.
    virtual const String& GetPrincipalType() const = 0;
    // Bits of AccountStatus and others.
    virtual Integer GetAccountStatus() const = 0;
    // The account may be viewed as the sum of its sub-accounts.
    virtual Boolean IsAggregateAccount() const = 0;
    // The account has a master.
    virtual Boolean IsSubAccount() const = 0;
    virtual const String& GetAccountGroupID() const = 0;
    // Records by currency, the total record not counted.
    virtual Integer GetCurrencyCount() const = 0;
    // The currency of one of these records.
    virtual const String& GetCurrency(Integer Index) const = 0;
};

// Account code to account: `Sender` of the account callbacks.
using TAccountDictionary = TDictionary<String, TCustomAccount*>;

} // namespace quorin
