#include "platform/rtl/TDictionary.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <random>
#include <vector>

namespace quorin {
namespace {

String KeyOf(std::uint32_t number) {
    return String(1, static_cast<Char>(u'A' + number % 26)) + String(number % 11, u'x') +
           String(1, static_cast<Char>(number));
}

TEST(TDictionaryTest, AddDoesNotOverwriteAndLookUpsLeaveTheirTargetAlone) {
    TDictionary<String, int> values;
    EXPECT_TRUE(values.Add(u"a", 1));
    EXPECT_FALSE(values.Add(u"a", 2));
    int target = 7;
    EXPECT_FALSE(values.TryGetValue(u"b", target));
    EXPECT_EQ(target, 7);
    EXPECT_TRUE(values.TryGetValue(u"a", target));
    EXPECT_EQ(target, 1);
    EXPECT_EQ(values.Extract(u"b"), 0);
    EXPECT_EQ(values.Extract(u"a"), 1);
    EXPECT_TRUE(values.IsEmpty());
}

// A long random walk of all changing operations against a plain model, order included.
TEST(TDictionaryTest, AgreesWithAModelOverARandomWalk) {
    constexpr unsigned seed = 20260401;
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    TDictionary<String, std::uint32_t> dictionary;
    std::vector<std::pair<String, std::uint32_t>> model;
    const auto place = [&](const String& key) {
        return std::find_if(model.begin(), model.end(),
                            [&](const auto& entry) { return entry.first == key; });
    };
    for (int step = 0; step < 20000; ++step) {
        // Phases that grow and phases that shrink, so that holes are swept and cells reused.
        const bool growing = (step / 2500) % 2 == 0;
        const std::uint32_t number = static_cast<std::uint32_t>(random() % 700);
        const String key = KeyOf(number);
        const auto known = place(key);
        if (random() % 10 < (growing ? 7u : 2u)) {
            dictionary.AddOrSetValue(key, number + static_cast<std::uint32_t>(step));
            if (known == model.end()) {
                model.emplace_back(key, number + static_cast<std::uint32_t>(step));
            } else {
                known->second = number + static_cast<std::uint32_t>(step);
            }
        } else {
            EXPECT_EQ(dictionary.Remove(key), known != model.end());
            if (known != model.end()) model.erase(known);
        }
        if (step % 4999 == 0) {
            dictionary.Clear();
            model.clear();
        }
        ASSERT_EQ(dictionary.Count(), static_cast<Integer>(model.size()));
        ASSERT_EQ(dictionary.ContainsKey(key), place(key) != model.end());
        if (step % 97 != 0) continue;
        auto expected = model.begin();
        for (const auto& [liveKey, value] : dictionary) {
            ASSERT_EQ(liveKey, expected->first);
            ASSERT_EQ(value, expected->second);
            ++expected;
        }
        ASSERT_EQ(expected, model.end());
    }
}

TEST(TDictionaryTest, ALoopMayRemoveAnyKey) {
    TDictionary<Integer, int> numbers;
    for (Integer key = 0; key < 100; ++key) numbers.Add(key, key);
    std::vector<Integer> seen;
    for (const auto& item : numbers) {
        const Integer key = item.Key;
        seen.push_back(key);
        numbers.Remove(key);
        numbers.Remove(key + 1);
    }
    EXPECT_EQ(seen.size(), 50u);
    EXPECT_TRUE(numbers.IsEmpty());
}

// A value whose end looks at the dictionary finds it in order and without the key.
TEST(TDictionaryTest, IsWholeWhileValuesDie) {
    struct TWatcher {
        TDictionary<String, std::unique_ptr<TWatcher>>* Home;
        std::vector<Integer>* Counts;
        ~TWatcher() { Counts->push_back(Home->Count()); }
    };
    std::vector<Integer> counts;
    TDictionary<String, std::unique_ptr<TWatcher>> home;
    for (const Char* key : {u"a", u"b", u"c"}) {
        home.Add(key, std::unique_ptr<TWatcher>(new TWatcher{&home, &counts}));
    }
    home.Remove(u"b");
    home.AddOrSetValue(u"a", nullptr);
    home.Clear();
    EXPECT_EQ(counts, (std::vector<Integer>{2, 2, 0}));
}

TEST(TDictionaryTest, AKeyMayBeAViewOfAnEntry) {
    TDictionary<String, String> names;
    names.Add(u"a long key that lies on the heap", u"first");
    for (int round = 0; round < 40; ++round) {
        const StringView key = (*names.begin()).Key;
        names.Add(key.substr(0, static_cast<std::size_t>(round % key.size())), String(key));
    }
    EXPECT_EQ(names.Count(), 33);
    EXPECT_EQ(*names.Find(u"a long"), u"a long key that lies on the heap");
}

TEST(TDictionaryTest, CopiesAndMovesStandAlone) {
    TDictionary<String, int> first;
    first.Add(u"a", 1);
    TDictionary<String, int> copy = first;
    copy.AddOrSetValue(u"a", 2);
    EXPECT_EQ(*first.Find(u"a"), 1);
    const TDictionary<String, int> moved = std::exchange(first, {});
    EXPECT_TRUE(first.IsEmpty());
    EXPECT_FALSE(first.ContainsKey(u"a"));
    EXPECT_TRUE(moved.ContainsKey(u"a"));
    TDictionary<String, int> third = std::move(copy);
    EXPECT_EQ(copy.Count(), 0); // NOLINT: what is moved from is empty and serves again
    copy.Add(u"b", 3);
    EXPECT_EQ(copy.Count(), 1);
    EXPECT_EQ(third.Count(), 1);
}

} // namespace
} // namespace quorin
