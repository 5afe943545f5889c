#include <gtest/gtest.h>

#include <thread>

#include "tests/imagecache/RealTime.h"
#include "tests/imagecache/TestImages.h"
#include "zarnic/platform/foundation/NSDate.h"

namespace zn {
namespace {

/// Some of the threads stay in requests of their own; the others answer at once with nothing.
class BlockedHelper final : public ZNImageHelper {
public:
    Value downloadImageData(std::optional<std::string_view> url) const override {
        const std::lock_guard guard(*condition_);
        if (url->starts_with("block")) {
            ++blocked_;
            condition_->broadcast();
            for (const int round = round_; round == round_;)
                condition_->wait();
            return {};
        }
        ++served_;
        condition_->broadcast();
        return {};
    }
    void block(int count) {
        const std::lock_guard guard(*condition_);
        blocked_ = 0;
        for (int number = 0; number < count; ++number)
            queue("block " + std::to_string(++lastBlock_));
        while (blocked_ < count)
            condition_->wait();
    }
    void unblock() {
        const std::lock_guard guard(*condition_);
        ++round_;
        condition_->broadcast();
    }
    /// False when it takes as long as a thread may lie idle after a lost signal.
    bool serve(int number) {
        queue("http://a/" + std::to_string(number));
        const std::lock_guard guard(*condition_);
        const auto limit = NSDate::dateWithTimeIntervalSinceNow(4);
        while (served_ <= number) {
            if (!condition_->waitUntilDate(limit))
                return false;
        }
        return true;
    }

private:
    void queue(const std::string& url) { downloadImageFillView(nullptr, nullptr, url, nullptr); }

    const Ref<NSCondition> condition_ = make<NSCondition>();
    mutable int blocked_ = 0;
    mutable int served_ = 0;
    int round_ = 0;
    int lastBlock_ = 0;
};

class HandOffTest : public testing::Test {
protected:
    /// So many single requests with none to seven of the eight threads busy.
    void serveAll(int countForEach) {
        int number = 0;
        for (int blocked = 0; blocked < 8; ++blocked) {
            helper->block(blocked);
            for (int each = 0; each < countForEach; ++each, ++number) {
                ASSERT_TRUE(helper->serve(number)) << number << ", blocked " << blocked;
                if (number % 1024 == 0)
                    NSRunLoop::mainRunLoop()->runPass();
            }
            helper->unblock();
        }
    }
    const OwnHome home;
    Ref<BlockedHelper> helper = make<BlockedHelper>();
};

TEST_F(HandOffTest, eachSingleRequestIsServedWithoutAStall) {
    serveAll(1250);
}

using HandOffSoakTest = HandOffTest;

TEST_F(HandOffSoakTest, aMillionTimes) {
    serveAll(125'000);
}

/// Answers every URL with a picture, at once.
class PictureHelper final : public ZNImageHelper {
public:
    Value downloadImageData(std::optional<std::string_view>) const override { return data_; }

private:
    const Value data_ = pngData(3);
};

/// Nothing is kept, neither in memory nor in files, so that each request is a download or joins one
/// that is about to end.
class CrowdTest : public testing::Test {
protected:
    CrowdTest() {
        helper->setMemoryMaxSize(-1);
        home.write("Library/Caches/ZNImageCaches", "no folder");
    }
    void ask(int threadCount, int countForEach) {
        std::vector<std::thread> threads;
        for (int number = 0; number < threadCount; ++number)
            threads.emplace_back([this, countForEach] { askFromHere(countForEach); });
        const bool all = runUntil([&] { return told == threadCount * countForEach; });
        for (std::thread& thread : threads)
            thread.join();
        EXPECT_TRUE(all) << told;
    }
    void askFromHere(int count) {
        for (int turn = 0; turn < count; ++turn)
            helper->downloadImageFillView(nullptr, nullptr, "http://a/" + std::to_string(turn % 3),
                                          [this](const auto&, const auto&) { ++told; });
    }

    const OwnHome home;
    Ref<PictureHelper> helper = make<PictureHelper>();
    std::atomic<int> told = 0;
};

TEST_F(CrowdTest, noRequestIsLeftBehind) {
    ask(4, 5000);
}

}  // namespace
}  // namespace zn
