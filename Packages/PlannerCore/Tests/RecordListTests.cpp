#include <PlannerCore/RecordList.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <atomic>
#include <set>
#include <string>
#include <thread>
#include <vector>

using planner::RecordList;

namespace {

using List = RecordList<std::string>;
constexpr auto capacity = List::chunkCapacity;

List numbered(std::size_t count) {
    List list;
    for (std::size_t index = 0; index < count; ++index) list.push_back(std::to_string(index));
    return list;
}

std::vector<std::string> contents(const List& list) {
    return {list.begin(), list.end()};
}

/// The records that a walk over the unshared chunks meets.
std::multiset<std::string> unshared(const List& list, const List& other) {
    std::multiset<std::string> met;
    list.forEachUnshared(other, [&](const std::string& record) { met.insert(record); });
    return met;
}

/// Counts its copies.
struct Counted {
    static inline int copies = 0;
    int value = 0;

    explicit Counted(int value) : value(value) {}
    Counted(const Counted& other) : value(other.value) { ++copies; }
    Counted(Counted&&) = default;
    Counted& operator=(const Counted& other) {
        value = other.value;
        ++copies;
        return *this;
    }
    Counted& operator=(Counted&&) = default;
    bool operator==(const Counted&) const = default;
};

/// Makes one random change to a list and the same one to a plain vector.
void changeBoth(List& list, std::vector<std::string>& plain) {
    const auto place = [&](std::size_t end) { return *rc::gen::inRange<std::size_t>(0, end); };
    const auto value = std::to_string(*rc::gen::inRange(0, 1000));
    switch (*rc::gen::weightedElement<int>({{3, 0}, {4, 1}, {3, 2}, {3, 3}, {1, 4}, {1, 5}})) {
    case 0:
        list.push_back(value);
        plain.push_back(value);
        break;
    case 1: {
        const auto at = place(plain.size() + 1);
        list.insert(at, value);
        plain.insert(plain.begin() + std::ptrdiff_t(at), value);
        break;
    }
    case 2:
        if (!plain.empty()) {
            const auto at = place(plain.size());
            list.replace(at, value);
            plain[at] = value;
        }
        break;
    case 3:
        if (!plain.empty()) {
            const auto at = place(plain.size());
            list.erase(at);
            plain.erase(plain.begin() + std::ptrdiff_t(at));
        }
        break;
    case 4: {
        const auto matches = [last = value.back()](const std::string& record) {
            return record.back() == last;
        };
        RC_ASSERT(list.eraseIf(matches) == std::erase_if(plain, matches));
        break;
    }
    default: // enough at one place to split its chunk
        for (std::size_t count = 0, at = place(plain.size() + 1); count < capacity; ++count) {
            list.insert(at, value);
            plain.insert(plain.begin() + std::ptrdiff_t(at), value);
        }
    }
}

} // namespace

RC_GTEST_PROP(RecordList, HoldsWhatAPlainListHoldsAfterTheSameChangesAndItsCopiesStay, ()) {
    const auto length = *rc::gen::inRange<std::size_t>(0, 3 * capacity);
    auto list = numbered(length);
    auto plain = contents(list);
    std::vector<std::pair<List, std::vector<std::string>>> copies;
    const auto changes = *rc::gen::inRange(1, 30);
    for (int change = 0; change < changes; ++change) {
        if (*rc::gen::inRange(0, 4) == 0) copies.emplace_back(list, plain);
        changeBoth(list, plain);
        RC_ASSERT(list.size() == plain.size());
        RC_ASSERT(list.empty() == plain.empty());
        RC_ASSERT(contents(list) == plain);
    }
    for (std::size_t index = 0; index < plain.size(); ++index) RC_ASSERT(list[index] == plain[index]);
    for (const auto& [copy, expected] : copies) {
        RC_ASSERT(contents(copy) == expected);
        RC_ASSERT((copy == list) == (expected == plain));
        RC_ASSERT((list == copy) == (expected == plain));
    }
}

RC_GTEST_PROP(RecordList, AWalkOverUnsharedChunksMeetsEveryRecordThatTheOtherLacks, ()) {
    const auto before = numbered(*rc::gen::inRange<std::size_t>(0, 3 * capacity));
    auto after = before;
    auto plain = contents(before);
    const auto changes = *rc::gen::inRange(0, 10);
    for (int change = 0; change < changes; ++change) changeBoth(after, plain);

    const auto lacking = [](const List& list, const List& other) {
        const auto records = contents(list), others = contents(other);
        std::multiset<std::string> left(records.begin(), records.end());
        for (const auto& record : others)
            if (const auto same = left.find(record); same != left.end()) left.erase(same);
        return left;
    };
    for (const auto& [list, other] : {std::pair(before, after), std::pair(after, before)}) {
        const auto met = unshared(list, other);
        const auto expected = lacking(list, other);
        RC_ASSERT(std::includes(met.begin(), met.end(), expected.begin(), expected.end()));
    }
}

TEST(RecordList, ACopySharesEveryChunk) {
    const auto list = numbered(10 * capacity);
    const auto copy = list;
    EXPECT_TRUE(unshared(copy, list).empty());
    EXPECT_EQ(copy, list);
}

