#include "zarnic/ZNControllerHelper.h"

#include <algorithm>

#include "platform/foundation/archives/ContainerFiller.h"
#include "zarnic/UIViewController+ZNCategory.h"
#include "zarnic/platform/foundation/NSURL.h"
#include "zarnic/platform/layers/CAAnimation.h"
#include "zarnic/platform/uikit/UITabBarController.h"

namespace zn {

ZN_REGISTER_CLASS(ZNControllerHelper);

namespace {

struct Registry {
    Ref<UINavigationController> login;
    Ref<UINavigationController> root;
    WeakRef<UIViewController> anchor;
};

Registry& registry() {
    static auto& theRegistry = *new Registry;
    return theRegistry;
}

bool isOnStack(const Ref<UIViewController>& controller) {
    const auto& stack = registry().root->viewControllers();
    return std::find(stack.begin(), stack.end(), controller) != stack.end();
}

/// The screen that a target names, with nothing set yet; null when it names none.
Ref<UIViewController> screenOf(const Class& target) {
    return as<UIViewController>(target.create());
}

Ref<UIViewController> screenNamed(std::string_view name) {
    const Class* found = Class::named(name);
    return found ? screenOf(*found) : nullptr;
}

/// The path without its slashes, up to the first dot.
std::string classNameOf(const NSURL& url) {
    std::string name = url.relativePath().value_or("");
    std::erase(name, '/');
    return name.substr(0, name.find('.'));
}

Ref<UIViewController> screenOf(const Value& target) {
    if (target.isString())
        return screenNamed(target.string());
    if (const auto url = target.object<NSURL>())
        return screenNamed(classNameOf(*url));
    return target.object<UIViewController>();
}

const Value& parametersFor(const Class&, const Value& given) {
    return given;
}

Value parametersFor(const Value& target, const Value& given) {
    const auto url = target.object<NSURL>();
    return url && given.absent()
               ? Value(ZNControllerHelper::DictionaryFromQuery(url->query().value_or("")))
               : given;
}

template <class Target>
Ref<UIViewController> prepared(const Target& target, const Value& parameters) {
    const Ref<UIViewController> screen = screenOf(target);
    if (!screen)
        return nullptr;
    setZn_Parameters(screen, parametersFor(target, parameters));
    screen->setHidesBottomBarWhenPushed(true);
    return screen;
}

void push(const Ref<UIViewController>& screen, bool animated) {
    const Ref<UINavigationController> root = registry().root;
    const bool possible =
        root && screen && screen != root && !isOnStack(screen) && !as<UITabBarController>(screen);
    if (possible)
        root->pushViewController(screen, animated);
}

void present(const Ref<UIViewController>& screen, bool animated,
             ZNControllerHelper::Completion completion) {
    const Ref<UINavigationController> root = registry().root;
    if (root && screen)
        root->presentViewController(screen, animated, std::move(completion));
}

bool isSeparator(char character) {
    return character == '&' || character == ';';
}

/// The text is taken as it stands; what is no pair is left out.
void addPair(const Dictionary& pairs, std::string_view text) {
    const std::size_t equals = text.find('=');
    if (equals != text.npos && text.find('=', equals + 1) == text.npos)
        ContainerFiller::set(pairs, text.substr(0, equals), text.substr(equals + 1));
}

/// Added after the change, it still begins with what was on the screen before.
void addRootTransition(CATransitionType type, CATransitionSubtype subtype) {
    const Ref<UINavigationController> root = registry().root;
    if (!root)
        return;
    const auto transition = make<CATransition>();
    transition->duration = 0.3F;
    transition->timingFunction = CAMediaTimingFunction::easeInEaseOut();
    transition->type = type;
    transition->subtype = subtype;
    root->view()->layer()->addAnimation(transition, {});
}

}  // namespace

void ZNControllerHelper::RegisterLoginNavigationController(
    const Ref<UINavigationController>& controller) {
    registry().login = controller;
}

Ref<UINavigationController> ZNControllerHelper::LoginNavigationController() {
    return registry().login;
}

void ZNControllerHelper::RegisterRootNavigationController(
    const Ref<UINavigationController>& controller) {
    registry().root = controller;
}

Ref<UINavigationController> ZNControllerHelper::RootNavigationController() {
    return registry().root;
}

void ZNControllerHelper::PushViewController(const Value& target, bool animated) {
    PushViewController(target, Value(), animated);
}

void ZNControllerHelper::PushViewController(const Class& target, bool animated) {
    PushViewController(target, Value(), animated);
}

void ZNControllerHelper::PushViewController(const Value& target, const Value& parameters,
                                            bool animated) {
    push(prepared(target, parameters), animated);
}

void ZNControllerHelper::PushViewController(const Class& target, const Value& parameters,
                                            bool animated) {
    push(prepared(target, parameters), animated);
}

Ref<UIViewController> ZNControllerHelper::PopViewControllerAnimated(bool animated) {
    const Ref<UINavigationController> root = registry().root;
    return root ? root->popViewControllerAnimated(animated) : nullptr;
}

void ZNControllerHelper::PresentViewController(const Value& target, bool animated,
                                               Completion completion) {
    PresentViewController(target, Value(), animated, std::move(completion));
}

void ZNControllerHelper::PresentViewController(const Class& target, bool animated,
                                               Completion completion) {
    PresentViewController(target, Value(), animated, std::move(completion));
}

void ZNControllerHelper::PresentViewController(const Value& target, const Value& parameters,
                                               bool animated, Completion completion) {
    present(prepared(target, parameters), animated, std::move(completion));
}

void ZNControllerHelper::PresentViewController(const Class& target, const Value& parameters,
                                               bool animated, Completion completion) {
    present(prepared(target, parameters), animated, std::move(completion));
}

void ZNControllerHelper::DismissViewControllerAnimated(bool animated, Completion completion) {
    const Ref<UINavigationController> root = registry().root;
    if (const auto visible = root ? root->visibleViewController() : nullptr)
        visible->dismissViewControllerAnimated(animated, std::move(completion));
}

void ZNControllerHelper::PushViewControllerForRootTransition(const Value& target,
                                                             const Value& parameters) {
    PushViewController(target, parameters, false);
    addRootTransition(CATransitionType::MoveIn, CATransitionSubtype::FromTop);
}

void ZNControllerHelper::PushViewControllerForRootTransition(const Class& target,
                                                             const Value& parameters) {
    PushViewController(target, parameters, false);
    addRootTransition(CATransitionType::MoveIn, CATransitionSubtype::FromTop);
}

void ZNControllerHelper::PopViewControllerForRootTransition(const std::function<void()>& block) {
    if (block)
        block();
    else
        PopViewControllerAnimated(false);
    addRootTransition(CATransitionType::Reveal, CATransitionSubtype::FromBottom);
}

void ZNControllerHelper::SetAnchorViewController(const Ref<UIViewController>& controller) {
    registry().anchor = controller;
}

Ref<UIViewController> ZNControllerHelper::AnchorViewController() {
    return registry().anchor.lock();
}

void ZNControllerHelper::PopToAnchorViewController(bool animated) {
    const Ref<UIViewController> anchor = AnchorViewController();
    const Ref<UINavigationController> root = registry().root;
    if (anchor && root && isOnStack(anchor))
        root->popToViewController(anchor, animated);
    registry().anchor.reset();
}

Dictionary ZNControllerHelper::DictionaryFromQuery(std::string_view query) {
    constexpr std::ptrdiff_t mostExpected = 64;
    const auto expected = std::min(std::ranges::count(query, '='), mostExpected);
    const Dictionary pairs =
        ContainerFiller::dictionary(Mutability::Immutable, static_cast<std::size_t>(expected));
    for (auto start = query.begin(); start != query.end();) {
        const auto end = std::find_if(start, query.end(), isSeparator);
        addPair(pairs, {start, end});
        start = std::find_if_not(end, query.end(), isSeparator);
    }
    return pairs;
}

}  // namespace zn
