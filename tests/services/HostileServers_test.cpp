#include <gtest/gtest.h>

#include <cstdlib>

#include "platform/services/linux/LinuxHttpTransport.h"
#include "tests/support/HostileServer.h"

using namespace zn;

namespace {

constexpr double impatience = 0.3;
constexpr double patience = 30;

class HostileServersTest : public testing::Test {
protected:
    HostileServersTest() {
        setenv("no_proxy", "*", 1);
        transport->setLargestBody(1 << 20);
    }

    Value body(const std::string& path, double idleTimeout) const {
        return transport->get({server.url(path), idleTimeout});
    }
    std::string text(const std::string& path) const {
        const Value data = body(path, patience);
        return {reinterpret_cast<const char*>(data.bytes().data()), data.bytes().size()};
    }

    const HostileServer server{"the good body"};
    const Ref<LinuxHttpTransport> transport = make<LinuxHttpTransport>();
};

}  // namespace

TEST_F(HostileServersTest, whatEndsBadlyIsAbsentAndHarmsNothing) {
    for (const auto* path :
         {"/reset", "/reset-midway", "/truncated", "/chunk-cut-short", "/endless", "/endless-heads",
          "/endless-head", "/endless-promises", "/announces/2000000",
          "/announces/18446744073709551615", "/redirect-loop", "/redirect-to-file",
          "/redirect-to-ftp", "/garbage", "/wrong-gzip", "/nothing-at-all"}) {
        EXPECT_TRUE(body(path, patience).absent()) << path;
        EXPECT_EQ(text("/good"), "the good body") << path;
    }
}

TEST_F(HostileServersTest, whatFallsSilentIsGivenUp) {
    for (const auto* path : {"/stall", "/stall-midway", "/drip/60000", "/announces/1000"})
        EXPECT_TRUE(body(path, impatience).absent()) << path;
    EXPECT_EQ(text("/good"), "the good body");
}

TEST_F(HostileServersTest, slownessIsNoSilence) {
    const Value slow = body("/drip/100", 1);
    EXPECT_EQ(slow.bytes().size(), server.goodBody().size());
}

TEST_F(HostileServersTest, whatIsWholeIsGivenWhateverItIs) {
    EXPECT_EQ(text("/page").substr(0, 9), "<!DOCTYPE");
    EXPECT_EQ(text("/missing"), text("/page"));
    EXPECT_EQ(text("/until-closed"), "the good body");
    EXPECT_EQ(text("/redirect-to-good"), "the good body");
    EXPECT_TRUE(body("/empty", patience).isData());
    EXPECT_TRUE(body("/empty", patience).bytes().empty());
}

TEST_F(HostileServersTest, aKeptConnectionThatIsGoneIsMadeAgain) {
    for (int turn = 0; turn < 20; ++turn)
        EXPECT_EQ(text("/good-and-gone"), "the good body");
    EXPECT_EQ(server.requestCount(), 20);
}
