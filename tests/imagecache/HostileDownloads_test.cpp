#include <gmock/gmock.h>

#include <fstream>
#include <map>

#include "tests/imagecache/RealTime.h"
#include "tests/imagecache/TestImages.h"
#include "tests/support/HostileServer.h"
#include "zarnic/platform/foundation/Dispatch.h"
#include "zarnic/platform/services/HttpTransport.h"
#include "zarnic/platform/services/Services.h"

namespace zn {
namespace {

/// What becomes of the requests of one path.
enum class Outcome { Image, NoImage, Silence };

struct Kind {
    const char* path;
    Outcome outcome;
};

/// One in ten is good.
constexpr Kind kinds[] = {
    {"/good", Outcome::Image},
    {"/reset", Outcome::Silence},
    {"/stall-midway", Outcome::Silence},
    {"/truncated", Outcome::Silence},
    {"/missing", Outcome::NoImage},
    {"/endless", Outcome::Silence},
    {"/redirect-loop", Outcome::Silence},
    {"/redirect-to-file", Outcome::Silence},
    {"/drip/1000", Outcome::Silence},
    {"/page", Outcome::NoImage},
};

std::string goodBody() {
    const auto png = UIImagePNGRepresentation(plainImage(12)).value();
    return {reinterpret_cast<const char*>(png.data()), png.size()};
}

/// The most memory that this process has had, in megabytes.
long peakMegabytes() {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        long kilobytes = 0;
        if (word == "VmHWM:" && status >> kilobytes)
            return kilobytes / 1024;
    }
    return 0;
}

class HostileDownloadsTest : public testing::Test {
protected:
    HostileDownloadsTest() {
        constexpr std::uint64_t cap = 1 << 20;
        Services::get<HttpTransport>()->setLargestBody(cap);
    }

    void request(const Kind& kind, int number) {
        const std::string url = server.url(kind.path) + "#" + std::to_string(number);
        helper->downloadImageFillView(nullptr, nullptr, url,
                                      [this, number](const auto&, const auto& image) {
                                          told[number].push_back(widthOf(image));
                                      });
    }
    /// Queues so many of all kinds in turn, and waits until each has ended.
    void requestAll(int count) {
        std::size_t answered = 0;
        for (int number = 0; number < count; ++number) {
            const Kind& kind = kindOf(number);
            request(kind, number);
            answered += kind.outcome == Outcome::Silence ? 0 : 1;
        }
        const auto ended = [&] { return helper->idle() && told.size() == answered; };
        EXPECT_TRUE(runUntil(ended, 1700));
        runWhatIsQueued();
    }
    static const Kind& kindOf(int number) {
        return kinds[static_cast<std::size_t>(number) % std::size(kinds)];
    }
    static void runWhatIsQueued() {
        bool ran = false;
        dispatchMain([&ran] { ran = true; });
        EXPECT_TRUE(runUntil([&ran] { return ran; }));
    }
    void expectEachToldAsItShould(int count) const {
        for (int number = 0; number < count; ++number) {
            const Kind& kind = kindOf(number);
            std::vector<int> expected;
            if (kind.outcome != Outcome::Silence)
                expected.push_back(kind.outcome == Outcome::Image ? 12 : -1);
            const auto found = told.find(number);
            EXPECT_EQ(found == told.end() ? std::vector<int>() : found->second, expected)
                << kind.path << " " << number;
        }
    }
    void expectAHundredGoodOnes() {
        told.clear();
        for (int number = 0; number < 100; ++number)
            request(kinds[0], firstAfterwards + number);
        EXPECT_TRUE(runUntil([this] { return told.size() == 100; }));
        runWhatIsQueued();
        for (const auto& [number, widths] : told)
            EXPECT_EQ(widths, std::vector<int>{12}) << number;
    }
    void survive(int count) {
        requestAll(count);
        expectEachToldAsItShould(count);
        expectAHundredGoodOnes();
        RecordProperty("peakMegabytes", static_cast<int>(peakMegabytes()));
        EXPECT_LT(peakMegabytes(), 1024);
    }

    const OwnHome home;
    HostileServer server{goodBody()};
    Ref<HastyHelper> helper = make<HastyHelper>();
    std::map<int, std::vector<int>> told;
    static constexpr int firstAfterwards = 1'000'000;
};

TEST_F(HostileDownloadsTest, theGoodArriveOnceAndTheBadAreSilent) {
    survive(100);
}

using HostileDownloadsSoakTest = HostileDownloadsTest;

TEST_F(HostileDownloadsSoakTest, tenThousandTimes) {
    helper->patience = 0.3;
    survive(10'000);
}

/// Eight requests that wait for one another need eight threads.
class MeetingHelper final : public ZNImageHelper {
public:
    Value downloadImageData(std::optional<std::string_view>) const override {
        const std::lock_guard guard(*condition_);
        ++present_;
        condition_->broadcast();
        while (present_ < expected)
            condition_->wait();
        return pngData(5);
    }
    static constexpr int expected = 8;

private:
    const Ref<NSCondition> condition_ = make<NSCondition>();
    mutable int present_ = 0;
};

TEST(ImageThreadsTest, eightWorkAtOnce) {
    const OwnHome home;
    const auto helper = make<MeetingHelper>();
    int told = 0;
    for (int number = 0; number < MeetingHelper::expected; ++number)
        helper->downloadImageFillView(nullptr, nullptr, "http://a/" + std::to_string(number),
                                      [&told](const auto&, const auto&) { ++told; });
    EXPECT_TRUE(runUntil([&told] { return told == MeetingHelper::expected; }));
}

}  // namespace
}  // namespace zn
