#pragma once

#include <memory>
#include <string>
#include <vector>

#include "zarnic/platform/Class.h"
#include "zarnic/platform/UIView.h"

namespace zn {

/// What the navigation bar shows for a controller.
class ZN_EXPORT UINavigationItem final : public NSObject {
    ZN_OBJECT(UINavigationItem, NSObject)
public:
    UINavigationItem();
    explicit UINavigationItem(std::string title);
    ~UINavigationItem() override;

    const std::string& title() const { return title_; }
    void setTitle(std::string_view title);
    /// Shown in place of the title.
    const Ref<UIView>& titleView() const { return titleView_; }
    void setTitleView(const Ref<UIView>& view);
    /// The text of the back button that leads here; empty for the title.
    const std::string& backTitle() const { return backTitle_; }
    void setBackTitle(std::string_view title);
    bool hidesBackButton() const { return hidesBackButton_; }
    void setHidesBackButton(bool hides);

    /// Called by the bar that shows the item now.
    void setChangeHandler(std::function<void()> handler) { changed_ = std::move(handler); }

private:
    void tellBar() const;

    std::string title_;
    std::string backTitle_;
    Ref<UIView> titleView_;
    bool hidesBackButton_ = false;
    std::function<void()> changed_;
};

}  // namespace zn
