#include "zarnic/platform/uikit/UIResponder.h"

#include <gmock/gmock.h>

namespace zn {
namespace {

class Link final : public UIResponder {
public:
    Ref<UIResponder> nextResponder() const override { return next; }
    bool canBecomeFirstResponder() const override { return accepts; }
    bool canResignFirstResponder() const override { return yields; }
    void touchesBegan(const TouchSet& touches, const Ref<UIEvent>& event) override {
        ++began;
        if (passesOn)
            UIResponder::touchesBegan(touches, event);
    }
    Ref<UIResponder> next;
    bool accepts = true;
    bool yields = true;
    bool passesOn = false;
    int began = 0;
};

TEST(UIResponderTest, TouchesGoUpTheChainUntilSomebodyKeepsThem) {
    const auto end = make<Link>(), middle = make<Link>();
    const auto plain = [&] {
        class Plain final : public UIResponder {
        public:
            Ref<UIResponder> nextResponder() const override { return next; }
            Ref<UIResponder> next;
        };
        auto made = make<Plain>();
        made->next = middle;
        return made;
    }();
    middle->next = end;
    plain->touchesBegan({}, nullptr);
    EXPECT_EQ(middle->began, 1);
    EXPECT_EQ(end->began, 0);
    middle->passesOn = true;
    plain->touchesBegan({}, nullptr);
    EXPECT_EQ(end->began, 1);
}

TEST(UIResponderTest, OnlyOneIsFirst) {
    const auto one = make<Link>(), other = make<Link>();
    EXPECT_TRUE(one->becomeFirstResponder());
    EXPECT_TRUE(other->becomeFirstResponder());
    EXPECT_FALSE(one->isFirstResponder());
    EXPECT_TRUE(other->isFirstResponder());
    EXPECT_TRUE(one->resignFirstResponder()) << "it is not first, as was asked";
    EXPECT_TRUE(other->isFirstResponder());
}

TEST(UIResponderTest, EitherSideMayRefuse) {
    const auto holder = make<Link>(), other = make<Link>();
    holder->becomeFirstResponder();
    holder->yields = false;
    EXPECT_FALSE(other->becomeFirstResponder());
    EXPECT_FALSE(holder->resignFirstResponder());
    EXPECT_TRUE(holder->isFirstResponder());
    holder->yields = true;
    other->accepts = false;
    EXPECT_FALSE(other->becomeFirstResponder());
    EXPECT_TRUE(holder->isFirstResponder()) << "nobody resigns for one that refuses";
}

TEST(UIResponderTest, FirstResponderThatIsGoneIsNobody) {
    make<Link>()->becomeFirstResponder();
    const auto other = make<Link>();
    EXPECT_TRUE(other->becomeFirstResponder());
}

}  // namespace
}  // namespace zn
