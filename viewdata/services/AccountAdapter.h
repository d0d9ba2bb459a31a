#pragma once

#include "platform/rtl/TEvent.h"
#include "viewdata/services/Account.h"
#include "viewdata/services/ServiceRegistry.h"

namespace quorin {

// All accounts that the user may see. Early in the application's life there may be no instance:
// callers that can live then test GetInstance.
class TCustomAccountAdapter : public TService<TCustomAccountAdapter> {
public:
    // Operations, in order

    // `Account` changed. `Sender`: TAccountDictionary of what changed, or nil. Ends the owner's
    // registration for `PreviousAccount`; with an empty `PreviousAccount` the call only adds,
    // with an empty `Account` it only ends.
    virtual void ChangeAccountCallback(StringView Account, const TDataCallbackEvent& Callback,
                                       TObject* Owner, StringView PreviousAccount) = 0;
    virtual void RemoveAccountCallback(StringView Account, TObject* Owner) = 0;
    // Details of accounts have been loaded. `Sender`: TAccountDictionary of these, or nil.
    virtual void AddAccountInfoLoadCallback(const TDataCallbackEvent& Callback, TObject* Owner) = 0;
    virtual void RemoveAccountInfoLoadCallback(TObject* Owner) = 0;
    // Accounts that GetAccountByIndex serves; 0 until the list is ready.
    virtual Integer GetAccountCount() const = 0;
    virtual Boolean IsAccountKnown(StringView Account) const = 0;
    // A sub-account of the master `Account` changed, or has left it. `Sender`: TAccountDictionary
    // of what changed, or nil. `Reserved` is nil.
    virtual void AddSubAccountCallback(StringView Account, const TDataCallbackEvent& Callback,
                                       TObject* Owner, Pointer Reserved) = 0;
    virtual void RemoveSubAccountCallback(StringView Account, TObject* Owner) = 0;
    // Any account changed. `Sender`: TAccountDictionary of what changed, or nil.
    virtual void AddAllAccountCallback(const TDataCallbackEvent& Callback, TObject* Owner) = 0;
    virtual void RemoveAllAccountCallback(TObject* Owner) = 0;
    // The list of accounts has become ready. `Sender`: nil.
    virtual void AddAccountReadyCallback(const TDataCallbackEvent& Callback, TObject* Owner) = 0;
    virtual void RemoveAccountReadyCallback(TObject* Owner) = 0;
    virtual Boolean IsAccountReady() const = 0;

    // Nil outside.
    virtual TCustomAccount* GetAccountByIndex(Integer Index) const = 0;
    // Nil for an unknown code and for the empty one. With `Flag` the service also loads details
    // that it lacks, for a later delivery; without it the call only reads what is there.
    virtual TCustomAccount* GetAccount(StringView Account, Boolean Flag) = 0;
    // Asks for the list of accounts: for all with an empty `Filter`, which the service may change.
    // With `Flag` also where the list is there already.
    virtual void RequestAccountList(String& Filter, Boolean Flag) = 0;
    // Adds the sub-accounts of the master `Account` to `List`, the caller's own, whose other
    // entries stay.
    virtual void GetSubAccountList(StringView Account, TAccountDictionary& List) const = 0;
    // The code of the account that a user meant by what was typed; empty for none.
    virtual String FindAccountByText(StringView Text) const = 0;
    // A text about all accounts, such as CustomAccountInfoSection with ProfessionalInvestorKey.
    virtual String GetCustomAccountValue(StringView Section, StringView Key) const = 0;
    // The summed record of an account of type AccountType::SummedByService; nil when there is none.
    virtual TCustomAccountData* GetSubAccountData(StringView Account,
                                                  StringView Currency) const = 0;
    // Sub-accounts have been loaded. `Sender`: TAccountDictionary of these, or nil.
    virtual void AddSubAccountLoadCallback(const TDataCallbackEvent& Callback, TObject* Owner) = 0;
    virtual void RemoveSubAccountLoadCallback(TObject* Owner) = 0;

    // A number that grows each time that what GetAccount and GetAccountByIndex answer or the
    // records of an account have come, gone or moved, so that a tree of them need not be walked
    // after every change of figures; 0, by default, from a service that cannot tell.
    virtual Int64 RecordsVersion() const { return 0; }
};

} // namespace quorin
