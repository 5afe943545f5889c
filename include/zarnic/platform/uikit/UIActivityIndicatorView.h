#pragma once

#include <cstdint>

#include "zarnic/platform/uikit/UIView.h"

namespace zn {

/// The platform's numbers.
enum class UIActivityIndicatorViewStyle : std::int64_t { WhiteLarge, White, Gray };

/// Twelve spokes that turn once a second while something is going on, in the middle of the view.
/// Main thread only.
class ZN_EXPORT UIActivityIndicatorView : public UIView {
    ZN_OBJECT(UIActivityIndicatorView, UIView)
public:
    UIActivityIndicatorView();
    explicit UIActivityIndicatorView(const Rect& frame);
    /// As large as the style: 37 points a side for the large one, 20 for the others.
    explicit UIActivityIndicatorView(UIActivityIndicatorViewStyle style);
    ~UIActivityIndicatorView() override;
    void init() override;

    void startAnimating();
    void stopAnimating();
    bool isAnimating() const { return animating_; }
    /// Default yes: hidden until it is started.
    bool hidesWhenStopped() const { return hidesWhenStopped_; }
    void setHidesWhenStopped(bool hides);
    UIActivityIndicatorViewStyle activityIndicatorViewStyle() const { return style_; }
    /// Default white. Takes the style's colour too.
    void setActivityIndicatorViewStyle(UIActivityIndicatorViewStyle style);
    Ref<UIColor> color() const { return color_; }
    /// Null for the style's.
    void setColor(const Ref<UIColor>& color);

    Size sizeThatFits(Size size) const override;
    void layoutSubviews() override;

private:
    class Wheel;

    Ref<Wheel> wheel_;
    Ref<UIColor> color_;
    UIActivityIndicatorViewStyle style_ = UIActivityIndicatorViewStyle::White;
    bool hidesWhenStopped_ = true;
    bool animating_ = false;
};

}  // namespace zn
