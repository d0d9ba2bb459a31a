#include "platform/widgets/SpinEdit.h"
#include "tests/platform/EditTrace.h"
#include "tests/support/AllocationCount.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>

namespace quorin {
namespace {

// A form with two fields. The first holds 12.0, has the focus and the caret at its end.
struct TStage {
    TStage() {
        Edit->SetParent(&Form);
        Other->SetParent(&Form);
        Edit->Properties().SetValueType(TcxSpinEditValueType::Float);
        Edit->SetEditValue(12.0);
        Edit->Enter();
        Edit->SetSelStart(99);
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
    void Stroke(Word key, TShiftState shift = TShiftState::None) {
        Edit->PressKey(key, shift);
        if (Edit) Edit->ReleaseKey(key, shift);
    }

    TControl Form;
    std::unique_ptr<TcxSpinEdit> Edit = CreateComponent<TcxSpinEdit>();
    std::unique_ptr<TcxSpinEdit> Other = CreateComponent<TcxSpinEdit>();
    TEditTrace Trace{*Edit, [this] { return Told(Edit->EditValue()); }};
};

struct TSpinEditTest : testing::Test, TStage {};

TEST_F(TSpinEditTest, EventsComeInOrder) {
    using T = TStage;
    struct TCase {
        const char* Name;
        void (*Act)(TStage&);
        const char* Events;
        const char* Field;
    };
    const TCase cases[] = {
        {"types", [](T& t) { t.Edit->TypeText(u"5"); }, "down53 press5 change:125.0 up53", "125|"},
        {"refused character", [](T& t) { t.Edit->TypeText(u"k"); }, "down75 pressk up75", "12|"},
        {"full width", [](T& t) { t.Edit->TypeText(u"\uFF15"); },
         "down229 press5 change:125.0 up229", "125|"},
        {"not a number yet", [](T& t) { t.Edit->TypeText(u"e"); }, "down69 presse change:12.0 up69",
         "12e|"},
        {"composes", [](T& t) { t.Edit->Compose(u"\uFF15"); }, "", "12|"},
        {"composed",
         [](T& t) {
             t.Edit->Compose(u"san");
             t.Edit->CommitComposition(u"\uFF13\u3002");
         },
         "down229 press3 change:123.0 up229 down229 press. change:123.0 up229", "123.|"},
        {"back", [](T& t) { t.Stroke(Key::Back); }, "down8 press#8 change:1.0 up8", "1|"},
        {"nothing to delete", [](T& t) { t.Stroke(Key::Delete); }, "down46 press#8 up46", "12|"},
        {"deletes all",
         [](T& t) {
             t.Edit->SelectAll();
             t.Stroke(Key::Delete);
         },
         "down46 press#8 change:null up46", "|"},
        {"pastes", [](T& t) { t.Edit->Paste(u" \uFF13,456.5\r\nx"); },
         "down86 press#22 change:123456.5 up86", "123,456.5|"},
        {"refused paste", [](T& t) { t.Edit->Paste(u"HKD 5"); }, "down86 press#22 up86", "12|"},
        {"cuts",
         [](T& t) {
             t.Stroke(Key::Left, TShiftState::Shift);
             EXPECT_EQ(t.Edit->Cut(), u"2");
         },
         "down37 up37 down88 press#24 change:1.0 up88", "1|"},
        {"same again",
         [](T& t) {
             t.Edit->SelectAll();
             t.Edit->Paste(u"12");
         },
         "down86 press#22 up86", "12|"},
        {"spin key", [](T& t) { t.Stroke(Key::Up); }, "down38 change:13.0 up38", "13|"},
        {"button",
         [](T& t) {
             t.Edit->PressButton(TcxSpinEdit::DownButton);
             t.Edit->ReleaseButton();
         },
         "mousedown change:11.0 mouseup", "11|"},
        {"click", [](T& t) { t.Edit->Click(1); }, "mousedown click mouseup", "1|2"},
        {"drag",
         [](T& t) {
             t.Edit->PressMouse({}, 1);
             t.Edit->DragMouse(0);
             t.Edit->ReleaseMouse();
         },
         "mousedown click mouseup", "|1|2"},
        {"wheel", [](T& t) { t.Edit->Wheel(-2 * WheelNotch); }, "wheel change:10.0", "10|"},
        {"write", [](T& t) { t.Edit->SetEditValue(Variant(7)); }, "change:7.0", "7|"},
        {"equal write", [](T& t) { t.Edit->SetEditValue(Variant(12)); }, "", "12|"},
        {"null is not 0",
         [](T& t) {
             t.Edit->SetEditValue(Variant());
             t.Edit->SetEditValue(Variant(0));
         },
         "change:null change:0.0", "0|"},
        {"editing text", [](T& t) { t.Edit->SetEditingText(u"1"); }, "", "1|"},
        {"return",
         [](T& t) {
             t.Edit->TypeText(u".e\r");
             t.Stroke(Key::Return);
         },
         "down190 press. change:12.0 up190 down69 presse change:12.0 up69 "
         "down13 press#13 validate'12.e' up13 down13 press#13 up13",
         "12|"},
        {"escape",
         [](T& t) {
             t.Edit->TypeText(u"5");
             t.Stroke(Key::Escape);
         },
         "down53 press5 change:125.0 up53 down27 press#27 change:12.0 up27", "12|"},
        {"leaves", [](T& t) { t.Edit->Leave(); }, "exit", "12|"},
        {"leaves edited",
         [](T& t) {
             t.Edit->Properties().SetMaxValue(100);
             t.Edit->TypeText(u"5");
             t.Edit->Leave();
         },
         "down53 press5 change:125.0 up53 validate'125' change:100.0 exit", "100|"},
        {"told to act as left", [](T& t) { t.Edit->Perform(CM_EXIT, 0, 0); }, "exit", "12|"},
        {"another takes the focus", [](T& t) { t.Other->Click(0); }, "exit", "12|"},
        {"tabs in",
         [](T& t) {
             t.Other->Enter();
             t.Trace.Take();
             t.Edit->Enter();
         },
         "enter", "|12|"},
    };
    for (const TCase& row : cases) {
        SCOPED_TRACE(row.Name);
        Edit->Enter();
        Edit->Properties().ClearMaxValue();
        Edit->SetEditValue(Variant());
        Edit->SetEditValue(12.0);
        Edit->Perform(CM_EXIT, 0, 0); // nothing entered any more
        Trace.Take();
        row.Act(*this);
        EXPECT_EQ(Trace.Take(), row.Events);
        EXPECT_EQ(Field(), row.Field);
    }
}

TEST_F(TSpinEditTest, ReadsWhatIsTyped) {
    using enum TcxSpinEditValueType;
    struct TCase {
        const char* Name;
        TcxSpinEditValueType Type;
        StringView Typed;
        const char* Before; // value and text while typing
        const char* After;  // and after the leave
    };
    const TCase cases[] = {
        {"sign alone", Float, u"-", "7.0 -", "7.0 7"},
        {"open exponent", Float, u"1e", "1.0 1e", "1.0 1"},
        {"exponent", Float, u"1e3", "1000.0 1e3", "1000.0 1000"},
        {"open fraction", Float, u"1.", "1.0 1.", "1.0 1"},
        {"fraction alone", Float, u".50", "0.5 .50", "0.5 0.5"},
        {"group marks", Float, u"1,234.5", "1234.5 1,234.5", "1234.5 1234.5"},
        {"zero has no sign", Float, u"-0", "0.0 -0", "0.0 0"},
        {"second point", Float, u"1.2.3", "1.2 1.2.3", "1.2 1.2"},
        {"marks only", Float, u",", "7.0 ,", "7.0 7"},
        {"whole", Whole, u"-5", "-5 -5", "-5 -5"},
        {"whole takes no point", Whole, u"1.5", "15 15", "15 15"},
        {"wider than 32 bits", Whole, u"9999999999", "9999999999 9999999999",
         "9999999999 9999999999"},
        {"wider than 64 bits", Whole, u"99999999999999999999",
         "9999999999999999999 99999999999999999999", nullptr},
    };
    for (const TCase& row : cases) {
        SCOPED_TRACE(row.Name);
        Edit->Properties().SetValueType(row.Type);
        Edit->SetEditValue(Variant(7));
        Edit->Enter();
        Edit->SelectAll();
        Edit->TypeText(row.Typed);
        if (row.After == nullptr) {
            EXPECT_EQ(Told(Edit->EditValue()), "999999999999999999"); // the last that fits
            continue;
        }
        EXPECT_EQ(State(), row.Before);
        Edit->Leave();
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
    }
}

TEST_F(TSpinEditTest, FormatsFollowFocusAndProperties) {
    Edit->Properties().SetDisplayFormat(u"#,##0.00");
    Edit->Properties().SetEditFormat(u"0.####");
    Edit->SetEditValue(1234.5);
    EXPECT_EQ(State(), "1234.5 1234.5");
    Edit->Leave();
    EXPECT_EQ(State(), "1234.5 1,234.50");
    Edit->Properties().SetUseDisplayFormatWhenEditing(true);
    Edit->Enter();
    EXPECT_EQ(State(), "1234.5 1,234.50");
    Edit->SetSelStart(99);
    Edit->TypeText(u"7");
    Edit->Properties().SetDisplayFormat(u"0"); // what is being typed stays
    EXPECT_EQ(State(), "1234.507 1,234.507");
    Trace.Take();
    Edit->Properties().SetValueType(TcxSpinEditValueType::Whole);
    EXPECT_EQ(Trace.Take(), "change:1235");
    EXPECT_EQ(State(), "1235 1235");
    Edit->Properties().SetValueType(TcxSpinEditValueType::Float);
    EXPECT_EQ(Trace.Take(), "");
    EXPECT_EQ(State(), "1235.0 1235");
}

TEST_F(TSpinEditTest, StepsInsideLimits) {
    struct TCase {
        const char* Name;
        Variant From;
        Double Increment;
        Word Key;
        const char* Value;
    };
    const TCase cases[] = {
        {"null counts as 0", Variant(), 0.5, Key::Up, "0.5"},
        {"held at the maximum", Variant(99.8), 0.5, Key::Up, "100.0"},
        {"from above the maximum", Variant(500), 0.5, Key::Up, "100.0"},
        {"held at the minimum", Variant(-4.9), 0.5, Key::Down, "-5.0"},
        {"without binary dust", Variant(0.7), 0.1, Key::Up, "0.8"},
        {"no step", Variant(7), 0.0, Key::Up, "7.0"},
    };
    Edit->Properties().SetMinValue(-5);
    Edit->Properties().SetMaxValue(100);
    for (const TCase& row : cases) {
        SCOPED_TRACE(row.Name);
        Edit->Properties().SetIncrement(row.Increment);
        Edit->SetEditValue(row.From);
        Trace.Take();
        Stroke(row.Key);
        EXPECT_EQ(Told(Edit->EditValue()), row.Value);
        EXPECT_EQ(Edit->EditValue(), Variant(Edit->EditValue().ToDouble()));
    }
    Edit->SetEditValue(99.9);
    Edit->SetEditValue(Variant(100));
    Edit->TypeText(u"-");
    Stroke(Key::Up); // already the largest: the number comes back instead of the text
    EXPECT_EQ(State(), "100.0 100");
    Edit->SetEditValue(Variant(1000)); // a program may write more
    EXPECT_EQ(State(), "1000.0 1000");
    EXPECT_TRUE(Edit->Properties().HasMinValue());
    EXPECT_FALSE(Other->Properties().HasMinValue());
}

TEST_F(TSpinEditTest, HeldButtonRepeatsByTheClockOfTheHost) {
    struct TCase {
        Integer Milliseconds;
        const char* Events;
    };
    const TCase cases[] = {
        {TcxSpinEdit::RepeatDelay - 1, ""},
        {1, "change:14.0"},
        {99, ""},
        {1, "change:15.0"},
        {60'000, "change:16.0"},
        {0, ""},
    };
    Edit->PressButton(TcxSpinEdit::UpButton);
    EXPECT_EQ(Trace.Take(), "mousedown change:13.0");
    for (const TCase& row : cases) {
        Edit->Tick(row.Milliseconds);
        EXPECT_EQ(Trace.Take(), row.Events) << row.Milliseconds;
    }
    Edit->Properties().SetIncrement(0);
    Edit->Tick(1000);
    EXPECT_EQ(Trace.Take(), "");
    Edit->Properties().SetIncrement(1);
    Form.Hide(); // lets go of the mouse, once
    EXPECT_EQ(Trace.Take(), "mouseup validate'16' exit");
    Edit->ReleaseButton();
    Edit->Tick(1000);
    EXPECT_EQ(Trace.Take(), "");
}

TEST_F(TSpinEditTest, KnowsItsButtons) {
    Edit->SetBounds(40, 10, 100, 20);
    EXPECT_EQ(Edit->ButtonVisibleIndexAt({83, 0}), TcxSpinEdit::UpButton);
    EXPECT_EQ(Edit->ButtonVisibleIndexAt({99, 10}), TcxSpinEdit::DownButton);
    EXPECT_EQ(Edit->ButtonVisibleIndexAt({82, 0}), TcxSpinEdit::NoButton);
    EXPECT_EQ(Edit->ButtonVisibleIndexAt({99, 20}), TcxSpinEdit::NoButton);
}

TEST_F(TSpinEditTest, WheelCountsWholeNotches) {
    Edit->Wheel(70);
    EXPECT_EQ(Trace.Take(), "wheel");
    Edit->Wheel(70);
    EXPECT_EQ(Trace.Take(), "wheel change:13.0");
    Edit->Wheel(-110); // the other way begins anew
    EXPECT_EQ(Trace.Take(), "wheel");
    Trace.HandlesWheel = true;
    EXPECT_TRUE(Edit->Wheel(WheelNotch));
    EXPECT_EQ(Trace.Take(), "wheel");
    Edit->Leave();
    Trace.Take();
    EXPECT_FALSE(Edit->Wheel(WheelNotch));
    EXPECT_EQ(Trace.Take(), "");
}

TEST_F(TSpinEditTest, HandlersChangeTheKey) {
    Trace.OnPress = [](Char& key) { key = key == u'x' ? Char(u'7') : KeyChar::None; };
    Edit->TypeText(u"5x");
    EXPECT_EQ(Trace.Take(), "down53 press5 up53 down88 pressx change:127.0 up88");
    Edit->Paste(u"1");
    Stroke(Key::Back);
    EXPECT_EQ(Field(), "127|");
    Trace.Take();
    Trace.OnDown = [](Word& key) { key = key == Key::Up ? Key::Down : 0; };
    Stroke(Key::Up);
    EXPECT_EQ(Trace.Take(), "down38 change:126.0 up38");
    Edit->TypeText(u"5");
    Edit->Paste(u"5");
    EXPECT_EQ(Trace.Take(), "down53 up53 down86 up86");
}

TEST_F(TSpinEditTest, HandlersReplaceTextAndValue) {
    Trace.OnPress = [this](Char& key) {
        if (key == u'k') Edit->SetEditValue(Edit->EditValue().ToDouble() * 1000);
    };
    Edit->TypeText(u"k");
    EXPECT_EQ(Trace.Take(), "down75 pressk change:12000.0 up75");
    Trace.ActsOn = "change";
    Trace.Act = [this] {
        Edit->SetEditingText(u"120,005");
        Edit->SetSelStart(3);
    };
    Edit->TypeText(u"5");
    EXPECT_EQ(Field(), "120|,005");
    Trace.Take();
    Trace.ActsOn = "change";
    Trace.Act = [this] { Edit->SetEditValue(Variant(300)); };
    Stroke(Key::Up);
    EXPECT_EQ(Trace.Take(), "down38 change:120006.0 change:300.0 up38");
    EXPECT_EQ(Field(), "300|");
}

TEST_F(TSpinEditTest, ValidationReplacesOrRefuses) {
    Trace.OnValidate = [](Variant& text, String&, Boolean&) { text = Variant(u"50"); };
    Edit->TypeText(u"5");
    Other->Enter();
    EXPECT_EQ(State(), "50.0 50");
    Edit->Enter();
    Trace.OnValidate = [](Variant&, String& reason, Boolean& error) {
        reason = u"too much";
        error = true;
    };
    Edit->TypeText(u"999");
    Trace.Take();
    Other->Enter();
    EXPECT_EQ(Trace.Take(), "validate'999'");
    EXPECT_TRUE(Edit->Focused());
    EXPECT_FALSE(Edit->Leave());
    EXPECT_EQ(Edit->ErrorText(), u"too much");
    EXPECT_EQ(State(), "999.0 999");
    Trace.Take();
    Edit->SetEnabled(false); // no refusal helps against that
    EXPECT_EQ(Trace.Take(), "validate'999'");
    EXPECT_FALSE(Edit->Focused());
}

TEST_F(TSpinEditTest, LeaveInsideALeaveIsIgnored) {
    for (const char* event : {"validate", "exit"}) {
        Edit->Enter();
        Edit->SelectAll();
        Edit->TypeText(u"5");
        Trace.Take();
        Trace.ActsOn = event;
        Trace.Act = [this] {
            EXPECT_FALSE(Edit->Leave());
            Edit->Perform(CM_EXIT, 0, 0);
        };
        EXPECT_TRUE(Edit->Leave());
        EXPECT_EQ(Trace.Take(), "validate'5' exit");
        Edit->SetEditValue(Variant(12));
    }
}

TEST_F(TSpinEditTest, FocusAskedForInTheExitStays) {
    Trace.ActsOn = "exit";
    Trace.Act = [this] { Edit->SetFocus(); };
    Other->Enter();
    EXPECT_TRUE(Edit->Focused());
    EXPECT_FALSE(Other->Focused());
    Other->Enter();
    EXPECT_TRUE(Other->Focused());
}

TEST_F(TSpinEditTest, OnlyWhatShowsAndIsEnabledTakesTheFocus) {
    struct TCase {
        const char* Name;
        void (*Hinder)(TControl& form, TControl& edit, bool on);
        bool IsShowing;
    };
    const TCase cases[] = {
        {"hidden", [](TControl&, TControl& edit, bool on) { edit.SetVisible(!on); }, false},
        {"disabled", [](TControl&, TControl& edit, bool on) { edit.SetEnabled(!on); }, true},
        {"parent hidden", [](TControl& form, TControl&, bool on) { form.SetVisible(!on); }, false},
        {"parent disabled", [](TControl& form, TControl&, bool on) { form.SetEnabled(!on); }, true},
    };
    for (const TCase& row : cases) {
        SCOPED_TRACE(row.Name);
        Trace.Take();
        row.Hinder(Form, *Edit, true);
        EXPECT_EQ(Trace.Take(), "exit");
        EXPECT_EQ(Edit->Showing(), row.IsShowing);
        Edit->SetFocus();
        Edit->TypeText(u"5");
        Edit->PressButton(TcxSpinEdit::UpButton);
        Stroke(Key::Up);
        EXPECT_EQ(Trace.Take(), "");
        EXPECT_FALSE(Edit->Focused());
        row.Hinder(Form, *Edit, false);
        Edit->Enter();
        EXPECT_EQ(Trace.Take(), "enter");
    }
}

TEST_F(TSpinEditTest, SurvivesBeingFreedInAnyHandler) {
    using T = TStage;
    struct TCase {
        const char* Event;
        void (*Act)(T&, TcxSpinEdit&);
    };
    const TCase cases[] = {
        {"down", [](T&, TcxSpinEdit& edit) { edit.TypeText(u"55"); }},
        {"press", [](T&, TcxSpinEdit& edit) { edit.TypeText(u"55"); }},
        {"change", [](T&, TcxSpinEdit& edit) { edit.TypeText(u"55"); }},
        {"change", [](T&, TcxSpinEdit& edit) { edit.Paste(u"5"); }},
        {"change", [](T&, TcxSpinEdit& edit) { edit.PressKey(Key::Up); }},
        {"change", [](T&, TcxSpinEdit& edit) { edit.PressButton(0); }},
        {"change", [](T&, TcxSpinEdit& edit) { edit.SetEditValue(Variant(5)); }},
        {"up", [](T&, TcxSpinEdit& edit) { edit.TypeText(u"55"); }},
        {"wheel", [](T&, TcxSpinEdit& edit) { edit.Wheel(WheelNotch); }},
        {"mousedown", [](T&, TcxSpinEdit& edit) { edit.Click(0); }},
        {"click", [](T&, TcxSpinEdit& edit) { edit.Click(0); }},
        {"validate", [](T& t, TcxSpinEdit&) { t.Other->Enter(); }},
        {"exit", [](T& t, TcxSpinEdit&) { t.Form.Hide(); }},
        {"exit", [](T&, TcxSpinEdit& edit) { edit.SetParent(nullptr); }},
        {"mouseup", [](T& t, TcxSpinEdit&) { t.Form.SetEnabled(false); }},
        {"enter", [](T&, TcxSpinEdit& edit) { edit.Click(0); }},
    };
    for (const TCase& row : cases) {
        SCOPED_TRACE(row.Event);
        TStage fresh;
        fresh.Edit->TypeText(u"5");
        if (row.Event == std::string("mouseup")) fresh.Edit->PressButton(0);
        if (row.Event == std::string("enter")) fresh.Other->Enter();
        fresh.Trace.ActsOn = row.Event;
        fresh.Trace.Act = [&fresh] { fresh.Edit.reset(); };
        row.Act(fresh, *fresh.Edit);
        EXPECT_EQ(fresh.Edit, nullptr);
    }
}

TEST_F(TSpinEditTest, KeysTakeNoMemoryButTheText) {
    Other->Properties().SetDisplayFormat(u"#,##0");
    const auto use = [this] {
        Other->Enter();
        Other->TypeText(u"1234567890");
        Other->PressKey(Key::Up);
        Other->ReleaseKey(Key::Up);
        Other->Wheel(WheelNotch);
        Other->PressButton(TcxSpinEdit::UpButton);
        Other->Tick(TcxSpinEdit::RepeatDelay);
        Other->ReleaseButton();
        Other->SelectAll();
        Other->PressKey(Key::Delete);
    };
    use();
    const std::size_t before = AllocationCount();
    use();
    EXPECT_EQ(AllocationCount(), before);
}

TEST_F(TSpinEditTest, TellsOfItsEnd) {
    struct TWatcher : TObject {
        void Gone(TObject* sender) { Sender = sender; }
        TObject* Sender = nullptr;
    } watcher;
    const TObject* address = Edit.get();
    Edit->AddFreeListener(MakeEvent<&TWatcher::Gone>(&watcher), &watcher);
    Edit.reset();
    EXPECT_EQ(watcher.Sender, address);
    EXPECT_EQ(Form.ControlCount(), 1);
    Other->Enter(); // the focus was free
    EXPECT_TRUE(Other->Focused());
}

} // namespace
} // namespace quorin
