#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "tests/support/TemporaryFolder.h"
#include "zarnic/ZNFileHelper.h"
#include "zarnic/platform/foundation/NSUserDefaults.h"
#include "zarnic/testing/Stage.h"

using namespace zn;

namespace {

std::string documents() {
    return *ZNFileHelper::GetFilePath(NSSearchPathDirectory::Document, "");
}

}  // namespace

TEST(StageHome, whatAnApplicationKeepsGoesWithTheStage) {
    unsetenv("ZARNIC_HOME");
    setenv("HOME", "/nonexistent", 1);
    std::string kept;
    {
        Stage stage;
        kept = documents();
        EXPECT_TRUE(ZNFileHelper::WriteFileAtPath(kept + "/file", true, "x"));
        NSUserDefaults::standardUserDefaults()->setInteger(1, "key");
        stage.settle();
        EXPECT_TRUE(NSUserDefaults::standardUserDefaults()->synchronize());
    }
    EXPECT_FALSE(std::filesystem::exists(kept));
    EXPECT_EQ(std::getenv("ZARNIC_HOME"), nullptr);
}

TEST(StageHome, aHomeThatWasSetStays) {
    const TemporaryFolder home;
    setenv("ZARNIC_HOME", home.path().c_str(), 1);
    {
        Stage stage;
        EXPECT_EQ(documents(), home.path("Documents"));
    }
    EXPECT_STREQ(std::getenv("ZARNIC_HOME"), home.path().c_str());
    EXPECT_TRUE(std::filesystem::exists(home.path("Documents")));
}
