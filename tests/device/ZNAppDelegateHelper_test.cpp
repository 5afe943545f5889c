#include "zarnic/ZNAppDelegateHelper.h"

#include <gmock/gmock.h>

#include "zarnic/platform/foundation/NSNotificationCenter.h"
#include "zarnic/testing/Stage.h"

namespace zn {
namespace {

class LockListener : public NSObject {
public:
    void init() override {
        NSNotificationCenter::defaultCenter()->addObserver(ZN_ACTION(ref(this), lockStatusChanged),
                                                           ZN_ScreenLockStatusChangedNotification);
    }
    void lockStatusChanged(const Ref<NSNotification>& notification) {
        const auto number = as<NSNumber>(notification->object());
        ASSERT_TRUE(number);
        EXPECT_TRUE(notification->userInfo().absent());
        states.push_back(number->unsignedLongLongValue());
    }
    std::vector<std::uint64_t> states;
};

TEST(ZNAppDelegateHelper, everyChangePostsTheStateReadThenOncePerRegistration) {
    Stage stage;
    EXPECT_STREQ(ZN_ScreenLockStatusChangedNotification, "ZN_ScreenLockStatusChangedNotification");
    const auto listener = make<LockListener>();
    int configured = 0;
    ZNAppDelegateHelper::ConfigBlock({});
    ZNAppDelegateHelper::ConfigBlock([&] { ++configured; });
    EXPECT_EQ(configured, 1);
    stage.settle();
    EXPECT_TRUE(listener->states.empty());

    stage.display().setState(0);
    stage.settle();
    EXPECT_THAT(listener->states, testing::ElementsAre(0, 0));
    stage.display().setState(0);
    stage.display().setState(0xFFFF'FFFF'FFFF'FFFF);
    stage.settle();
    EXPECT_THAT(listener->states, testing::ElementsAre(0, 0, UINT64_MAX, UINT64_MAX));

    // What the display is like when the notice comes counts, not when it changed.
    listener->states.clear();
    stage.display().setState(0);
    stage.display().setState(1);
    stage.settle();
    EXPECT_THAT(listener->states, testing::ElementsAre(1, 1, 1, 1));
}

}  // namespace
}  // namespace zn
