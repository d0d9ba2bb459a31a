#include "platform/widgets/Control.h"

#include <gtest/gtest.h>

#include <memory>
#include <utility>

namespace quorin {
namespace {

// Two controls in a panel on a form; the first has the focus.
struct TControlTest : testing::Test {
    TControlTest() {
        Panel.SetParent(&Form);
        First->SetParent(&Panel);
        Second.SetParent(&Panel);
        First->SetFocus();
        First->SetOnExit(MakeEvent<&TControlTest::TExit::Called>(&Exit));
    }

    struct TExit : TObject {
        void Called(TObject*) {
            ++Count;
            if (auto* wanting = std::exchange(AsksForFocus, nullptr)) wanting->SetFocus();
        }
        TControl* AsksForFocus = nullptr;
        int Count = 0;
    };
    TControl Form;
    TControl Panel;
    std::unique_ptr<TControl> First = CreateComponent<TControl>();
    TControl Second;
    TExit Exit;
};

TEST_F(TControlTest, FocusAskedForInItsExitStays) {
    Exit.AsksForFocus = First.get();
    Second.SetFocus();
    EXPECT_TRUE(First->Focused());
    EXPECT_FALSE(Second.Focused());
    Second.SetFocus();
    EXPECT_TRUE(Second.Focused());
    EXPECT_EQ(Exit.Count, 2);
}

TEST_F(TControlTest, HiddenOneDoesNotKeepTheFocusByAsking) {
    Exit.AsksForFocus = First.get();
    Form.Hide();
    EXPECT_FALSE(First->Focused());
    EXPECT_EQ(Exit.Count, 1);
}

TEST_F(TControlTest, MovesWithoutTheFocus) {
    Panel.SetParent(nullptr);
    EXPECT_EQ(Exit.Count, 1);
    EXPECT_FALSE(First->Focused());
    Second.SetFocus(); // a window of its own now
    EXPECT_TRUE(Second.Focused());
}

TEST_F(TControlTest, ParentsMakeNoRing) {
    Form.SetParent(First.get());
    Panel.SetParent(&Panel);
    EXPECT_EQ(Form.Parent(), nullptr);
    EXPECT_EQ(Panel.Parent(), &Form);
}

TEST_F(TControlTest, TellsOfItsEndAndFreesTheFocus) {
    struct TWatcher : TObject {
        void Gone(TObject* sender) { Sender = sender; }
        TObject* Sender = nullptr;
    } watcher;
    const TObject* address = First.get();
    First->AddFreeListener(MakeEvent<&TWatcher::Gone>(&watcher), &watcher);
    First.reset();
    EXPECT_EQ(watcher.Sender, address);
    EXPECT_EQ(Panel.ControlCount(), 1);
    EXPECT_EQ(Exit.Count, 0);
    Second.SetFocus();
    EXPECT_TRUE(Second.Focused());
}

TEST_F(TControlTest, ParentThatDiesLeavesItsControls) {
    auto box = std::make_unique<TControl>();
    box->SetParent(&Panel);
    Second.SetParent(box.get());
    Second.SetFocus();
    box.reset();
    EXPECT_EQ(Second.Parent(), nullptr);
    EXPECT_FALSE(Second.Focused());
    First->SetFocus();
    EXPECT_TRUE(First->Focused());
}

} // namespace
} // namespace quorin
