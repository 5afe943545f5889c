#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "zarnic/platform/drawing/UIImage.h"
#include "zarnic/platform/foundation/Action.h"
#include "zarnic/platform/foundation/Value.h"
#include "zarnic/platform/uikit/UIView.h"

namespace zn {

/// The platform's numbers.
enum class UIBarButtonItemStyle : std::int64_t { Plain = 0, Done = 2 };

/// A button of a bar: a text, a picture (of which only the shape is shown, in the tint colour), or
/// a view of its own. Main thread only.
class ZN_EXPORT UIBarButtonItem : public NSObject {
    ZN_OBJECT(UIBarButtonItem, NSObject)
public:
    UIBarButtonItem();
    /// A tap sends the action, with this item as the sender.
    UIBarButtonItem(std::string title, UIBarButtonItemStyle style, Action action);
    UIBarButtonItem(Ref<UIImage> image, UIBarButtonItemStyle style, Action action);
    /// The view is shown at its own size and takes its touches itself.
    explicit UIBarButtonItem(Ref<UIView> customView);
    ~UIBarButtonItem() override;

    const std::string& title() const { return title_; }
    void setTitle(std::string_view title);
    /// Shown in place of the title.
    const Ref<UIImage>& image() const { return image_; }
    void setImage(const Ref<UIImage>& image);
    /// Shown in place of title and image.
    const Ref<UIView>& customView() const { return customView_; }
    void setCustomView(const Ref<UIView>& view);
    /// One that is done has a bolder title.
    UIBarButtonItemStyle style() const { return style_; }
    void setStyle(UIBarButtonItemStyle style);
    /// Default yes. A disabled one is grey and takes no taps; a custom view is left alone.
    bool enabled() const { return enabled_; }
    void setEnabled(bool enabled);
    /// Null for the bar's.
    const Ref<UIColor>& tintColor() const { return tintColor_; }
    void setTintColor(const Ref<UIColor>& color);
    /// Points; 0 (default) for as wide as it needs.
    double width() const { return width_; }
    void setWidth(double width);
    const Action& action() const { return action_; }
    void setAction(const Action& action) { action_ = action; }
    /// Font and colour of the title (see `NSTextAttributes.h`) in a state of `UIControlState`; a
    /// state without attributes of its own has those of the normal one. The dictionary is copied.
    Dictionary titleTextAttributes(unsigned state) const;
    void setTitleTextAttributes(const Dictionary& attributes, unsigned state);

    /// Called by the navigation item that holds it.
    void setChangeHandler(std::function<void()> handler) { changed_ = std::move(handler); }

private:
    void tellBar() const;

    std::string title_;
    Ref<UIImage> image_;
    Ref<UIView> customView_;
    Ref<UIColor> tintColor_;
    UIBarButtonItemStyle style_ = UIBarButtonItemStyle::Plain;
    Action action_;
    std::map<unsigned, Dictionary> attributes_;
    std::function<void()> changed_;
    double width_ = 0;
    bool enabled_ = true;
};

}  // namespace zn
