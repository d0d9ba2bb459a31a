#include "platform/widgets/PopupEdit.h"
#include "tests/platform/EditTrace.h"

#include <gtest/gtest.h>

#include <memory>

namespace quorin {
namespace {

// A form with a field that holds "ab" and has the focus, and a list for its popup.
struct TPopupEditTest : testing::Test {
    TPopupEditTest() {
        Edit->SetParent(&Form);
        Edit->Properties().SetPopupControl(List.get());
        Edit->SetText(u"ab");
        Edit->Enter();
        Edit->SetSelStart(99);
        Trace.Take();
    }
    void Stroke(Word key, TShiftState shift = TShiftState::None) {
        Edit->PressKey(key, shift);
        if (Edit) Edit->ReleaseKey(key, shift);
    }

    TControl Form;
    std::unique_ptr<TControl> List = CreateComponent<TControl>();
    std::unique_ptr<TcxPopupEdit> Edit = CreateComponent<TcxPopupEdit>();
    TEditTrace Trace{*Edit, [this] { return ToUtf8(Edit->Text()); }};
};

TEST_F(TPopupEditTest, EventsComeInOrder) {
    using T = TPopupEditTest;
    struct TCase {
        const char* Name;
        void (*Act)(T&);
        const char* Events;
        StringView Text;
    };
    const TCase cases[] = {
        {"types", [](T& t) { t.Edit->TypeText(u"c"); }, "down67 pressc change:abc up67", u"abc"},
        {"any text", [](T& t) { t.Edit->TypeText(u"\u8178"); },
         "down229 press\u8178 change:ab\u8178 up229", u"ab\u8178"},
        {"full width stays", [](T& t) { t.Edit->TypeText(u"\uFF15"); },
         "down229 press\uFF15 change:ab\uFF15 up229", u"ab\uFF15"},
        {"pastes one line", [](T& t) { t.Edit->Paste(u" c\r\nd"); },
         "down86 press#22 change:ab c up86", u"ab c"},
        {"write", [](T& t) { t.Edit->SetText(u"x"); }, "change:x", u"x"},
        {"equal write", [](T& t) { t.Edit->SetText(u"ab"); }, "", u"ab"},
        {"editing text", [](T& t) { t.Edit->SetEditingText(u"x"); }, "", u"x"},
        {"escape",
         [](T& t) {
             t.Edit->TypeText(u"c");
             t.Stroke(Key::Escape);
         },
         "down67 pressc change:abc up67 down27 press#27 change:ab up27", u"ab"},
        {"return",
         [](T& t) {
             t.Edit->TypeText(u"c\r");
             t.Stroke(Key::Escape); // nothing left to take back
         },
         "down67 pressc change:abc up67 down13 press#13 validate'abc' up13 "
         "down27 press#27 up27",
         u"abc"},
        {"leaves edited",
         [](T& t) {
             t.Trace.OnValidate = [](Variant& text, String&, Boolean&) { text = Variant(u"AB"); };
             t.Stroke(Key::Back);
             t.Edit->Leave();
             t.Trace.OnValidate = nullptr;
         },
         "down8 press#8 change:a up8 validate'a' change:AB exit", u"AB"},
        {"button", [](T& t) { t.Edit->PressButton(); }, "mousedown", u"ab"},
    };
    for (const TCase& row : cases) {
        SCOPED_TRACE(row.Name);
        Edit->Enter();
        Edit->SetText(u"ab");
        Edit->Perform(CM_EXIT, 0, 0); // nothing entered any more
        Trace.Take();
        row.Act(*this);
        EXPECT_EQ(Trace.Take(), row.Events);
        EXPECT_EQ(Edit->Text(), row.Text);
    }
}

TEST_F(TPopupEditTest, CaretStaysInsideTheTextAndOutsideOfPairs) {
    // Two units that are one character between "a" and "b".
    constexpr StringView text = u"a\U0001F4C8b";
    using T = TPopupEditTest;
    struct TCase {
        const char* Name;
        Integer From;
        void (*Act)(T&);
        StringView Text;
        Integer SelStart;
        Integer SelLength;
    };
    const TCase cases[] = {
        {"before the text", -5, [](T&) {}, text, 0, 0},
        {"behind the text", 9, [](T&) {}, text, 4, 0},
        {"inside the pair", 2, [](T&) {}, text, 1, 0},
        {"right", 1, [](T& t) { t.Stroke(Key::Right); }, text, 3, 0},
        {"left", 3, [](T& t) { t.Stroke(Key::Left); }, text, 1, 0},
        {"left at the start", 0, [](T& t) { t.Stroke(Key::Left); }, text, 0, 0},
        {"home", 3, [](T& t) { t.Stroke(Key::Home); }, text, 0, 0},
        {"to the end", 1, [](T& t) { t.Stroke(Key::End, TShiftState::Shift); }, text, 1, 3},
        {"all", 1, [](T& t) { t.Stroke(u'A', TShiftState::Ctrl); }, text, 0, 4},
        {"selection falls together", 0,
         [](T& t) {
             t.Edit->SetSelLength(3);
             t.Stroke(Key::Right);
         },
         text, 3, 0},
        {"back", 3, [](T& t) { t.Stroke(Key::Back); }, u"ab", 1, 0},
        {"delete", 1, [](T& t) { t.Stroke(Key::Delete); }, u"ab", 1, 0},
        {"selection by half a pair", 0, [](T& t) { t.Edit->SetSelLength(2); }, text, 0, 1},
        {"types a pair", 3, [](T& t) { t.Edit->TypeText(u"\U0001F4C9"); },
         u"a\U0001F4C8\U0001F4C9b", 5, 0},
        {"replaces", 0,
         [](T& t) {
             t.Edit->SetSelLength(3);
             t.Edit->TypeText(u"x");
         },
         u"xb", 1, 0},
        {"shorter text", 4, [](T& t) { t.Edit->SetEditingText(u"x"); }, u"x", 1, 0},
        {"pair under the caret", 1, [](T& t) { t.Edit->SetEditingText(u"\U0001F4C8"); },
         u"\U0001F4C8", 0, 0},
    };
    for (const TCase& row : cases) {
        SCOPED_TRACE(row.Name);
        Edit->SetText(text);
        Edit->SetSelStart(row.From);
        row.Act(*this);
        EXPECT_EQ(Edit->Text(), row.Text);
        EXPECT_EQ(Edit->SelStart(), row.SelStart);
        EXPECT_EQ(Edit->SelLength(), row.SelLength);
    }
    Trace.OnPress = [](Char& key) { key = KeyChar::None; };
    Trace.Take();
    Edit->TypeText(u"\U0001F4C9"); // used up with its first half
    EXPECT_EQ(Trace.Take(), "down229 press\uFFFD up229");
}

TEST_F(TPopupEditTest, OpensAndCloses) {
    using T = TPopupEditTest;
    struct TCase {
        const char* Name;
        void (*Act)(T&);
    };
    const TCase ways[] = {
        {"F4", [](T& t) { t.Stroke(Key::F4); }},
        {"Alt and down", [](T& t) { t.Stroke(Key::Down, TShiftState::Alt); }},
        {"button",
         [](T& t) {
             t.Edit->PressButton();
             t.Edit->ReleaseButton();
         }},
        {"program", [](T& t) { t.Edit->DropDown(); }},
    };
    const TCase ends[] = {
        {"F4", [](T& t) { t.Stroke(Key::F4); }},
        {"Alt and up", [](T& t) { t.Stroke(Key::Up, TShiftState::Alt); }},
        {"escape", [](T& t) { t.Stroke(Key::Escape); }},
        {"return", [](T& t) { t.Stroke(Key::Return); }},
        {"parent of the list hides", [](T& t) { t.List->Parent()->Hide(); }},
        {"leave", [](T& t) { t.Edit->Leave(); }},
        {"form hides", [](T& t) { t.Form.Hide(); }},
        {"exit by message", [](T& t) { t.Edit->Perform(CM_EXIT, 0, 0); }},
        {"other control",
         [](T& t) {
             t.Edit->Properties().SetPopupControl(nullptr);
             EXPECT_EQ(t.List->Parent(), nullptr);
         }},
    };
    for (const TCase& way : ways) {
        for (const TCase& end : ends) {
            SCOPED_TRACE(way.Name);
            SCOPED_TRACE(end.Name);
            Form.Show();
            Edit->Properties().SetPopupControl(List.get());
            Edit->Enter();
            EXPECT_FALSE(List->Showing());
            way.Act(*this);
            EXPECT_TRUE(Edit->DroppedDown());
            EXPECT_TRUE(List->Showing());
            List->Enter(); // the field keeps its focus
            EXPECT_TRUE(Edit->Focused() && List->Focused());
            end.Act(*this);
            EXPECT_FALSE(Edit->DroppedDown());
            EXPECT_FALSE(List->Showing() && List->Parent() != nullptr);
            EXPECT_FALSE(List->Focused() && List->Parent() != nullptr);
        }
    }
    Edit->Properties().SetPopupControl(nullptr);
    Edit->DropDown();
    EXPECT_FALSE(Edit->DroppedDown());
    Edit->Properties().SetPopupControl(List.get());
    Edit->SetEnabled(false);
    Edit->DropDown();
    EXPECT_FALSE(Edit->DroppedDown());
}

// Sizes the popup as a list that wants to be at least as wide as its field does.
struct TPopupSizer : TObject {
    explicit TPopupSizer(TcxPopupEdit& edit) : Edit(edit) {
        edit.Properties().SetOnPopup(MakeEvent<&TPopupSizer::Popup>(this));
    }
    void Popup(TObject* sender) {
        EXPECT_EQ(sender, &Edit);
        EXPECT_TRUE(Edit.DroppedDown());
        ++Count;
        Edit.Properties().SetPopupWidth(450);
        Edit.Properties().PopupControl()->Parent()->SetWidth(450);
    }
    TcxPopupEdit& Edit;
    int Count = 0;
};

TEST_F(TPopupEditTest, ControlFillsAWindowOfTheWantedSize) {
    const auto size = [this] {
        const TControl& window = *List->Parent();
        EXPECT_EQ(List->Width(), window.Width());
        EXPECT_EQ(List->Height(), window.Height());
        return TPoint{window.Width(), window.Height()};
    };
    Edit->Properties().SetPopupMinWidth(150);
    Edit->Properties().SetPopupHeight(400);
    TPopupSizer sizer(*Edit);
    Edit->DropDown();
    Edit->DropDown(); // is open
    EXPECT_EQ(sizer.Count, 1);
    EXPECT_EQ(size(), (TPoint{450, 400}));
    Edit->ResizePopup(10, 500);
    EXPECT_EQ(size(), (TPoint{150, 500}));
    List->Parent()->SetWidth(-1);
    EXPECT_EQ(size(), (TPoint{150, 500}));
    Edit->CloseUp();
    Edit->DropDown();
    EXPECT_EQ(size(), (TPoint{450, 500}));
}

TEST_F(TPopupEditTest, EditsShareAControl) {
    auto second = CreateComponent<TcxPopupEdit>();
    second->SetParent(&Form);
    Edit->DropDown();
    second->Properties().SetPopupControl(List.get());
    EXPECT_FALSE(Edit->DroppedDown());
    EXPECT_EQ(List->Parent(), &second->PopupWindow());
    Edit->DropDown();
    EXPECT_EQ(List->Parent(), &Edit->PopupWindow());
    second.reset();
    EXPECT_TRUE(List->Showing());
    Edit.reset();
    EXPECT_EQ(List->Parent(), nullptr);
}

TEST_F(TPopupEditTest, ControlThatDiesClosesThePopup) {
    Edit->DropDown();
    List.reset();
    EXPECT_FALSE(Edit->DroppedDown());
    EXPECT_EQ(Edit->Properties().PopupControl(), nullptr);
    EXPECT_EQ(Edit->PopupWindow().ControlCount(), 0);
}

TEST_F(TPopupEditTest, TellsThatItIsBeingDestroyed) {
    struct TWatcher : TObject {
        void ListLeft(TObject*) { WasDestroying = Edit->IsDestroying(); }
        TcxPopupEdit* Edit = nullptr;
        bool WasDestroying = false;
    } watcher;
    // A part of the edit tells of its end inside the end of the edit.
    watcher.Edit = Edit.get();
    Edit->PopupWindow().AddFreeListener(MakeEvent<&TWatcher::ListLeft>(&watcher), &watcher);
    EXPECT_FALSE(Edit->IsDestroying());
    Edit.reset();
    EXPECT_TRUE(watcher.WasDestroying);
}

TEST_F(TPopupEditTest, SurvivesBeingFreedWhileItIsOpen) {
    struct TFreer : TObject {
        void Free(TObject*) { Test->Edit.reset(); }
        TPopupEditTest* Test = nullptr;
    } freer;
    freer.Test = this;
    List->SetOnExit(MakeEvent<&TFreer::Free>(&freer));
    Edit->DropDown();
    List->Enter();
    Edit->Leave();
    EXPECT_EQ(Edit, nullptr);
    EXPECT_EQ(List->Parent(), nullptr);
}

TEST_F(TPopupEditTest, ParentsMakeNoRing) {
    TControl panel;
    panel.SetParent(&Form);
    Edit->SetParent(&panel);
    Form.SetParent(&panel);
    panel.SetParent(&panel);
    EXPECT_EQ(Form.Parent(), nullptr);
    EXPECT_EQ(panel.Parent(), &Form);
    EXPECT_FALSE(Edit->Focused()); // moved without the focus
}

} // namespace
} // namespace quorin
