#include "zarnic/platform/foundation/NSJSONSerialization.h"

#include <algorithm>
#include <cmath>

#include "platform/foundation/json/JSONReader.h"
#include "platform/foundation/json/JSONText.h"
#include "platform/foundation/json/JSONWriter.h"
#include "zarnic/platform/foundation/NSException.h"

namespace zn {
namespace {

/// Line and column, from 1, of what follows these characters.
std::string placeAfter(std::string_view characters) {
    const auto lines = std::count(characters.begin(), characters.end(), '\n');
    const auto line = characters.substr(characters.rfind('\n') + 1);
    const auto column =
        std::count_if(line.begin(), line.end(), [](char byte) { return (byte & 0xC0) != 0x80; });
    return "line " + std::to_string(lines + 1) + ", column " + std::to_string(column + 1);
}

Ref<NSError> readingError(const JSONFault& fault, std::string_view text,
                          const JSONEncoding& encoding) {
    const auto before = text.substr(0, fault.offset);
    return NSError::errorWithDomain(
        NSCocoaErrorDomain, NSPropertyListReadCorruptError,
        {{NSDebugDescriptionErrorKey, fault.text + (" at " + placeAfter(before)) + "."},
         {NSJSONSerializationErrorIndex, encoding.markLength + encodedLength(before, encoding)}});
}

void report(Ref<NSError>* place, const Ref<NSError>& error) {
    if (place != nullptr)
        *place = error;
}

}  // namespace

Value NSJSONSerialization::JSONObjectWithData(std::span<const std::byte> data,
                                              NSJSONReadingOptions options, Ref<NSError>* error) {
    const std::string_view bytes(reinterpret_cast<const char*>(data.data()), data.size());
    const auto encoding = JSONEncoding::of(bytes);
    std::string_view text = bytes.substr(encoding.markLength);
    std::string converted;
    try {
        if (encoding.unitLength != 1) {
            appendUnits(converted, std::exchange(text, {}), encoding);
            text = converted;
        }
        return JSONReader(text, options).read();
    } catch (const JSONFault& fault) {
        report(error, readingError(fault, encoding.unitLength == 1 ? text : converted, encoding));
        return {};
    }
}

Value NSJSONSerialization::JSONObjectWithData(const Value& data, NSJSONReadingOptions options,
                                              Ref<NSError>* error) {
    if (!data.isData())
        throw NSException(NSInvalidArgumentException, "JSON is read from data only");
    return JSONObjectWithData(data.bytes(), options, error);
}

Value NSJSONSerialization::dataWithJSONObject(const Value& object, NSJSONWritingOptions options,
                                              Ref<NSError>* error) {
    JSONWriter writer(options == NSJSONWritingOptions::PrettyPrinted ? JSONLayout::Pretty
                                                                     : JSONLayout::Compact);
    if (!writer.write(object)) {
        report(error, writer.error());
        return {};
    }
    return Value::data(std::as_bytes(std::span(writer.text())));
}

bool NSJSONSerialization::isValidJSONObject(const Value& object) {
    return isWritableJSON(object);
}

}  // namespace zn
