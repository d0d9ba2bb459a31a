#include "platform/rtl/ScopedValue.h"
#include "platform/rtl/TComponent.h"
#include "platform/rtl/TList.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quorin {
namespace {

std::vector<std::string> Log;

class TBase : public TComponent {
    QUORIN_CLASS(TBase, TComponent)
    explicit TBase(TComponent* owner = nullptr) : TComponent(owner) {}
    ~TBase() override { Log.push_back(std::string("end ") + std::to_string(Tag())); }
    void AfterConstruction() override { Log.push_back(std::string("made ") + ClassName()); }
    virtual void Update(Pointer, Pointer) { Log.push_back("base"); }
};

class TDescendant : public TBase {
    QUORIN_CLASS(TDescendant, TBase)
    explicit TDescendant(TComponent* owner = nullptr) : TBase(owner) {}
    void Update(Pointer, Pointer) override { Log.push_back("descendant"); }
    void Freed(TObject* sender) { Log.push_back(sender == Watched ? "told" : "wrong"); }
    TObject* Watched = nullptr;
};

class TStranger : public TObject {
    QUORIN_CLASS(TStranger, TObject)
};

struct TObjectTest : testing::Test {
    TObjectTest() { Log.clear(); }
};

TEST_F(TObjectTest, ClassTestsFollowTheLine) {
    TDescendant descendant;
    TStranger stranger;
    const Pointer untyped = AsPointer(&descendant);
    EXPECT_EQ(ObjectAs<TBase>(untyped), &descendant);
    EXPECT_EQ(ObjectAs<TDescendant>(untyped), &descendant);
    EXPECT_EQ(ObjectAs<TStranger>(untyped), nullptr);
    EXPECT_EQ(ObjectAs<TBase>(AsPointer(&stranger)), nullptr);
    EXPECT_EQ(ObjectAs<TBase>(Pointer(nullptr)), nullptr);
    EXPECT_TRUE(TComponentClass::Of<TDescendant>().InheritsFrom<TBase>());
    EXPECT_FALSE(TComponentClass::Of<TBase>().InheritsFrom<TDescendant>());
    EXPECT_FALSE(TComponentClass().InheritsFrom<TBase>());
    EXPECT_TRUE(Log.empty()) << "asking a class made an object";
}

TEST_F(TObjectTest, AnEventCallsTheOverrideAndComparesByObjectAndMember) {
    TDescendant one;
    TDescendant other;
    const TDataCallbackEvent event = MakeEvent<&TBase::Update>(&one);
    event(nullptr, nullptr);
    EXPECT_EQ(Log, std::vector<std::string>{"descendant"});
    EXPECT_EQ(event, MakeEvent<&TBase::Update>(&one));
    EXPECT_NE(event, MakeEvent<&TBase::Update>(&other));
    EXPECT_FALSE(TDataCallbackEvent());
    EXPECT_EQ(TDataCallbackEvent(), TDataCallbackEvent(nullptr));
}

TEST_F(TObjectTest, OwnerFreesTheNewestFirst) {
    {
        const auto owner = CreateComponent<TBase>();
        for (const Integer tag : {1, 2, 3}) CreateComponent<TDescendant>(*owner).SetTag(tag);
        EXPECT_EQ(owner->ComponentCount(), 3);
        delete &CreateComponent<TBase>(*owner); // one that goes early leaves its owner
        EXPECT_EQ(owner->ComponentCount(), 3);
        Log.clear();
    }
    EXPECT_EQ(Log, (std::vector<std::string>{"end 0", "end 3", "end 2", "end 1"}));
}

TEST_F(TObjectTest, AClassMakesACompleteObject) {
    const std::unique_ptr<TComponent> made = TComponentClass::Of<TDescendant>().Create();
    EXPECT_NE(ObjectAs<TDescendant>(made.get()), nullptr);
    EXPECT_EQ(Log, std::vector<std::string>{"made TDescendant"});
}

TEST_F(TObjectTest, TheEndIsToldToThoseWhoAsked) {
    TDescendant listener;
    TDescendant gone;
    auto watched = CreateComponent<TBase>();
    listener.Watched = watched.get();
    watched->AddFreeListener(MakeEvent<&TDescendant::Freed>(&listener), &listener);
    watched->AddFreeListener(MakeEvent<&TDescendant::Freed>(&listener), &listener);
    watched->AddFreeListener(MakeEvent<&TDescendant::Freed>(&gone), &gone);
    watched->RemoveFreeListener(&gone);
    Log.clear();
    watched.reset();
    EXPECT_EQ(Log, (std::vector<std::string>{"end 0", "told"}));
}

TEST_F(TObjectTest, ScopesGiveBackWhatTheyFound) {
    bool silent = false;
    {
        TScopedValue outer(silent, true);
        { TScopedValue inner(silent, true); }
        EXPECT_TRUE(silent) << "a nested scope must not clear the outer one";
    }
    EXPECT_FALSE(silent);

    String buffer;
    {
        TBorrowed<String> outer(buffer);
        *outer = u"outer text";
        {
            TBorrowed<String> inner(buffer);
            EXPECT_TRUE((*inner).empty());
            *inner = u"inner";
        }
        EXPECT_EQ(*outer, u"outer text");
    }
}

struct TMoveCase {
    const char* Name;
    Integer From;
    Integer To;
    std::vector<int> Expected;
};

TEST(TListTest, MoveShiftsWhatLiesBetween) {
    const TMoveCase cases[] = {
        {"down", 0, 3, {1, 2, 3, 0, 4}},
        {"up", 3, 0, {3, 0, 1, 2, 4}},
        {"to the end", 1, 4, {0, 2, 3, 4, 1}},
        {"nowhere", 2, 2, {0, 1, 2, 3, 4}},
    };
    for (const TMoveCase& row : cases) {
        TList<int> list;
        for (int value = 0; value < 5; ++value) list.Add(value);
        list.Move(row.From, row.To);
        EXPECT_EQ(std::vector<int>(list.begin(), list.end()), row.Expected) << row.Name;
    }
}

} // namespace
} // namespace quorin
