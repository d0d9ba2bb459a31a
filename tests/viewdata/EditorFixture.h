#pragma once

#include "tests/platform/EditTrace.h"
#include "tests/support/ServicesFixture.h"
#include "viewdata/editors/EditorManager.h"
#include "viewdata/presentation/IImageResource.h"
#include "viewdata/services/ChannelMessages.h"
#include "viewdata/services/ConfigKeys.h"

#include <algorithm>
#include <array>
#include <tuple>
#include <vector>

namespace quorin {

// Writes down what is published on the channels of linked fields: "00700@G", "-" for empty text.
class TChannelSpy : public TObject {
public:
    TChannelSpy() {
        for (const Integer channel : {Channel::CurrentSymbol, Channel::CurrentAccount}) {
            FChannels.RegisterChannelCallback(channel, MakeEvent<&TChannelSpy::Heard>(this), this);
        }
    }
    ~TChannelSpy() override {
        for (const Integer channel : {Channel::CurrentSymbol, Channel::CurrentAccount}) {
            FChannels.RemoveChannelCallback(channel, this);
        }
    }
    std::string Take() { return std::exchange(FHeard, {}); }

private:
    void Heard(Pointer sender, Pointer) {
        if (TFaultPlan::IsInFault()) return;
        String value;
        String group;
        if (const auto* change = ObjectAs<TCustomGroupData>(sender)) {
            value = change->GetChannelValue(change->GetChannel());
            group = u"@" + change->GetGroupID();
        } else if (const auto* offer = ObjectAs<TCustomListObject>(sender)) {
            value = offer->GetText();
        }
        FHeard += " " + ToUtf8(value.empty() ? u"-" : value) + ToUtf8(group);
    }

    TCustomGlobalChannelManager& FChannels = *TCustomGlobalChannelManager::GetInstance();
    std::string FHeard;
};

// The text with the caret or the selection in it.
inline std::string FieldOf(const TcxCustomEdit& edit) {
    String text = edit.Text();
    text.insert(static_cast<std::size_t>(edit.SelStart() + edit.SelLength()), u"|");
    if (edit.SelLength() > 0) text.insert(static_cast<std::size_t>(edit.SelStart()), u"|");
    return ToUtf8(text);
}

// All events of an edit but the wheel's, which a record clears.
inline auto EventsOf(TcxCustomEdit& edit) {
    return std::tuple(edit.OnKeyDown(), edit.OnKeyPress(), edit.OnKeyUp(), edit.OnMouseDown(),
                      edit.OnMouseUp(), edit.OnClick(), edit.OnEnter(), edit.OnExit(),
                      edit.Properties().OnChange(), edit.Properties().OnValidate());
}

// One row of a table: what a person does, and what the fields look like afterwards.
struct TEditorCase {
    const char* Name;
    StringView Script;
    const char* State;
};

// An editor manager over the services of TServicesFixture and more symbols, which are all ready but
// LATE: RATIO, ZERO and WORD with the display ratios 10, 0 and a word; LOTWORD, LOT0 and FRACTION
// with these lots; LATE with a tick table that is loaded late, of 0.5 below 100. In scripts "_" is
// a blank and "-" stands for empty text.
class TEditorFixture : public TServicesFixture, protected TEditPerson {
protected:
    TEditorFixture() {
        WithoutCallsInside("a half-typed symbol is replaced by any exchange update");
        FSpy = std::make_unique<TChannelSpy>();
        static constexpr TSpreadBand halves[] = {{0.0, 100.0, 0.5}};
        Services().Market().AddSpreadTable(u"SLOW", halves);
        Add({.Symbol = u"00007", .Names = {.Name = u"CK"}});
        Add({.Symbol = u"RATIO", .SpreadCode = u"HK", .DisplayRatio = u"10"});
        Add({.Symbol = u"ZERO", .SpreadCode = u"HK", .DisplayRatio = u"0"});
        Add({.Symbol = u"WORD", .SpreadCode = u"HK", .DisplayRatio = u"ten"});
        Add({.Symbol = u"LOTWORD"});
        Add({.Symbol = u"LOT0"});
        Add({.Symbol = u"FRACTION", .ProductType = 10, .FractionalQuantity = u"1"});
        Add({.Symbol = u"LATE", .SpreadCode = u"SLOW", .LotSize = 50.0});
        SetField(u"LOTWORD", Field::LotSize, StringView(u"many"));
        SetField(u"LOT0", Field::LotSize, 0.0);
        for (const StringView symbol :
             {u"00005", u"00700", u"HSIF", u"RATIO", u"ZERO", u"WORD", u"FRACTION"}) {
            Services().Items().Touch(Services().Items().Item(symbol));
        }
        Services().Deliver();
    }
    ~TEditorFixture() override {
        TEditorManager::ReleaseInstance();
        TIImageResourceList::ReleaseInstance();
        FSpy.reset();
    }

