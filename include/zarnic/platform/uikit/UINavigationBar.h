#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "zarnic/platform/foundation/Value.h"
#include "zarnic/platform/uikit/UIButton.h"
#include "zarnic/platform/uikit/UILabel.h"
#include "zarnic/platform/uikit/UINavigationItem.h"
#include "zarnic/platform/uikit/UIView.h"

namespace zn {

/// The bar above a navigation controller's screens: back button, bar items, title, a line below.
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
    /// Font and colour of every title (see `NSTextAttributes.h`); what is missing is the system's
    /// semibold 17, and black. The dictionary is copied.
    const Dictionary& titleTextAttributes() const { return titleTextAttributes_; }
    void setTitleTextAttributes(const Dictionary& attributes);

    /// Bottom to top; the last one is shown.
    const std::vector<Ref<UINavigationItem>>& items() const { return items_; }
    enum class Change { None, Push, Pop };
    /// Shows the items. With a change the title shown before stays, and the new one is not seen,
    /// until `setChangeProgress` moves them.
    void setItems(std::vector<Ref<UINavigationItem>> items, Change change);
    /// From 0, the old title, to 1, the new one; in an animation block it moves there.
    void setChangeProgress(double progress);
    /// Takes the old title away.
    void endChange();
    /// Called when the back button is tapped.
    void setBackHandler(std::function<void()> handler) { back_ = std::move(handler); }
    /// How far the bar's colour reaches up above its bounds, in points: under the status bar.
    void setTopExtension(double height);

    void layoutSubviews() override;
    void tintColorDidChange() override;

private:
    /// What is seen for one item.
    class Page;
    Ref<Page> makePage();
    /// Shows what the top item says now, in the middle of a change too.
    void refreshPage();
    void watchTop();
    void colorBackground();
    void backTapped();

    std::vector<Ref<UINavigationItem>> items_;
    Ref<UIView> background_;
    Ref<UIView> line_;
    Ref<Page> page_;
    /// The old page during a change, and how far it travels.
    Ref<Page> leavingPage_;
    double travel_ = 0;
    double progress_ = 1;
    Ref<UIColor> barTintColor_;
    Dictionary titleTextAttributes_ = Dictionary().copy();
    std::function<void()> back_;
    double topExtension_ = 0;
    bool translucent_ = true;
};

}  // namespace zn
