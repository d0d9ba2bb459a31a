#include "embedded/kit/ContractKit.h"
#include "embedded/kit/RegistrationRules.h"

namespace quorin {

namespace {

constexpr StringView UnknownAccount = u"no such account";

class TAccountChecks {
public:
    TAccountChecks(TAccountDriver& driver, TContractReport& report)
        : FDriver(driver), FService(driver.Service()), FCheck(report, u"AccountAdapter") {}

    void CheckAll() {
        UnknownCodes();
        KnownCodes();
        Records();
        List();
        SubAccounts();
        MovesRegistration();
        KeyedRegistrations();
        OtherRegistrations();
        LoadRegistrations();
    }

private:
    TCustomAccount* Find(StringView account) { return FService.GetAccount(account, false); }

    void UnknownCodes() {
        for (const StringView code : {StringView(), UnknownAccount}) {
            const String where = ShowValue(code);
            FCheck.IsNil(u"GetAccount gives nil for an unknown code and for the empty one",
                         FService.GetAccount(code, true), where + u" with Flag");
            FCheck.IsNil(u"GetAccount gives nil for an unknown code and for the empty one",
                         Find(code), where + u" without Flag");
            FCheck.False(u"an unknown code is not known", FService.IsAccountKnown(code), where);
            FCheck.Reads(u"FindAccountByText gives empty text for what nobody means", {},
                         FService.FindAccountByText(code), where);
            FCheck.IsNil(u"GetSubAccountData gives nil for an unknown account",
                         FService.GetSubAccountData(code, {}), where);
            TAccountDictionary list;
            FService.GetSubAccountList(code, list);
            FCheck.Equal(u"an unknown master has no sub-accounts", 0, list.Count(), where);
        }
        FCheck.Reads(u"an unknown text about all accounts is empty", {},
                     FService.GetCustomAccountValue(u"no such section", u"no such key"));
    }

    void KnownCodes() {
        for (const String& code :
             {FDriver.Account(), FDriver.OtherAccount(), FDriver.Master(), FDriver.SubAccount()}) {
            TCustomAccount* account = Find(code);
            FCheck.True(u"a known code is known", FService.IsAccountKnown(code), code);
            if (!FCheck.IsThere(u"GetAccount gives a known account", account, code)) continue;
            FCheck.IsSame(u"the same code gives the same object", account,
                          FService.GetAccount(code, true), code);
            FCheck.Reads(u"an account tells its code", code, account->GetAccount());
            FCheck.Reads(u"FindAccountByText knows a code that is typed in full", code,
                         FService.FindAccountByText(code));
            FDriver.Change(code);
            FDriver.Deliver();
            FCheck.IsSame(u"a change keeps the object", account, Find(code), code);
            FCheck.Reads(u"an unknown field of an account is empty", {},
                         account->GetAccountField(u"no such field"), code);
            FCheck.Equal(u"an account with a master is a sub-account",
                         !account->GetMasterAccount().empty(), account->IsSubAccount(), code);
        }
    }

    void Records() {
        for (const String& code : {FDriver.Account(), FDriver.Master(), FDriver.SubAccount()}) {
            TCustomAccount* account = Find(code);
            if (account == nullptr) continue;
            const Integer count = account->GetCurrencyCount();
            for (const Integer index : IndexesOutside(count)) {
                FCheck.Reads(u"an index outside the currencies gives empty text", {},
                             account->GetCurrency(index), ShowValue(index));
            }
            FCheck.IsNil(u"an unknown currency has no record",
                         account->GetAccountData(u"no such currency"), code);
            CheckRecord(*account, {});
            for (Integer index = 0; index < count; ++index) {
                CheckRecord(*account, account->GetCurrency(index));
            }
        }
    }

    void CheckRecord(TCustomAccount& account, const String& currency) {
        TCustomAccountData* record = account.GetAccountData(currency);
        const String where = account.GetAccount() + u" in " + ShowValue(currency);
        FCheck.IsSame(u"a currency keeps one record", record, account.GetAccountData(currency),
                      where);
        if (record == nullptr) {
            // An account may have no total record; a currency that it lists has one.
            if (!currency.empty()) FCheck.IsThere(u"a listed currency has a record", record, where);
            return;
        }
        FCheck.Reads(u"a record tells its account", account.GetAccount(), record->GetAccount(),
                     where);
        FCheck.Reads(u"a record tells its currency, the total record none", currency,
                     record->GetCurrency(), where);
        String text = u"left over";
        record->GetFieldString(-1, text);
        FCheck.Reads(u"a missing attribute of a record is empty, whatever the text held", {}, text,
                     where);
        // A run-time test must tell the two kinds of nodes apart.
        FCheck.IsNil(u"a record is no account", ObjectAs<TCustomAccount>(AsPointer(record)), where);
    }

