#include "platform/foundation/bundle/StringsTable.h"

#include <unicode/unistr.h>

#include <bit>
#include <functional>
#include <span>

#include "platform/foundation/bundle/StringsParser.h"
#include "zarnic/platform/foundation/NSPropertyListSerialization.h"
#include "zarnic/platform/foundation/NSString.h"

namespace zn {
namespace {

constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";

std::string decoded(std::string_view bytes, const char* encoding) {
    std::string text;
    icu::UnicodeString(bytes.data(), static_cast<std::int32_t>(bytes.size()), encoding)
        .toUTF8String(text);
    return text;
}

/// By the mark at the beginning, else UTF-8, else UTF-16 of the order in which the zero bytes are
/// where those of Latin text would be.
std::string asUTF8(std::string bytes) {
    if (bytes.starts_with(utf8Mark))
        return bytes.substr(utf8Mark.size());
    if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF"))
        return decoded(bytes, "UTF-16");
    if (isValidUTF8(bytes) && bytes.find('\0') == bytes.npos)
        return bytes;
    return decoded(bytes, bytes.find('\0') % 2 == 0 ? "UTF-16BE" : "UTF-16LE");
}

bool isPropertyList(std::string_view bytes) {
    const std::string_view text = stringByTrimmingWhitespaceAndNewlines(bytes.substr(0, 256));
    return bytes.starts_with("bplist") || text.starts_with("<?xml") ||
           text.starts_with("<!DOCTYPE") || text.starts_with("<plist");
}

std::size_t hashOf(std::string_view key) {
    return std::hash<std::string_view>()(key);
}

}  // namespace

StringsTable::StringsTable(std::string bytes, std::string& error) {
    if (isPropertyList(bytes)) {
        readPropertyList(bytes, error);
    } else {
        text_ = asUTF8(std::move(bytes));
        StringsParser parser(text_.data(), text_.data() + text_.size());
        if (!parser.read(entries_)) {
            error = parser.error();
            entries_.clear();
        }
    }
    index();
}

std::optional<std::string_view> StringsTable::find(std::string_view key) const noexcept {
    const std::size_t mask = slots_.size() - 1;
    for (std::size_t slot = hashOf(key) & mask; slots_[slot] != 0; slot = (slot + 1) & mask) {
        const Entry& entry = entries_[slots_[slot] - 1];
        if (entry.key == key)
            return entry.value;
    }
    return std::nullopt;
}

void StringsTable::readPropertyList(std::string_view bytes, std::string& error) {
    plist_ = NSPropertyListSerialization::propertyListWithData(std::as_bytes(std::span(bytes)));
    if (!plist_.isDictionary()) {
        error = "no property list of texts";
        return;
    }
    for (const auto& [key, value] : plist_.dictionary()) {
        if (value.isString())
            entries_.push_back({key, value.string()});
    }
}

/// At most half of the slots are taken. A key that comes again takes over its slot.
void StringsTable::index() {
    const std::size_t mask = std::bit_ceil(entries_.size() * 2 + 1) - 1;
    slots_.assign(mask + 1, 0);
    for (std::size_t place = 0; place < entries_.size(); ++place) {
        std::size_t slot = hashOf(entries_[place].key) & mask;
        while (slots_[slot] != 0 && entries_[slots_[slot] - 1].key != entries_[place].key)
            slot = (slot + 1) & mask;
        slots_[slot] = static_cast<std::uint32_t>(place + 1);
    }
}

}  // namespace zn
