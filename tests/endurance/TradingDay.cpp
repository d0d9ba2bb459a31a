#include "tests/endurance/TradingDay.h"

#include "embedded/UniverseFile.h"
#include "platform/rtl/ScopedValue.h"
#include "tests/endurance/LiveBytes.h"
#include "viewdata/editors/EditorManager.h"
#include "viewdata/market/MarketTradeSideDetector.h"
#include "viewdata/presentation/IImageResource.h"
#include "viewdata/services/ConfigKeys.h"

#include <algorithm>
#include <array>
#include <string>

namespace quorin {

namespace {

constexpr std::size_t MostForms = 50;
constexpr Integer ActionsPerStep = 3;
constexpr Integer PaintsPerStep = 3;
constexpr Integer FaultRate = 10;        // one in so many steps has services that misbehave
constexpr Integer FaultsPerStep = 1'000; // a search looks up more than a million cells
constexpr Integer OrderRate = 4;
constexpr Int64 StepNanos = 500'000'000;
constexpr Integer StepsBeforeForms = 300;
constexpr std::size_t FollowersAtFirst = 8; // of an item, on an average day at a time
constexpr Int64 Morning = (9 * 3600 + 1800) * Int64{1'000'000'000}; // every exchange trades
constexpr Int64 Evening = (16 * 3600 + 1800) * Int64{1'000'000'000};

constexpr StringView Switches[] = {
    ConfigKey::ConfirmationPlaceOrd, ConfigKey::ConfirmationClosePosition,
    ConfigKey::ShowNegForShortPos,   ConfigKey::OptionsPLPrice,
    ConfigKey::MiddlePLPrice,        ConfigKey::DisplayZeroQty,
    ConfigKey::LoadAcctStatus,       ConfigKey::QtyThousandPeriod,
    ConfigKey::AmountDecimal};
constexpr StringView NumberSettings[] = {ConfigKey::DenominatorModeValue,
                                         ConfigKey::PVAvgPriceMode};

} // namespace

Integer TDayHost::Confirm(StringView, Integer) {
    constexpr Integer no = 0;
    return FOnQuestion && FOnQuestion() ? ConfirmYes : no;
}

TTradingDay::TTape::TTape(TEmbeddedServices& services) : FServices(services) {
    TEmbeddedSubscribeAdapter& items = FServices.Items();
    for (const TMarketExchange* exchange : FServices.Market().Universe().Exchanges()) {
        for (const auto* record : *FServices.Market().Universe().FindRecords(exchange->Code, {})) {
            TCustomSubItem* item = items.GetSubItem(record->GetSymbol(), LiveDataType, true);
            MakeRoom(items, *item);
            items.Subscribe(item, MakeEvent<&TTape::Changed>(this), this);
            ++FRegistrations;
            // Its margin is asked for now, so that the day does not grow by that.
            items.GetSubItem(String(SpanKeyPrefix) + record->GetSymbol(), LiveDataType, true);
        }
    }
}

TTradingDay::TTape::~TTape() {
    FServices.Items().EachItem(
        [this](TEmbeddedSubItem& item) { FServices.Items().Unsubscribe(&item, this); });
}

// An item keeps the memory of its followers for the next ones.
void TTradingDay::TTape::MakeRoom(TEmbeddedSubscribeAdapter& items, TCustomSubItem& item) {
    std::array<TObject, FollowersAtFirst> followers;
    for (TObject& follower : followers) {
        items.Subscribe(&item, MakeEvent<&TTape::Changed>(this), &follower);
        item.AddRealtimeListener(MakeEvent<&TTape::Told>(this), &follower);
    }
    for (TObject& follower : followers) {
        items.Unsubscribe(&item, &follower);
        item.RemoveRealtimeListener(&follower);
    }
}

void TTradingDay::TTape::Changed(Pointer sender, Pointer) {
    if (sender != nullptr) FUpdates += static_cast<TSubItemDictionary*>(sender)->Count();
}

TTradingDay::TTradingDay(TDayRandom& random, TFindings& findings, std::uint64_t seed)
    : FRandom(random), FFindings(findings), FSeed(seed),
      FServices({.Host = FHost, .DataDirectory = QUORIN_DATA_DIR, .SettingsPath = {}}),
      FDay{FServices, random, findings} {
    FHost.SetDesk(&FServices.Desk());
    FHost.SetFieldLists(FFieldLists.get());
    FHost.SetOnQuestion([this] { return ActDuringQuestion(); });
    LoadUniverse(std::filesystem::path(QUORIN_DATA_DIR) / "universe", FServices.Market());
    FServices.LoadAccounts(std::filesystem::path(QUORIN_DATA_DIR) / "accounts");
    BeginDay();
    FTape = std::make_unique<TTape>(FServices);
    // Until every symbol has traded and its item has all its fields.
    for (Integer step = 0; step < StepsBeforeForms; ++step) {
        FVenue->Step();
        FServices.Deliver();
    }
    // What may be traded gets its record now, so that the day does not grow by it.
    for (Integer index = 0; index < FServices.Accounts().GetAccountCount(); ++index) {
        const String& account = FServices.Accounts().GetAccountByIndex(index)->GetAccount();
        for (const String& symbol : FDay.TradedSymbols()) {
            FServices.Positions().Pend(account, symbol, /*isBuy=*/true, 0.0);
        }
    }
    FServices.Deliver();
    FMoney = std::make_unique<TMoneyChecker>();
    FFaults = std::make_unique<TFaultInjection>(FServices, static_cast<unsigned>(seed));
    FFaults->Plan().SetOn(false);
    OpenStaying();
}

TTradingDay::~TTradingDay() {
    FFindings.SetPlace("the end");
    CloseAll();
    FFaults.reset();
    FTape.reset();
    RequireRegistrations(0);
}

void TTradingDay::RequireRegistrations(Integer expected) {
    const std::pair<const char*, Integer> counts[] = {
        {"settings", FServices.Config().RegistrationCount()},
        {"languages", FServices.Language().RegistrationCount()},
        {"channels", FServices.Channels().RegistrationCount()},
        {"items",
         FServices.Items().RegistrationCount() - FServices.Positions().FollowedItemCount()},
        {"markets", FServices.Market().RegistrationCount()},
        {"accounts", FServices.Accounts().RegistrationCount()},
        {"positions", FServices.Positions().RegistrationCount()},
        {"currencies", FServices.Currencies().RegistrationCount()},
        {"products", FServices.Products().RegistrationCount()},
        {"orders", FServices.Desk().RegistrationCount()}};
    if (FServices.RegistrationCount() == expected) return;
    for (const auto& [service, count] : counts) {
        FFindings.Add("registrations are left: " + std::to_string(count) + " of " + service);
    }
}

// The next morning after the last evening.
void TTradingDay::BeginDay() {
    FVenue.reset();
    TVenueOptions options;
    options.Seed = FSeed + FDays++;
    options.StepNanos = StepNanos;
    options.StartNanos = Morning;
    options.UpdatesPerStep = FServices.Market().Universe().SymbolCount();
    FVenue = std::make_unique<TVenue>(FServices.Items(), FServices.Market(), options);
}

void TTradingDay::Step() {
    ++FFigures.Steps;
    FFindings.SetPlace("step " + std::to_string(FFigures.Steps));
    FFaults->Plan().SetOn(FRandom.OneIn(FaultRate), FaultsPerStep);
    for (Integer action = 0; action < ActionsPerStep; ++action) Act();
    if (FVenue->TimeNanos() >= Evening) BeginDay();
    FVenue->Step();
    FServices.Deliver();
    if (TOpenForm* open = AnyForm()) open->Form->Paint();
    FFaults->Plan().SetOn(false);
    for (Integer paint = 0; paint < PaintsPerStep; ++paint) {
        if (TOpenForm* open = AnyForm()) open->Form->Paint();
    }
    FServices.Deliver(); // also what faults have left
    for (Integer checks = 0; checks < PaintsPerStep; ++checks) CheckForm(*AnyForm());
    FFaults->Plan().Sweep(); // nobody is being told of anything now
    FFigures.PeakBytes = std::max(FFigures.PeakBytes, LiveBytes());
}

void TTradingDay::CheckForm(TOpenForm& open) {
    FFindings.SetPlace("step " + std::to_string(FFigures.Steps) + ", " + NameOf(open.Kind));
    FDay.IsAllReady = FServices.Accounts().IsAccountReady() &&
                      FServices.Market().IsMarketDataReady() && FServices.Login().IsLogin();
    open.Form->Check();
}

void TTradingDay::Act() {
    if (FForms.size() < MostForms && FRandom.OneIn(3)) return Open(FRandom.OneOf(DayFormKinds));
    switch (FRandom.Pick(12)) {
    case 0: return CloseAny();
    case 1:
    case 2: return SwitchAny();
    case 3: return FRandom.OneIn(4) ? ChangeState() : ChangeSetting();
    default: return UseAny(FRandom.OneIn(OrderRate));
    }
}

// The form that asks stays until it has its answer.
bool TTradingDay::ActDuringQuestion() {
    if (!FIsAsked) {
        const TScopedValue asked(FIsAsked, true);
        for (Integer action = FRandom.Pick(ActionsPerStep); action > 0; --action) Act();
        FServices.Deliver();
    }
    return FRandom.OneIn(2);
}

// One that is not busy.
TTradingDay::TOpenForm* TTradingDay::AnyForm() {
    const auto count = static_cast<Integer>(FForms.size());
    const Integer first = FRandom.Pick(count);
    for (Integer index = 0; index < count; ++index) {
        TOpenForm& open = *FForms[static_cast<std::size_t>((first + index) % count)];
        if (!open.IsBusy) return &open;
    }
    return nullptr;
}

void TTradingDay::Open(TDayFormKind kind) {
    std::unique_ptr<TDayForm> form = MakeDayForm(kind, FDay);
    FForms.push_back(std::make_unique<TOpenForm>(TOpenForm{kind, std::move(form)}));
    ++FFigures.FormsOpened;
    FFigures.MostForms = std::max(FFigures.MostForms, FForms.size());
}

void TTradingDay::CloseAny() {
    const TOpenForm* open = AnyForm();
    const auto found =
        std::find_if(FForms.begin() + static_cast<std::ptrdiff_t>(FStaying), FForms.end(),
                     [&](const auto& form) { return form.get() == open; });
    if (found == FForms.end()) return;
    const std::unique_ptr<TOpenForm> closing = std::move(*found); // it may call others as it ends
    FForms.erase(found);
}

void TTradingDay::UseAny(bool mayOrder) {
    TOpenForm* open = AnyForm();
    if (open == nullptr) return;
    const TScopedValue busy(open->IsBusy, true);
    open->Form->Use(mayOrder);
}

void TTradingDay::SwitchAny() {
    TOpenForm* open = AnyForm();
    if (open == nullptr) return;
    const TScopedValue busy(open->IsBusy, true);
    open->Form->Switch();
}

void TTradingDay::SetSetting(StringView key, StringView value) {
    TEmbeddedConfigManager& config = FServices.Config();
    config.Set(config.GetCurrentSection(), key, value);
    if (key == ConfigKey::DisplayZeroQty) FDay.ShowsZeroQuantity = !value.empty();
    config.Commit();
}

void TTradingDay::ChangeSetting() {
    static constexpr TAppLanguage languages[] = {
        TAppLanguage::English, TAppLanguage::TraditionalChinese, TAppLanguage::SimplifiedChinese};
    switch (FRandom.Pick(4)) {
    case 0: return FServices.Language().SetLanguage(FRandom.OneOf(languages));
    case 1: return SetSetting(FRandom.OneOf(NumberSettings), FRandom.OneIn(2) ? u"1" : u"2");
    default: return SetSetting(FRandom.OneOf(Switches), FRandom.OneIn(2) ? u"Y" : u"");
    }
}

// The states that a terminal may be in, which last for a while.
void TTradingDay::ChangeState() {
    if (FRandom.OneIn(2)) return MakeReady();
    switch (FRandom.Pick(3)) {
    case 0: return FServices.Accounts().SetReady(false);
    case 1: return FServices.Market().SetMarketDataReady(false);
    default: return FServices.Login().SetLogin(false);
    }
}

void TTradingDay::MakeReady() {
    FServices.Login().SetLogin(true);
    if (!FServices.Market().IsMarketDataReady()) FServices.Market().SetMarketDataReady(true);
    if (!FServices.Accounts().IsAccountReady()) FServices.Accounts().SetReady(true);
}

void TTradingDay::RestoreSettings() {
    for (const StringView key : Switches) SetSetting(key, {});
    for (const StringView key : NumberSettings) SetSetting(key, {});
    FServices.Language().SetLanguage(TAppLanguage::English);
}

void TTradingDay::OpenStaying() {
    for (const TDayFormKind kind : DayFormKinds) Open(kind);
    FStaying = FForms.size();
}

void TTradingDay::CloseAll() {
    FForms.clear();
    FFieldLists = std::make_unique<TFieldLists>();
    FHost.SetFieldLists(FFieldLists.get());
    TMarketTradeSideDetector::ReleaseInstance();
    TEditorManager::ReleaseInstance();
    TIImageResourceList::ReleaseInstance();
}

std::size_t TTradingDay::CloseAndWeigh() {
    MakeReady();
    RestoreSettings();
    FServices.Deliver();
    for (const auto& open : FForms) CheckForm(*open);
    FFindings.SetPlace("after step " + std::to_string(FFigures.Steps));
    CloseAll();
    for (const std::string& line : FMoney->Check()) FFindings.Add(line);
    FFaults->Plan().Sweep();
    RequireRegistrations(FTape->Registrations());
    const std::size_t held = LiveBytes() - BytesOfRecords() - BytesOfItems();
    OpenStaying();
    return held;
}

// By what a copy takes that grows as they have grown.
std::size_t TTradingDay::BytesOfRecords() {
    const auto makeRoom = [](String& copy, const String& kept) { copy.reserve(kept.capacity()); };
    const std::size_t before = LiveBytes();
    std::deque<TDeskOrder> orders;
    for (const TDeskOrder& kept : FServices.Desk().Orders()) {
        TOrderValues& values = orders.emplace_back(kept).Values;
        makeRoom(values.Account, kept.Values.Account);
        makeRoom(values.Symbol, kept.Values.Symbol);
    }
    std::deque<TOrderAuditEntry> audit;
    for (Integer index = 0; index < FServices.Desk().Audit().Count(); ++index) {
        const TOrderAuditEntry& kept = FServices.Desk().Audit()[index];
        TOrderAuditEntry& copy = audit.emplace_back(kept);
        makeRoom(copy.Account, kept.Account);
        makeRoom(copy.Symbol, kept.Symbol);
        makeRoom(copy.Text, kept.Text);
    }
    const TMessageLog messages = FHost.Messages();
    return LiveBytes() - before;
}

// The same of the items, of which each code that somebody has typed keeps one.
std::size_t TTradingDay::BytesOfItems() {
    const std::size_t before = LiveBytes();
    TEmbeddedSubscribeAdapter copy;
    FServices.Items().EachItem([&](TEmbeddedSubItem& item) { copy.Item(item.GetKey()); });
    return LiveBytes() - before;
}

const TDayFigures& TTradingDay::Figures() {
    FFigures.Updates = FTape->Updates();
    FFigures.Orders = FServices.Desk().Orders().size();
    FFigures.Faults = FFaults->Plan().HappenedInAll();
    return FFigures;
}

} // namespace quorin
