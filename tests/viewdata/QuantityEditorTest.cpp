#include "tests/viewdata/EditorFixture.h"

namespace quorin {
namespace {

using TQuantityEditorTest =
    TSpinFixture<&TEditorManager::RegisterQuantityEditor, &TEditorManager::RemoveQuantityEditor,
                 &TEditorManager::SetQuantitySymbol>;

TEST_F(TQuantityEditorTest, KeepsGroupMarksWhileTyping) {
    ExpectStates({
        {"typed", u"type:1234567", "1,234,567| 1234567"},
        {"in the middle", u"type:123456 left left back", "12,3|56 12356"},
        {"negative", u"type:-5", "0| 0"},
        {"sign alone", u"value:12 all type:-", "-| 12"},
        {"sign into nothing", u"type:-", "-| null"},
        {"no number", u"type:5x", "5| 5"},
        {"full stop", u"type:5.5", "55| 55"},
        {"emptied", u"value:5 all back", "| null"},
        {"key while empty", u"value:5 all back type:7", "7| 7"},
        {"above the maximum", u"type:3000000000", "3,000,000,000| 3000000000"},
        {"above it, left", u"type:3000000000 leave", "2,000,000,000| 2000000000"},
        {"at the maximum, up", u"value:2000000000 up", "2,000,000,000| 2000000000"},
        {"below nothing", u"value:0 down", "0| 0"},
        {"beyond 64 bits", u"type:9999999999999999999", "0| 999999999999999999"},
        {"pasted", u"paste:_1,234_", "1,234| 1234"},
        {"pasted without marks", u"paste:1234567", "1,234,567| 1234567"},
        {"blank inside a paste", u"value:7 paste:12_34", "7| 7"},
        {"first click", u"value:1234 leave click:1", "|1,234| 1234"},
        {"second click", u"value:1234 leave click:1 click:3", "1,2|34 1234"},
    });
}

TEST_F(TQuantityEditorTest, MultipliesWhatWasTyped) {
    ExpectStates({
        {"K", u"type:5K", "5,000| 5000"},
        {"k", u"type:12k", "12,000| 12000"},
        {"M", u"type:2M", "2,000,000| 2000000"},
        {"m twice", u"type:2mm", "2,000,000,000| 2000000000"},
        {"just fits", u"type:2000000k", "2,000,000,000| 2000000000"},
        {"too much", u"type:3000000K", "2,000,000,000| 2000000000"},
        {"far too much", u"type:999999999999999999m", "2,000,000,000| 2000000000"},
        {"stop off", u"type:5.", "5| 5"},
        {"stop on", u"set:QtyThousandPeriod=Y type:5.", "5,000| 5000"},
        {"stop on, twice", u"set:QtyThousandPeriod=Y type:5..", "5,000,000| 5000000"},
        {"while empty", u"value:5 all back type:k", "0| 0"},
        {"written by the form", u"value:7 type:k", "7,000| 7000"},
        {"not on a lot", u"symbol:00005 type:5k", "5,000| 5000 step 400.0"},
        {"stop into a fraction", u"symbol:FRACTION set:QtyThousandPeriod=Y type:5.",
         "5,000.| 5000.0"},
        {"fraction dropped", u"symbol:FRACTION type:2.5k", "2,000| 2000.0"},
    });
}

TEST_F(TQuantityEditorTest, StepsByTheLot) {
    ExpectStates({
        {"typed", u"symbol:00700 type:1234", "1,234| 1234 step 100.0"},
        {"typed and left", u"symbol:00700 type:1234 leave", "1,234| 1234 step 100.0"},
        {"pasted", u"symbol:00700 paste:1234", "1,234| 1234 step 100.0"},
        {"up", u"symbol:00700 type:1234 up", "1,300| 1300 step 100.0"},
        {"up twice", u"symbol:00700 type:1234 up up", "1,400| 1400 step 100.0"},
        {"down", u"symbol:00700 type:1234 down", "1,100| 1100 step 100.0"},
        {"down to less than a lot", u"symbol:00700 type:150 down", "50| 50 step 100.0"},
        {"down to the lot", u"symbol:00700 value:200 down", "100| 100 step 100.0"},
        {"below a lot", u"symbol:00700 value:50", "50| 50 step 100.0"},
        {"by the form", u"symbol:00700 value:1234", "1,200| 1200 step 100.0"},
        {"by the form, left", u"symbol:00700 leave value:1234", "1,200| 1200 step 100.0"},
        {"negative, by the form", u"value:5 right value:-5", "-5| -5"},
        {"no symbol", u"value:1234 up", "1,235| 1235"},
        {"the last quantity again", u"symbol:00700 type:1234 null value:1234",
         "1,234| 1234 step 100.0"},
        {"other lot", u"symbol:00700 symbol:00005 value:1000", "800| 800 step 400.0"},
        {"no lot", u"symbol:LOTWORD value:1234 up", "1,235| 1235"},
        {"lot of nothing", u"symbol:LOT0 value:1234 up", "1,234| 1234 step 0.0"},
        {"fraction", u"symbol:FRACTION type:1234.5", "1,234.5| 1234.5"},
        {"fraction left", u"symbol:FRACTION type:1234.50 leave", "1,234.5| 1234.5"},
        {"no fraction any more", u"symbol:FRACTION symbol:00700 type:2.5", "25| 25 step 100.0"},
        {"bound again", u"symbol:00700 register: value:1234", "1,234| 1234"},
        {"held", u"symbol:00700 value:1000 press:0 tick:400 tick:100 release",
         "1,300| 1300 step 100.0"},
        {"held once", u"set:QtyEdtAutoInc=no symbol:00700 type:1234 press:0 tick:400 tick:100",
         "1,300| 1300 step 0.0"},
        {"held once, let go",
         u"set:QtyEdtAutoInc=no symbol:00700 type:1234 press:0 tick:400 release",
         "1,300| 1300 step 100.0"},
        {"written to while held",
         u"set:QtyEdtAutoInc=no symbol:00700 value:500 press:0 value:1234 release",
         "1,234| 1234 step 100.0"},
        {"wheel", u"symbol:00700 value:1000 wheel:120", "1,100| 1100 step 100.0"},
        {"wheel off", u"set:EnableQtyMouseWheel=n symbol:00700 value:1000 wheel:120",
         "1,000| 1000 step 100.0"},
        {"the other wheel off", u"set:EnableMouseWheel=n symbol:00700 value:1000 wheel:120",
         "1,100| 1100 step 100.0"},
    });
}

TEST_F(TQuantityEditorTest, PassesEventsOnToTheForm) {
    ExpectWords({
        {"typed", u"all type:5", "down53 press5 change:5 up53"},
        {"aligned once", u"value:1250", "change:1200"},
        {"K", u"all type:5k", "down53 press5 change:5 up53 down75 change:5000 pressk up75"},
        {"button", u"press:0 release", "mousedown change:1100 mouseup"},
        {"left", u"all type:5 leave", "down53 press5 change:5 up53 validate'5' exit"},
        {"entered by the mouse", u"leave click:0", "exit enter mousedown click mouseup"},
        {"removed", u"remove all type:5k", "down53 press5 change:5 up53 down75 pressk up75"},
    });
}

TEST_F(TQuantityEditorTest, TakesALotThatArrivesLate) {
    const Integer before = Services().RegistrationCount();
    Do(u"symbol:LATE symbol:LATE value:120");
    EXPECT_EQ(Services().RegistrationCount(), before + 1);
    Services().Items().Touch(Services().Items().Item(u"LATE"));
    Do(u"deliver up");
    EXPECT_EQ(State(), "150| 150 step 50.0");
    EXPECT_EQ(Services().RegistrationCount(), before);
    for (const StringView end : {u"register:", u"symbol:00700", u"remove", u"free"}) {
        SCOPED_TRACE(ToUtf8(end));
        Restart();
        Services().Items().Item(u"LATE").AwaitData();
        Do(u"symbol:LATE");
        EXPECT_EQ(Services().RegistrationCount(), before + 1);
        if (end == u"free") {
            Edit.reset();
        } else {
            Do(end);
        }
        EXPECT_EQ(Services().RegistrationCount(), before);
    }
}

// The other product makes a fraction whole, of which the form hears.
TEST_F(TQuantityEditorTest, KeepsTheProductThatTheFormChoosesInside) {
    const Integer before = Services().RegistrationCount();
    Do(u"symbol:FRACTION type:1.5");
    Trace->ActsOn = "change";
    Trace->Act = [this] { Do(u"symbol:LATE"); };
    Do(u"symbol:NEWS");
    EXPECT_EQ(Services().RegistrationCount(), before + 1);
    Services().Items().Touch(Services().Items().Item(u"LATE"));
    Do(u"deliver");
    EXPECT_EQ(State(), "2| 2 step 50.0");
    EXPECT_EQ(Services().RegistrationCount(), before);
}

} // namespace
} // namespace quorin
