#include "docs/snippets/Snippet.h"
#include "platform/widgets/SpinEdit.h"

namespace quorin {

// [event]
class TThermometer {
public:
    TEvent<void(Double)> OnChange; // empty until somebody sets it

    void Set(Double degrees) {
        if (OnChange) OnChange(degrees);
    }
};

class TDisplay : public TObject {
    QUORIN_CLASS(TDisplay, TObject)
public:
    void Show(Double degrees) { FShown = degrees; }
    Double Shown() const { return FShown; }

private:
    Double FShown = 0.0;
};
// [/event]

TEST(Platform, Event) {
    // [bind]
    TThermometer thermometer;
    TDisplay display;
    thermometer.OnChange = MakeEvent<&TDisplay::Show>(&display);
    thermometer.Set(21.5);
    // [/bind]
    EXPECT_EQ(display.Shown(), 21.5);
}

TEST(Platform, Spin) {
    // [spin]
    TcxSpinEdit edit;
    edit.Properties().SetIncrement(100.0);
    edit.SetEditValue(Int64{1000});
    edit.Enter();
    edit.PressKey(Key::Up); // a step
    edit.ReleaseKey(Key::Up);
    edit.TypeText(u"50"); // behind what stands there
    edit.Leave();         // validates and accepts
    // [/spin]
    EXPECT_EQ(edit.EditValue(), Variant(Int64{110050}));
}

} // namespace quorin
