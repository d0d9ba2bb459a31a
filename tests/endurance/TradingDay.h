#pragma once

#include "embedded/venue/Venue.h"
#include "terminal/console/ConsoleHost.h"
#include "tests/endurance/DayForm.h"
#include "tests/support/FaultInjection.h"
#include "tests/support/MoneyChecker.h"

#include <functional>
#include <ostream>
#include <vector>

namespace quorin {

// A host whose user does other things while a question is open, and then says yes or no.
class TDayHost final : public TConsoleHost {
public:
    explicit TDayHost(std::ostream& messages) : TConsoleHost(messages) {}
    void SetOnQuestion(std::function<bool()> event) { FOnQuestion = std::move(event); }
    Integer Confirm(StringView text, Integer defaultAnswer) override;

private:
    std::function<bool()> FOnQuestion;
};

// What there was of everything.
struct TDayFigures {
    std::int64_t Steps = 0;
    std::int64_t Updates = 0; // delivered to somebody
    std::int64_t FormsOpened = 0;
    std::size_t MostForms = 0; // at a time
    std::size_t Orders = 0;
    std::int64_t Faults = 0;
    std::size_t PeakBytes = 0;
};

// A terminal with up to fifty forms, over the simulated venue and over services that misbehave,
// with a user who does everything at random. One form of each kind stays open from one
// CloseAndWeigh to the next.
class TTradingDay {
public:
    TTradingDay(TDayRandom& random, TFindings& findings, std::uint64_t seed);
    TTradingDay(const TTradingDay&) = delete;
    TTradingDay& operator=(const TTradingDay&) = delete;
    ~TTradingDay();

    // Something that the user does, prices, a look at the screen, and checks.
    void Step();
    // Closes every form, checks what must hold then and answers the bytes that are held, without
    // what the day has to keep of its orders and messages. Goes on with a form of every kind.
    std::size_t CloseAndWeigh();
    const TDayFigures& Figures();

private:
    // Counts what is delivered of the whole universe.
    class TTape : public TObject {
    public:
        explicit TTape(TEmbeddedServices& services);
        ~TTape() override;
        std::int64_t Updates() const { return FUpdates; }
        Integer Registrations() const { return FRegistrations; }

    private:
        void MakeRoom(TEmbeddedSubscribeAdapter& items, TCustomSubItem& item);
        void Changed(Pointer sender, Pointer);
        void Told(TObject*) {}
        TEmbeddedServices& FServices;
        std::int64_t FUpdates = 0;
        Integer FRegistrations = 0;
    };
    struct TOpenForm {
        TDayFormKind Kind;
        std::unique_ptr<TDayForm> Form;
        bool IsBusy = false; // an operation of it is under way
    };

    void BeginDay();
    void Act();
    bool ActDuringQuestion();
    TOpenForm* AnyForm();
    void Open(TDayFormKind kind);
    void CloseAny();
    void UseAny(bool mayOrder);
    void SwitchAny();
    void ChangeSetting();
    void ChangeState();
    void SetSetting(StringView key, StringView value);
    void MakeReady();
    void RestoreSettings();
    void CheckForm(TOpenForm& open);
    std::size_t BytesOfRecords();
    std::size_t BytesOfItems();
    void RequireRegistrations(Integer expected);
    void OpenStaying();
    void CloseAll();

    TDayRandom& FRandom;
    TFindings& FFindings;
    const std::uint64_t FSeed;
    std::ostream FNowhere{nullptr};
    TDayHost FHost{FNowhere};
    TEmbeddedServices FServices;
    std::unique_ptr<TFieldLists> FFieldLists = std::make_unique<TFieldLists>();
    TDay FDay;
    std::unique_ptr<TVenue> FVenue;
    std::uint64_t FDays = 0;
    std::unique_ptr<TTape> FTape;
    std::unique_ptr<TFaultInjection> FFaults;
    std::vector<std::unique_ptr<TOpenForm>> FForms; // those that stay come first
    std::size_t FStaying = 0;
    std::unique_ptr<TMoneyChecker> FMoney;
    bool FIsAsked = false;
    TDayFigures FFigures;
};

} // namespace quorin
