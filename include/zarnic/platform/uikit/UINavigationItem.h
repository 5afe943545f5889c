#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "zarnic/platform/foundation/Class.h"
#include "zarnic/platform/uikit/UIBarButtonItem.h"
#include "zarnic/platform/uikit/UIView.h"

namespace zn {

/// What the navigation bar shows for a controller. Main thread only.
class ZN_EXPORT UINavigationItem final : public NSObject {
    ZN_OBJECT(UINavigationItem, NSObject)
public:
    using Items = std::vector<Ref<UIBarButtonItem>>;

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

    /// Left to right, in place of the back button.
    const Items& leftBarButtonItems() const { return leftItems_; }
    /// Null items are left out, here and on the right. An item shows in one place only.
    void setLeftBarButtonItems(Items items);
    /// Right to left: the first one stands at the edge.
    const Items& rightBarButtonItems() const { return rightItems_; }
    void setRightBarButtonItems(Items items);
    /// The first one, or null; setting it replaces them all.
    Ref<UIBarButtonItem> leftBarButtonItem() const;
    void setLeftBarButtonItem(const Ref<UIBarButtonItem>& item);
    Ref<UIBarButtonItem> rightBarButtonItem() const;
    void setRightBarButtonItem(const Ref<UIBarButtonItem>& item);
    /// The left items stand beside the back button; default no.
    bool leftItemsSupplementBackButton() const { return supplementsBackButton_; }
    void setLeftItemsSupplementBackButton(bool supplement);

    /// Called by the bar that shows the item now.
    void setChangeHandler(std::function<void()> handler) { changed_ = std::move(handler); }

private:
    void tellBar() const;
    void replace(Items& side, Items items);

    std::string title_;
    std::string backTitle_;
    Ref<UIView> titleView_;
    Items leftItems_;
    Items rightItems_;
    bool hidesBackButton_ = false;
    bool supplementsBackButton_ = false;
    std::function<void()> changed_;
};

}  // namespace zn
