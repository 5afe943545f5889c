#include <gmock/gmock.h>

#include "zarnic/platform/foundation/NSException.h"
#include "zarnic/platform/uikit/UIView.h"
#include "zarnic/platform/uikit/UIWindow.h"

namespace zn {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Log = std::vector<std::string>;

/// Writes down what it is told.
class Witness final : public UIView {
    ZN_OBJECT(Witness, UIView)
public:
    Witness(std::string name, Log* log) : name_(std::move(name)), log_(log) {}

    void willMoveToSuperview(const Ref<UIView>& view) override {
        note(view ? "willMoveToSuperview" : "willLeaveSuperview");
    }
    void didMoveToSuperview() override { note("didMoveToSuperview"); }
    void willMoveToWindow(const Ref<UIWindow>& window) override {
        note(window ? "willMoveToWindow" : "willLeaveWindow");
    }
    void didMoveToWindow() override { note(window() ? "didMoveToWindow" : "didLeaveWindow"); }
    void didAddSubview(const Ref<UIView>&) override { note("didAddSubview"); }
    void willRemoveSubview(const Ref<UIView>&) override { note("willRemoveSubview"); }
    void tintColorDidChange() override { note("tint"); }
    bool canBecomeFirstResponder() const override { return true; }

private:
    void note(const std::string& what) { log_->push_back(name_ + " " + what); }
    std::string name_;
    Log* log_;
};

struct Family {
    Ref<UIView> parent = make<UIView>(Rect(0, 0, 100, 100));
    Ref<UIView> a = make<UIView>();
    Ref<UIView> b = make<UIView>();
    Ref<UIView> c = make<UIView>();
    Family() {
        for (const auto& view : {a, b, c})
            parent->addSubview(view);
    }
    std::vector<Ref<CALayer>> layers() const { return parent->layer()->sublayers(); }
    void expectOrder(const Ref<UIView>& first, const Ref<UIView>& second,
                     const Ref<UIView>& third) const {
        EXPECT_THAT(parent->subviews(), ElementsAre(first, second, third));
        EXPECT_THAT(layers(), ElementsAre(first->layer(), second->layer(), third->layer()));
    }
};

TEST(UIViewTreeTest, KeepsViewsAndLayersInTheSameOrder) {
    const Family family;
    const auto& [parent, a, b, c] = family;
    family.expectOrder(a, b, c);
    parent->sendSubviewToBack(c);
    family.expectOrder(c, a, b);
    parent->bringSubviewToFront(a);
    family.expectOrder(c, b, a);
    parent->insertSubviewBelow(a, c);
    family.expectOrder(a, c, b);
    parent->insertSubviewAbove(a, c);
    family.expectOrder(c, a, b);
    parent->insertSubviewBelow(c, b);
    family.expectOrder(a, c, b);
    parent->insertSubviewAbove(b, a);
    family.expectOrder(a, b, c);
    parent->insertSubviewAtIndex(a, 99);
    family.expectOrder(b, c, a);
    parent->insertSubviewAtIndex(a, 1);
    family.expectOrder(b, a, c);
    parent->insertSubviewBelow(b, make<UIView>());
    family.expectOrder(a, c, b);
}

TEST(UIViewTreeTest, SubviewsGoAboveLayersAtTheBack) {
    const Family family;
    const auto background = make<CALayer>();
    family.parent->layer()->insertSublayer(background, 0);
    family.parent->sendSubviewToBack(family.c);
    EXPECT_THAT(family.layers(),
                ElementsAre(background, family.c->layer(), family.a->layer(), family.b->layer()));
}

TEST(UIViewTreeTest, SubviewWhoseLayerIsAMaskDoesNotDisturbItsSiblings) {
    const Family family;
    family.a->layer()->setMask(family.b->layer());
    const auto late = make<UIView>();
    family.parent->insertSubviewBelow(late, family.b);
    EXPECT_THAT(family.parent->subviews(), ElementsAre(family.a, late, family.b, family.c));
    EXPECT_THAT(family.layers(), ElementsAre(family.a->layer(), late->layer(), family.c->layer()));
}

TEST(UIViewTreeTest, RefusesToLieInsideItself) {
    const Family family;
    EXPECT_THROW(family.a->addSubview(family.a), NSException);
    EXPECT_THROW(family.a->addSubview(family.parent), NSException);
    family.parent->addSubview(nullptr);
    family.expectOrder(family.a, family.b, family.c);
}

TEST(UIViewTreeTest, OutlivesItsSuperview) {
    const auto child = make<UIView>();
    Ref<CALayer> parentLayer;
    {
        const auto parent = make<UIView>();
        parentLayer = parent->layer();
        parent->addSubview(child);
    }
    EXPECT_EQ(child->superview(), nullptr);
    EXPECT_EQ(child->layer()->superlayer(), nullptr);
    EXPECT_EQ(parentLayer->delegate(), nullptr);
    EXPECT_THAT(parentLayer->sublayers(), IsEmpty());
    make<UIView>()->addSubview(child);
}

TEST(UIViewTreeTest, FindsViewsByTagAndDescent) {
    const Family family;
    const auto deep = make<UIView>();
    family.b->addSubview(deep);
    deep->setTag(7);
    family.c->setTag(7);
    EXPECT_EQ(family.parent->viewWithTag(7), deep);
    EXPECT_EQ(deep->viewWithTag(7), deep);
    EXPECT_EQ(family.parent->viewWithTag(8), nullptr);
    EXPECT_TRUE(deep->isDescendantOfView(family.parent));
    EXPECT_TRUE(deep->isDescendantOfView(deep));
    EXPECT_FALSE(deep->isDescendantOfView(family.a));
    EXPECT_FALSE(deep->isDescendantOfView(nullptr));
}

TEST(UIViewTreeTest, TellsEveryoneOfAMoveInOrder) {
    Log log;
    const auto window = make<UIWindow>(Rect(0, 0, 100, 100));
    const auto parent = make<Witness>("parent", &log);
    const auto child = make<Witness>("child", &log);
    parent->addSubview(child);
    EXPECT_THAT(log, ElementsAre("child willMoveToSuperview", "child didMoveToSuperview",
                                 "parent didAddSubview"));
    log.clear();
    window->addSubview(parent);
    EXPECT_EQ(child->window(), window);
    EXPECT_THAT(log, ElementsAre("parent willMoveToSuperview", "parent willMoveToWindow",
                                 "child willMoveToWindow", "parent didMoveToWindow",
                                 "child didMoveToWindow", "parent didMoveToSuperview"));
    log.clear();
    parent->bringSubviewToFront(child);
    EXPECT_THAT(log, IsEmpty());
    child->removeFromSuperview();
    EXPECT_EQ(child->window(), nullptr);
    EXPECT_THAT(log, ElementsAre("child willLeaveSuperview", "child willLeaveWindow",
                                 "parent willRemoveSubview", "child didLeaveWindow",
                                 "child didMoveToSuperview"));
}

TEST(UIViewTreeTest, FirstResponderResignsWhenItsViewLeavesTheWindow) {
    Log log;
    const auto window = make<UIWindow>(Rect(0, 0, 100, 100));
    const auto form = make<UIView>();
    const auto field = make<Witness>("field", &log);
    form->addSubview(field);
    window->addSubview(form);
    EXPECT_TRUE(field->becomeFirstResponder());
    form->removeFromSuperview();
    EXPECT_FALSE(field->isFirstResponder());
}

TEST(UIViewTreeTest, TintComesFromTheNearestViewThatHasOne) {
    Log log;
    const auto outer = make<Witness>("outer", &log);
    const auto inner = make<Witness>("inner", &log);
    const auto own = make<Witness>("own", &log);
    own->setTintColor(UIColor::redColor());
    log.clear();
    EXPECT_TRUE(outer->tintColor()->isEqual(*UIColor::colorWithRed(0, 122.0 / 255, 1, 1)));
    outer->setTintColor(UIColor::greenColor());
    outer->addSubview(inner);
    outer->addSubview(own);
    EXPECT_EQ(inner->tintColor(), UIColor::greenColor());
    log.clear();
    outer->setTintColor(UIColor::greenColor());
    EXPECT_THAT(log, IsEmpty());
    outer->setTintColor(UIColor::blueColor());
    EXPECT_THAT(log, ElementsAre("outer tint", "inner tint"));
    EXPECT_EQ(own->tintColor(), UIColor::redColor());
}

}  // namespace
}  // namespace zn
