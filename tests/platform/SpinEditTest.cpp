#include "platform/widgets/SpinEdit.h"
#include "tests/platform/EditTrace.h"
#include "tests/support/AllocationCount.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>

namespace quorin {
namespace {

// A form with two fields. The first holds 12.0, has the focus and the caret at its end.
struct TStage : TEditPerson {
    TStage() {
        Edit->SetParent(&Form);
        Other->SetParent(&Form);
        Edit->Properties().SetValueType(TcxSpinEditValueType::Float);
        Start();
    }
    void Start() {
        Trace.HandlesWheel = false;
        Edit->Enter();
        Edit->SetEditValue(Variant());
        Edit->SetEditValue(12.0);
        Do(u"exit"); // nothing is entered any more
        Trace.Take();
    }
    std::string State() const { return Told(Edit->EditValue()) + " " + ToUtf8(Edit->Text()); }
    // The text with the caret or the selection in it.
    std::string Field() const {
        String text = Edit->Text();
        text.insert(static_cast<std::size_t>(Edit->SelStart() + Edit->SelLength()), u"|");
        if (Edit->SelLength() > 0) text.insert(static_cast<std::size_t>(Edit->SelStart()), u"|");
        return ToUtf8(text);
    }

    TcxCustomEdit* Edited() override { return Edit.get(); }
    bool DoWord(StringView name, StringView argument) override {
        if (name == u"value") return Edit->SetEditValue(Variant(argument)), true;
        if (name == u"whole") return Edit->SetEditValue(ToIntegerOr(argument, 0)), true;
        if (name == u"max") return Edit->Properties().SetMaxValue(100), true;
        if (name == u"tick") return Edit->Tick(ToIntegerOr(argument, 0)), true;
        if (name == u"step") return Edit->Properties().SetIncrement(argument == u"1"), true;
        if (name == u"handled") return Trace.HandlesWheel = true;
        if (name == u"other") return Other->Enter(), true;
        if (name == u"hide") return Form.Hide(), true;
        if (name == u"show") return Form.Show(), true;
        if (name == u"disable") return Form.SetEnabled(false), true;
        if (name == u"unparent") return Edit->SetParent(nullptr), true;
        return TEditPerson::DoWord(name, argument);
    }

