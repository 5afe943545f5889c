#include "zarnic/UIViewController+ZNCategory.h"

#include "zarnic/platform/drawing/NSTextAttributes.h"
#include "zarnic/platform/uikit/UINavigationController.h"
#include "zarnic/platform/uikit/UINavigationItem.h"

namespace zn {
namespace {

/// The key is the pointer's value.
constexpr const char* parametersKey = "UIViewController_zn_Parameters";

void setTitleAttribute(const Ref<UIViewController>& controller, const char* name,
                       const Value& value) {
    const auto navigation = controller ? controller->navigationController() : nullptr;
    if (!navigation)
        return;
    Dictionary attributes = navigation->navigationBar()->titleTextAttributes().mutableCopy();
    if (value.absent())
        attributes.remove(name);
    else
        attributes.set(name, value);
    navigation->navigationBar()->setTitleTextAttributes(attributes);
}

UINavigationItem::Items barItems(const Value& things) {
    UINavigationItem::Items items;
    if (!things.isArray())
        return items;
    for (const Value& thing : things.array()) {
        if (const auto item = thing.object<UIBarButtonItem>())
            items.push_back(item);
        else if (const auto view = thing.object<UIView>())
            items.push_back(make<UIBarButtonItem>(view));
    }
    return items;
}

}  // namespace

Value zn_Parameters(const Ref<UIViewController>& controller) {
    return controller ? controller->associatedValue(parametersKey) : Value();
}

void setZn_Parameters(const Ref<UIViewController>& controller, const Value& parameters) {
    if (controller)
        controller->setAssociatedValue(parametersKey, parameters);
}

void zn_SetNavigationTitleText(const Ref<UIViewController>& controller, std::string_view text) {
    if (controller)
        controller->navigationItem()->setTitle(text);
}

void zn_SetNavigationTitleTextFont(const Ref<UIViewController>& controller,
                                   const Ref<UIFont>& font) {
    setTitleAttribute(controller, NSFontAttributeName, font);
}

void zn_SetNavigationTitleTextColor(const Ref<UIViewController>& controller,
                                    const Ref<UIColor>& color) {
    setTitleAttribute(controller, NSForegroundColorAttributeName, color);
}

void zn_SetNavigationLeftItems(const Ref<UIViewController>& controller, const Value& items) {
    if (controller)
        controller->navigationItem()->setLeftBarButtonItems(barItems(items));
}

void zn_SetNavigationRightItems(const Ref<UIViewController>& controller, const Value& items) {
    if (controller)
        controller->navigationItem()->setRightBarButtonItems(barItems(items));
}

}  // namespace zn
