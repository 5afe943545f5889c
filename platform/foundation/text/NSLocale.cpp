#include "zarnic/platform/foundation/NSLocale.h"

#include <unicode/uloc.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>

#include "platform/foundation/text/LocaleNames.h"
#include "zarnic/platform/foundation/NSString.h"

namespace zn {
namespace {

/// Names of folders from before languages had tags.
constexpr std::pair<std::string_view, std::string_view> longNames[] = {
    {"English", "en"}, {"French", "fr"},   {"German", "de"},   {"Italian", "it"},
    {"Dutch", "nl"},   {"Spanish", "es"},  {"Swedish", "sv"},  {"Norwegian", "no"},
    {"Danish", "da"},  {"Finnish", "fi"},  {"Japanese", "ja"}, {"Portuguese", "pt"},
    {"Polish", "pl"},  {"Russian", "ru"},  {"Turkish", "tr"},  {"Korean", "ko"},
    {"Arabic", "ar"},  {"Hebrew", "he"},   {"Greek", "el"},    {"Czech", "cs"},
    {"Thai", "th"},    {"Hungarian", "hu"}};

/// Regional variants whose parent is not the language itself (the parent locales of the Unicode
/// CLDR): the language, the region that has none, and the parents from near to far.
struct RegionalParents {
    std::string_view language;
    std::string_view home;
    std::array<std::string_view, 2> parents;
};
constexpr RegionalParents regionalParents[] = {
    {"en", "US", {"en-GB", "en-001"}},
    {"es", "ES", {"es-419", ""}},
    {"pt", "BR", {"pt-PT", ""}},
};

using Lookup = std::int32_t (*)(const char*, char*, std::int32_t, UErrorCode*);

std::string asked(Lookup lookup, const std::string& locale) {
    char result[ULOC_FULLNAME_CAPACITY];
    UErrorCode error = U_ZERO_ERROR;
    const auto length = lookup(locale.c_str(), result, sizeof result, &error);
    return U_FAILURE(error) ? std::string() : std::string(result, static_cast<size_t>(length));
}

std::string withHyphens(std::string text) {
    std::ranges::replace(text, '_', '-');
    return text;
}

/// The tag with the script and the region that go without saying.
std::string full(const std::string& tag) {
    const std::string result = asked(uloc_addLikelySubtags, asked(uloc_canonicalize, tag));
    return withHyphens(result.empty() ? tag : result);
}

std::string shortName(const std::string& localization) {
    const auto* found = std::ranges::find(longNames, localization,
                                          &std::pair<std::string_view, std::string_view>::first);
    return found != std::end(longNames) ? std::string(found->second) : withHyphens(localization);
}

/// A text in another script than the language's own is another language to its reader.
bool usesOwnScript(const std::string& tag) {
    return asked(uloc_getScript, full(tag)) ==
           asked(uloc_getScript, full(asked(uloc_getLanguage, tag)));
}

void addRegionalParents(const std::string& tag, std::vector<std::string>& chain) {
    const std::string language = asked(uloc_getLanguage, tag);
    const std::string region = asked(uloc_getCountry, tag);
    for (const auto& regional : regionalParents) {
        if (language != regional.language || region.empty() || region == regional.home)
            continue;
        for (const std::string_view parent : regional.parents) {
            if (!parent.empty() && parent != tag)
                chain.emplace_back(parent);
        }
    }
}

/// The language itself and its parents, near to far.
std::vector<std::string> chainOf(const std::string& language) {
    std::vector<std::string> chain{language};
    addRegionalParents(language, chain);
    const bool ownScript = usesOwnScript(language);
    const std::string code = asked(uloc_getLanguage, language);
    const std::string script = asked(uloc_getScript, full(language));
    chain.push_back(code + "-" + script);
    if (ownScript)
        chain.push_back(code);
    return chain;
}

/// The first of the locale variables that says something.
std::string_view messagesLocale() {
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const char* value = std::getenv(name);
        if (value != nullptr && *value != '\0')
            return value;
    }
    return {};
}

void addTag(std::string_view locale, std::vector<std::string>& tags) {
    const std::string tag = languageTag(locale);
    if (!tag.empty() && std::ranges::find(tags, tag) == tags.end())
        tags.push_back(tag);
}

}  // namespace

bool sameLocalization(const std::string& left, const std::string& right) {
    const std::string leftName = shortName(left);
    const std::string rightName = shortName(right);
    return leftName == rightName || full(leftName) == full(rightName);
}

std::string languageTag(std::string_view locale) {
    const std::string_view name = locale.substr(0, locale.find_first_of(".@"));
    const auto at = locale.find('@');
    const std::string_view modifier = at == locale.npos ? "" : locale.substr(at + 1);
    const std::string canonical = asked(uloc_canonicalize, std::string(name));
    const std::string language = asked(uloc_getLanguage, canonical);
    const bool isLanguage = language.size() >= 2 && std::ranges::all_of(language, [](char each) {
                                return each >= 'a' && each <= 'z';
                            });
    if (name == "C" || name == "POSIX" || !isLanguage)
        return {};
    std::string script = asked(uloc_getScript, canonical);
    if (modifier == "latin")
        script = "Latn";
    else if (modifier == "cyrillic")
        script = "Cyrl";
    else if (language == "zh" && script.empty())
        script = asked(uloc_getScript, full(canonical));
    const std::string region = asked(uloc_getCountry, canonical);
    return language + (script.empty() ? "" : "-" + script) + (region.empty() ? "" : "-" + region);
}

std::vector<std::string> preferredLanguages() {
    std::vector<std::string> tags;
    const std::string_view locale = messagesLocale();
    const char* list = std::getenv("LANGUAGE");
    if (list != nullptr && !languageTag(locale).empty()) {
        for (const std::string& language : componentsSeparatedByString(list, ":"))
            addTag(language, tags);
    }
    addTag(locale, tags);
    if (tags.empty())
        tags.emplace_back("en");
    return tags;
}

std::vector<std::string> preferredLocalizations(const std::vector<std::string>& localizations,
                                                const std::vector<std::string>& languages,
                                                std::string_view developmentRegion) {
    if (localizations.empty())
        return {"en"};
    std::vector<std::string> candidates = languages;
    candidates.emplace_back(developmentRegion);
    candidates.emplace_back("en");
    for (const std::string& language : candidates) {
        if (language.empty())
            continue;
        std::vector<std::string> found;
        for (const std::string& candidate : chainOf(language)) {
            for (const std::string& localization : localizations) {
                if (sameLocalization(localization, candidate) &&
                    std::ranges::find(found, localization) == found.end())
                    found.push_back(localization);
            }
        }
        if (!found.empty())
            return found;
    }
    return {localizations.front()};
}

}  // namespace zn
