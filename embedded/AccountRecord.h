#pragma once

#include "embedded/BalanceMoves.h"
#include "viewdata/services/Account.h"

#include <memory>
#include <optional>

namespace quorin {

// What the host says of an account. What stands after `Status` are details that may load late.
struct TAccountDetails {
    String Tag = {};
    String Name = {};
    Integer Type = 0; // one of AccountType, or another number
    String MasterAccount = {};
    Integer MarginType = MarginType::Cash;
    String PrincipalType = {};
    bool IsAggregate = false;
    Integer Status = 0; // bits of AccountStatus

    String Tel = {};
    String HomeTel = {};
    String Mobile = {};
    String NationalID = {};
    String Gender = {};
    String Title = {};
    String GroupID = {};
    String InvestorClass = {};               // compared with the text about professional investors
    TDictionary<String, String> Fields = {}; // named attributes
};

// Numbers what comes, from 0 on.
template <class Key>
class TNumbering {
public:
    static constexpr Integer NoNumber = -1;

    template <class View>
    Integer Find(const View& key) const {
        const Integer* number = FNumbers.Find(key);
        return number != nullptr ? *number : NoNumber;
    }
    template <class View>
    Integer Obtain(const View& key) {
        FNumbers.Add(key, FNumbers.Count());
        return Find(key);
    }

private:
    TDictionary<Key, Integer> FNumbers;
};

// The places of records in an account and of texts in a record, for all accounts alike: sums over
// many accounts look one up in each, and find it in one step.
struct TAccountNumbers {
    TNumbering<String> Currencies;
    TNumbering<Integer> Fields; // by attribute
};

// The figures of an account in one currency.
class TEmbeddedAccountData : public TCustomAccountData {
    QUORIN_CLASS(TEmbeddedAccountData, TCustomAccountData)
public:
    // `numbers` must live longer.
    TEmbeddedAccountData(StringView account, StringView currency, TAccountNumbers& numbers)
        : FNumbers(numbers.Fields), FAccount(account), FCurrency(currency) {}

    void SetFigures(const TBalanceFigures& figures);
    // As they stand, without the texts.
    const TBalanceFigures& Figures() const { return FFigures; }
    // What the host said before anything moved, without the texts, which do not move.
    const TBalanceFigures& Fed() const { return FFed; }
    // Shows the fed figures with what has moved since; false when that shows nothing new.
    bool Move(const TBalanceMoves& moves);
    // What has moved counts as fed from here on.
    void Settle();

    const String& GetAccount() const override { return FAccount; }
    const String& GetCurrency() const override { return FCurrency; }
    Double GetValue185() const override { return FFigures.Value185; }
    Double GetValue155() const override { return FFigures.Value155; }
    Double GetValue186() const override { return FFigures.Value186; }
    Double GetValue156() const override { return FFigures.Value156; }
    Double GetValue604() const override { return FFigures.Value604; }
    Double GetValue606() const override { return FFigures.Value606; }
    Double GetValue607() const override { return FFigures.Value607; }
    Double GetValue446() const override { return FFigures.Value446; }
    Double GetValue996() const override { return FFigures.Value996; }
    // The attribute of the account's code is always there.
    void GetFieldString(Integer Attribute, String& Text) const override;
    // The ratio of the record's currency is known; always of the total record.
    Boolean IsConvertible() const override;
    Double GetValue9018B() const override { return FFigures.Value9018B; }
    Double GetValue9018A() const override { return FFigures.Value9018A; }
    Double GetValue445() const override { return FFigures.Value445; }
    Double GetValue1205() const override { return FFigures.Value1205; }
    Double GetValue991() const override { return FFigures.Value991; }
    Double GetValue990() const override { return FFigures.Value990; }
    Double GetValue1502() const override { return FFigures.Value1502; }
    Double GetValue1503() const override { return FFigures.Value1503; }
    Double GetValue9028() const override { return FFigures.Value9028; }

private:
    TNumbering<Integer>& FNumbers;
    TList<String> FTexts;     // by number, empty where there is none
    TBalanceFigures FFigures; // the texts apart, as FFed
    const String FAccount;
    const String FCurrency;
    TBalanceFigures FFed;
    TBalanceMoves FMoves;
};

// Records of one account by currency; the total record is under the empty code.
using TBalanceRecords = TDictionary<String, std::unique_ptr<TEmbeddedAccountData>>;

// An account with its holder's details and its figures.
class TEmbeddedAccount : public TCustomAccount {
    QUORIN_CLASS(TEmbeddedAccount, TCustomAccount)
public:
    // `numbers` must live longer.
    TEmbeddedAccount(StringView account, TAccountNumbers& numbers)
        : FNumbers(numbers), FAccount(account) {}

    void SetDetails(const TAccountDetails& details);
    // The same, with the details that may load late held back until LoadDetails.
    void SetDetailsLate(const TAccountDetails& details);
    const TAccountDetails& Details() const { return FDetails; }
    bool HasLateDetails() const { return FLateDetails.has_value(); }
    void LoadDetails();
    // Each record of figures, the total one among them.
    template <class Call>
    void EachBalance(Call call) {
        for (const auto& record : FBalances) {
            if (record != nullptr) call(*record);
        }
    }
    TEmbeddedAccountData* FindBalance(StringView currency) const;
    // True when the account had no record in this currency before.
    bool SetBalance(StringView currency, const TBalanceFigures& figures);

    // Empty for a key that is not known.
    String GetAccountField(StringView Key) const override;
    const String& GetAccount() const override { return FAccount; }
    const String& GetAccountTag() const override { return FDetails.Tag; }
    const String& GetName() const override { return FDetails.Name; }
    TCustomAccountData* GetAccountData(StringView Currency) const override;
    // "1" when `Value` is the investor class of this account, in any case.
    String GetProfessionalFlag(StringView Value) const override;
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
    Integer GetCurrencyCount() const override { return FCurrencies.Count(); }
    // In the order in which the records came; empty outside.
    const String& GetCurrency(Integer Index) const override;

private:
    TAccountNumbers& FNumbers;
    TList<std::unique_ptr<TEmbeddedAccountData>> FBalances; // by number, nil where there is none
    TList<String> FCurrencies;
    const String FAccount;
    const String FNoCurrency;
    TAccountDetails FDetails;
    std::optional<TAccountDetails> FLateDetails;
};

} // namespace quorin
