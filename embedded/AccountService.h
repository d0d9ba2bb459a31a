#pragma once

#include "embedded/AccountRecord.h"
#include "embedded/KeyedRegistrations.h"
#include "viewdata/services/AccountAdapter.h"

namespace quorin {

// The accounts that the host names, none to begin with. What is fed counts at once; Deliver tells
// of it. Details are complete from the start, so there is nothing to load later; accounts have no
// figures, and no record is summed.
class TEmbeddedAccountAdapter : public TCustomAccountAdapter {
public:
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
    TCustomAccount* GetAccount(StringView Account, Boolean Flag) override;
    // Tells of the list with the next Deliver.
    void RequestAccountList(String& Filter, Boolean Flag) override;
    void GetSubAccountList(StringView Account, TAccountDictionary& List) const override;
    // The code itself, in any case, with blanks around it or not.
    String FindAccountByText(StringView Text) const override;
    // Empty: nothing is known about all accounts together.
    String GetCustomAccountValue(StringView Section, StringView Key) const override;
    TCustomAccountData* GetSubAccountData(StringView Account, StringView Currency) const override;
    void AddSubAccountLoadCallback(const TDataCallbackEvent& Callback, TObject* Owner) override;
    void RemoveSubAccountLoadCallback(TObject* Owner) override;

    // Makes the account known, or replaces the details of a known one. The empty code is ignored.
    void FeedAccount(StringView account, const TAccountDetails& details = {});
    // The list of accounts is ready to begin with; becoming ready again is told of.
    void SetReady(bool ready);
    void Deliver();
    Integer RegistrationCount() const;

private:
    void DeliverChanges(TAccountDictionary& changed);

    TDictionary<String, std::unique_ptr<TEmbeddedAccount>> FAccounts;
    TList<TEmbeddedAccount*> FAccountList;
    TAccountDictionary FChanged;
    bool FReady = true;
    bool FTellReady = false;
    TKeyedRegistrations<String, TDataCallbackEvent> FAccountCallbacks;
    TKeyedRegistrations<String, TDataCallbackEvent> FSubAccountCallbacks; // by master
    TRegistrations<TDataCallbackEvent> FInfoLoadCallbacks;
    TRegistrations<TDataCallbackEvent> FAllAccountCallbacks;
    TRegistrations<TDataCallbackEvent> FReadyCallbacks;
    TRegistrations<TDataCallbackEvent> FSubAccountLoadCallbacks;
};

} // namespace quorin
