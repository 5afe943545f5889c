#include <gtest/gtest.h>

#include <numeric>

#include "tests/imagecache/RealTime.h"
#include "tests/imagecache/TestImages.h"
#include "tests/support/Nginx.h"

namespace zn {
namespace {

/// Many who wait for each of many pictures of a real server. All fit into the memory cache.
class ManyWaitersTest : public testing::Test {
protected:
    void ask(int urlCount, int waiterCount) {
        const auto picture = pngData(12);
        for (int url = 0; url < urlCount; ++url)
            server.write(
                std::to_string(url) + ".png",
                {reinterpret_cast<const char*>(picture.bytes().data()), picture.bytes().size()});
        order.resize(static_cast<std::size_t>(urlCount));
        helper->hold();
        for (int waiter = 0; waiter < waiterCount; ++waiter)
            for (int url = 0; url < urlCount; ++url)
                request(url, waiter);
        helper->release();
        EXPECT_TRUE(runUntil([&] { return told == urlCount * waiterCount; }, 600)) << told;
        EXPECT_EQ(helper->fetches, urlCount);
        std::vector<int> expected(static_cast<std::size_t>(waiterCount));
        std::iota(expected.begin(), expected.end(), 0);
        for (const auto& waiters : order)
            EXPECT_EQ(waiters, expected);
    }
    void request(int url, int waiter) {
        auto& waiters = order[static_cast<std::size_t>(url)];
        helper->downloadImageFillView(nullptr, nullptr,
                                      server.url("/" + std::to_string(url) + ".png"),
                                      [this, waiter, &waiters](const auto&, const auto& image) {
                                          EXPECT_EQ(widthOf(image), 12);
                                          waiters.push_back(waiter);
                                          ++told;
                                      });
    }

    const OwnHome home;
    const Nginx server;
    Ref<HastyHelper> helper = make<HastyHelper>();
    std::vector<std::vector<int>> order;
    int told = 0;
};

TEST_F(ManyWaitersTest, areServedByOneFetchEachAndInOrder) {
    ask(10, 20);
}

using ManyWaitersSoakTest = ManyWaitersTest;

TEST_F(ManyWaitersSoakTest, aThousandTimesTwenty) {
    ask(1000, 20);
}

}  // namespace
}  // namespace zn
