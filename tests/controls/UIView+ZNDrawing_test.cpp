#include <gmock/gmock.h>

#include <limits>

#include "tests/drawing/Pixels.h"
#include "zarnic/UIView+ZNCategory.h"
#include "zarnic/platform/foundation/NSLog.h"

namespace zn {
namespace {

/// What the calls draw for a view of this size, in pixels of a point.
template <class Draw>
Ref<CGImage> drawn(Size size, Draw draw, double scale = 1) {
    const auto view = make<UIView>(Rect(30, 30, size.width, size.height));
    const auto context = CGContext::image(size, false, scale);
    UIGraphicsPushContext(context);
    draw(view);
    UIGraphicsPopContext();
    return context->makeImage();
}

std::vector<std::size_t> columnsOfInk(const Ref<CGImage>& image, std::size_t row) {
    std::vector<std::size_t> columns;
    for (std::size_t x = 0; x < image->width(); ++x)
        if (image->pixels()[row * image->width() + x] != 0)
            columns.push_back(x);
    return columns;
}

std::vector<std::size_t> rowsOfInk(const Ref<CGImage>& image, std::size_t column) {
    std::vector<std::size_t> rows;
    for (std::size_t y = 0; y < image->height(); ++y)
        if (image->pixels()[y * image->width() + column] != 0)
            rows.push_back(y);
    return rows;
}

bool isEmpty(const Ref<CGImage>& image) {
    const auto pixels = image->pixels();
    return std::all_of(pixels.begin(), pixels.end(), [](auto pixel) { return pixel == 0; });
}

const ColorList RedBlue = std::vector{UIColor::redColor(), UIColor::blueColor()};
const LocationList Ends = std::vector{0.0, 1.0};

TEST(UIViewZNDrawingTest, FillCoversTheBoundsAndKeepsTheState) {
    const auto image = drawn({10, 8}, [](const Ref<UIView>& view) {
        znQuartz2D_FillColor(view, UIColor::greenColor());
        UIGraphicsGetCurrentContext()->fillRect({0, 0, 1, 1});
    });
    EXPECT_EQ(pixelAt(image, 0, 0), "ff000000") << "the fill colour is black again";
    EXPECT_EQ(pixelAt(image, 1, 0), "ff00ff00");
    EXPECT_EQ(pixelAt(image, 9, 7), "ff00ff00");
}

TEST(UIViewZNDrawingTest, GridLinesLieAtWholeSpacingsButNotAtTheFarEdge) {
    // A line of width 2 around x covers the pixels x - 1 and x.
    const auto image = drawn({100, 50}, [](const Ref<UIView>& view) {
        znQuartz2D_AddGridPatternSpacing(view, 20, 2, UIColor::redColor(), UIColor::clearColor());
    });
    EXPECT_THAT(columnsOfInk(image, 10), testing::ElementsAre(0, 19, 20, 39, 40, 59, 60, 79, 80));
    EXPECT_THAT(rowsOfInk(image, 10), testing::ElementsAre(0, 19, 20));
    EXPECT_EQ(pixelAt(image, 19, 10), "ffff0000");
    EXPECT_EQ(pixelAt(image, 40, 49), "ffff0000") << "lines run the whole height";
}

TEST(UIViewZNDrawingTest, GridOfNoOrEndlessLinesDrawsNothing) {
    setLogSink([](std::string_view) {});
    for (const double spacing :
         {0.0, -5.0, 101.0, 1e-9, std::nan(""), std::numeric_limits<double>::infinity()}) {
        SCOPED_TRACE(spacing);
        EXPECT_TRUE(isEmpty(drawn({100, 50}, [&](const Ref<UIView>& view) {
            znQuartz2D_AddGridPatternSpacing(view, spacing, 1, UIColor::redColor(),
                                             UIColor::clearColor());
        })));
    }
}

struct GradientCase {
    const char* name;
    ColorList colors;
    LocationList locations;
    RectList clip;
    bool draws;
};

void PrintTo(const GradientCase& each, std::ostream* stream) {
    *stream << each.name;
}

class GradientTest : public testing::TestWithParam<GradientCase> {};

TEST_P(GradientTest, DrawsOnlyWhatIsWholeAndNotClippedAway) {
    const auto& each = GetParam();
    const auto linear = drawn({10, 10}, [&](const Ref<UIView>& view) {
        znQuartz2D_AddColorGradientEffectLinearColors(view, each.colors, each.locations, {0, 0},
                                                      {10, 0}, each.clip, 0);
    });
    const auto radial = drawn({10, 10}, [&](const Ref<UIView>& view) {
        znQuartz2D_AddColorGradientEffectRadialColors(view, each.colors, each.locations, {5, 5}, 0,
                                                      {5, 5}, 20, each.clip, 0);
    });
    EXPECT_EQ(!isEmpty(linear), each.draws);
    EXPECT_EQ(!isEmpty(radial), each.draws);
}

INSTANTIATE_TEST_SUITE_P(
    Arguments, GradientTest,
    testing::Values(
        GradientCase{"whole", RedBlue, Ends, std::nullopt, true},
        GradientCase{"noColours", std::nullopt, Ends, std::nullopt, false},
        GradientCase{"noLocations", RedBlue, std::nullopt, std::nullopt, false},
        GradientCase{"threeColoursTwoLocations",
                     std::vector{UIColor::redColor(), UIColor::redColor(), UIColor::redColor()},
                     Ends, std::nullopt, false},
        GradientCase{"emptyLists", std::vector<Ref<UIColor>>(), std::vector<double>(), std::nullopt,
                     false},
        GradientCase{"emptyClip", RedBlue, Ends, std::vector<Rect>(), false},
        GradientCase{"clipElsewhere", RedBlue, Ends, std::vector{Rect(20, 20, 5, 5)}, false},
        GradientCase{"oneClip", RedBlue, Ends, std::vector{Rect(2, 2, 3, 3)}, true}),
    [](const auto& test) { return test.param.name; });

TEST(UIViewZNDrawingTest, SeveralClipRectanglesEachLetTheGradientThrough) {
    const auto image = drawn({10, 10}, [](const Ref<UIView>& view) {
        znQuartz2D_AddColorGradientEffectLinearColors(
            view, RedBlue, Ends, {0, 0}, {10, 0}, std::vector{Rect(0, 0, 2, 2), Rect(6, 6, 2, 2)},
            0);
    });
    EXPECT_THAT(columnsOfInk(image, 1), testing::ElementsAre(0, 1));
    EXPECT_THAT(columnsOfInk(image, 7), testing::ElementsAre(6, 7));
    EXPECT_THAT(columnsOfInk(image, 4), testing::IsEmpty());
}

TEST(UIViewZNDrawingTest, OptionsExtendTheGradientBeyondItsEnds) {
    const auto columns = [](unsigned options) {
        return columnsOfInk(drawn({10, 2},
                                  [&](const Ref<UIView>& view) {
                                      znQuartz2D_AddColorGradientEffectLinearColors(
                                          view, RedBlue, Ends, {3, 0}, {7, 0}, std::nullopt,
                                          options);
                                  }),
                            0);
    };
    using namespace CGGradientDrawingOptions;
    EXPECT_THAT(columns(None), testing::ElementsAre(3, 4, 5, 6));
    EXPECT_THAT(columns(DrawsBeforeStartLocation), testing::ElementsAre(0, 1, 2, 3, 4, 5, 6));
    EXPECT_THAT(columns(DrawsAfterEndLocation), testing::ElementsAre(3, 4, 5, 6, 7, 8, 9));
}

TEST(UIViewZNDrawingTest, NamedGreysAreBlendedAsRGB) {
    const auto image = drawn({3, 1}, [](const Ref<UIView>& view) {
        znQuartz2D_AddColorGradientEffectLinearColors(
            view, std::vector{UIColor::whiteColor(), UIColor::blackColor()}, Ends, {0, 0}, {3, 0},
            std::nullopt, 0);
    });
    const std::uint32_t middle = image->pixels()[1];
    EXPECT_NEAR(double(middle & 0xff), 127, 2);
    EXPECT_EQ(middle >> 24, 0xffu);
    EXPECT_EQ(middle & 0xff, (middle >> 8) & 0xff);
    EXPECT_EQ(middle & 0xff, (middle >> 16) & 0xff);
}

TEST(UIViewZNDrawingTest, WorkerLeavesOutTheSurplusOfUnequalCounts) {
    const auto image = drawn({10, 1}, [](const Ref<UIView>& view) {
        znQuartz2D_AddColorGradientEffectRadial(
            view, false,
            std::vector{UIColor::redColor(), UIColor::redColor(), UIColor::blueColor()}, Ends,
            {0, 0}, 0, {10, 0}, 0, std::nullopt, 0);
    });
    EXPECT_EQ(pixelAt(image, 9, 0), "ffff0000");
}

TEST(UIViewZNDrawingTest, WithoutAContextTheyLogAndWithoutAViewTheyAreSilent) {
    std::vector<std::string> log;
    setLogSink([&](std::string_view line) { log.emplace_back(line); });
    znQuartz2D_FillColor(nullptr, UIColor::redColor());
    EXPECT_TRUE(log.empty());
    znQuartz2D_FillColor(make<UIView>(), UIColor::redColor());
    EXPECT_EQ(log.size(), 1u);
    setLogSink({});
}

}  // namespace
}  // namespace zn
