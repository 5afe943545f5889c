#include "zarnic/ZNBufMemoryDictionary.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>
#include <random>

#include "zarnic/platform/foundation/NSException.h"

namespace zn {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The same, found by walking over all entries.
class Walked {
public:
    void set(const Ref<ZNBufMemoryModel>& entry, const std::string& key) {
        const auto found = find(key);
        if (found == entries_.end())
            entries_.emplace_back(key, entry);
        else
            found->second = entry;
    }
    void remove(const std::string& key) {
        if (const auto found = find(key); found != entries_.end())
            entries_.erase(found);
    }
    Ref<ZNBufMemoryModel> takeOldestBefore(double time) {
        auto chosen = entries_.end();
        for (auto each = entries_.begin(); each != entries_.end(); ++each) {
            if (each->second->lastCallTime() < time) {
                time = each->second->lastCallTime();
                chosen = each;
            }
        }
        if (chosen == entries_.end())
            return nullptr;
        auto entry = chosen->second;
        entries_.erase(chosen);
        return entry;
    }
    std::vector<std::string> allKeys() const {
        std::vector<std::string> keys;
        for (const auto& [key, entry] : entries_)
            keys.push_back(key);
        return keys;
    }

private:
    using Entries = std::vector<std::pair<std::string, Ref<ZNBufMemoryModel>>>;
    Entries::iterator find(const std::string& key) {
        return std::ranges::find(entries_, key, &Entries::value_type::first);
    }
    Entries entries_;
};

Ref<ZNBufMemoryModel> entryAt(double time, std::string_view key = "") {
    return make<ZNBufMemoryModel>(key, time, nullptr);
}

std::string takenKey(ZNBufMemoryDictionary& dictionary, double time) {
    const auto entry = dictionary.takeOldestBefore(time);
    return entry ? entry->key() : "none";
}

TEST(ZNBufMemoryDictionaryTest, theOldestStrictlyBeforeGoesFirstOfEqualOnesTheFirst) {
    const auto dictionary = make<ZNBufMemoryDictionary>();
    for (const auto& [key, time] : {std::pair("a", 2.0), {"b", 1.0}, {"c", 1.0}, {"d", 3.0}})
        dictionary->setObjectForKey(entryAt(time, key), key);
    EXPECT_EQ(takenKey(*dictionary, 1), "none");
    EXPECT_EQ(takenKey(*dictionary, 9), "b");
    EXPECT_EQ(takenKey(*dictionary, 9), "c");
    EXPECT_THAT(dictionary->allKeys(), ElementsAre("a", "d"));
    EXPECT_EQ(takenKey(*dictionary, 2), "none");
    EXPECT_EQ(takenKey(*dictionary, 2.5), "a");
    EXPECT_EQ(takenKey(*dictionary, 3), "none");
    EXPECT_EQ(dictionary->count(), 1u);
}

TEST(ZNBufMemoryDictionaryTest, writtenTimesCountHoweverTheyMove) {
    const auto dictionary = make<ZNBufMemoryDictionary>();
    const auto a = entryAt(1, "a");
    const auto b = entryAt(2, "b");
    dictionary->setObjectForKey(a, "a");
    dictionary->setObjectForKey(b, "b");
    a->setLastCallTime(3);
    EXPECT_EQ(takenKey(*dictionary, 1.5), "none");
    a->setLastCallTime(std::nan(""));
    b->setLastCallTime(-std::numeric_limits<double>::infinity());
    EXPECT_EQ(takenKey(*dictionary, 9), "b");
    EXPECT_EQ(takenKey(*dictionary, std::numeric_limits<double>::infinity()), "none");
    a->setLastCallTime(0);
    EXPECT_EQ(takenKey(*dictionary, 9), "a");
    EXPECT_EQ(dictionary->count(), 0u);
}

TEST(ZNBufMemoryDictionaryTest, aReplacedEntryKeepsItsPlaceAndDiesOutside) {
    const auto dictionary = make<ZNBufMemoryDictionary>();
    dictionary->setObjectForKey(entryAt(5, "a"), "a");
    dictionary->setObjectForKey(entryAt(5, "b"), "b");
    dictionary->setObjectForKey(entryAt(5, "new a"), "a");
    EXPECT_THAT(dictionary->allKeys(), ElementsAre("a", "b"));
    EXPECT_THROW(dictionary->setObjectForKey(nullptr, "a"), NSException);
    EXPECT_EQ(takenKey(*dictionary, 9), "new a");
    dictionary->removeAllObjects();
    EXPECT_EQ(takenKey(*dictionary, 9), "none");
    EXPECT_THAT(dictionary->allKeys(), IsEmpty());
    EXPECT_EQ(dictionary->objectForKey("b"), nullptr);
}

/// What a random use of both does next; few keys and times, so that they meet often.
class RandomUse {
public:
    explicit RandomUse(unsigned seed) : random_(seed) {}

    void step() {
        const std::string key = "key " + std::to_string(number(40));
        switch (number(8)) {
            case 0:
                dictionary_->removeObjectForKey(key);
                return walked_.remove(key);
            case 1:
            case 2:
                return compareTaken(number(30));
            case 3:
            case 4:
            case 5:
                if (const auto entry = dictionary_->objectForKey(key))
                    entry->setLastCallTime(number(12) == 0 ? std::nan("") : number(30));
                return;
            default: {
                const auto entry = entryAt(number(30), key);
                dictionary_->setObjectForKey(entry, key);
                walked_.set(entry, key);
            }
        }
    }
    void compareKeys() const { EXPECT_EQ(dictionary_->allKeys(), walked_.allKeys()); }

private:
    int number(int below) { return std::uniform_int_distribution<int>(0, below - 1)(random_); }
    void compareTaken(double time) {
        const auto expected = walked_.takeOldestBefore(time);
        ASSERT_EQ(dictionary_->takeOldestBefore(time), expected);
    }

    std::mt19937 random_;
    Ref<ZNBufMemoryDictionary> dictionary_ = make<ZNBufMemoryDictionary>();
    Walked walked_;
};

TEST(ZNBufMemoryDictionaryTest, anyUseTakesWhatAWalkOverAllWouldTake) {
    for (unsigned seed = 0; seed < 50; ++seed) {
        SCOPED_TRACE(seed);
        RandomUse use(seed);
        for (int step = 0; step < 2000 && !testing::Test::HasFailure(); ++step)
            use.step();
        use.compareKeys();
    }
}

}  // namespace
}  // namespace zn
