// Reads hostile tables of texts. What reads must read the same after it was written.

#include <cstdlib>
#include <string>

#include "platform/foundation/bundle/StringsParser.h"
#include "zarnic/platform/foundation/NSString.h"

namespace {

using zn::StringsTable;

void write(std::string& text, std::string_view value) {
    text += '"';
    for (const char each : value) {
        if (each == '"' || each == '\\')
            text += '\\';
        text += each;
    }
    text += '"';
}

std::string written(const std::vector<StringsTable::Entry>& entries) {
    std::string text;
    for (const auto& [key, value] : entries) {
        write(text, key);
        text += '=';
        write(text, value);
        text += ';';
    }
    return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    std::string error;
    const StringsTable table(bytes, error);
    if (!zn::isValidUTF8(bytes))
        return 0;
    std::string text = bytes;
    std::vector<StringsTable::Entry> entries, again;
    if (!zn::StringsParser(text.data(), text.data() + text.size()).read(entries))
        return 0;
    std::string copy = written(entries);
    if (!zn::StringsParser(copy.data(), copy.data() + copy.size()).read(again) ||
        written(again) != written(entries))
        std::abort();
    return 0;
}
