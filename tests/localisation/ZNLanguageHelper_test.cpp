#include "zarnic/ZNLanguageHelper.h"

#include <gmock/gmock.h>

#include <atomic>
#include <cstdlib>
#include <thread>

#include "tests/support/TemporaryFolder.h"
#include "zarnic/platform/foundation/NSLog.h"
#include "zarnic/platform/foundation/NSUserDefaults.h"

namespace zn {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Table = ZNLanguageHelper::LanguageTable;

constexpr const char* codeKey = "ZNLanguageHelper_ZNLanguageCode_Key";
constexpr const char* nameKey = "ZNLanguageHelper_ZNLanguageString_Key";

/// An application in English and Chinese on a Chinese device, which has never run.
class ZNLanguageHelperTest : public testing::Test {
protected:
    ZNLanguageHelperTest() {
        setenv("ZARNIC_BUNDLE", bundle.path().c_str(), 1);
        setenv("ZARNIC_HOME", home.path().c_str(), 1);
        setenv("LC_ALL", "zh_CN.UTF-8", 1);
        unsetenv("LANGUAGE");
        bundle.write("en.lproj/Texts.strings", "hello = \"Hello\"; empty = \"\";");
        bundle.write("zh-Hans.lproj/Texts.strings", "\"hello\" = \"你好\";");
        setLogSink([this](std::string_view line) { log.emplace_back(line); });
    }
    ~ZNLanguageHelperTest() override { setLogSink({}); }

    std::vector<std::string> logged() { return std::exchange(log, {}); }
    static Value stored(const char* key) {
        return NSUserDefaults::standardUserDefaults()->objectForKey(key);
    }
    static void store(const Value& code, const Value& name) {
        NSUserDefaults::standardUserDefaults()->setObject(code, codeKey);
        NSUserDefaults::standardUserDefaults()->setObject(name, nameKey);
    }