    TControl Form;
    std::unique_ptr<TcxSpinEdit> Edit = CreateComponent<TcxSpinEdit>();
    std::unique_ptr<TcxSpinEdit> Other = CreateComponent<TcxSpinEdit>();
    TEditTrace Trace{*Edit, [this] { return Told(Edit->EditValue()); }};
};

struct TSpinEditTest : testing::Test, TStage {};

TEST_F(TSpinEditTest, EventsComeInOrder) {
    struct TCase {
        const char* Name;
        StringView Script;
        const char* Events;
        const char* Field;
    };
    // clang-format off
    const TCase cases[] = {
        {"types", u"type:5", "down53 press5 change:125.0 up53", "125|"},
        {"refused character", u"type:k", "down75 pressk up75", "12|"},
        {"full width", u"type:\uFF15", "down229 press5 change:125.0 up229", "125|"},
        {"not a number yet", u"type:e", "down69 presse change:12.0 up69", "12e|"},
        {"composes", u"compose:\uFF15", "", "12|"},
        {"composed", u"compose:san commit:\uFF13\u3002",
         "down229 press3 change:123.0 up229 down229 press. change:123.0 up229", "123.|"},
        {"back", u"back", "down8 press#8 change:1.0 up8", "1|"},
        {"nothing to delete", u"delete", "down46 press#8 up46", "12|"},
        {"deletes all", u"all delete", "down46 press#8 change:null up46", "|"},
        {"pastes", u"paste:\t\uFF13,456.5\r\nx", "down86 press#22 change:123456.5 up86", "123,456.5|"},
        {"paste of something else", u"paste:$5", "down86 press#22 up86", "12|"},
        {"cuts", u"shift+left cut", "down37 up37 down88 press#24 change:1.0 up88", "1|"},
        {"same again", u"all paste:12", "down86 press#22 up86", "12|"},
        {"spin key", u"up", "down38 change:13.0 up38", "13|"},
        {"button", u"press:1 release", "mousedown change:11.0 mouseup", "11|"},
        {"click", u"click:1", "mousedown click mouseup", "1|2"},
        {"click on a selection", u"all click:0", "mousedown click mouseup", "|12"},
        {"write", u"value:7", "change:7.0", "7|"},
        {"equal write", u"whole:12 value:12.00", "", "12|"},
        {"null is not 0", u"value: whole:0", "change:null change:0.0", "0|"},
        {"editing text", u"text:1", "", "1|"},
        {"return", u"type:.e return return",
         "down190 press. change:12.0 up190 down69 presse change:12.0 up69 "
         "down13 press#13 validate'12.e' up13 down13 press#13 up13", "12|"},
        {"escape", u"type:5 escape escape",
         "down53 press5 change:125.0 up53 down27 press#27 change:12.0 up27 down27 press#27 up27", "12|"},
        {"leaves", u"leave leave", "exit", "12|"},
        {"leaves edited", u"max type:5 leave",
         "down53 press5 change:125.0 up53 validate'125' change:100.0 exit", "100|"},
        {"told to act as left", u"exit exit", "exit exit", "12|"},
        {"another takes the focus", u"other type:5", "exit", "12|"},
        {"tabs in", u"other enter", "exit enter", "|12|"},
        {"wheel", u"wheel:-240", "wheel down40 change:11.0 up40 down40 change:10.0 up40", "10|"},
        {"wheel by parts of a notch", u"wheel:70 wheel:70 wheel:-110",
         "wheel wheel down38 change:13.0 up38 wheel", "13|"},
        {"wheel that a handler takes", u"handled wheel:120", "wheel", "12|"},
        {"wheel without the focus", u"leave wheel:120", "exit", "12|"},
        {"held before the delay", u"press tick:399", "mousedown change:13.0", "13|"},
        {"held", u"press tick:399 tick:1 tick:99 tick:1",
         "mousedown change:13.0 change:14.0 change:15.0", "15|"},
        {"host stands still", u"press tick:60000 tick:0", "mousedown change:13.0 change:14.0", "14|"},
        {"held without a step", u"press step:0 tick:400 release step:1", "mousedown change:13.0 mouseup", "13|"},
        {"released", u"press release tick:9999 release", "mousedown change:13.0 mouseup", "13|"},
        {"hidden while held", u"press hide release tick:9999 show",
         "mousedown change:13.0 mouseup validate'13' exit", "13|"},
        {"left with the mouse held on the text", u"hold:1 leave", "mousedown mouseup exit", "1|2"},
    };
    // clang-format on
    for (const TCase& row : cases) {
        SCOPED_TRACE(row.Name);
        Edit->ReleaseButton();
        Edit->Properties().ClearMaxValue();
        Start();
        Do(row.Script);
        EXPECT_EQ(Trace.Take(), row.Events);
        EXPECT_EQ(Field(), row.Field);
    }
}

TEST_F(TSpinEditTest, ReadsWhatIsTyped) {
    using enum TcxSpinEditValueType;
    struct TCase {
        const char* Name;
        TcxSpinEditValueType Type;
        StringView Script;
        const char* Before; // value and text while typing
        const char* After;  // and after the leave
    };
    // clang-format off
    const TCase cases[] = {
        {"sign alone", Float, u"type:-", "7.0 -", "7.0 7"},
        {"open exponent", Float, u"type:1e", "1.0 1e", "1.0 1"},
        {"exponent", Float, u"type:1e3", "1000.0 1e3", "1000.0 1000"},
        {"open fraction", Float, u"type:1.", "1.0 1.", "1.0 1"},
        {"fraction alone", Float, u"type:.50", "0.5 .50", "0.5 0.5"},
        {"group marks", Float, u"type:1,234.5", "1234.5 1,234.5", "1234.5 1234.5"},
        {"zero has no sign", Float, u"type:-0", "0.0 -0", "0.0 0"},
        {"second point", Float, u"type:1.2.3", "1.2 1.2.3", "1.2 1.2"},
        {"marks only", Float, u"type:,", "7.0 ,", "7.0 7"},
        {"nothing", Float, u"delete", "null ", "null "},
        {"whole", Whole, u"type:-5", "-5 -5", "-5 -5"},
        {"whole takes no point", Whole, u"type:1.5", "15 15", "15 15"},
        {"wider than 32 bits", Whole, u"type:9999999999", "9999999999 9999999999", "9999999999 9999999999"},
    };
    // clang-format on
    for (const TCase& row : cases) {
        SCOPED_TRACE(row.Name);
        Edit->Properties().SetValueType(row.Type);
        Do(u"leave whole:7 enter all");
        Do(row.Script);
        EXPECT_EQ(State(), row.Before);
        Do(u"leave");
        EXPECT_EQ(State(), row.After);
    }
}

TEST_F(TSpinEditTest, WritesBecomeTheValueType) {
    using enum TcxSpinEditValueType;
    constexpr Double infinity = std::numeric_limits<Double>::infinity();
    struct TCase {
        const char* Name;
        TcxSpinEditValueType Type;
        Variant Written;
        const char* Value;
    };
    const TCase cases[] = {
        {"whole to real", Float, Variant(3), "3.0"},
        {"text to real", Float, Variant(u"1,000.5"), "1000.5"},
        {"other text", Float, Variant(u"abc"), "7.0"},
        {"empty text", Float, Variant::EmptyText(), "null"},
        {"array", Float, Variant(Variant::TArray{Variant(1)}), "7.0"},
        {"infinite", Float, Variant(infinity), "null"},
        {"half to even", Whole, Variant(2.5), "2"},
        {"long whole", Whole, Variant(Int64{5'000'000'000}), "5000000000"},
        {"text to whole", Whole, Variant(u"12"), "12"},
        {"fraction as text", Whole, Variant(u"1.5"), "7"},
    };
    for (const TCase& row : cases) {
        Edit->Properties().SetValueType(row.Type);
        Edit->SetEditValue(Variant(7));
        Edit->SetEditValue(row.Written);
        EXPECT_EQ(Told(Edit->EditValue()), row.Value) << row.Name;
        const bool isWhole = Edit->EditValue().Kind() == Variant::TKind::LongWhole;
        EXPECT_EQ(isWhole, row.Type == Whole && !Edit->EditValue().IsNull()) << row.Name;
    }
}

TEST_F(TSpinEditTest, FormatsFollowFocusAndProperties) {
    Edit->Properties().SetDisplayFormat(u"#,##0.00");
    Edit->Properties().SetEditFormat(u"0.####");
    Do(u"value:1234.5");
    EXPECT_EQ(State(), "1234.5 1234.5");
    Do(u"leave");
    EXPECT_EQ(State(), "1234.5 1,234.50");
    Edit->Properties().SetUseDisplayFormatWhenEditing(true);
    Do(u"enter end type:7");
    Edit->Properties().SetDisplayFormat(u"0"); // what is being typed stays
    EXPECT_EQ(State(), "1234.507 1,234.507");
    Trace.Take();
    Edit->Properties().SetValueType(TcxSpinEditValueType::Whole);
    EXPECT_EQ(State(), "1235 1235");
    Edit->Properties().SetValueType(TcxSpinEditValueType::Float);
    EXPECT_EQ(State(), "1235.0 1235");
    EXPECT_EQ(Trace.Take(), "change:1235"); // only the first was another number
}

TEST_F(TSpinEditTest, StepsInsideLimits) {
    struct TCase {
        const char* Name;
        StringView Script;
        Double Increment;
        const char* State;
    };
    const TCase cases[] = {
        {"null counts as 0", u"value: up", 0.5, "0.5 0.5"},
        {"held at the maximum", u"value:99.8 up", 0.5, "100.0 100"},
        {"from above the maximum", u"value:500 up", 0.5, "100.0 100"},
        {"held at the minimum", u"value:-4.9 down", 0.5, "-5.0 -5"},
        {"in place of other text", u"value:100 all type:- up", 0.5, "100.0 100"},
        {"no step", u"value:7 up", 0.0, "7.0 7"},
        {"a program may write more", u"value:1000 exit", 1.0, "1000.0 1000"},
    };
    Edit->Properties().SetMinValue(-5);
    Edit->Properties().SetMaxValue(100);
    for (const TCase& row : cases) {
        Edit->Properties().SetIncrement(row.Increment);
        Start();
        Do(row.Script);
        EXPECT_EQ(State(), row.State) << row.Name;
    }
    Edit->Properties().SetIncrement(0.1);
    Do(u"value:0.1 up up");
    EXPECT_EQ(Edit->EditValue(), Variant(0.3)); // without the dust of binary fractions
    EXPECT_TRUE(Edit->Properties().HasMinValue());
    EXPECT_FALSE(Other->Properties().HasMinValue());
}

TEST_F(TSpinEditTest, KnowsItsButtons) {
    Edit->SetBounds(40, 10, 100, 20);
    EXPECT_EQ(Edit->ButtonVisibleIndexAt({83, 0}), TcxSpinEdit::UpButton);
    EXPECT_EQ(Edit->ButtonVisibleIndexAt({99, 10}), TcxSpinEdit::DownButton);
    EXPECT_EQ(Edit->ButtonVisibleIndexAt({82, 0}), TcxSpinEdit::NoButton);
    EXPECT_EQ(Edit->ButtonVisibleIndexAt({99, 20}), TcxSpinEdit::NoButton);
}

TEST_F(TSpinEditTest, HandlersChangeTheKey) {
    Trace.OnPress = [](Char& key) { key = key == u'x' ? u'7' : KeyChar::None; };
    Do(u"type:5x paste:1 back");
    EXPECT_EQ(Trace.Take(), "down53 press5 up53 down88 pressx change:127.0 up88 "
                            "down86 press#22 up86 down8 press#8 up8");
    Trace.OnDown = [](Word& key) { key = key == Key::Up ? Key::Down : 0; };
    Do(u"up type:5 paste:5");
    EXPECT_EQ(Trace.Take(), "down38 change:126.0 up38 down53 up53 down86 up86");
}

TEST_F(TSpinEditTest, HandlersReplaceTextAndValue) {
    Trace.OnPress = [this](Char& key) {
        if (key == u'k') Edit->SetEditValue(Edit->EditValue().ToDouble() * 1000);
    };
    Do(u"type:k");
    EXPECT_EQ(Trace.Take(), "down75 pressk change:12000.0 up75");
    Trace.ActsOn = "change";
    Trace.Act = [this] {
        Edit->SetEditingText(u"120,005");
        Edit->SetSelStart(3);
    };
    Do(u"type:5");
    EXPECT_EQ(Field(), "120|,005");
    Trace.Take();
    Trace.ActsOn = "change";
    Trace.Act = [this] { Edit->SetEditValue(Variant(300)); };
    Do(u"up");
    EXPECT_EQ(Trace.Take(), "down38 change:120006.0 change:300.0 up38");
    EXPECT_EQ(Field(), "300|");
}

TEST_F(TSpinEditTest, ValidationReplacesOrRefuses) {
    Trace.OnValidate = [](Variant& text, String&, Boolean&) { text = Variant(u"50"); };
    Do(u"type:5 other");
    EXPECT_EQ(State(), "50.0 50");
    Trace.OnValidate = [](Variant&, String& reason, Boolean& error) {
        reason = u"too much";
        error = true;
    };
    Do(u"enter type:999");
    Trace.Take();
    Do(u"other leave");
    EXPECT_EQ(Trace.Take(), "validate'999' validate'999'");
    EXPECT_TRUE(Edit->Focused());
    EXPECT_EQ(Edit->ErrorText(), u"too much");
    EXPECT_EQ(State(), "999.0 999");
    Do(u"disable"); // no refusal helps against that
    EXPECT_FALSE(Edit->Focused());
}

TEST_F(TSpinEditTest, LeaveInsideALeaveIsIgnored) {
    for (const char* event : {"validate", "exit"}) {
        Start();
        Do(u"type:5");
        Trace.Take();
        Trace.ActsOn = event;
        Trace.Act = [this] { Do(u"leave exit"); };
        EXPECT_TRUE(Edit->Leave());
        EXPECT_EQ(Trace.Take(), "validate'125' exit");
    }
}

TEST_F(TSpinEditTest, OnlyWhatShowsAndIsEnabledTakesTheFocus) {
    using TSwitch = void (TControl::*)(bool);
    struct TCase {
        const char* Name;
        TControl& Hindered;
        TSwitch Switch;
        bool IsShowing;
    };
    const TCase cases[] = {
        {"hidden", *Edit, &TControl::SetVisible, false},
        {"disabled", *Edit, &TControl::SetEnabled, true},
        {"parent hidden", Form, &TControl::SetVisible, false},
        {"parent disabled", Form, &TControl::SetEnabled, true},
    };
    for (const TCase& row : cases) {
        SCOPED_TRACE(row.Name);
        (row.Hindered.*row.Switch)(false);
        EXPECT_EQ(Edit->Showing(), row.IsShowing);
        Do(u"enter type:5 press click up wheel:120 paste:5");
        EXPECT_EQ(Trace.Take(), "exit");
        (row.Hindered.*row.Switch)(true);
        Do(u"enter");
        EXPECT_EQ(Trace.Take(), "enter");
    }
}

TEST_F(TSpinEditTest, SurvivesBeingFreedInAnyHandler) {
    struct TCase {
        const char* Event;
        StringView Script;
    };
    const TCase cases[] = {
        {"down", u"type:55"},        {"press", u"type:55"},   {"change", u"type:55"},
        {"up", u"type:55"},          {"down", u"paste:5"},    {"press", u"paste:5"},
        {"change", u"paste:5"},      {"change", u"delete"},   {"change", u"all cut"},
        {"change", u"up"},           {"change", u"press"},    {"change", u"value:5"},
        {"change", u"escape"},       {"wheel", u"wheel:120"}, {"change", u"wheel:240"},
        {"down", u"wheel:240"},      {"up", u"wheel:240"},    {"mousedown", u"click:0"},
        {"click", u"click:0"},       {"mouseup", u"click:0"}, {"mouseup", u"press leave"},
        {"validate", u"other"},      {"validate", u"return"}, {"change", u"max leave"},
        {"exit", u"hide"},           {"exit", u"unparent"},   {"exit", u"exit"},
        {"enter", u"other click:0"},
    };
    for (const TCase& row : cases) {
        SCOPED_TRACE(row.Event + (' ' + ToUtf8(row.Script)));
        TStage stage;
        stage.Do(u"type:5 left");
        stage.Trace.ActsOn = row.Event;
        stage.Trace.Act = [&stage] { stage.Edit.reset(); };
        stage.Do(row.Script);
        EXPECT_EQ(stage.Edit, nullptr);
    }
}

TEST_F(TSpinEditTest, KeysTakeNoMemoryButTheText) {
    Other->Properties().SetDisplayFormat(u"#,##0");
    const auto use = [this] {
        Other->Enter();
        Other->TypeText(u"1234567890");
        Other->PressKey(Key::Up);
        Other->Wheel(WheelNotch);
        Other->PressButton(TcxSpinEdit::UpButton);
        Other->ReleaseButton();
        Other->SelectAll();
        Other->PressKey(Key::Delete);
    };
    use();
    const std::size_t before = AllocationCount();
    use();
    EXPECT_EQ(AllocationCount(), before);
}

} // namespace
} // namespace quorin
