#pragma once

#include "embedded/AccountRecord.h"
#include "embedded/KeyedRegistrations.h"
#include "viewdata/services/AccountAdapter.h"

namespace quorin {

class TEmbeddedCurrencyAdapter;

// The accounts that the host names, none to begin with. What is fed counts at once; Deliver tells
// of it. While the list is not ready no account is known, by no operation, and nothing is told.
class TEmbeddedAccountAdapter : public TCustomAccountAdapter {
public:
    // `currencies` hears of records in further currencies; it must live longer.
    explicit TEmbeddedAccountAdapter(TEmbeddedCurrencyAdapter& currencies)
        : FMultiCurrencies(currencies) {}

    // Operations of the contract
    void ChangeAccountCallback(StringView Account, const TDataCallbackEvent& Callback,
                               TObject* Owner, StringView PreviousAccount) override;
    void RemoveAccountCallback(StringView Account, TObject* Owner) override;
    void AddAccountInfoLoadCallback(const TDataCallbackEvent& Callback, TObject* Owner) override;
    void RemoveAccountInfoLoadCallback(TObject* Owner) override;
    Integer GetAccountCount() const override;
    Boolean IsAccountKnown(StringView Account) const override;
    void AddSubAccountCallback(StringView Account, const TDataCallbackEvent& Callback,
                               TObject* Owner, Pointer Reserved) override;
    void RemoveSubAccountCallback(StringView Account, TObject* Owner) override;
    void AddAllAccountCallback(const TDataCallbackEvent& Callback, TObject* Owner) override;
    void RemoveAllAccountCallback(TObject* Owner) override;
    void AddAccountReadyCallback(const TDataCallbackEvent& Callback, TObject* Owner) override;
    void RemoveAccountReadyCallback(TObject* Owner) override;
    Boolean IsAccountReady() const override { return FReady; }
    TCustomAccount* GetAccountByIndex(Integer Index) const override;
    // With `Flag` details that are still missing come with the next Deliver.
    TCustomAccount* GetAccount(StringView Account, Boolean Flag) override;
    // With `Flag` tells of a list that is there with the next Deliver. The filter counts for
    // nothing: there is one list.
    void RequestAccountList(String& Filter, Boolean Flag) override;
    void GetSubAccountList(StringView Account, TAccountDictionary& List) const override;
    // By code, else by tag; in any case, with blanks around it or not.
    String FindAccountByText(StringView Text) const override;
    String GetCustomAccountValue(StringView Section, StringView Key) const override;
    TCustomAccountData* GetSubAccountData(StringView Account, StringView Currency) const override;
    void AddSubAccountLoadCallback(const TDataCallbackEvent& Callback, TObject* Owner) override;
    void RemoveSubAccountLoadCallback(TObject* Owner) override;
    Int64 RecordsVersion() const override { return FRecordsVersion; }

    // Makes the account known, or replaces the details of a known one. The empty code is ignored.
    void FeedAccount(StringView account, const TAccountDetails& details = {});
    // Ends an account: from here on no operation knows it, and the next Deliver tells of it. What
    // was handed out of it stays valid as long as the service. Its positions are left alone. False
    // for an account that was not fed.
    bool DropAccount(StringView account);
    // The figures of a known account in one currency, in all together with the empty code. False
    // for an account that was not fed.
    bool FeedBalance(StringView account, StringView currency, const TBalanceFigures& figures);
    // The summed figures of an account, which GetSubAccountData answers if it is of the type
    // AccountType::SummedByService. False for an account that was not fed.
    bool FeedSubAccountData(StringView account, StringView currency,
                            const TBalanceFigures& figures);
    // For the figures that follow positions and orders. The account also while the list is not
    // ready; nil for one that was not fed.
    TEmbeddedAccount* FindAccount(StringView account) const { return Find(account); }
    // The accounts with figures that were fed since the last call.
    TList<TEmbeddedAccount*> TakeFedBalances();
    // What has moved of the account's figures counts as fed.
    void SettleBalances(TEmbeddedAccount& account);
    // The cash of a record as it was fed; 0.0 without a record.
    Double FedCash(const TEmbeddedAccount& account, StringView currency) const;
    // Shows a record, and the summed one if there is one, with what has moved since they were fed.
    // A record that is not there is made when orders have moved it.
    void MoveBalance(TEmbeddedAccount& account, StringView currency, const TBalanceMoves& moves);
    void SetCustomAccountValue(StringView section, StringView key, StringView value);

    // From here on the details of accounts that are new wait until somebody asks for them. Off to
    // begin with.
    void SetDetailsLate(bool late) { FDetailsLate = late; }
    // The list of accounts is ready to begin with; becoming ready again is told of, and counts as a
    // change of every account.
    void SetReady(bool ready);
    // Not ready, until that many deliveries are over; at once with 0.
    void SetReadyAfter(Integer deliveries);
    void Deliver();
    Integer RegistrationCount() const;

private:
    TEmbeddedAccount* Find(StringView account) const;
    void NoteLeft(TEmbeddedAccount& account);
    void SetBalance(TEmbeddedAccount& account, StringView currency, const TBalanceFigures& figures);
    TBalanceRecords* SummedRecords(const TEmbeddedAccount& account);
    void CountDown();
    void DeliverChanges(TDeliverySerial serial, TAccountDictionary& changed);
    TAccountDictionary LoadDetails();

    struct TDroppedAccount {
        std::unique_ptr<TEmbeddedAccount> Account;
        TBalanceRecords Summed;
    };
    using TDroppedAccounts = TList<TDroppedAccount>;

    TEmbeddedCurrencyAdapter& FMultiCurrencies;
    TAccountNumbers FNumbers;
    TDictionary<String, std::unique_ptr<TEmbeddedAccount>> FAccounts;
    TDroppedAccounts FDropped;                            // kept: somebody may still look at them
    TDictionary<String, TAccountDictionary> FLeftMasters; // by master: what has left it
    TList<TEmbeddedAccount*> FAccountList;
    TDictionary<String, TBalanceRecords> FSummedRecords; // by account
    TDictionary<String, String> FCustomValues;           // by section and key
    TDictionary<String, TEmbeddedAccount*> FFedBalances;
    TAccountDictionary FChanged;
    TAccountDictionary FNewSubAccounts;
    TList<TEmbeddedAccount*> FAwaited; // their details were asked for
    Int64 FRecordsVersion = 1;
    bool FDetailsLate = false;
    bool FReady = true;
    Integer FDeliveriesLeft = 0; // until the list is ready
    bool FTellReady = false;
    TDeliveryClock FDeliveries;
    TKeyedRegistrations<String, TDataCallbackEvent> FAccountCallbacks{FDeliveries};
    TKeyedRegistrations<String, TDataCallbackEvent> FSubAccountCallbacks{FDeliveries}; // by master
    TRegistrations<TDataCallbackEvent> FInfoLoadCallbacks{FDeliveries};
    TRegistrations<TDataCallbackEvent> FAllAccountCallbacks{FDeliveries};
    TRegistrations<TDataCallbackEvent> FReadyCallbacks{FDeliveries};
    TRegistrations<TDataCallbackEvent> FSubAccountLoadCallbacks{FDeliveries};
};

} // namespace quorin