    static TEditorManager& Manager() { return *TEditorManager::GetInstance(); }
    std::string Heard() { return FSpy->Take(); }
    virtual void Start() = 0;
    virtual std::string State() = 0;

    void ExpectStates(const std::vector<TEditorCase>& cases) {
        for (const TEditorCase& row : cases) {
            SCOPED_TRACE(row.Name);
            Restart();
            Do(row.Script);
            EXPECT_EQ(State(), row.State);
        }
    }
    void Restart() {
        for (const auto& [section, key] : FTouchedSettings) {
            Services().Config().Set(section, key, {});
        }
        FTouchedSettings.clear();
        Services().Config().Commit();
        Services().Channels().SetRunState(0);
        Start();
    }
    void Set(StringView section, StringView key, StringView value) {
        Services().Config().Set(section, key, value);
        Services().Config().Commit();
        FTouchedSettings.emplace_back(section, key);
    }
    static String Unfold(StringView argument) {
        String text(argument == u"-" ? u"" : argument);
        std::replace(text.begin(), text.end(), u'_', u' ');
        return text;
    }
    bool DoWord(StringView name, StringView argument) override {
        if (name == u"paste") return Edited()->Paste(Unfold(argument)), true;
        if (name == u"typed") return Edited()->TypeText(Unfold(argument)), true;
        if (name == u"deliver") return Services().Deliver(), true;
        if (name == u"mode") {
            return Set(TradePlatformSection, ConfigKey::DefaultGroupDataMode, argument), true;
        }
        if (name == u"set") {
            const std::size_t equals = argument.find(u'=');
            const String section = Services().Config().GetCurrentSection();
            return Set(section, argument.substr(0, equals), argument.substr(equals + 1)), true;
        }
        return TEditPerson::DoWord(name, argument);
    }

    TControl Form;

private:
    void Add(TSymbolRecord record) {
        record.Exchange = u"SEHK";
        record.Series = u"MAIN";
        EXPECT_NE(Services().Market().AddSymbol(record), nullptr) << ToUtf8(record.Symbol);
    }

    std::unique_ptr<TChannelSpy> FSpy;
    std::vector<std::pair<String, String>> FTouchedSettings;
};

// One spin edit with the focus, empty, registered by the operations that are given, under a form
// that listens to all its events.
template <auto Register, auto Remove, auto SetSymbol>
class TSpinFixture : public TEditorFixture {
protected:
    TSpinFixture() { Start(); }

    void Start() override {
        Edit = CreateComponent<TcxSpinEdit>();
        Edit->SetParent(&Form);
        Trace = std::make_unique<TEditTrace>(*Edit, [this] { return Told(Edit->EditValue()); });
        (Manager().*Register)(Edit.get(), u"");
        Edit->Enter();
        Trace->Take();
    }
    // The step is told where it is not 1.
    std::string State() override {
        const Double step = Edit->Properties().Increment();
        return FieldOf(*Edit) + " " + Told(Edit->EditValue()) +
               (step == 1.0 ? "" : " step " + Told(step));
    }
    void ExpectWords(const std::vector<TEditorCase>& cases) {
        for (const TEditorCase& row : cases) {
            SCOPED_TRACE(row.Name);
            Restart();
            Do(u"symbol:00700 value:1000");
            Trace->Take();
            Do(row.Script);
            EXPECT_EQ(Trace->Take(), row.State);
        }
    }
    TcxCustomEdit* Edited() override { return Edit.get(); }
    bool DoWord(StringView name, StringView argument) override {
        if (name == u"value") return Edit->SetEditValue(ToDoubleOr(argument, 0.0)), true;
        if (name == u"null") return Edit->SetEditValue(Variant()), true;
        if (name == u"min") return Edit->Properties().SetMinValue(ToDoubleOr(argument, 0.0)), true;
        if (name == u"tick") return Edit->Tick(ToIntegerOr(argument, 0)), true;
        if (name == u"symbol") return (Manager().*SetSymbol)(Edit.get(), Unfold(argument)), true;
        if (name == u"register") return (Manager().*Register)(Edit.get(), argument), true;
        if (name == u"remove") return (Manager().*Remove)(Edit.get()), true;
        return TEditorFixture::DoWord(name, argument);
    }

