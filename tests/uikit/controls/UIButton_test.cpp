#include "zarnic/platform/uikit/UIButton.h"

#include "tests/uikit/touch/TouchFixture.h"
#include "zarnic/platform/uikit/UIImageView.h"
#include "zarnic/platform/uikit/UILabel.h"

namespace zn::test {
namespace {

Ref<UIImage> imageOf(Size size, const CGColor& color) {
    UIGraphicsBeginImageContextWithOptions(size, false, 1);
    const auto context = UIGraphicsGetCurrentContext();
    context->setFillColor(color);
    context->fillRect({0, 0, size.width / 2, size.height});
    const auto image = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return image;
}

std::uint32_t firstPixel(const Ref<UIImage>& image) {
    return image->cgImage()->pixels().front();
}

class UIButtonTest : public TouchTest {
protected:
    static constexpr unsigned both = UIControlState::Highlighted | UIControlState::Selected;
};

TEST_F(UIButtonTest, AStateWithoutItsOwnLookTakesTheNormalOne) {
    const auto button = make<UIButton>();
    button->setTitle("normal", UIControlState::Normal);
    button->setTitle("selected", UIControlState::Selected);
    button->setTitleColor(UIColor::redColor(), both);
    EXPECT_EQ(button->titleForState(UIControlState::Selected), "selected");
    EXPECT_EQ(button->titleForState(both), "normal");
    EXPECT_EQ(button->titleColorForState(UIControlState::Normal), UIColor::whiteColor());
    button->setSelected(true);
    EXPECT_EQ(button->titleLabel()->text(), "selected");
    button->setHighlighted(true);
    EXPECT_EQ(button->titleLabel()->text(), "normal");
    EXPECT_EQ(button->titleLabel()->textColor(), UIColor::redColor());
    button->setTitle("", UIControlState::Normal);
    EXPECT_EQ(button->currentTitle(), "");
}

TEST_F(UIButtonTest, ACustomButtonDarkensItsPicturesWhilePressed) {
    const auto button = make<UIButton>();
    const auto image = imageOf({4, 4}, {1, 0.5, 0, 1});
    button->setImage(image, UIControlState::Normal);
    button->setHighlighted(true);
    const auto dark = button->imageView()->image();
    EXPECT_NEAR((firstPixel(dark) >> 16) & 0xFF, 0x80, 1);
    EXPECT_NEAR((firstPixel(dark) >> 8) & 0xFF, 0x40, 1);
    EXPECT_EQ(firstPixel(dark) >> 24, 0xFFu);
    // What was clear stays clear.
    EXPECT_EQ(dark->cgImage()->pixels()[3], 0u);
    EXPECT_EQ(button->currentImage(), image);
    button->setHighlighted(false);
    EXPECT_EQ(button->imageView()->image(), image);

    const auto own = imageOf({4, 4}, {0, 0, 1, 1});
    button->setImage(own, UIControlState::Highlighted);
    button->setHighlighted(true);
    EXPECT_EQ(button->imageView()->image(), own);
}

TEST_F(UIButtonTest, PicturesStayAsTheyAreWhenToldSo) {
    const auto button = make<UIButton>();
    const auto image = imageOf({4, 4}, {1, 0, 0, 1});
    button->setImage(image, UIControlState::Normal);
    button->setAdjustsImageWhenHighlighted(false);
    button->setHighlighted(true);
    EXPECT_EQ(button->imageView()->image(), image);
    button->setEnabled(false);
    EXPECT_EQ(button->imageView()->alpha(), 0.5);
    button->setAdjustsImageWhenDisabled(false);
    EXPECT_EQ(button->imageView()->alpha(), 1);
}

TEST_F(UIButtonTest, ASystemButtonHasTheTintAndFades) {
    const auto button = UIButton::buttonWithType(UIButtonType::System);
    button->setTitle("title", UIControlState::Normal);
    window->addSubview(button);
    window->setTintColor(UIColor::redColor());
    EXPECT_EQ(button->titleLabel()->textColor(), UIColor::redColor());
    EXPECT_EQ(button->titleLabel()->font()->pointSize(), 15);
    button->setHighlighted(true);
    EXPECT_EQ(button->titleLabel()->alpha(), 0.2);
    button->setHighlighted(false);
    EXPECT_EQ(button->titleLabel()->alpha(), 1);
}

TEST_F(UIButtonTest, ImageAndTitleAreCentredTogether) {
    const auto button = make<UIButton>(Rect{0, 0, 200, 50});
    button->setImage(imageOf({20, 10}, {0, 0, 0, 1}), UIControlState::Normal);
    button->setTitle("title", UIControlState::Normal);
    const double width = button->titleLabel()->sizeThatFits({200, 50}).width;
    const double left = (200 - 20 - width) / 2;
    const auto expectAt = [&](const Ref<UIView>& part, double x, double midY) {
        button->layoutIfNeeded();
        EXPECT_NEAR(part->frame().origin.x, x, 0.5);
        EXPECT_NEAR(part->frame().midY(), midY, 0.5);
    };
    expectAt(button->imageView(), left, 25);
    expectAt(button->titleLabel(), left + 20, 25);
    // Insets of one side move by their half, of both by the whole.
    button->setTitleEdgeInsets({0, 8, 0, -8});
    expectAt(button->titleLabel(), left + 28, 25);
    button->setTitleEdgeInsets({0, 8, 0, 0});
    expectAt(button->titleLabel(), left + 24, 25);
    button->setContentEdgeInsets({10, 0, 0, 0});
    expectAt(button->imageView(), left, 30);
}

TEST_F(UIButtonTest, ATitleThatIsTooLongIsCutToTheRoom) {
    const auto button = make<UIButton>(Rect{0, 0, 60, 30});
    button->setTitle("much longer than sixty points", UIControlState::Normal);
    button->layoutIfNeeded();
    EXPECT_GE(button->titleLabel()->frame().minX(), 0);
    EXPECT_LE(button->titleLabel()->frame().maxX(), 60);
}

TEST_F(UIButtonTest, ItsSizeIsThatOfItsContent) {
    const auto button = make<UIButton>();
    button->setImage(imageOf({20, 50}, {0, 0, 0, 1}), UIControlState::Normal);
    EXPECT_EQ(button->sizeThatFits({}), (Size{20, 50}));
    button->setContentEdgeInsets({1, 2, 3, 4});
    EXPECT_EQ(button->sizeThatFits({}), (Size{26, 54}));
    const auto background = make<UIButton>();
    background->setBackgroundImage(imageOf({31, 17}, {0, 0, 0, 1}), UIControlState::Normal);
    EXPECT_EQ(background->sizeThatFits({}), (Size{31, 17}));
    const auto titled = make<UIButton>();
    titled->setTitle("i", UIControlState::Normal);
    EXPECT_EQ(titled->sizeThatFits({}).width, 30);
}

}  // namespace
}  // namespace zn::test