TEST(RecordList, AChangeUnsharesOneChunkOnly) {
    const auto list = numbered(10 * capacity);
    auto copy = list;
    copy.replace(5 * capacity, "other");
    EXPECT_EQ(unshared(copy, list).size(), capacity);
    EXPECT_EQ(unshared(list, copy).size(), capacity);
    EXPECT_NE(copy, list);
    EXPECT_EQ(list[5 * capacity], std::to_string(5 * capacity));

    copy = list;
    copy.erase(5 * capacity);
    EXPECT_EQ(unshared(copy, list).size(), capacity - 1);
    copy = list;
    copy.insert(5 * capacity, "other");
    EXPECT_EQ(unshared(copy, list).size(), capacity + 1);
    copy = list;
    EXPECT_EQ(copy.eraseIf([](const std::string& record) { return record == "7"; }), 1u);
    EXPECT_EQ(unshared(copy, list).size(), capacity - 1);
}

TEST(RecordList, ErasingWithoutAMatchKeepsEveryChunkShared) {
    const auto list = numbered(3 * capacity);
    auto copy = list;
    EXPECT_EQ(copy.eraseIf([](const std::string&) { return false; }), 0u);
    EXPECT_TRUE(unshared(copy, list).empty());
}

TEST(RecordList, ErasingEverythingLeavesAnEmptyListThatCanBeFilledAgain) {
    auto list = numbered(3 * capacity + 1);
    EXPECT_EQ(list.eraseIf([](const std::string&) { return true; }), 3 * capacity + 1);
    EXPECT_TRUE(list.empty());
    EXPECT_EQ(list.size(), 0u);
    EXPECT_EQ(list.begin(), list.end());
    EXPECT_EQ(list, List());
    list.push_back("again");
    EXPECT_EQ(contents(list), std::vector<std::string>{"again"});
}

TEST(RecordList, AConditionalChangeUnsharesOnlyTheChunksItTouches) {
    const auto list = numbered(4 * capacity);
    auto copy = list;
    std::vector<std::size_t> changed;
    copy.changeIf([](const std::string&, std::size_t index) { return index % (2 * capacity) == 5; },
                  [&](std::string& record, std::size_t index) {
                      record += "!";
                      changed.push_back(index);
                  });
    EXPECT_EQ(changed, (std::vector<std::size_t>{5, 2 * capacity + 5}));
    EXPECT_EQ(copy[5], "5!");
    EXPECT_EQ(list[5], "5");
    EXPECT_EQ(unshared(copy, list).size(), 2 * capacity);
    ASSERT_EQ(copy.chunkCount(), 4u);
    EXPECT_EQ(copy.chunk(1).data(), list.chunk(1).data());
    EXPECT_NE(copy.chunk(0).data(), list.chunk(0).data());
}

TEST(RecordList, AChangeCopiesAtMostOneChunkOfRecords) {
    RecordList<Counted> list;
    for (int index = 0; index < int(10 * capacity); ++index) list.push_back(Counted(index));
    const auto keep = list;
    Counted::copies = 0;
    list.replace(17, Counted(-1));
    EXPECT_LE(Counted::copies, int(capacity));
    Counted::copies = 0;
    list.replace(18, Counted(-1));
    EXPECT_EQ(Counted::copies, 0) << "the chunk is its own by now";
    list.push_back(Counted(-1));
    EXPECT_EQ(Counted::copies, 0) << "a full chunk is left alone";
}

TEST(RecordList, AnInsertSplitsAChunkThatGrewTooLarge) {
    auto list = numbered(1);
    for (std::size_t count = 0; count < 5 * capacity; ++count) list.insert(0, "x");
    const auto keep = list;
    list.replace(0, "y");
    EXPECT_LE(unshared(list, keep).size(), 2 * capacity);
}

TEST(RecordList, EqualContentsAreEqualHoweverTheyAreChunked) {
    const auto list = numbered(4 * capacity);
    List grown;
    for (std::size_t index = 4 * capacity; index-- > 0;) grown.insert(0, std::to_string(index));
    EXPECT_EQ(grown, list);
    grown.replace(4 * capacity - 1, "other");
    EXPECT_NE(grown, list);
    grown.erase(4 * capacity - 1);
    EXPECT_NE(grown, list);
}

TEST(RecordList, FindGivesTheFirstMatchOrTheSize) {
    const auto list = numbered(2 * capacity + 3);
    EXPECT_EQ(list.find([](const std::string& record) { return record == "300"; }), 300u);
    EXPECT_EQ(list.find([](const std::string& record) { return record.size() == 2; }), 10u);
    EXPECT_EQ(list.find([](const std::string&) { return false; }), list.size());
}

TEST(RecordList, OneThreadMayReadItsCopyWhileAnotherChangesTheirs) {
    auto list = numbered(4 * capacity);
    const auto expected = contents(list);
    std::atomic<bool> same = true;
    for (int round = 0; round < 20; ++round) {
        std::thread reader([&same, &expected, copy = list] {
            if (contents(copy) != expected) same = false;
        });
        auto edited = list;
        for (std::size_t index = 0; index < edited.size(); index += 100) edited.replace(index, "other");
        reader.join();
    }
    EXPECT_TRUE(same);
}
