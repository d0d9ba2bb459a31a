#include "embedded/SubscribeService.h"
#include "platform/rtl/Numbers.h"
#include "tests/support/AllocationCount.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <random>
#include <set>

using namespace quorin;

namespace {

// Follows items and notes what it hears; `During` runs inside each call.
class TFollower : public TObject {
public:
    TFollower(std::string name, std::string& log) : Name(std::move(name)), Log(log) {}

    TDataCallbackEvent Batch() { return MakeEvent<&TFollower::Hear>(this); }
    TDataCallbackEvent OtherBatch() { return MakeEvent<&TFollower::HearOther>(this); }
    TNotifyEvent Realtime() { return MakeEvent<&TFollower::HearItem>(this); }

    std::string Name;
    std::string& Log;
    std::function<void()> During;

private:
    void Note(const char* mark, const std::string& what) {
        Log += Name + mark + what + " ";
        const auto during = During; // the call may be the end of this object
        if (during) during();
    }
    void Hear(Pointer sender, Pointer) { Note(":", Keys(sender)); }
    void HearOther(Pointer sender, Pointer) { Note("=", Keys(sender)); }
    void HearItem(TObject* sender) {
        Note("!", Narrow(ObjectAs<TCustomSubItem>(sender)->GetKey()));
    }

    static std::string Narrow(const String& text) { return {text.begin(), text.end()}; }
    static std::string Keys(Pointer sender) {
        std::string keys;
        for (const auto& item : *static_cast<TSubItemDictionary*>(sender)) keys += Narrow(item.Key);
        return keys;
    }
};

class TFeed : public TItemFeed {
public:
    void Requested(TEmbeddedSubItem& item) override {
        Keys += std::string(item.GetKey().begin(), item.GetKey().end()) + " ";
        if (During) During(item);
    }
    std::string Keys;
    std::function<void(TEmbeddedSubItem&)> During;
};

class SubscribeServiceTest : public testing::Test {
protected:
    void TearDown() override { EXPECT_EQ(Adapter.RegistrationCount(), 0); }

    TEmbeddedSubItem& Item(StringView key) { return Adapter.Item(key); }
    void Touch(StringView keys) {
        for (const Char key : keys) Adapter.Touch(Item(StringView(&key, 1)));
    }
    std::string Deliver() {
        Adapter.Deliver();
        return std::exchange(Log, {});
    }
    void Drop(TFollower& follower) {
        for (const Char key : StringView(u"ABC")) {
            Adapter.Unsubscribe(&Item(StringView(&key, 1)), &follower);
            Item(StringView(&key, 1)).RemoveRealtimeListener(&follower);
        }
    }

