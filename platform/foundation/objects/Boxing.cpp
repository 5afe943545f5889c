#include "zarnic/platform/foundation/Boxing.h"

namespace zn {

bool Boxing<std::string>::unbox(const Value& value, std::string& text) {
    if (value.isString())
        text = value.string();
    else if (value.isNumber())
        text = value.stringValue();
    else if (detail::isNothing(value))
        text.clear();
    else
        return false;
    return true;
}

bool Boxing<std::vector<std::byte>>::unbox(const Value& value, std::vector<std::byte>& data) {
    if (!value.isData() && !detail::isNothing(value))
        return false;
    const auto bytes = value.bytes();
    data.assign(bytes.begin(), bytes.end());
    return true;
}

bool Boxing<Array>::unbox(const Value& value, Array& array) {
    if (!value.isArray() && !detail::isNothing(value))
        return false;
    array = value.isArray() ? value.array() : Array();
    return true;
}

bool Boxing<Dictionary>::unbox(const Value& value, Dictionary& dictionary) {
    if (!value.isDictionary() && !detail::isNothing(value))
        return false;
    dictionary = value.isDictionary() ? value.dictionary() : Dictionary();
    return true;
}

}  // namespace zn
