#include "zarnic/ZNImageHelper.h"

#include <gmock/gmock.h>

#include <limits>
#include <set>

#include "zarnic/testing/Stage.h"

namespace zn {
namespace {

class ZNImageHelperTest : public testing::Test {
protected:
    Stage stage;
};

TEST_F(ZNImageHelperTest, beginsWithItsDefaults) {
    const auto helper = ZNImageHelper::SharedInstance();
    const Dictionary& settings = helper->configSettings();
    EXPECT_EQ(settings.allKeys(),
              (std::vector<std::string>{"logEnable", "cachesMaxSize", "threadMaxNum"}));
    EXPECT_EQ(settings["logEnable"].kind(), Value::Kind::Boolean);
    EXPECT_EQ(settings["cachesMaxSize"].kind(), Value::Kind::Float);
    EXPECT_EQ(settings["cachesMaxSize"], Value(40'000'000));
    EXPECT_EQ(settings["threadMaxNum"], Value(8));
    EXPECT_FALSE(helper->logEnable());
    EXPECT_EQ(helper->memoryMaxSize(), 40'000'000);
    EXPECT_EQ(helper->memorySize(), 0);
    EXPECT_EQ(helper->downloadThreadMaxNum(), 8);
}

TEST_F(ZNImageHelperTest, eightNamedThreadsRunAndSaySo) {
    ZNImageHelper::SharedInstance();
    stage.settle();
    ZNImageHelper::ConfigSettings(Dictionary{{"logEnable", 1}, {"threadMaxNum", 2}});
    // Threads without work look for some now and then, so nothing that is queued stays for ever.
    stage.advance(5);
    std::multiset<std::string> names;
    for (const std::string& line : stage.takeLog()) {
        EXPECT_TRUE(line.starts_with("*****【ZNImageHelper】downloadThreadRun:start:<NSThread: "));
        names.insert(line.substr(line.find("name = ") + 7));
    }
    std::multiset<std::string> expected;
    for (int number = 1; number <= 8; ++number)
        expected.insert("ZNImageHelperDownloadThread:" + std::to_string(number) + "(max:8)}");
    EXPECT_EQ(names, expected);
}

TEST_F(ZNImageHelperTest, whatIsNoSettingsGivesACopy) {
    for (const Value& nothing : {Value(), Value::null(), Value("logEnable"), Value(Array{1}),
                                 Value(Dictionary()), Value(Dictionary().copy())}) {
        const Value answer = ZNImageHelper::ConfigSettings(nothing);
        EXPECT_FALSE(answer.dictionary().isMutable());
        EXPECT_EQ(answer, Value(ZNImageHelper::SharedInstance()->configSettings()));
    }
}

TEST_F(ZNImageHelperTest, settingsAreTakenOneByOneAsTheyAre) {
    constexpr std::int64_t budget = 40'000'000;
    struct Case {
        Dictionary settings;
        bool log;
        std::int64_t size;
        std::int32_t threads;
    };
    const Case cases[] = {
        {{{"cachesMaxSize", "5"}, {"logEnable", "1"}}, false, budget, 8},
        {{{"cachesMaxSize", Value::null()}, {"unknown", 1}}, false, budget, 8},
        {{{"logEnable", true}}, true, budget, 8},
        {{{"logEnable", 0.5}, {"cachesMaxSize", 7.9}}, false, 7, 8},
        {{{"logEnable", -1}, {"cachesMaxSize", 0}, {"threadMaxNum", 0}}, true, 0, 0},
        {{{"cachesMaxSize", -3}, {"threadMaxNum", -2.5F}}, true, -3, -2},
        {{{"cachesMaxSize", 1e30F}}, true, std::numeric_limits<std::int64_t>::max(), -2},
        {{{"cachesMaxSize", std::numeric_limits<double>::quiet_NaN()}}, true, 0, -2},
    };
    const auto helper = ZNImageHelper::SharedInstance();
    for (const Case& each : cases) {
        SCOPED_TRACE(Value(each.settings).description());
        const Value answer = ZNImageHelper::ConfigSettings(each.settings);
        EXPECT_TRUE(answer.dictionary().identical(helper->configSettings()));
        EXPECT_EQ(helper->logEnable(), each.log);
        EXPECT_EQ(helper->memoryMaxSize(), each.size);
        EXPECT_EQ(helper->downloadThreadMaxNum(), each.threads);
        EXPECT_FALSE(answer.dictionary().contains("unknown"));
    }
    EXPECT_EQ(helper->configSettings()["threadMaxNum"].kind(), Value::Kind::Float);
}

}  // namespace
}  // namespace zn