    TEmbeddedSubscribeAdapter Adapter;
    std::string Log;
    TFollower X{"x", Log};
    TFollower Y{"y", Log};
};

TEST_F(SubscribeServiceTest, OneCallPerOwnerAndEvent) {
    Adapter.Subscribe(&Item(u"A"), X.Batch(), &X);
    Adapter.Subscribe(&Item(u"B"), X.Batch(), &X);
    Adapter.Subscribe(&Item(u"C"), X.OtherBatch(), &X);
    Adapter.Subscribe(&Item(u"B"), Y.Batch(), &Y);
    EXPECT_EQ(Adapter.RegistrationCount(), 4);
    const struct {
        const char* name;
        StringView touched;
        std::string heard;
    } cases[] = {
        {"nothing changed", u"", ""},
        {"nobody follows", u"D", ""},
        {"one item, one owner", u"A", "x:A "},
        {"two items of one owner", u"AB", "x:AB y:AB "},
        {"touched twice", u"AAA", "x:A "},
        {"with an item that is not followed", u"DA", "x:A "},
        {"both events of an owner", u"ABC", "x:ABC y:ABC x=ABC "},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        Touch(row.touched);
        EXPECT_EQ(Deliver(), row.heard);
        EXPECT_EQ(Deliver(), "") << "heard twice";
    }
    Drop(X);
    Drop(X); // harmless
    Touch(u"ABC");
    EXPECT_EQ(Deliver(), "y:B ");
    Drop(Y);
}

TEST_F(SubscribeServiceTest, RealtimeListenersComeAfterTheBatch) {
    for (const StringView key : {u"A", u"B"}) {
        Item(key).AddRealtimeListener(X.Realtime(), &X);
        Item(key).AddRealtimeListener(Y.Realtime(), &Y);
        Item(key).AddRealtimeListener(Y.Realtime(), &Y); // counts once
    }
    EXPECT_EQ(Adapter.RegistrationCount(), 4);
    Adapter.Subscribe(&Item(u"A"), Y.Batch(), &Y);
    Touch(u"BA");
    EXPECT_EQ(Deliver(), "y:A x!B y!B x!A y!A ");
    X.During = [&] { Item(u"B").RemoveRealtimeListener(&X); };
    Touch(u"B");
    EXPECT_EQ(Deliver(), "x!B y!B ");
    Touch(u"B");
    EXPECT_EQ(Deliver(), "y!B ");
    X.During = nullptr;
    Drop(X);
    Drop(Y);
}

TEST_F(SubscribeServiceTest, ChangesInsideADeliveryWait) {
    Adapter.Subscribe(&Item(u"A"), X.Batch(), &X);
    Adapter.Subscribe(&Item(u"B"), Y.Batch(), &Y);
    X.During = [&] { Touch(u"AB"); };
    Touch(u"A");
    EXPECT_EQ(Deliver(), "x:A ");
    X.During = nullptr;
    EXPECT_EQ(Deliver(), "x:AB y:AB ");
    EXPECT_EQ(Deliver(), "");

    int rounds = 0;
    X.During = [&] { // a delivery inside a call, as a message box makes one
        if (++rounds > 1) return;
        Touch(u"B");
        Adapter.Deliver();
    };
    Touch(u"AB");
    EXPECT_EQ(Deliver(), "x:AB y:B y:AB ");
    X.During = nullptr;
    Drop(X);
    Drop(Y);
}

TEST_F(SubscribeServiceTest, StatusFollowsTheData) {
    TEmbeddedSubItem& item = Item(u"A");
    Adapter.GetSubItem(u"A", LiveDataType, true);
    Deliver();
    EXPECT_EQ(item.GetStatus(), ItemStatus::Waiting);
    Touch(u"A");
    EXPECT_EQ(item.GetStatus(), ItemStatus::Waiting);
    Deliver();
    EXPECT_EQ(item.GetStatus(), ItemStatus::Ready);
    item.SetStatus(ItemStatus::Waiting);
    Touch(u"A");
    Deliver();
    EXPECT_EQ(item.GetStatus(), ItemStatus::Waiting) << "what the feed says later stands";

    Item(u"B").SetStatus(ItemStatus::NoData);
    Touch(u"B");
    Deliver();
    EXPECT_EQ(Item(u"B").GetStatus(), ItemStatus::NoData);
}

TEST_F(SubscribeServiceTest, RequestsReachTheFeedAtTheNextDelivery) {
    TFeed feed;
    Adapter.SetFeed(&feed);
    feed.During = [&](TEmbeddedSubItem& item) {
        item.SetField(Field::LastPrice, 7.0);
        Adapter.Touch(item);
        if (item.GetKey() == u"A") Adapter.GetSubItem(u"E", LiveDataType, true);
    };
    Adapter.GetSubItem(u"A", LiveDataType, true);
    Adapter.GetSubItem(u"D", LiveDataType, false);
    Adapter.Subscribe(&Item(u"B"), X.Batch(), &X);
    Item(u"C").AddRealtimeListener(X.Realtime(), &X);
    Adapter.GetSubItem(u"A", LiveDataType, true);
    EXPECT_EQ(feed.Keys, "");
    EXPECT_EQ(Deliver(), "x:B x!C ");
    EXPECT_EQ(feed.Keys, "A B C ");
    EXPECT_EQ(Item(u"A").GetFieldDouble(Field::LastPrice), 7.0);
    Deliver();
    EXPECT_EQ(feed.Keys, "A B C E ");
    Deliver();
    EXPECT_EQ(feed.Keys, "A B C E ");
    Drop(X);
    Adapter.SetFeed(nullptr);
}

TEST_F(SubscribeServiceTest, DeliversWithoutAllocating) {
    struct TCounter : TObject {
        void Hear(Pointer sender, Pointer) {
            ItemCount += static_cast<TSubItemDictionary*>(sender)->Count();
        }
        Integer ItemCount = 0;
    } counter;
    std::vector<TEmbeddedSubItem*> items;
    for (int index = 0; index < 200; ++index) {
        items.push_back(&Item(u"a key too long for a small buffer " + IntegerToText(index)));
        if (index % 2 > 0) continue;
        Adapter.Subscribe(items.back(), MakeEvent<&TCounter::Hear>(&counter), &counter);
    }
    const auto round = [&](std::size_t first) {
        for (std::size_t index = 0; index < 100; ++index) Adapter.Touch(*items[first + index]);
        Adapter.Deliver();
    };
    for (std::size_t warm = 0; warm < 3; ++warm) round(50 * (warm % 3));
    const std::size_t before = AllocationCount();
    for (std::size_t steady = 0; steady < 9; ++steady) round(50 * (steady % 3));
    EXPECT_EQ(AllocationCount(), before);
    EXPECT_EQ(counter.ItemCount, 600); // those that somebody follows
    for (TEmbeddedSubItem* item : items) Adapter.Unsubscribe(item, &counter);
}

// Random registrations, removals and deliveries, also inside calls, against sets of pairs.
TEST_F(SubscribeServiceTest, RandomUseAgreesWithASimpleModel) {
    for (unsigned seed = 1; seed <= 40; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        std::mt19937 random(seed);
        const StringView keys = u"ABCDEF";
        using TPair = std::pair<TFollower*, Char>;
        std::set<TPair> pairs;
        std::set<TPair> late; // added during the delivery
        std::set<TFollower*> called;
        std::vector<std::unique_ptr<TFollower>> followers;
        std::set<Char> touched;
        bool isDelivering = false;
        const auto change = [&] {
            TFollower* follower = followers[random() % followers.size()].get();
            const Char key = keys[random() % keys.size()];
            TEmbeddedSubItem& item = Item(StringView(&key, 1));
            if (random() % 2 == 0) {
                Adapter.Subscribe(&item, follower->Batch(), follower);
                if (pairs.insert({follower, key}).second && isDelivering) {
                    late.insert({follower, key});
                }
            } else {
                Adapter.Unsubscribe(&item, follower);
                pairs.erase({follower, key});
                late.erase({follower, key});
            }
        };
        for (int index = 0; index < 5; ++index) {
            auto& follower = followers.emplace_back(std::make_unique<TFollower>("f", Log));
            follower->During = [&, self = follower.get()] {
                EXPECT_TRUE(called.insert(self).second) << "called twice";
                bool follows = false;
                for (const Char key : touched) {
                    follows |= pairs.count({self, key}) > 0 && late.count({self, key}) == 0;
                }
                EXPECT_TRUE(follows) << "called without an item";
                for (auto count = random() % 3; count > 0; --count) change();
            };
        }
        for (int round = 0; round < 200; ++round) {
            for (auto count = random() % 4; count > 0; --count) change();
            touched.clear();
            for (auto count = random() % 4; count > 0; --count) {
                const Char key = keys[random() % keys.size()];
                touched.insert(key);
                Touch(StringView(&key, 1));
            }
            called.clear();
            late.clear();
            isDelivering = true;
            Adapter.Deliver();
            isDelivering = false;
            for (const auto& [follower, key] : pairs) {
                const bool isDue = touched.count(key) > 0 && late.count({follower, key}) == 0;
                EXPECT_TRUE(!isDue || called.count(follower) > 0) << "not called";
            }
            ASSERT_EQ(Adapter.RegistrationCount(), static_cast<Integer>(pairs.size()));
        }
        for (const auto& [follower, key] : pairs) {
            Adapter.Unsubscribe(&Item(StringView(&key, 1)), follower);
        }
    }
}

} // namespace
