#pragma once

#include "platform/rtl/Numbers.h"
#include "platform/rtl/Utf.h"
#include "tests/support/ServicesFixture.h"
#include "tests/viewdata/Kinded.h"
#include "viewdata/account/AccountAttributes.h"
#include "viewdata/account/AccountCashDataControl.h"
#include "viewdata/services/ResourceKeys.h"

#include <functional>
#include <initializer_list>
#include <utility>
#include <vector>

namespace quorin {

// An account service that does something inside its answers. It stands in for the installed one as
// long as it lives.
class TTalkingAccounts : public TEmbeddedAccountAdapter {
public:
    explicit TTalkingAccounts(TEmbeddedCurrencyAdapter& currencies)
        : TEmbeddedAccountAdapter(currencies) {
        ServiceRegistry::Install(static_cast<TCustomAccountAdapter*>(this));
    }
    ~TTalkingAccounts() override { ServiceRegistry::Install(FInstalled); }

    // Called once, by the next operation of that name, before it answers. Texts are copied, since
    // their owner may die inside.
    std::function<void()> InGetAccount;
    std::function<void()> InChange;

    TCustomAccount* GetAccount(StringView account, Boolean flag) override {
        const String code(account);
        if (InGetAccount) std::exchange(InGetAccount, nullptr)();
        return TEmbeddedAccountAdapter::GetAccount(code, flag);
    }
    void ChangeAccountCallback(StringView account, const TDataCallbackEvent& callback,
                               TObject* owner, StringView previous) override {
        if (InChange) std::exchange(InChange, nullptr)();
        TEmbeddedAccountAdapter::ChangeAccountCallback(account, callback, owner, previous);
    }

private:
    TCustomAccountAdapter* const FInstalled = TCustomAccountAdapter::GetInstance();
};

// Columns that live as long as the fixture.
class TOwnedColumns {
public:
    const TColumnList& Make(std::initializer_list<Integer> attributes) {
        FLists.push_back(std::make_unique<TColumnList>());
        for (const Integer attribute : attributes) {
            FColumns.push_back(TColumnInfo::AddColumn(
                attribute, u"Caption" + IntegerToText(attribute), 80, {}, false));
            FLists.back()->Add(FColumns.back().get());
        }
        return *FLists.back();
    }

private:
    std::vector<std::unique_ptr<TColumnInfo>> FColumns;
    std::vector<std::unique_ptr<TColumnList>> FLists;
};

inline constexpr StringView TestColumnTag = u"TestColumns";

// Opens what descendants may use.
template <class Base>
class TOpen : public Base {
    QUORIN_CLASS(TOpen, Base)

    explicit TOpen(TComponent* owner = nullptr) : Base(owner) {
        this->FCustomColumnTagID = TestColumnTag;
    }
    using Base::FAccountCurrencyDataCount;
    using Base::FAccountDataNodeList;
    using Base::FAccountDataValueNodeList;
    using Base::FColumnList;
    using Base::FConvertAccountDataNodeList;
    using Base::FDummyNodeList;
    using Base::FNodeList;
    using Base::FShowingChinaConnectAccountData;
    using Base::FSubAccountList;
};

// Several currencies (HKD 1, USD 8, CNY 1.25, JPY without a ratio), no accounts, and one control,
// whose signals are counted.
template <class Control>
class TAccountFixture : public TServicesFixture {
protected:
    using TControl = TOpen<Control>;

    TAccountFixture() {
        Services().Currencies().SetMultiCurrency(true);
        Services().Currencies().FeedRatio(u"USD", 8.0);
        Services().Currencies().FeedRatio(u"CNY", 1.25);
        Services().Currencies().FeedRatio(u"JPY", 0.0);
        SetText(ResourceTag::Currency, u"USD", u"US dollar");
        Deliver();
        Make();
    }
    ~TAccountFixture() override {
        FControl.reset();
        EXPECT_EQ(Accounts().RegistrationCount(), 0) << "registrations left behind";
    }

    TControl& View() { return *FControl; }
    TEmbeddedAccountAdapter& Accounts() {
        return FTalking != nullptr ? *FTalking : Services().Accounts();
    }
    // Before the first account is fed.
    TTalkingAccounts& LetAccountsTalk() {
        FreeControl();
        FTalking = std::make_unique<TTalkingAccounts>(Services().Currencies());
        Make();
        return *FTalking;
    }
    void Deliver() {
        Services().Deliver();
        if (FTalking != nullptr) FTalking->Deliver();
    }
    void SetText(StringView table, StringView key, StringView text, StringView type = {}) {
        Services().Language().SetText(TAppLanguage::English, table, key, text, type);
    }
    // Signals since the last time that somebody asked, those inside faults left out.
    Integer Signals() { return std::exchange(FSignals, 0); }
    void OnSignal(std::function<void()> action) { FAction = std::move(action); }
    void Make() {
        FControl = CreateComponent<TControl>();
        FControl->SetOnDataChanged(MakeEvent<&TAccountFixture::Signalled>(this));
    }
    void FreeControl() { FControl.reset(); }
    bool IsFreed() const { return FControl == nullptr; }

    TOwnedColumns Columns;

private:
    void Signalled(TObject* sender) {
        EXPECT_EQ(sender, FControl.get());
        if (!IsInFault()) ++FSignals;
        if (FAction) std::exchange(FAction, nullptr)();
    }

    std::unique_ptr<TTalkingAccounts> FTalking;
    std::unique_ptr<TControl> FControl;
    Integer FSignals = 0;
    std::function<void()> FAction;
};

} // namespace quorin
