#include "Chooser.h"

#include <zarnic/platform/uikit/UILabel.h>

#include "Theme.h"
#include "Tiles.h"

using namespace zn;

namespace gallery {
namespace {

constexpr double fieldHeight = 40;
constexpr double ringWidth = 2.5;

/// Tells by a block that it was tapped.
class Field : public UIControl {
    ZN_OBJECT(Field, UIControl)
public:
    Field(const Rect& frame, std::function<void()> tappedBlock)
        : UIControl(frame), tappedBlock_(std::move(tappedBlock)) {}

    void init() override {
        UIControl::init();
        layer()->setCornerRadius(10);
        layer()->setBorderColor(theme::accent()->cgColor());
        addTarget(ZN_ACTION(ref(this), tapped), UIControlEvents::TouchUpInside);
    }
    void tapped() { tappedBlock_(); }

private:
    std::function<void()> tappedBlock_;
};

}  // namespace

Chooser::Chooser(double width, std::vector<Option> options, Chosen chosen)
    : UIView(Rect(0, 0, width, fieldHeight)),
      options_(std::move(options)),
      chosen_(std::move(chosen)) {}

void Chooser::init() {
    UIView::init();
    const double width = tileWidth(bounds().width(), options_.size());
    for (std::size_t i = 0; i < options_.size(); ++i) {
        const double x = static_cast<double>(i) * (width + theme::gap);
        fields_.push_back(field(i, {x, 0, width, fieldHeight}));
        addSubview(fields_.back());
    }
    choose(0);
}

Ref<UIControl> Chooser::field(std::size_t index, const Rect& frame) {
    const WeakRef<Chooser> weak = ref(this);
    auto control = make<Field>(frame, [weak, index] {
        if (const auto chooser = weak.lock())
            chooser->choose(index);
    });
    const Option& option = options_[index];
    control->setBackgroundColor(option.text.empty() ? option.color : theme::card());
    if (!option.text.empty()) {
        const double y = (fieldHeight - theme::body()->lineHeight()) / 2;
        const auto label =
            theme::label(option.text, theme::body(), theme::ink(), {4, y}, frame.width() - 8);
        label->setTextAlignment(NSTextAlignment::Center);
        label->setAdjustsFontSizeToFitWidth(true);
        label->setMinimumScaleFactor(0.7);
        control->addSubview(label);
    }
    return control;
}

void Chooser::choose(std::size_t index) {
    for (std::size_t i = 0; i < fields_.size(); ++i)
        fields_[i]->layer()->setBorderWidth(i == index ? ringWidth : 0);
    if (chosen_)
        chosen_(index);
}

}  // namespace gallery
