#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "zarnic/platform/UIButton.h"
#include "zarnic/platform/UILabel.h"
#include "zarnic/platform/UINavigationItem.h"
#include "zarnic/platform/UIView.h"

namespace zn {

/// The bar above a navigation controller's screens: back button, title, a line below.
class ZN_EXPORT UINavigationBar : public UIView {
    ZN_OBJECT(UINavigationBar, UIView)
public:
    /// Points.
    static constexpr double Height = 44;

    UINavigationBar();
    explicit UINavigationBar(const Rect& frame);
    ~UINavigationBar() override;
    void init() override;

    bool translucent() const { return translucent_; }
    /// A translucent bar lets a little of the screen below shine through; default.
    void setTranslucent(bool translucent);
    /// The bar's own colour; null for the platform's near-white.
    const Ref<UIColor>& barTintColor() const { return barTintColor_; }
    void setBarTintColor(const Ref<UIColor>& color);
    /// Null for black.
    const Ref<UIColor>& titleColor() const { return titleColor_; }
    void setTitleColor(const Ref<UIColor>& color);
    /// Null for the system's semibold 17.
    const Ref<UIFont>& titleFont() const { return titleFont_; }
    void setTitleFont(const Ref<UIFont>& font);

    /// Bottom to top; the last one is shown.
    const std::vector<Ref<UINavigationItem>>& items() const { return items_; }
    enum class Change { None, Push, Pop };
    /// Shows the items; with a change, the old ones slide out and fade over `duration` seconds.
    void setItems(std::vector<Ref<UINavigationItem>> items, Change change, double duration);
    /// Called when the back button is tapped.
    void setBackHandler(std::function<void()> handler) { back_ = std::move(handler); }
    /// How far the bar's colour reaches up above its bounds, in points: under the status bar.
    void setTopExtension(double height);

    void layoutSubviews() override;
    void tintColorDidChange() override;

private:
    /// What is seen for one item.
    class Page;
    void showTop(Change change, double duration);
    Ref<Page> makePage();
    void colorBackground();
    void backTapped();

    std::vector<Ref<UINavigationItem>> items_;
    Ref<UIView> background_;
    Ref<UIView> line_;
    Ref<Page> page_;
    Ref<UIColor> barTintColor_;
    Ref<UIColor> titleColor_;
    Ref<UIFont> titleFont_;
    std::function<void()> back_;
    double topExtension_ = 0;
    bool translucent_ = true;
};

}  // namespace zn
