#pragma once

#include <span>
#include <string>
#include <string_view>

#include "zarnic/platform/foundation/NSJSONSerialization.h"

/// What the tests of JSON share.
namespace zn {

inline Value read(std::string_view text, NSJSONReadingOptions options = NSJSONReadingOptions::None,
                  Ref<NSError>* error = nullptr) {
    return NSJSONSerialization::JSONObjectWithData(std::as_bytes(std::span(text)), options, error);
}

inline Value readItem(std::string_view text) {
    const Value value = read("[" + std::string(text) + "]");
    return value.isArray() && value.array().count() == 1 ? value.array()[0] : Value();
}

inline std::string written(const Value& value,
                           NSJSONWritingOptions options = NSJSONWritingOptions::None) {
    const Value data = NSJSONSerialization::dataWithJSONObject(value, options);
    return {reinterpret_cast<const char*>(data.bytes().data()), data.bytes().size()};
}

inline std::string repeated(std::string_view text, std::size_t times) {
    std::string result;
    while (times-- > 0)
        result += text;
    return result;
}

inline Value nested(std::size_t depth) {
    Value value = Array{};
    while (--depth > 0)
        value = Array{value};
    return value;
}

}  // namespace zn
