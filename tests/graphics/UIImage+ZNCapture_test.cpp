#include <gtest/gtest.h>

#include "tests/drawing/Pixels.h"
#include "zarnic/UIImage+ZNCategory.h"
#include "zarnic/platform/uikit/UIScreen.h"

namespace zn {
namespace {

Ref<UIView> box(const Ref<UIColor>& color, const Rect& frame) {
    auto view = make<UIView>(frame);
    view->setBackgroundColor(color);
    return view;
}

/// Green, with a red corner at the top left; it lies beside the origin of its superview.
Ref<UIView> cornered() {
    auto view = box(UIColor::greenColor(), {30, 40, 20, 10});
    view->addSubview(box(UIColor::redColor(), {0, 0, 4, 4}));
    return view;
}

/// Three screens of content: red, green, blue.
Ref<UIScrollView> stripes() {
    auto view = make<UIScrollView>(Rect(5, 6, 20, 10));
    view->addSubview(box(UIColor::redColor(), {0, 0, 20, 10}));
    view->addSubview(box(UIColor::greenColor(), {0, 10, 20, 10}));
    view->addSubview(box(UIColor::blueColor(), {0, 20, 20, 10}));
    view->setContentSize({20, 30});
    view->setContentOffset({0, 12});
    return view;
}

double screenScale() {
    return UIScreen::mainScreen()->scale();
}

std::string pointAt(const Ref<UIImage>& image, double x, double y) {
    return image ? pixelAt(image->cgImage(), static_cast<std::size_t>(x * image->scale()),
                           static_cast<std::size_t>(y * image->scale()))
                 : "no image";
}

TEST(UIImageZNCapture, ViewsAreDrawnAtTheScreensScale) {
    const auto image = ZN_CapturedView(cornered());
    ASSERT_TRUE(image);
    EXPECT_EQ(image->scale(), screenScale());
    EXPECT_EQ(image->size(), (Size{20, 10}));
    EXPECT_EQ(pointAt(image, 3.5, 3.5), "ffff0000");
    EXPECT_EQ(pointAt(image, 4, 4), "ff00ff00");
    EXPECT_FALSE(ZN_CapturedView(nullptr));
    EXPECT_FALSE(ZN_CapturedView(make<UIView>()));
}

TEST(UIImageZNCapture, ScrollViewsShowAllTheirContentAndComeBack) {
    const auto view = stripes();
    const auto image = ZN_CapturedScrollView(view);
    ASSERT_TRUE(image);
    EXPECT_EQ(image->size(), (Size{20, 30}));
    EXPECT_EQ(pointAt(image, 10, 5), "ffff0000");
    EXPECT_EQ(pointAt(image, 10, 15), "ff00ff00");
    EXPECT_EQ(pointAt(image, 10, 25), "ff0000ff");
    EXPECT_EQ(view->contentOffset(), (Point{0, 12}));
    EXPECT_EQ(view->frame(), Rect(5, 6, 20, 10));
    EXPECT_FALSE(ZN_CapturedScrollView(make<UIScrollView>(Rect(0, 0, 20, 20)))) << "no content";
    EXPECT_FALSE(ZN_CapturedScrollView(nullptr));
}

TEST(UIImageZNCapture, KindsAreToldApart) {
    EXPECT_EQ(ZN_Captured(stripes(), {})->size(), (Size{20, 30}));
    EXPECT_EQ(ZN_Captured(cornered(), {})->size(), (Size{20, 10}));
    EXPECT_FALSE(ZN_Captured(make<NSObject>(), {}));
    EXPECT_FALSE(ZN_Captured("a text", {}));
    EXPECT_FALSE(ZN_Captured(Value(), {}));
}

TEST(UIImageZNCapture, CropsArePixelsOfScaleOne) {
    const double scale = screenScale();
    const auto view = cornered();
    const auto corner = ZN_Captured(view, {2, 2, 4, 3});
    ASSERT_TRUE(corner);
    EXPECT_EQ(corner->scale(), 1);
    EXPECT_EQ(corner->size(), (Size{4 * scale, 3 * scale}));
    EXPECT_EQ(pointAt(corner, 0, 0), "ffff0000");
    EXPECT_EQ(pointAt(corner, 2 * scale, 0), "ff00ff00");
    EXPECT_EQ(ZN_Captured(view, {15, 5, 100, 100})->size(), (Size{5 * scale, 5 * scale}))
        << "cut to the capture";
    EXPECT_FALSE(ZN_Captured(view, {50, 50, 5, 5})) << "beside the capture";
    for (const Rect& whole : {Rect(2, 2, 0, 5), Rect(2, 2, 5, 0), Rect(10, 10, -5, -5)})
        EXPECT_EQ(ZN_Captured(view, whole)->size(), (Size{20, 10}));
}

}  // namespace
}  // namespace zn
