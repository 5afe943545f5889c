#include <gmock/gmock.h>

#include "tests/imagecache/TestImages.h"
#include "zarnic/ZNFileHelper.h"
#include "zarnic/ZNImageHelper.h"
#include "zarnic/platform/foundation/NSThread.h"
#include "zarnic/testing/Stage.h"

namespace zn {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Images count as many bytes as they are wide.
class SizedHelper final : public ZNImageHelper {
public:
    std::int64_t getImageSize(const Ref<UIImage>& image) const override {
        return image ? widthOf(image) : 0;
    }
};

class ZNImageHelperCacheTest : public testing::Test {
protected:
    /// Inserts and lets some time pass.
    void insert(std::string_view key, int size) {
        helper->setBufMemoryModelByKey(key, size > 0 ? plainImage(size) : nullptr);
        stage.advance(1);
    }
    std::vector<std::string> keys() const { return helper->bufMemory()->allKeys(); }

    Stage stage;
    Ref<SizedHelper> helper = make<SizedHelper>();
};

TEST_F(ZNImageHelperCacheTest, theLongestUnusedMakesRoom) {
    helper->setMemoryMaxSize(100);
    insert("A", 40);
    insert("B", 40);
    insert("C", 40);
    EXPECT_THAT(keys(), ElementsAre("B", "C"));
    EXPECT_EQ(helper->memorySize(), 80);
    insert("D", 101);
    EXPECT_THAT(keys(), ElementsAre("B", "C"));
    helper->getBufMemoryModelByKey("B")->setLastCallTime(stage.clock().now());
    stage.advance(1);
    insert("E", 30);
    EXPECT_THAT(keys(), ElementsAre("B", "E"));
    insert("F", 100);
    EXPECT_THAT(keys(), ElementsAre("F"));
    EXPECT_EQ(helper->memorySize(), 100);
}

TEST_F(ZNImageHelperCacheTest, lookingUpAloneLeavesTheTime) {
    const double inserted = stage.clock().now();
    insert("A", 1);
    EXPECT_EQ(helper->getBufMemoryModelByKey("A")->lastCallTime(), inserted);
    EXPECT_EQ(helper->getBufMemoryModelByKey("A")->key(), "A");
    EXPECT_EQ(helper->getBufMemoryModelByKey("B"), nullptr);
}

TEST_F(ZNImageHelperCacheTest, noBudgetRefusesAllThatHasASize) {
    helper->setMemoryMaxSize(0);
    insert("A", 1);
    EXPECT_THAT(keys(), IsEmpty());
    insert("no image", 0);
    EXPECT_THAT(keys(), ElementsAre("no image"));
    helper->setMemoryMaxSize(-1);
    insert("another", 0);
    EXPECT_THAT(keys(), ElementsAre("no image"));
}

TEST_F(ZNImageHelperCacheTest, aSecondImageUnderAKeyCountsBesideTheFirstOnPurpose) {
    insert("A", 10);
    insert("A", 7);
    EXPECT_EQ(helper->memorySize(), 17);
    EXPECT_EQ(widthOf(helper->getBufMemoryModelByKey("A")->image()), 7);
}

TEST_F(ZNImageHelperCacheTest, plainWritesCount) {
    helper->setMemoryMaxSize(100);
    insert("A", 40);
    insert("B", 40);
    helper->bufMemory()->removeObjectForKey("A");
    helper->bufMemory()->setObjectForKey(make<ZNBufMemoryModel>("X", 1.0, plainImage(5)), "X");
    helper->getBufMemoryModelByKey("B")->setImage(plainImage(30));
    // 80 count, though 35 are there: X and B go, and 45 still count.
    insert("C", 50);
    EXPECT_THAT(keys(), ElementsAre("C"));
    EXPECT_EQ(helper->memorySize(), 95);
}

TEST_F(ZNImageHelperCacheTest, entriesOfThisMomentStayUntilTheClockMoves) {
    helper->setMemoryMaxSize(100);
    helper->setBufMemoryModelByKey("A", plainImage(60));
    const double before = stage.clock().now();
    helper->setBufMemoryModelByKey("B", plainImage(60));
    EXPECT_THAT(keys(), ElementsAre("B"));
    EXPECT_GT(stage.clock().now(), before);
}

TEST_F(ZNImageHelperCacheTest, withNothingLeftToRemoveItGoesOnForeverOnPurpose) {
    helper->setMemoryMaxSize(100);
    insert("A", 40);
    insert("A", 40);
    const auto rescue = make<NSThread>([this] {
        NSThread::sleepForTimeInterval(2);
        helper->setMemoryMaxSize(110);
    });
    const double before = stage.clock().now();
    rescue->start();
    helper->setBufMemoryModelByKey("B", plainImage(70));
    EXPECT_NEAR(stage.clock().now() - before, 2, 0.01);
    EXPECT_THAT(keys(), ElementsAre("B"));
    EXPECT_EQ(helper->memorySize(), 110);
}

TEST(ZNImageHelperSizeTest, anImageCountsTheBytesOfItsJpeg) {
    const Stage stage;
    const auto helper = ZNImageHelper::SharedInstance();
    const auto image = plainImage(50);
    EXPECT_EQ(helper->getImageSize(image),
              static_cast<std::int64_t>(UIImageJPEGRepresentation(image, 1)->size()));
    EXPECT_EQ(helper->getImageSize(nullptr), 0);
    EXPECT_EQ(helper->getImageSize(make<UIImage>(nullptr, 1, UIImageOrientation::Up)), 0);
}

class ZNImageHelperFilesTest : public testing::Test {
protected:
    Stage stage;
    Ref<ZNImageHelper> helper = ZNImageHelper::SharedInstance();
};

TEST_F(ZNImageHelperFilesTest, filesLieUnderTheirBareKeys) {
    const auto folder = ZNFileHelper::GetFilePath(NSSearchPathDirectory::Caches, "ZNImageCaches");
    EXPECT_EQ(helper->getFilePath(""), folder);
    EXPECT_EQ(helper->getFilePath("abc"), *folder + "/abc");
    EXPECT_FALSE(helper->existsFile("abc"));
    EXPECT_TRUE(helper->readFile("abc").absent());
    helper->writeFile("abc", Value::data(std::as_bytes(std::span("12345", 5))));
    EXPECT_TRUE(helper->existsFile("abc"));
    EXPECT_EQ(helper->readFile("abc").bytes().size(), 5u);
    EXPECT_EQ(ZNImageHelper::GetAllCachesSize(), 5);
    EXPECT_TRUE(helper->deleteFilePath("abc"));
    EXPECT_FALSE(helper->deleteFilePath("abc"));
    EXPECT_EQ(ZNImageHelper::GetAllCachesSize(), 0);
}

TEST_F(ZNImageHelperFilesTest, deletingAllLeavesTheMemory) {
    helper->writeFile("abc", pngData(3));
    helper->setBufMemoryModelByKey("abc", plainImage(3));
    std::vector<std::pair<bool, std::int64_t>> told;
    const auto note = [&](bool deleted, std::int64_t size) { told.emplace_back(deleted, size); };
    ZNImageHelper::DeleteAllCachesCompleted(note);
    ZNImageHelper::DeleteAllCachesCompleted(note);
    ZNImageHelper::DeleteAllCachesCompleted(nullptr);
    EXPECT_THAT(told, ElementsAre(std::pair(true, 0), std::pair(false, 0)));
    EXPECT_FALSE(helper->existsFile("abc"));
    EXPECT_NE(helper->getBufMemoryModelByKey("abc"), nullptr);
    EXPECT_GT(helper->memorySize(), 0);
}

}  // namespace
}  // namespace zn
