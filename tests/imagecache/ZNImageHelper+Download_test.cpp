#include <gmock/gmock.h>

#include <algorithm>
#include <map>
#include <numeric>

#include "tests/imagecache/TestImages.h"
#include "zarnic/NSString+ZNCategory.h"
#include "zarnic/ZNFileHelper.h"
#include "zarnic/ZNImageHelper.h"
#include "zarnic/platform/foundation/NSThread.h"
#include "zarnic/testing/Stage.h"

namespace zn {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string pictureURL(int number) {
    return "http://pictures.example/" + std::to_string(number) + ".png";
}

/// Pictures on a server in memory; picture n is n pixels wide.
class ZNImageHelperDownloadTest : public testing::Test {
protected:
    ZNImageHelperDownloadTest() {
        for (int number = 1; number <= 40; ++number)
            stage.http().answer(pictureURL(number), pngData(number));
    }
    ZNImageHelper::Completed note(const std::string& name) {
        return [this, name](const Ref<UIImageView>& given, const Ref<UIImage>& image) {
            EXPECT_TRUE(NSThread::isMainThread());
            told.push_back(name + (given ? " view " : " ") + std::to_string(widthOf(image)));
        };
    }
    void request(int number, const Ref<UIImageView>& view, const std::string& name) {
        ZNImageHelper::DownloadImageFillView(view, plainImage(99), pictureURL(number), note(name));
    }
    std::vector<std::string> requested() { return stage.http().requested(); }
    static std::string keyOf(int number) { return zn::zn_EncryptMD5(pictureURL(number)).value(); }

