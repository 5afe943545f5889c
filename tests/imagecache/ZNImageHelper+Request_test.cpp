#include <gmock/gmock.h>

#include "tests/imagecache/TestImages.h"
#include "zarnic/NSString+ZNCategory.h"
#include "zarnic/ZNImageHelper.h"
#include "zarnic/platform/foundation/NSException.h"
#include "zarnic/platform/foundation/NSUserDefaults.h"
#include "zarnic/testing/Stage.h"

namespace zn {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* url = "http://pictures.example/a.png";

/// Requests for one view, with what the block was told: the width of the image, "view" before it
/// when there was one.
class ZNImageHelperRequestTest : public testing::Test {
protected:
    ZNImageHelper::Completed note() {
        return [this](const Ref<UIImageView>& given, const Ref<UIImage>& image) {
            told.push_back((given ? "view " : "") + std::to_string(widthOf(image)));
        };
    }
    std::vector<std::string> requested() { return stage.http().requested(); }
    Value recorded() const {
        return NSUserDefaults::standardUserDefaults()->objectForKey("TKImageHelper_Unbelievable");
    }

    Stage stage;
    const std::string key = zn::zn_EncryptMD5(url).value();
    Ref<ZNImageHelper> helper = ZNImageHelper::SharedInstance();
    Ref<UIImageView> view = make<UIImageView>();
    std::vector<std::string> told;
};

TEST_F(ZNImageHelperRequestTest, aURLThatCountsAsNullShowsThePlaceholderOrNothing) {
    for (const Value& null : {Value(), Value::null(), Value(""), Value::data({})}) {
        view->setImage(plainImage(9));
        ZNImageHelper::DownloadImageFillView(view, nullptr, null, note());
        ZNImageHelper::DownloadImageFillView(nullptr, plainImage(5), null, note());
        EXPECT_THAT(std::exchange(told, {}), IsEmpty());
        EXPECT_EQ(widthOf(view->image()), 9);
        ZNImageHelper::DownloadImageFillView(view, plainImage(5), null, note());
        EXPECT_THAT(std::exchange(told, {}), ElementsAre("view -1"));
        EXPECT_EQ(widthOf(view->image()), 5);
        ZNImageHelper::DownloadImageFillView(view, plainImage(6), null);
        EXPECT_EQ(widthOf(view->image()), 6);
    }
    EXPECT_THROW(ZNImageHelper::DownloadImageFillView(view, Value(7)), NSException);
    EXPECT_THAT(requested(), IsEmpty());
}

TEST_F(ZNImageHelperRequestTest, aHitInMemoryFillsAtOnceAndWithoutAViewTellsNobody) {
    helper->setBufMemoryModelByKey(key, plainImage(3));
    stage.advance(10);
    ZNImageHelper::DownloadImageFillView(view, plainImage(5), url, note());
    EXPECT_EQ(widthOf(view->image()), 3);
    EXPECT_EQ(helper->getBufMemoryModelByKey(key)->lastCallTime(), stage.clock().now());
    stage.advance(10);
    ZNImageHelper::DownloadImageFillView(nullptr, nullptr, url, note());
    EXPECT_EQ(helper->getBufMemoryModelByKey(key)->lastCallTime(), stage.clock().now());
    EXPECT_THAT(told, ElementsAre("view 3"));
    EXPECT_THAT(requested(), IsEmpty());
}

TEST_F(ZNImageHelperRequestTest, anEntryWithoutImageClearsTheView) {
    helper->setBufMemoryModelByKey(key, nullptr);
    ZNImageHelper::DownloadImageFillView(view, plainImage(5), url, note());
    EXPECT_EQ(view->image(), nullptr);
    EXPECT_THAT(told, ElementsAre("view -1"));
}

TEST_F(ZNImageHelperRequestTest, aHitOnDiskFillsAtOnceAndTellsEvenWithoutAView) {
    helper->writeFile(key, pngData(4));
    ZNImageHelper::DownloadImageFillView(nullptr, nullptr, url, note());
    EXPECT_THAT(std::exchange(told, {}), ElementsAre("4"));
    const auto entry = helper->getBufMemoryModelByKey(key);
    ASSERT_NE(entry, nullptr);
    ZNImageHelper::DownloadImageFillView(view, url);
    EXPECT_EQ(view->image(), entry->image());
    EXPECT_THAT(requested(), IsEmpty());
}

TEST_F(ZNImageHelperRequestTest, aHitOnDiskBeyondTheBudgetIsShownAllTheSame) {
    helper->setMemoryMaxSize(0);
    helper->writeFile(key, pngData(4));
    ZNImageHelper::DownloadImageFillView(view, nullptr, url, note());
    EXPECT_EQ(widthOf(view->image()), 4);
    EXPECT_EQ(helper->getBufMemoryModelByKey(key), nullptr);
}

TEST_F(ZNImageHelperRequestTest, anUnreadableFileIsRecordedDeletedAndFetchedAgain) {
    ZNImageHelper::ConfigSettings(Dictionary{{"logEnable", true}});
    const Value text = Value::data(std::as_bytes(std::span("<html>", 6)));
    stage.http().answer(url, text);
    for (int round = 1; round <= 2; ++round) {
        helper->writeFile(key, text);
        stage.http().hold();
        stage.takeLog();
        ZNImageHelper::DownloadImageFillView(view, plainImage(5), url, note());
        EXPECT_FALSE(helper->existsFile(key));
        EXPECT_EQ(widthOf(view->image()), 5);
        EXPECT_EQ(recorded().array().count(), static_cast<std::size_t>(round));
        EXPECT_FALSE(recorded().array().isMutable());
        EXPECT_THAT(stage.takeLog(), testing::Contains("*****【ZNImageHelper】Warning!!! - "
                                                       "TKImageHelper_Unbelievable[Key]:" +
                                                       key));
        stage.settle();
        EXPECT_EQ(requested().size(), static_cast<std::size_t>(round));
        stage.http().release();
        stage.settle();
        helper->bufMemory()->removeAllObjects();
    }
    EXPECT_EQ(recorded(), Value(Array{key, key}));
}

TEST_F(ZNImageHelperRequestTest, whatIsRecordedUnderTheNameButNoListCountsAsEmpty) {
    NSUserDefaults::standardUserDefaults()->setObject("text", "TKImageHelper_Unbelievable");
    helper->writeFile(key, Value::data(std::as_bytes(std::span("x", 1))));
    ZNImageHelper::DownloadImageFillView(view, url);
    EXPECT_EQ(recorded(), Value(Array{key}));
}

}  // namespace
}  // namespace zn
