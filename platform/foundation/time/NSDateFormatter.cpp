#include "zarnic/platform/foundation/NSDateFormatter.h"

#include <unicode/smpdtfmt.h>

#include <mutex>

#include "zarnic/platform/foundation/NSString.h"

namespace zn {
namespace {

icu::UnicodeString unicode(std::string_view text) {
    return icu::UnicodeString::fromUTF8({text.data(), static_cast<std::int32_t>(text.size())});
}

std::unique_ptr<icu::TimeZone> timeZoneNamed(const std::string& name) {
    std::unique_ptr<icu::TimeZone> zone(icu::TimeZone::createTimeZone(unicode(name)));
    const bool known = *zone != icu::TimeZone::getUnknown();
    return known ? std::move(zone) : std::unique_ptr<icu::TimeZone>(icu::TimeZone::createDefault());
}

icu::Locale localeNamed(const std::string& identifier) {
    return identifier.empty() ? icu::Locale::getDefault()
                              : icu::Locale::createCanonical(identifier.c_str());
}

/// 1950-01-01 00:00 UTC in milliseconds since 1970: where the hundred years of `yy` begin.
constexpr UDate twoDigitYearsStart = -631152000000.0;

}  // namespace

/// The ICU formatter, made again after a change of settings. It has state of its own: used under
/// the lock.
struct NSDateFormatter::State {
    icu::SimpleDateFormat* ready() {
        if (!formatter)
            formatter = create();
        return formatter.get();
    }

    std::unique_ptr<icu::SimpleDateFormat> create() const {
        UErrorCode status = U_ZERO_ERROR;
        const auto locale = localeNamed(localeIdentifier);
        auto made = std::make_unique<icu::SimpleDateFormat>(unicode(pattern), locale, status);
        if (pattern.empty() || U_FAILURE(status))
            return nullptr;
        made->adoptTimeZone(timeZoneNamed(timeZoneName).release());
        made->set2DigitYearStart(twoDigitYearsStart, status);
        // ICU's strict parsing would also refuse `1` for `MM`, which the platform takes: only the
        // literals are strict here, and the calendar is when it makes the moment.
        made->setBooleanAttribute(UDAT_PARSE_PARTIAL_LITERAL_MATCH, false, status);
        return U_SUCCESS(status) ? std::move(made) : nullptr;
    }

    std::mutex mutex;
    std::string pattern;
    std::string localeIdentifier;
    std::string timeZoneName;
    std::unique_ptr<icu::SimpleDateFormat> formatter;
};

NSDateFormatter::NSDateFormatter() : state_(std::make_unique<State>()) {}

NSDateFormatter::~NSDateFormatter() = default;

std::string NSDateFormatter::dateFormat() const {
    std::lock_guard guard(state_->mutex);
    return state_->pattern;
}

void NSDateFormatter::setDateFormat(std::string_view pattern) {
    std::lock_guard guard(state_->mutex);
    state_->pattern = pattern;
    state_->formatter = nullptr;
}

void NSDateFormatter::setLocaleIdentifier(std::string_view identifier) {
    std::lock_guard guard(state_->mutex);
    state_->localeIdentifier = identifier;
    state_->formatter = nullptr;
}

void NSDateFormatter::setTimeZoneName(std::string_view name) {
    std::lock_guard guard(state_->mutex);
    state_->timeZoneName = name;
    state_->formatter = nullptr;
}

Ref<NSDate> NSDateFormatter::dateFromString(std::string_view text) const {
    std::lock_guard guard(state_->mutex);
    const auto* formatter = state_->ready();
    if (formatter == nullptr)
        return nullptr;
    const std::unique_ptr<icu::Calendar> calendar(formatter->getCalendar()->clone());
    calendar->clear();
    calendar->set(UCAL_YEAR, 2000);
    const auto wholeText = unicode(text);
    icu::ParsePosition position(0);
    formatter->parse(wholeText, *calendar, position);
    if (position.getErrorIndex() >= 0 || position.getIndex() == 0)
        return nullptr;
    for (std::int32_t i = position.getIndex(); i < wholeText.length(); ++i) {
        if (!isWhitespaceOrNewline(wholeText[i]))
            return nullptr;
    }
    calendar->setLenient(false);
    UErrorCode status = U_ZERO_ERROR;
    const UDate milliseconds = calendar->getTime(status);
    return U_SUCCESS(status) ? make<NSDate>(milliseconds / 1000) : nullptr;
}

std::string NSDateFormatter::stringFromDate(const Ref<NSDate>& date) const {
    std::lock_guard guard(state_->mutex);
    const auto* formatter = state_->ready();
    std::string text;
    if (formatter == nullptr || date == nullptr)
        return text;
    icu::UnicodeString result;
    formatter->format(date->timeIntervalSince1970() * 1000, result);
    return result.toUTF8String(text);
}

}  // namespace zn