    std::unique_ptr<TcxSpinEdit> Edit;
    std::unique_ptr<TEditTrace> Trace;
};

// Two popup edits on one form, not registered yet; words go to the one that `on:2` chose.
template <auto Register, auto Remove, Integer ChannelNumber, Integer ListMessage>
class TPopupFixture : public TEditorFixture {
protected:
    TPopupFixture() {
        Host().SetReceiver(TRecordingHost::TReceiver::Of<&TPopupFixture::MakeList>(this));
        Start();
    }

    void Start() override {
        TCustomGlobalChannelManager& channels = *TCustomGlobalChannelManager::GetInstance();
        FCurrent = 0;
        FBoth = false;
        for (TField& field : Fields) {
            field.Edit = CreateComponent<TcxPopupEdit>();
            field.Edit->SetParent(&Form);
            field.Trace = std::make_unique<TEditTrace>(
                *field.Edit, [&field] { return ToUtf8(field.Edit->Text()); });
            field.Pick = nullptr;
        }
        channels.PublishValue(ChannelNumber, {}, {}, {});
        channels.SetGroupValue(u"G", ChannelNumber, {});
        channels.SetGroupValue(u"H", ChannelNumber, {});
        Edited()->Enter();
        Heard();
    }
    // "text [hint]" of the first field, of both once the other was used, and what was published.
    std::string State() override {
        const auto told = [](const TcxPopupEdit& edit) {
            return FieldOf(edit) + " [" + ToUtf8(edit.Hint()) + "]";
        };
        const std::string second = told(*Fields[1].Edit);
        std::string state = told(*Fields[0].Edit);
        if (FBoth) state = state == second ? "both " + state : state + " / " + second;
        const std::string heard = Heard();
        return heard.empty() ? state : state + " heard" + heard;
    }
    // What the list view hands over for that word.
    virtual Pointer Chosen(StringView code) = 0;

    struct TField {
        std::unique_ptr<TcxPopupEdit> Edit;
        std::unique_ptr<TEditTrace> Trace;
        std::unique_ptr<TControl> List = CreateComponent<TControl>();
        TDataCallbackEvent Pick;
    };
    TcxPopupEdit* Edited() override { return Fields[FCurrent].Edit.get(); }
    TField& Current() { return Fields[FCurrent]; }
    bool DoWord(StringView name, StringView argument) override {
        TcxPopupEdit* edit = Edited();
        const String text = Unfold(argument);
        const std::size_t at = text.find(u'@');
        const String value = text.substr(0, at) == u"-" ? String() : text.substr(0, at);
        const String group = at == text.npos ? String() : text.substr(at + 1);
        TCustomGlobalChannelManager& channels = *TCustomGlobalChannelManager::GetInstance();
        if (name == u"register") return (Manager().*Register)(edit, text, false, true), true;
        if (name == u"alone") return (Manager().*Register)(edit, text, true, true), true;
        if (name == u"bare") return (Manager().*Register)(edit, text, false, false), true;
        if (name == u"remove") return (Manager().*Remove)(edit), true;
        if (name == u"pick") return Current().Pick({}, Chosen(text)), true;
        if (name == u"disable") return edit->SetEnabled(false), true;
        if (name == u"enable") return edit->SetEnabled(true), true;
        if (name == u"hint") return edit->SetText(text), edit->SetHint(text), true;
        if (name == u"runstate") return Services().Channels().SetRunState(100), true;
        if (name == u"offer") return channels.PublishValue(ChannelNumber, value, {}, group), true;
        if (name == u"group") return channels.SetGroupValue(group, ChannelNumber, value), true;
        if (name == u"on") {
            FBoth = true;
            FCurrent = static_cast<std::size_t>(ToIntegerOr(argument, 1) - 1);
            return Edited()->Enter(), true;
        }
        return TEditorFixture::DoWord(name, argument);
    }

    std::array<TField, 2> Fields;

private:
    Boolean MakeList(Integer number, Pointer data) {
        if (number != ListMessage) return false;
        auto* request = static_cast<TListViewRequestRecord*>(data);
        EXPECT_EQ(request->Result, nullptr);
        request->Result = Current().List.get();
        Current().Pick = request->Callback;
        return true;
    }

    std::size_t FCurrent = 0;
    bool FBoth = false; // both were used
};

} // namespace quorin
