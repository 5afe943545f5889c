#include <gmock/gmock.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>

#include <filesystem>
#include <random>

#include "tests/imagecache/RealTime.h"
#include "tests/imagecache/TestImages.h"
#include "tests/support/HostileServer.h"

namespace zn {
namespace {

namespace fs = std::filesystem;

std::string goodBody() {
    const auto png = pngData(12);
    return {reinterpret_cast<const char*>(png.bytes().data()), png.bytes().size()};
}

/// What becomes of pictures when the machine has nothing left to give.
class ScarceMachineTest : public testing::Test {
protected:
    /// Asks for so many new pictures; how many came.
    int arrived(int count) {
        int told = 0;
        for (int number = 0; number < count; ++number)
            helper->downloadImageFillView(
                nullptr, nullptr, newURL(),
                [&told](const auto&, const auto& image) { told += widthOf(image) == 12 ? 1 : 0; });
        EXPECT_TRUE(runUntil([this] { return helper->idle(); }));
        runUntil([&] { return told == count; }, 2);
        return told;
    }
    std::string newURL() { return server.url("/good") + "#" + std::to_string(++lastNumber); }

    const OwnHome home;
    HostileServer server{goodBody()};
    Ref<HastyHelper> helper = make<HastyHelper>();
    int lastNumber = 0;
};

/// No descriptor can be had while this lives.
class NoDescriptors {
public:
    NoDescriptors() {
        getrlimit(RLIMIT_NOFILE, &before_);
        rlimit none = before_;
        none.rlim_cur = 0;
        setrlimit(RLIMIT_NOFILE, &none);
    }
    ~NoDescriptors() { setrlimit(RLIMIT_NOFILE, &before_); }
    NoDescriptors(const NoDescriptors&) = delete;
    NoDescriptors& operator=(const NoDescriptors&) = delete;

private:
    rlimit before_ = {};
};

TEST_F(ScarceMachineTest, withoutDescriptorsPicturesFailAndWithThemTheyComeAgain) {
    EXPECT_EQ(arrived(3), 3);
    {
        const NoDescriptors none;
        EXPECT_EQ(arrived(20), 0);
    }
    EXPECT_EQ(arrived(20), 20);
}

// The undefined behaviour sanitizer takes an object for broken where it meets its type first
// without a descriptor to look at its memory with.
#ifndef __SANITIZE_ADDRESS__
TEST_F(ScarceMachineTest, theFirstRequestMayComeWithoutDescriptors) {
    NSRunLoop::mainRunLoop()->runPass();
    {
        const NoDescriptors none;
        EXPECT_EQ(arrived(3), 0);
    }
    EXPECT_EQ(arrived(3), 3);
}
#endif

/// The folder of the files is a file system of its own, in a view of the machine that only this
/// process has.
class ScarceDiskTest : public ScarceMachineTest {
protected:
    void mount(unsigned long flags) {
        const std::string folder = helper->getFilePath("");
        fs::create_directories(folder);
        if (unshare(CLONE_NEWNS) != 0 ||
            ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
            ::mount("tmpfs", folder.c_str(), "tmpfs", flags, "size=16k") != 0)
            GTEST_SKIP() << "this user may not mount anything";
        mounted = folder;
    }
    ~ScarceDiskTest() override {
        if (!mounted.empty())
            umount(mounted.c_str());
    }
    std::string mounted;
};

TEST_F(ScarceDiskTest, picturesAreShownThoughNoneCanBeKept) {
    mount(MS_RDONLY);
    if (IsSkipped())
        return;
    EXPECT_EQ(arrived(20), 20);
    EXPECT_EQ(helper->getAllCachesSize(), 0);
}

TEST_F(ScarceDiskTest, aFullDiskKeepsWholePicturesOrNone) {
    mount(0);
    if (IsSkipped())
        return;
    EXPECT_EQ(arrived(100), 100);
    for (const auto& file : fs::directory_iterator(helper->getFilePath(""))) {
        const auto size = fs::file_size(file);
        EXPECT_TRUE(size == 0 || size == goodBody().size()) << file;
    }
    // An empty one counts as unreadable and is fetched again.
    helper->bufMemory()->removeAllObjects();
    int told = 0;
    for (; lastNumber > 0; --lastNumber)
        helper->downloadImageFillView(
            nullptr, nullptr, server.url("/good") + "#" + std::to_string(lastNumber),
            [&told](const auto&, const auto& image) { told += widthOf(image) == 12 ? 1 : 0; });
    EXPECT_TRUE(runUntil([&] { return told == 100; })) << told;
}

/// Views come and go while their pictures are on the way.
TEST_F(ScarceMachineTest, viewsMayGoInFlight) {
    std::mt19937 random(7);
    int told = 0;
    int toldWithView = 0;
    std::vector<Ref<UIImageView>> views(20);
    constexpr int count = 400;
    for (int number = 0; number < count; ++number) {
        auto& view = views[random() % views.size()];
        view = make<UIImageView>();
        helper->downloadImageFillView(view, nullptr, newURL(),
                                      [&](const Ref<UIImageView>& given, const auto&) {
                                          ++told;
                                          toldWithView += given ? 1 : 0;
                                      });
        if (number % 8 == 0)
            NSRunLoop::mainRunLoop()->runPass(0.001);
    }
    EXPECT_TRUE(runUntil([&] { return told == count; })) << told;
    EXPECT_GT(toldWithView, 0);
    EXPECT_LT(toldWithView, count);
}

}  // namespace
}  // namespace zn
