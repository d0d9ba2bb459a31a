#include "tests/viewdata/EditorFixture.h"

namespace quorin {
namespace {

using TPriceEditorTest =
    TSpinFixture<&TEditorManager::RegisterPriceEditor, &TEditorManager::RemovePriceEditor,
                 &TEditorManager::SetPriceSymbol>;

TEST_F(TPriceEditorTest, KeepsGroupMarksWhileTyping) {
    ExpectStates({
        {"fraction", u"type:1234.5", "1,234.5| 1234.5"},
        {"point last", u"type:1234.", "1,234.| 1234.0"},
        {"point first", u"value:12 all type:.5", ".5| 0.5"},
        {"digits behind the point", u"type:1.23456", "1.23456| 1.23456"},
        {"in the middle", u"type:123456 left left back", "12,3|56 12356.0"},
        {"in front", u"type:123456 home type:9", "9,|123,456 9123456.0"},
        {"mark deleted", u"type:1234 left left left back", "1,|234 1234.0"},
        {"negative", u"type:1 all type:-1234", "-1,234| -1234.0"},
        {"sign alone", u"value:12 all type:-", "-| 12.0"},
        {"sign alone, left", u"value:12 all type:- leave", "12| 12.0"},
        {"sign into nothing", u"type:-", "0| 0.0"},
        {"point into nothing", u"type:.", "0| 0.0"},
        {"no number", u"type:5 type:x", "5| 5.0"},
        {"two points", u"type:1.2.3", "1.2.3| 1.2"},
        {"two points, left", u"type:1.2.3 leave", "1.2| 1.2"},
        {"largest whole", u"type:2147483647", "2,147,483,647| 2147483647.0"},
        {"beyond it", u"type:2147483648", "0| 2147483648.0"},
        {"beyond it, left", u"type:2147483648 leave", "2,147,483,648| 2147483648.0"},
        {"pasted", u"paste:_1,234.50_", "1,234.50| 1234.5"},
        {"pasted without marks", u"paste:1234567", "1,234,567| 1234567.0"},
        {"blank inside a paste", u"value:7 paste:12_34", "7| 7.0"},
        {"accepted", u"type:1234.50 leave", "1,234.5| 1234.5"},
        {"emptied", u"value:5 all back", "0| 0.0"},
        {"typed after that", u"value:5 all back type:7", "7| 7.0"},
        {"taken away by the form", u"value:5 null", "0| 0.0"},
        {"below the minimum", u"min:10 value:50 all type:5", "1|0 10.0"},
        {"below it, by the form", u"min:10 value:50 right value:5", "5| 5.0"},
        {"at the minimum", u"min:5 value:50 all type:5", "5| 5.0"},
        {"written by the form", u"value:1234.5", "1,234.5| 1234.5"},
    });
}

TEST_F(TPriceEditorTest, StepsAlongTheTickTable) {
    ExpectStates({
        {"up", u"symbol:00700 value:350.2 up", "350.4| 350.4 step 0.2"},
        {"down", u"symbol:00700 value:350.2 down", "350| 350.0 step 0.2"},
        {"typed price stays", u"symbol:00700 type:350.33", "350.33| 350.33 step 0.2"},
        {"and takes its band", u"symbol:00700 type:5.123", "5.123| 5.123 step 0.01"},
        {"up from off the grid", u"symbol:00700 type:350.33 up", "350.4| 350.4 step 0.2"},
        {"down from off the grid", u"symbol:00700 type:350.33 down", "350.2| 350.2 step 0.2"},
        {"second step", u"symbol:00700 type:350.33 up up", "350.6| 350.6 step 0.2"},
        {"button from off the grid", u"symbol:00700 type:350.33 press:1 release",
         "350.2| 350.2 step 0.2"},
        {"off the grid, by the form", u"symbol:00700 value:350.33 up", "350.53| 350.53 step 0.2"},
        {"after another key", u"symbol:00700 value:350.33 right up", "350.4| 350.4 step 0.2"},
        {"on the border", u"symbol:00700 value:200", "200| 200.0 step 0.1"},
        {"over the border", u"symbol:00700 value:200 up", "200.2| 200.2 step 0.2"},
        {"and on", u"symbol:00700 value:200 up up", "200.4| 200.4 step 0.2"},
        {"onto the border", u"symbol:00700 value:200.2 down", "200| 200.0 step 0.2"},
        {"below the border", u"symbol:00700 value:200.2 down down", "199.9| 199.9 step 0.1"},
        {"below the table", u"symbol:00700 value:0.01 down down", "0| 0.0 step 0.01"},
        {"down from above the table", u"symbol:00700 value:600 down", "599.8| 599.8 step 0.2"},
        {"without a value", u"symbol:00700 up", "1| 1.0 step 0.01"},
        {"held", u"symbol:00700 value:350 press:0 tick:400 tick:100 tick:100 release",
         "350.8| 350.8 step 0.2"},
        {"wheel", u"symbol:00700 value:350 wheel:-120", "349.8| 349.8 step 0.2"},
        {"wheel over the border", u"symbol:00700 value:200.2 wheel:-240",
         "199.9| 199.9 step 0.1"},
        {"wheel from off the grid", u"symbol:00700 type:350.33 wheel:-120",
         "350.2| 350.2 step 0.2"},
        {"wheel off", u"set:EnableMouseWheel=no symbol:00700 value:350 wheel:-120",
         "350| 350.0 step 0.2"},
        {"wheel on again",
         u"set:EnableMouseWheel=N set:EnableMouseWheel=Y symbol:00700 value:350 wheel:120",
         "350.2| 350.2 step 0.2"},
        {"ratio", u"symbol:RATIO value:3502 up", "3,504| 3504.0 step 2.0"},
        {"ratio, off the grid", u"symbol:RATIO type:3503.3 up", "3,504| 3504.0 step 2.0"},
        {"ratio, over the border", u"symbol:RATIO value:2000 up", "2,002| 2002.0 step 2.0"},
        {"ratio of nothing", u"symbol:ZERO value:350.2 up", "350.4| 350.4 step 0.2"},
        {"ratio in words", u"symbol:WORD type:350.33 up", "350.4| 350.4 step 0.2"},
        {"no table", u"symbol:HSIF value:100 up", "101| 101.0"},
        {"no table any more", u"symbol:00700 value:350.2 symbol:HSIF up", "350.4| 350.4 step 0.2"},
        {"another table's band", u"symbol:00700 value:35 symbol:RATIO value:350 up",
         "350.5| 350.5 step 0.5"},
        {"no product any more", u"symbol:00700 value:350.2 register: up", "351.2| 351.2"},
        {"the product again", u"symbol:00700 register: symbol:00700 value:350.2 up",
         "350.4| 350.4 step 0.2"},
    });
}

TEST_F(TPriceEditorTest, HeldButtonStepsOnceWhereTheSettingIsOff) {
    ExpectStates({
        {"still held", u"set:PrcEdtAutoInc=N symbol:00700 value:350 press:0 tick:400 tick:400",
         "350.2| 350.2 step 0.0"},
        {"let go", u"set:PrcEdtAutoInc=N symbol:00700 value:350 press:0 tick:400 release",
         "350.2| 350.2 step 0.2"},
        {"twice", u"set:PrcEdtAutoInc=n symbol:00700 value:350 press:1 release press:1 release",
         "349.6| 349.6 step 0.2"},
        {"from off the grid", u"set:PrcEdtAutoInc=N symbol:00700 type:350.33 press:0 release",
         "350.4| 350.4 step 0.2"},
        {"over the border", u"set:PrcEdtAutoInc=N symbol:00700 value:200 press:0 tick:400 release",
         "200.2| 200.2 step 0.2"},
        {"written to while held",
         u"set:PrcEdtAutoInc=N symbol:00700 value:350 press:0 value:360 release",
         "360| 360.0 step 0.2"},
        {"the key still repeats", u"set:PrcEdtAutoInc=N symbol:00700 value:350 up up",
         "350.4| 350.4 step 0.2"},
        {"off by other words", u"set:PrcEdtAutoInc=False symbol:00700 value:350 press:0 tick:400",
         "350.4| 350.4 step 0.2"},
        {"left while held", u"set:PrcEdtAutoInc=N symbol:00700 value:350 press:0 leave",
         "350.2| 350.2 step 0.2"},
    });
}

TEST_F(TPriceEditorTest, PassesEventsOnToTheForm) {
    ExpectWords({
        {"typed", u"all type:5", "down53 press5 change:5.0 up53"},
        {"step", u"up", "down38 change:1000.2 up38"},
        {"step onto the grid", u"value:1000.1 right up",
         "change:1000.1 down39 up39 down38 change:1000.2 change:1000.2 up38"},
        {"emptied", u"all back", "down8 press#8 change:0.0 change:0.0 up8"},
        {"button", u"press:0 release", "mousedown change:1000.2 mouseup"},
        {"left", u"all type:5 leave", "down53 press5 change:5.0 up53 validate'5' exit"},
        {"entered by the mouse", u"leave click:0", "exit enter mousedown click mouseup"},
        {"removed", u"remove press:0 release all type:5",
         "mousedown change:1000.2 mouseup down53 press5 change:5.0 up53"},
    });
}

TEST_F(TPriceEditorTest, FirstClickSelectsAll) {
    ExpectStates({
        {"entered", u"value:1234 leave click:1", "|1,234| 1234.0"},
        {"second click", u"value:1234 leave click:1 click:3", "1,2|34 1234.0"},
        {"entered by key, left, and clicked", u"value:1234 leave enter leave click:1",
         "|1,234| 1234.0"},
        {"after the removal", u"value:1234 remove leave click:1", "1|,234 1234.0"},
    });
}

TEST_F(TPriceEditorTest, TakesATableThatArrivesLate) {
    Services().Market().SetSpreadTablesAtOnce(false);
    const Integer before = Services().RegistrationCount();
    const auto touchLate = [&] { Services().Items().Touch(Services().Items().Item(u"LATE")); };
    Do(u"symbol:LATE symbol:LATE");
    EXPECT_EQ(Services().RegistrationCount(), before + 1);
    Do(u"symbol:00700");
    EXPECT_EQ(Services().RegistrationCount(), before);
    Do(u"symbol:LATE register:G");
    EXPECT_EQ(Services().RegistrationCount(), before);
    Do(u"symbol:LATE");
    EXPECT_EQ(Services().RegistrationCount(), before + 1) << "the same product after a reset";
    Edit->SetEditValue(20.0);
    touchLate();
    Do(u"deliver deliver");
    EXPECT_EQ(Services().RegistrationCount(), before);
    EXPECT_EQ(State(), "20| 20.0 step 0.5");
    Do(u"up");
    EXPECT_EQ(State(), "20.5| 20.5 step 0.5");
}

TEST_F(TPriceEditorTest, KeepsTheRatioOfTheProductThatTheFormChoosesInside) {
    TEmbeddedSubItem& late = Services().Items().Item(u"RATIO");
    late.AwaitData();
    Do(u"symbol:RATIO value:350");
    Trace->ActsOn = "change";
    Trace->Act = [this] { Do(u"symbol:00700"); };
    Services().Items().Touch(late);
    Do(u"deliver value:360 up");
    EXPECT_EQ(State(), "360.2| 360.2 step 0.2");
}

TEST_F(TPriceEditorTest, MayGoWhileItsProductIsAwaited) {
    for (const StringView end : {u"remove", u"free"}) {
        SCOPED_TRACE(ToUtf8(end));
        Restart();
        Services().Items().Item(u"LATE").AwaitData();
        const Integer before = Services().RegistrationCount();
        Do(u"symbol:LATE");
        EXPECT_GT(Services().RegistrationCount(), before);
        if (end == u"free") {
            Edit.reset();
        } else {
            Do(end);
        }
        EXPECT_EQ(Services().RegistrationCount(), before - 1) << "the table listener goes too";
        Services().Items().Touch(Services().Items().Item(u"LATE"));
        Services().Deliver();
    }
}

} // namespace
} // namespace quorin