    TemporaryFolder bundle;
    TemporaryFolder home;
    std::vector<std::string> log;
};

TEST_F(ZNLanguageHelperTest, theFirstStartFollowsTheDevice) {
    ZNLanguageHelper::InitLanguageHelper("");
    EXPECT_EQ(ZNLanguageHelper::AppLanguage(), std::nullopt);
    ZNLanguageHelper::InitLanguageHelper("Texts");
    ZNLanguageHelper::InitLanguageHelper("Others");
    EXPECT_EQ(ZNLanguageHelper::SharedInstance()->tableName(), "Texts");
    EXPECT_EQ(ZNLanguageHelper::AppLanguage(), (Table{{-1, "zh-Hans"}, {0, "en"}, {1, "zh-Hans"}}));
    EXPECT_EQ(ZNLanguageHelper::LanguageCode(), -1);
    EXPECT_EQ(stored(codeKey), Value(-1));
    EXPECT_EQ(stored(nameKey), Value("zh-Hans"));
    EXPECT_EQ(ZNLanguageHelper::GetStringByKey("hello"), "你好");
    EXPECT_EQ(ZNLanguageHelper::LanguageCodeViaKey("zh-Hans"), 1);
    EXPECT_EQ(ZNLanguageHelper::LanguageCodeViaKey("en"), 0);
    EXPECT_EQ(ZNLanguageHelper::LanguageCodeViaKey("fr"), -1);
}

TEST_F(ZNLanguageHelperTest, aChoiceIsLoadedStoredAndTold) {
    ZNLanguageHelper::InitLanguageHelper("Texts");
    int told = 0;
    ZNLanguageHelper::SetAppLanguageViaCode(0, [&] {
        ++told;
        EXPECT_EQ(ZNLanguageHelper::GetStringByKey("hello"), "Hello");
    });
    EXPECT_EQ(told, 1);
    EXPECT_EQ(ZNLanguageHelper::LanguageCode(), 0);
    EXPECT_EQ(stored(codeKey), Value(0));
    EXPECT_EQ(stored(nameKey), Value("en"));
    EXPECT_EQ(ZNLanguageHelper::GetStringByKey("missing"), "missing");
    EXPECT_EQ(ZNLanguageHelper::GetStringByKey("empty"), "");
    logged();
    ZNLanguageHelper::SetAppLanguageViaCode(7, [&] { ++told; });
    EXPECT_THAT(logged(), ElementsAre("【ZNLanguageHelper】该语言类型码不存在！"));
    EXPECT_EQ(told, 1);
    ZNLanguageHelper::SetAppLanguageViaCode(-1, {});
    EXPECT_EQ(ZNLanguageHelper::GetStringByKey("hello"), "你好");
    EXPECT_EQ(stored(nameKey), Value("zh-Hans"));
    EXPECT_THAT(logged(), IsEmpty());
}

TEST_F(ZNLanguageHelperTest, theNextProcessFindsTheChoice) {
    EXPECT_EXIT(
        {
            ZNLanguageHelper::InitLanguageHelper("Texts");
            ZNLanguageHelper::SetAppLanguageViaCode(0, {});
            std::exit(0);
        },
        testing::ExitedWithCode(0), "");
    ZNLanguageHelper::InitLanguageHelper("Texts");
    EXPECT_EQ(ZNLanguageHelper::LanguageCode(), 0);
    EXPECT_EQ(ZNLanguageHelper::GetStringByKey("hello"), "Hello");
}

TEST_F(ZNLanguageHelperTest, aStoredChoiceThatNoLanguageHasIsReplaced) {
    store(5, "de");
    ZNLanguageHelper::InitLanguageHelper("Texts");
    EXPECT_EQ(ZNLanguageHelper::LanguageCode(), -1);
    EXPECT_EQ(stored(codeKey), Value(-1));
    EXPECT_EQ(stored(nameKey), Value("zh-Hans"));
}

/// Only that there is a name counts, and a number may be a text.
TEST_F(ZNLanguageHelperTest, theStoredNumberDecidesNotTheStoredName) {
    store("0", "zh-Hans");
    ZNLanguageHelper::InitLanguageHelper("Texts");
    EXPECT_EQ(ZNLanguageHelper::LanguageCode(), 0);
    EXPECT_EQ(ZNLanguageHelper::GetStringByKey("hello"), "Hello");
    EXPECT_EQ(stored(nameKey), Value("zh-Hans")) << "nothing is written";
}

TEST_F(ZNLanguageHelperTest, beforeTheInitialisationEachCallSaysSo) {
    const std::string notInitialised = "【ZNLanguageHelper】未初始化！";
    int told = 0;
    EXPECT_EQ(ZNLanguageHelper::AppLanguage(), std::nullopt);
    EXPECT_EQ(ZNLanguageHelper::LanguageCodeViaKey("en"), -1);
    EXPECT_EQ(ZNLanguageHelper::LanguageCode(), -1);
    EXPECT_EQ(ZNLanguageHelper::GetStringByKey("hello"), "hello");
    ZNLanguageHelper::SetAppLanguageViaCode(0, [&] { ++told; });
    EXPECT_EQ(logged(), std::vector<std::string>(5, notInitialised));

    // An instance made by hand counts as the initialisation, with nothing loaded.
    EXPECT_EQ(ZNLanguageHelper::SharedInstance()->languageCode(), 0);
    ZNLanguageHelper::InitLanguageHelper("Texts");
    EXPECT_EQ(ZNLanguageHelper::AppLanguage(), std::nullopt);
    EXPECT_EQ(ZNLanguageHelper::GetStringByKey("hello"), "hello");
    EXPECT_THAT(logged(), IsEmpty());
    ZNLanguageHelper::SetAppLanguageViaCode(0, [&] { ++told; });
    EXPECT_THAT(logged(), ElementsAre("【ZNLanguageHelper】语言文件未本地化！"));
    EXPECT_EQ(told, 0);
}

TEST_F(ZNLanguageHelperTest, anApplicationWithoutLanguagesShowsItsKeys) {
    std::filesystem::remove_all(bundle.path("en.lproj"));
    std::filesystem::remove_all(bundle.path("zh-Hans.lproj"));
    ZNLanguageHelper::InitLanguageHelper("Texts");
    EXPECT_EQ(ZNLanguageHelper::AppLanguage(), Table{});
    EXPECT_EQ(ZNLanguageHelper::LanguageCode(), -1);
    EXPECT_EQ(ZNLanguageHelper::GetStringByKey("hello"), "hello");
}

TEST_F(ZNLanguageHelperTest, onlyTheLanguageIsKeptExceptOfChinese) {
    const std::pair<const char*, const char*> cases[] = {{"en-US", "en"},
                                                         {"pt-BR", "pt"},
                                                         {"en", "en"},
                                                         {"", ""},
                                                         {"zh-Hant-TW", "zh-Hant-TW"},
                                                         {"zh-Hans", "zh-Hans"},
                                                         {"-x", ""},
                                                         {"sr-Latn-RS", "sr"}};
    for (const auto& [language, expected] : cases)
        EXPECT_EQ(ZNLanguageHelper::LanguageFormat(language), expected) << language;
}

TEST_F(ZNLanguageHelperTest, aLookUpWhileAnotherThreadSwitchesIsOldOrNew) {
    ZNLanguageHelper::InitLanguageHelper("Texts");
    std::atomic<bool> stop = false;
    std::atomic<int> torn = 0;
    std::thread reader([&] {
        while (!stop) {
            const std::string text = ZNLanguageHelper::GetStringByKey("hello");
            if (text != "Hello" && text != "你好")
                ++torn;
        }
    });
    for (int turn = 0; turn < 100; ++turn)
        ZNLanguageHelper::ResetBundle(turn % 2 == 0 ? "en" : "zh-Hans");
    stop = true;
    reader.join();
    EXPECT_EQ(torn, 0);
}

}  // namespace
}  // namespace zn