    void List() {
        FDriver.SetReady(false);
        FDriver.Deliver();
        FCheck.False(u"IsAccountReady tells whether the list is loaded", FService.IsAccountReady());
        FCheck.Equal(u"there is no list before it is ready", 0, FService.GetAccountCount());
        FCheck.IsNil(u"there is no list before it is ready", FService.GetAccountByIndex(0));
        FDriver.SetReady(true);
        String filter;
        FService.RequestAccountList(filter, true);
        FDriver.Deliver();
        FCheck.True(u"IsAccountReady tells whether the list is loaded", FService.IsAccountReady());
        const Integer count = FService.GetAccountCount();
        FCheck.True(u"the list has accounts once it is ready", count > 0);
        for (const Integer index : IndexesOutside(count)) {
            FCheck.IsNil(u"an index outside the list gives nil", FService.GetAccountByIndex(index),
                         ShowValue(index));
        }
        for (Integer index = 0; index < count; ++index) {
            TCustomAccount* account = FService.GetAccountByIndex(index);
            if (!FCheck.IsThere(u"an index inside the list gives an account", account)) continue;
            FCheck.IsSame(u"the list and GetAccount give the same objects", account,
                          Find(account->GetAccount()), account->GetAccount());
        }
    }

    void SubAccounts() {
        TAccountDictionary list;
        list.Add(UnknownAccount, nullptr);
        FService.GetSubAccountList(FDriver.Master(), list);
        FCheck.True(u"GetSubAccountList leaves other entries of the caller's list",
                    list.ContainsKey(UnknownAccount));
        list.Remove(UnknownAccount);
        const auto keyOf = [](const TCustomAccount& account) { return account.GetAccount(); };
        FCheck.NoProblem(u"GetSubAccountList gives the sub-accounts by code",
                         InspectRecords<TAccountDictionary>(&list, FDriver.SubAccount(), keyOf));
        for (const auto& item : list) {
            if (item.Value == nullptr) continue;
            FCheck.IsSame(u"the sub-accounts are the objects of GetAccount", Find(item.Key),
                          item.Value, item.Key);
            FCheck.Reads(u"a sub-account names its master", FDriver.Master(),
                         item.Value->GetMasterAccount(), item.Key);
        }
        TAccountDictionary none;
        FService.GetSubAccountList(FDriver.Account(), none);
        FCheck.Equal(u"an account that is no master has no sub-accounts", 0, none.Count());
    }

    void MovesRegistration() {
        const String from = FDriver.Account();
        const String to = FDriver.OtherAccount();
        TCallRecorder& recorder = FCheck.NewRecorder();
        const auto counts = [&](StringView rule, Integer ofFrom, Integer ofTo) {
            recorder.Reset();
            FDriver.Change(from);
            FDriver.Deliver();
            FCheck.Equal(rule, ofFrom, recorder.Count(), u"the first account");
            recorder.Reset();
            FDriver.Change(to);
            FDriver.Deliver();
            FCheck.Equal(rule, ofTo, recorder.Count(), u"the second account");
        };
        const auto change = [&](StringView account, StringView previous) {
            FService.ChangeAccountCallback(account, recorder.Event(), recorder.Owner(), previous);
        };
        FDriver.Deliver();
        change(from, {});
        counts(u"only changes of the account are told of", 1, 0);
        FDriver.Change(from);
        FDriver.Change(to);
        recorder.Reset();
        change(to, from);
        FCheck.Equal(u"ChangeAccountCallback calls nobody inside", 0, recorder.Count());
        FDriver.Deliver();
        counts(u"ChangeAccountCallback moves the registration", 0, 1);
        change(from, {});
        counts(u"an empty previous account only adds", 1, 1);
        change({}, from);
        counts(u"an empty account only ends", 0, 1);
        FService.RemoveAccountCallback(to, recorder.Owner());
        counts(u"RemoveAccountCallback ends the registration", 0, 0);
    }

