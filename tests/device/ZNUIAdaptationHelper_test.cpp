#include "zarnic/ZNUIAdaptationHelper.h"

#include <gtest/gtest.h>

#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestClock.h"
#include "zarnic/platform/services/Services.h"
#include "zarnic/platform/uikit/UIApplication.h"
#include "zarnic/platform/uikit/UIScreen.h"
#include "zarnic/platform/uikit/UIViewController.h"
#include "zarnic/platform/uikit/UIWindow.h"
#include "zarnic/testing/FakeDeviceFacts.h"

namespace zn {
namespace {

/// The measures are taken once a process, so that each test makes them in one of its own.
class ZNUIAdaptationHelperTest : public testing::Test {
protected:
    void SetUp() override {
        testClock();
        Services::replace<DeviceFacts>(facts);
    }
    static void become(const std::string& machine, Size size) {
        DeviceProfile profile;
        profile.machine = machine;
        profile.size = size;
        UIScreen::mainScreen()->setProfile(profile);
    }
    Ref<FakeDeviceFacts> facts = make<FakeDeviceFacts>();
};

TEST_F(ZNUIAdaptationHelperTest, ALargePhoneWithANotch) {
    become("iPhone10,3", {414, 896});
    EXPECT_EQ(ZNUIAdaptationHelper::Width(), 414);
    EXPECT_EQ(ZNUIAdaptationHelper::Height(), 896);
    EXPECT_EQ(ZNUIAdaptationHelper::Scale(), 1.104);
    EXPECT_EQ(ZNUIAdaptationHelper::SafeTop(), 20);
    EXPECT_EQ(ZNUIAdaptationHelper::SafeBottom(), 34);
    EXPECT_EQ(ZNUIAdaptationHelper::Scale4iPad(), 0.5390625);
}

TEST_F(ZNUIAdaptationHelperTest, ASmallPhone) {
    become("iPhone8,4", {320, 568});
    EXPECT_EQ(ZNUIAdaptationHelper::Scale(), 0.8533333333333334);
    EXPECT_EQ(ZNUIAdaptationHelper::SafeBottom(), 0);
}

TEST_F(ZNUIAdaptationHelperTest, ATablet) {
    become("iPad6,3", {768, 1024});
    EXPECT_EQ(ZNUIAdaptationHelper::Scale(), 1);
    EXPECT_EQ(ZNUIAdaptationHelper::Scale4iPad(), 1);
}

TEST_F(ZNUIAdaptationHelperTest, ATabletHeldSidewaysHasTheSameScales) {
    become("iPad6,3", {1024, 768});
    EXPECT_EQ(ZNUIAdaptationHelper::Width(), 1024);
    EXPECT_EQ(ZNUIAdaptationHelper::Scale(), 1);
    EXPECT_EQ(ZNUIAdaptationHelper::Scale4iPad(), 1);
}

TEST_F(ZNUIAdaptationHelperTest, ASimulatorIsNoPhoneWithANotch) {
    become("x86_64", {375, 812});
    EXPECT_EQ(ZNUIAdaptationHelper::Scale(), 1);
    EXPECT_EQ(ZNUIAdaptationHelper::SafeBottom(), 0);
}

TEST_F(ZNUIAdaptationHelperTest, TheVersionIsReadInSinglePrecisionUpToItsSecondDot) {
    facts->facts.systemVersion = "11.2.1";
    EXPECT_EQ(ZNUIAdaptationHelper::SysVersion(), 11.19999980926513671875);
}

TEST_F(ZNUIAdaptationHelperTest, NothingIsEverMeasuredAgain) {
    become("iPhone9,1", {375, 667});
    EXPECT_EQ(ZNUIAdaptationHelper::SafeTop(), 20);
    facts->facts.systemVersion = "12";
    become("iPad6,3", {768, 1024});
    EXPECT_EQ(ZNUIAdaptationHelper::Width(), 375);
    EXPECT_EQ(ZNUIAdaptationHelper::SharedInstance()->sysVersion(), 11.19999980926513671875);
}

TEST_F(ZNUIAdaptationHelperTest, AStatusBarThatIsHiddenAtFirstUseLeavesNoInset) {
    struct Full : UIViewController {
        bool prefersStatusBarHidden() const override { return true; }
    };
    const auto window = make<UIWindow>();
    window->setRootViewController(make<Full>());
    window->makeKeyAndVisible();
    testClock().settle();
    EXPECT_EQ(ZNUIAdaptationHelper::SafeTop(), 0);
}

TEST_F(ZNUIAdaptationHelperTest, TheVersionsOfTheApplicationAreThoseOfItsBundle) {
    const TemporaryFolder folder;
    folder.write("Info.plist",
                 "<plist version=\"1.0\"><dict><key>CFBundleShortVersionString</key>"
                 "<string>1.2.3</string></dict></plist>");
    setenv("ZARNIC_BUNDLE", folder.path().c_str(), 1);
    EXPECT_EQ(ZNUIAdaptationHelper::AppShortVersion(), "1.2.3");
    EXPECT_EQ(ZNUIAdaptationHelper::AppBuildVersion(), std::nullopt);
}

}  // namespace
}  // namespace zn
