#pragma once

#include "platform/rtl/TObject.h"

namespace quorin {

// The part of a form that shows one account, which for a master may be the sum over its
// sub-accounts.
class TAccountView {
public:
    TAccountView();
    TAccountView(const TAccountView&) = delete;
    TAccountView& operator=(const TAccountView&) = delete;
    virtual ~TAccountView();

    // Shows an account, known or not; empty shows none. What the service does not say of it yet is
    // taken in as soon as the accounts are ready.
    void ShowAccount(StringView account);
    // Sums from here on if the account is a master, or when it has turned out to be one.
    void ShowSums();
    // No sums from here on.
    void ShowPlain();
    // Whether it sums, or would for a master.
    bool WantsSums() const { return FWantsSums; }
    const String& ShownAccount() const { return FAccount; }
    // The account, with a "+" behind it where sums are wanted; and back. An empty text changes
    // nothing.
    String AccountChoice() const;
    void TakeAccountChoice(StringView choice);
    virtual void SetAggregate() = 0;
    virtual Boolean Aggregated() const = 0;

protected:
    virtual void SetAccount(StringView account) = 0;

private:
    void Follow();
    void AccountsReady(Pointer Sender, Pointer Data);
    void SumIfWanted();

    TObject FOwner; // of the registration
    String FAccount;
    bool FWantsSums = false;
};

// Names how an account is shown, apart from each other: its code, and that it is a sum.
String AccountTitle(StringView account, Boolean isAggregated);

} // namespace quorin
