#include "zarnic/platform/foundation/NSLocale.h"

#include <gmock/gmock.h>

#include <cstdlib>

namespace zn {
namespace {

using Names = std::vector<std::string>;

TEST(NSLocale, localeNamesAsLanguageTags) {
    const struct {
        const char* locale;
        const char* tag;
    } cases[] = {
        {"en_US.UTF-8", "en-US"},
        {"en", "en"},
        {"zh_CN.GB18030", "zh-Hans-CN"},
        {"zh_TW", "zh-Hant-TW"},
        {"zh_HK.UTF-8", "zh-Hant-HK"},
        {"zh", "zh-Hans"},
        {"sr_RS@latin", "sr-Latn-RS"},
        {"uz_UZ.UTF-8@cyrillic", "uz-Cyrl-UZ"},
        {"de_AT@euro", "de-AT"},
        {"ast_ES", "ast-ES"},
        {"C", ""},
        {"C.UTF-8", ""},
        {"POSIX", ""},
        {"", ""},
        {"!", ""},
    };
    for (const auto& each : cases)
        EXPECT_EQ(languageTag(each.locale), each.tag) << each.locale;
}

TEST(NSLocale, theEnvironmentSaysWhichLanguages) {
    const struct {
        const char* language;
        const char* all;
        const char* messages;
        const char* lang;
        Names expected;
    } cases[] = {
        {nullptr, nullptr, nullptr, nullptr, {"en"}},
        {nullptr, nullptr, nullptr, "fr_FR.UTF-8", {"fr-FR"}},
        {nullptr, nullptr, "de_DE", "fr_FR", {"de-DE"}},
        {nullptr, "it_IT", "de_DE", "fr_FR", {"it-IT"}},
        {nullptr, "", "", "fr_FR", {"fr-FR"}},
        {"zh_CN:en_GB", nullptr, nullptr, "fr_FR", {"zh-Hans-CN", "en-GB", "fr-FR"}},
        {"fr:fr_FR::nonsense!:de", nullptr, nullptr, "fr_FR", {"fr", "fr-FR", "de"}},
        // The plain locale means what the program says itself: no list is asked.
        {"zh_CN", nullptr, nullptr, "C.UTF-8", {"en"}},
        {"zh_CN", "C", nullptr, "fr_FR", {"en"}},
    };
    for (const auto& each : cases) {
        const std::pair<const char*, const char*> variables[] = {{"LANGUAGE", each.language},
                                                                 {"LC_ALL", each.all},
                                                                 {"LC_MESSAGES", each.messages},
                                                                 {"LANG", each.lang}};
        for (const auto& [name, value] : variables)
            value != nullptr ? setenv(name, value, 1) : unsetenv(name);
        EXPECT_EQ(preferredLanguages(), each.expected) << testing::PrintToString(each.expected);
    }
}

TEST(NSLocale, theBestLocalizationsForTheLanguages) {
    const struct {
        Names localizations;
        Names languages;
        const char* region;
        Names expected;
    } cases[] = {
        {{"en", "zh-Hans"}, {"zh-Hans-CN"}, "en", {"zh-Hans"}},
        {{"en", "zh_CN"}, {"zh-Hans-CN"}, "en", {"zh_CN"}},
        {{"en", "zh-Hant"}, {"zh-Hans-CN"}, "en", {"en"}},
        {{"en", "zh-TW"}, {"zh-Hant-HK"}, "en", {"zh-TW"}},
        {{"en", "zh-Hant", "zh-HK"}, {"zh-Hant-HK"}, "en", {"zh-HK", "zh-Hant"}},
        {{"English", "German"}, {"de-AT"}, "English", {"German"}},
        {{"en", "en-GB"}, {"en-IN"}, "en", {"en-GB", "en"}},
        {{"en", "en-GB"}, {"en-US"}, "en", {"en"}},
        {{"es", "es-419"}, {"es-MX"}, "en", {"es-419", "es"}},
        {{"pt", "pt-PT"}, {"pt-AO"}, "en", {"pt-PT", "pt"}},
        {{"fr", "de"}, {"ja", "de"}, "fr", {"de"}},
        {{"fr", "de"}, {"ja"}, "fr", {"fr"}},
        {{"de", "en"}, {"ja"}, "fr", {"en"}},
        {{"de", "it"}, {"ja"}, "", {"de"}},
        {{"Base", "de"}, {"ja"}, "", {"Base"}},
        {{}, {"ja"}, "de", {"en"}},
    };
    for (const auto& each : cases)
        EXPECT_EQ(preferredLocalizations(each.localizations, each.languages, each.region),
                  each.expected)
            << testing::PrintToString(each.localizations) << " for " << each.languages.front();
}

}  // namespace
}  // namespace zn
