#include "platform/widgets/PopupEdit.h"
#include "tests/platform/EditTrace.h"

#include <gtest/gtest.h>

#include <memory>

namespace quorin {
namespace {

// A form with a field that holds "ab" and has the focus, and a list for its popup.
struct TPopupEditTest : testing::Test, TEditPerson {
    TPopupEditTest() {
        Edit->SetParent(&Form);
        Edit->Properties().SetPopupControl(List.get());
        Start(u"ab");
    }
    void Start(StringView text) {
        Form.Show();
        Edit->Enter();
        Edit->Properties().SetPopupControl(List.get());
        Edit->SetText(text);
        Edit->SetSelStart(99);
        Do(u"exit"); // nothing is entered any more
        Trace.Take();
    }

    TcxCustomEdit* Edited() override { return Edit.get(); }
    bool DoWord(StringView name, StringView argument) override {
        if (name == u"write") return Edit->SetText(argument), true;
        if (name == u"dropdown") return Edit->DropDown(), true;
        if (name == u"caret") return Edit->SetSelStart(ToIntegerOr(argument, 0)), true;
        if (name == u"hidewindow") return List->Parent()->Hide(), true;
        if (name == u"hide") return Form.Hide(), true;
        if (name == u"nocontrol") return Edit->Properties().SetPopupControl(nullptr), true;
        return TEditPerson::DoWord(name, argument);
    }

    TControl Form;
    std::unique_ptr<TControl> List = CreateComponent<TControl>();
    std::unique_ptr<TcxPopupEdit> Edit = CreateComponent<TcxPopupEdit>();
    TEditTrace Trace{*Edit, [this] { return ToUtf8(Edit->Text()); }};
};

TEST_F(TPopupEditTest, EventsComeInOrder) {
    struct TCase {
        const char* Name;
        StringView Script;
        const char* Events;
        StringView Text;
    };
    // clang-format off
    const TCase cases[] = {
        {"types", u"type:c", "down67 pressc change:abc up67", u"abc"},
        {"any text", u"type:\u8178", "down229 press\u8178 change:ab\u8178 up229", u"ab\u8178"},
        {"full width stays", u"type:\uFF15", "down229 press\uFF15 change:ab\uFF15 up229", u"ab\uFF15"},
        {"pastes one line", u"paste:\tc\r\nd", "down86 press#22 change:ab\tc up86", u"ab\tc"},
        {"write", u"write:x", "change:x", u"x"},
        {"equal write", u"write:ab", "", u"ab"},
        {"editing text", u"text:x", "", u"x"},
        {"escape", u"type:c escape", "down67 pressc change:abc up67 down27 press#27 change:ab up27", u"ab"},
        {"return", u"type:c return escape",
         "down67 pressc change:abc up67 down13 press#13 validate'abc' up13 down27 press#27 up27", u"abc"},
        {"leaves edited", u"back leave", "down8 press#8 change:a up8 validate'a' change:AB exit", u"AB"},
        {"button", u"press release", "mousedown mouseup", u"ab"},
    };
    // clang-format on
    Trace.OnValidate = [](Variant& text, String&, Boolean&) {
        if (text == Variant(u"a")) text = Variant(u"AB");
    };
    for (const TCase& row : cases) {
        SCOPED_TRACE(row.Name);
        Start(u"ab");
        Do(row.Script);
        EXPECT_EQ(Trace.Take(), row.Events);
        EXPECT_EQ(Edit->Text(), row.Text);
    }
}

TEST_F(TPopupEditTest, CaretStaysInsideTheTextAndOutsideOfPairs) {
    // Two units that are one character between "a" and "b".
    constexpr StringView text = u"a\U0001F4C8b";
    struct TCase {
        const char* Name;
        StringView Script;
        StringView Text;
        Integer SelStart;
        Integer SelLength;
    };
    const TCase cases[] = {
        {"before the text", u"caret:-5", text, 0, 0},
        {"behind the text", u"caret:9", text, 4, 0},
        {"inside the pair", u"caret:2", text, 1, 0},
        {"click inside the pair", u"click:2", text, 1, 0},
        {"right", u"caret:1 right", text, 3, 0},
        {"left", u"caret:3 left", text, 1, 0},
        {"left at the start", u"caret:0 left", text, 0, 0},
        {"right at the end", u"end right", text, 4, 0},
        {"home", u"home", text, 0, 0},
        {"selects to the end", u"caret:1 shift+end", text, 1, 3},
        {"selects to the left", u"shift+left shift+left", text, 1, 3},
        {"selects all", u"ctrl+a", text, 0, 4},
        {"selection falls together", u"caret:0 select:3 right", text, 3, 0},
        {"selection by half a pair", u"caret:0 select:2", text, 0, 1},
        {"back", u"caret:3 back", u"ab", 1, 0},
        {"delete", u"caret:1 delete", u"ab", 1, 0},
        {"types a pair", u"caret:3 type:\U0001F4C9", u"a\U0001F4C8\U0001F4C9b", 5, 0},
        {"replaces", u"caret:0 select:3 type:x", u"xb", 1, 0},
        {"shorter text", u"caret:4 text:x", u"x", 1, 0},
        {"pair under the caret", u"caret:1 text:\U0001F4C8", u"\U0001F4C8", 0, 0},
    };
    for (const TCase& row : cases) {
        SCOPED_TRACE(row.Name);
        Start(text);
        Do(row.Script);
        EXPECT_EQ(Edit->Text(), row.Text);
        EXPECT_EQ(Edit->SelStart(), row.SelStart);
        EXPECT_EQ(Edit->SelLength(), row.SelLength);
    }
    Edit->ReleaseButton();
    Trace.Take();
    Trace.OnPress = [](Char& key) { key = KeyChar::None; };
    Edit->TypeText(u"\U0001F4C9"); // used up with its first half
    EXPECT_EQ(Trace.Take(), "down229 press\uFFFD up229");
}

TEST_F(TPopupEditTest, OpensAndCloses) {
    for (const StringView way : {u"f4", u"alt+down", u"press release", u"dropdown"}) {
        for (const StringView end : {u"f4", u"alt+up", u"press release", u"escape", u"return",
                                     u"leave", u"exit", u"hide", u"hidewindow", u"nocontrol"}) {
            SCOPED_TRACE(ToUtf8(way) + ", " + ToUtf8(end));
            Start(u"ab");
            EXPECT_FALSE(List->Showing());
            Do(way);
            EXPECT_TRUE(Edit->DroppedDown() && List->Showing());
            List->Enter(); // the field keeps its focus
            EXPECT_TRUE(Edit->Focused() && List->Focused());
            Do(end);
            EXPECT_FALSE(Edit->DroppedDown());
            EXPECT_FALSE(List->Focused());
            EXPECT_EQ(List->Parent() == nullptr, end == u"nocontrol");
        }
    }
    Start(u"ab");
    Do(u"nocontrol dropdown");
    EXPECT_FALSE(Edit->DroppedDown());
    Start(u"ab");
    Edit->SetEnabled(false);
    Do(u"dropdown press");
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

} // namespace
} // namespace quorin
