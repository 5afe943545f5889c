#include "zarnic/platform/services/Services.h"

#include <gtest/gtest.h>

#include "zarnic/platform/foundation/NSException.h"
#include "zarnic/testing/FakeDeviceFacts.h"

using namespace zn;

TEST(Services, aReplacementBeforeFirstUseIsWhatEverybodyGets) {
    const auto fake = make<FakeDeviceFacts>();
    Services::replace<DeviceFacts>(make<FakeDeviceFacts>());
    Services::replace<DeviceFacts>(fake);
    EXPECT_EQ(Services::get<DeviceFacts>(), fake);
}

TEST(Services, withoutOneTheSystemAnswersAndStays) {
    const auto facts = Services::get<DeviceFacts>();
    ASSERT_TRUE(facts);
    EXPECT_FALSE(facts->machineIdentifier().empty());
    EXPECT_FALSE(facts->name().empty());
    EXPECT_FALSE(facts->systemName().empty());
    EXPECT_EQ(Services::get<DeviceFacts>(), facts);
    EXPECT_THROW(Services::replace<DeviceFacts>(make<FakeDeviceFacts>()), NSException);
    EXPECT_EQ(Services::get<DeviceFacts>(), facts);
}