    Stage stage;
    Ref<ZNImageHelper> helper = ZNImageHelper::SharedInstance();
    std::vector<std::string> told;
};

TEST_F(ZNImageHelperDownloadTest, allWhoWaitForAURLShareOneFetchInTheirOrder) {
    std::vector<Ref<UIImageView>> views;
    stage.http().hold();
    for (const char* name : {"first", "second", "third"}) {
        views.push_back(make<UIImageView>());
        request(7, views.back(), name);
        EXPECT_EQ(widthOf(views.back()->image()), 99);
        stage.settle();
    }
    EXPECT_TRUE(helper->isBufDownloadingObjectByKey(keyOf(7)));
    EXPECT_EQ(helper->getBufDownloadingObjectByKey(keyOf(7))->count(), 3u);
    EXPECT_THAT(told, IsEmpty());
    stage.http().release();
    stage.settle();
    EXPECT_THAT(told, ElementsAre("first view 7", "second view 7", "third view 7"));
    for (const auto& view : views)
        EXPECT_EQ(widthOf(view->image()), 7);
    EXPECT_THAT(requested(), ElementsAre(pictureURL(7)));
    EXPECT_FALSE(helper->isBufDownloadingObjectByKey(keyOf(7)));
    EXPECT_EQ(helper->getBufDownloadingObjectByKey(keyOf(7)), nullptr);
}

TEST_F(ZNImageHelperDownloadTest, whatCameIsFoundInMemoryAndInTheFileAfterwards) {
    const auto view = make<UIImageView>();
    request(7, view, "first");
    EXPECT_THAT(told, IsEmpty());
    stage.settle();
    request(7, view, "memory");
    EXPECT_THAT(told, ElementsAre("first view 7", "memory view 7"));
    EXPECT_EQ(helper->readFile(keyOf(7)), pngData(7));
    EXPECT_EQ(helper->memorySize(), helper->getImageSize(view->image()));
    EXPECT_EQ(requested().size(), 1u);
}

TEST_F(ZNImageHelperDownloadTest, requestsAreServedInTheirOrderEightAtATime) {
    stage.http().hold();
    const auto view = make<UIImageView>();
    std::vector<std::string> urls;
    for (int number = 1; number <= 20; ++number) {
        urls.push_back(pictureURL(number));
        request(number, view, std::to_string(number));
        stage.settle();
    }
    EXPECT_EQ(stage.http().heldCount(), 8u);
    EXPECT_EQ(helper->downloadList()->count(), 12u);
    // One that goes on makes room for the next in line, whichever it is.
    for (const int number : {5, 2}) {
        stage.http().release();
        stage.http().hold();
        stage.http().release(pictureURL(number));
    }
    stage.http().release();
    stage.settle();
    const auto asked = requested();
    ASSERT_EQ(asked.size(), 20u);
    EXPECT_TRUE(std::equal(asked.begin(), asked.begin() + 8, urls.begin()));
    EXPECT_TRUE(std::is_permutation(asked.begin(), asked.end(), urls.begin()));
    EXPECT_EQ(told.size(), 20u);
}

TEST_F(ZNImageHelperDownloadTest, aFailureIsSilentAndTheNextRequestTriesAgain) {
    const auto view = make<UIImageView>();
    stage.http().answer(pictureURL(1), Value::data({}));
    stage.http().forget(pictureURL(2));
    for (const int number : {1, 2}) {
        request(number, view, "failing");
        stage.settle();
        EXPECT_EQ(widthOf(view->image()), 99);
        EXPECT_FALSE(helper->isBufDownloadingObjectByKey(keyOf(number)));
        EXPECT_FALSE(helper->existsFile(keyOf(number)));
        EXPECT_EQ(helper->getBufMemoryModelByKey(keyOf(number)), nullptr);
    }
    EXPECT_THAT(told, IsEmpty());
    stage.http().answer(pictureURL(2), pngData(2));
    request(2, view, "again");
    stage.settle();
    EXPECT_THAT(told, ElementsAre("again view 2"));
}

TEST_F(ZNImageHelperDownloadTest, tenSecondsWithoutAnAnswerAreAFailure) {
    stage.http().hold();
    request(1, make<UIImageView>(), "first");
    stage.advance(9.9);
    EXPECT_TRUE(helper->isBufDownloadingObjectByKey(keyOf(1)));
    stage.advance(0.2);
    EXPECT_FALSE(helper->isBufDownloadingObjectByKey(keyOf(1)));
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(ZNImageHelperDownloadTest, anErrorPageIsKeptAndClearsTheViews) {
    const Value page = Value::data(std::as_bytes(std::span("<h1>404</h1>", 12)));
    stage.http().answer(pictureURL(1), page);
    const auto view = make<UIImageView>();
    request(1, view, "first");
    stage.settle();
    EXPECT_EQ(view->image(), nullptr);
    EXPECT_EQ(helper->readFile(keyOf(1)), page);
    ASSERT_NE(helper->getBufMemoryModelByKey(keyOf(1)), nullptr);
    EXPECT_EQ(helper->memorySize(), 0);
    request(1, view, "second");
    EXPECT_THAT(told, ElementsAre("first view -1", "second view -1"));
    EXPECT_EQ(requested().size(), 1u);
}

TEST_F(ZNImageHelperDownloadTest, aViewThatIsGoneIsLeftOutButItsBlockIsCalled) {
    stage.http().hold();
    auto gone = make<UIImageView>();
    const auto stays = make<UIImageView>();
    request(1, gone, "gone");
    request(1, nullptr, "none");
    request(1, stays, "stays");
    const WeakRef<UIImageView> watch = gone;
    gone.reset();
    EXPECT_TRUE(watch.expired());
    stage.http().release();
    stage.settle();
    EXPECT_THAT(told, ElementsAre("gone 1", "none 1", "stays view 1"));
}

TEST_F(ZNImageHelperDownloadTest, theLastToArriveIsShownWhateverWasAskedLast) {
    const auto view = make<UIImageView>();
    stage.http().answer(pictureURL(1), pngData(1), 3);
    request(1, view, "slow");
    request(2, view, "fast");
    stage.advance(2);
    EXPECT_EQ(widthOf(view->image()), 2);
    stage.advance(2);
    EXPECT_EQ(widthOf(view->image()), 1);
}

TEST_F(ZNImageHelperDownloadTest, urlsAreSentEscapedAndKnownAsGiven) {
    const char* given = "http://pictures.example/图 片%20a[1].png?q=é#x";
    const char* sent = "http://pictures.example/%E5%9B%BE%20%E7%89%87%20a%5B1%5D.png?q=%C3%A9";
    stage.http().answer(sent, pngData(3));
    const auto view = make<UIImageView>();
    ZNImageHelper::DownloadImageFillView(view, nullptr, given, note("escaped"));
    stage.settle();
    EXPECT_THAT(requested(), ElementsAre(sent));
    EXPECT_THAT(told, ElementsAre("escaped view 3"));
    EXPECT_TRUE(helper->existsFile(zn::zn_EncryptMD5(given).value()));
    EXPECT_EQ(helper->urlEncodeToCN(std::nullopt), std::nullopt);
    EXPECT_EQ(helper->urlEncodeToCN(""), "");
    EXPECT_EQ(helper->urlEncodeToCN("a b\xFF"), std::nullopt);
}

TEST_F(ZNImageHelperDownloadTest, aURLThatIsNoneFailsLikeTheNetwork) {
    const auto view = make<UIImageView>();
    for (const char* url : {"http://a/%zz", "http://a/#b#c", "file:///etc/passwd", "a b",
                            "http://a/\xFF", "picture.png"}) {
        ZNImageHelper::DownloadImageFillView(view, plainImage(5), url, note(url));
        stage.settle();
        EXPECT_EQ(widthOf(view->image()), 5);
    }
    EXPECT_THAT(told, IsEmpty());
    EXPECT_THAT(requested(), IsEmpty());
}

TEST_F(ZNImageHelperDownloadTest, aBlockMayAskAgain) {
    const auto view = make<UIImageView>();
    ZNImageHelper::DownloadImageFillView(view, nullptr, pictureURL(1),
                                         [&](const auto& given, const auto&) {
                                             request(2, given, "other");
                                             request(1, given, "same");
                                         });
    stage.settle();
    EXPECT_THAT(told, ElementsAre("same view 1", "other view 2"));
}

TEST_F(ZNImageHelperDownloadTest, whatABlockHoldsDiesOnTheMainThread) {
    struct Witness {
        ~Witness() { *diedOnMain = NSThread::isMainThread(); }
        std::shared_ptr<bool> diedOnMain;
    };
    stage.http().forget(pictureURL(2));
    for (const int number : {1, 2}) {
        const auto diedOnMain = std::make_shared<bool>(false);
        auto witness = std::make_shared<Witness>(diedOnMain);
        ZNImageHelper::DownloadImageFillView(nullptr, nullptr, pictureURL(number),
                                             [witness = std::move(witness)](auto&, auto&) {});
        stage.settle();
        EXPECT_TRUE(*diedOnMain) << number;
    }
}

TEST_F(ZNImageHelperDownloadTest, manyUsersOfManyURLsAreEachServedOnceAndInOrder) {
    constexpr int urls = 40;
    constexpr int waiters = 20;
    std::map<int, std::vector<int>> order;
    stage.http().hold();
    for (int waiter = 0; waiter < waiters; ++waiter) {
        for (int number = 1; number <= urls; ++number) {
            ZNImageHelper::DownloadImageFillView(
                nullptr, nullptr, pictureURL(number),
                [&order, number, waiter](const auto&, const auto& image) {
                    EXPECT_EQ(widthOf(image), number);
                    order[number].push_back(waiter);
                });
        }
    }
    stage.http().release();
    stage.settle();
    EXPECT_EQ(requested().size(), static_cast<std::size_t>(urls));
    std::vector<int> expected(waiters);
    std::iota(expected.begin(), expected.end(), 0);
    for (int number = 1; number <= urls; ++number)
        EXPECT_EQ(order[number], expected) << number;
}

TEST_F(ZNImageHelperDownloadTest, requestsThatWereQueuedByHandAreFoundInAWhile) {
    stage.settle();
    const auto model = make<ZNImageDownloadModel>();
    model->setKey(keyOf(3));
    model->setUrl(pictureURL(3));
    {
        const ObjectLock lock(helper->downloadList());
        helper->downloadList()->addObject(model);
    }
    stage.advance(6);
    EXPECT_THAT(requested(), ElementsAre(pictureURL(3)));
    EXPECT_NE(helper->getBufMemoryModelByKey(keyOf(3)), nullptr);
}

TEST_F(ZNImageHelperDownloadTest, whatTheThreadsDoIsLogged) {
    ZNImageHelper::ConfigSettings(Dictionary{{"logEnable", true}});
    request(1, nullptr, "first");
    stage.settle();
    EXPECT_THAT(stage.takeLog(),
                testing::Contains("*****【ZNImageHelper】downloadImage[Key]:" + keyOf(1)));
    ZNImageHelper::ConfigSettings(Dictionary{{"logEnable", false}});
    stage.takeLog();
    request(2, nullptr, "second");
    stage.settle();
    EXPECT_THAT(stage.takeLog(), IsEmpty());
}

}  // namespace
}  // namespace zn