    String InspectAccounts(Pointer sender, StringView wanted) {
        const auto keyOf = [](const TCustomAccount& account) { return account.GetAccount(); };
        const String problem = InspectRecords<TAccountDictionary>(sender, wanted, keyOf);
        if (!problem.empty() || sender == nullptr) return problem;
        const bool isSame = *static_cast<TAccountDictionary*>(sender)->Find(wanted) == Find(wanted);
        return isSame ? String() : String(u"another object than GetAccount gives");
    }

    void KeyedRegistrations() {
        const String account = FDriver.Account();
        CheckRegistrationRules(
            FCheck, FDriver,
            {.Name = u"ChangeAccountCallback",
             .Register =
                 [&](TCallRecorder& receiver, TObject* owner) {
                     FService.ChangeAccountCallback(account, receiver.Event(), owner, {});
                 },
             .Remove = [&](TObject* owner) { FService.RemoveAccountCallback(account, owner); },
             .Change = [&] { FDriver.Change(account); },
             .Inspect = [&](Pointer sender) { return InspectAccounts(sender, account); }});
        const String master = FDriver.Master();
        const String sub = FDriver.SubAccount();
        CheckRegistrationRules(
            FCheck, FDriver,
            {.Name = u"AddSubAccountCallback",
             .Register =
                 [&](TCallRecorder& receiver, TObject* owner) {
                     FService.AddSubAccountCallback(master, receiver.Event(), owner, nullptr);
                 },
             .Remove = [&](TObject* owner) { FService.RemoveSubAccountCallback(master, owner); },
             .Change = [&] { FDriver.Change(sub); },
             .Inspect = [&](Pointer sender) { return InspectAccounts(sender, sub); }});
    }

    void OtherRegistrations() {
        const String account = FDriver.Account();
        CheckRegistrationRules(
            FCheck, FDriver,
            {.Name = u"AddAllAccountCallback",
             .Register =
                 [&](TCallRecorder& receiver, TObject* owner) {
                     FService.AddAllAccountCallback(receiver.Event(), owner);
                 },
             .Remove = [&](TObject* owner) { FService.RemoveAllAccountCallback(owner); },
             .Change = [&] { FDriver.Change(account); },
             .Inspect = [&](Pointer sender) { return InspectAccounts(sender, account); }});
        CheckRegistrationRules(
            FCheck, FDriver,
            {.Name = u"AddAccountReadyCallback",
             .Register =
                 [&](TCallRecorder& receiver, TObject* owner) {
                     FService.AddAccountReadyCallback(receiver.Event(), owner);
                 },
             .Remove = [&](TObject* owner) { FService.RemoveAccountReadyCallback(owner); },
             .Change =
                 [&] {
                     FDriver.SetReady(false);
                     FDriver.SetReady(true);
                 },
             .Inspect = InspectNil});
    }

    void LoadRegistrations() {
        const String account = FDriver.Account();
        const String sub = FDriver.SubAccount();
        const TEventRow details = {
            .Name = u"AddAccountInfoLoadCallback",
            .Register =
                [&](TCallRecorder& receiver, TObject* owner) {
                    FService.AddAccountInfoLoadCallback(receiver.Event(), owner);
                },
            .Remove = [&](TObject* owner) { FService.RemoveAccountInfoLoadCallback(owner); },
            .Change = [&] { FDriver.LoadDetails(account); },
            .Inspect = [&](Pointer sender) { return InspectAccounts(sender, account); }};
        const TEventRow subAccounts = {
            .Name = u"AddSubAccountLoadCallback",
            .Register =
                [&](TCallRecorder& receiver, TObject* owner) {
                    FService.AddSubAccountLoadCallback(receiver.Event(), owner);
                },
            .Remove = [&](TObject* owner) { FService.RemoveSubAccountLoadCallback(owner); },
            .Change = [&] { FDriver.LoadSubAccount(sub); },
            .Inspect = [&](Pointer sender) { return InspectAccounts(sender, sub); }};
        const bool loadsDetails = FDriver.LoadDetails(account);
        const bool loadsSubAccounts = FDriver.LoadSubAccount(sub);
        FDriver.Deliver();
        (loadsDetails ? CheckRegistrationRules : CheckSilentRegistration)(FCheck, FDriver, details);
        (loadsSubAccounts ? CheckRegistrationRules : CheckSilentRegistration)(FCheck, FDriver,
                                                                              subAccounts);
    }

    TAccountDriver& FDriver;
    TCustomAccountAdapter& FService;
    TChecker FCheck;
};

} // namespace

void CheckAccountAdapter(TAccountDriver& driver, TContractReport& report) {
    TAccountChecks(driver, report).CheckAll();
}

} // namespace quorin
