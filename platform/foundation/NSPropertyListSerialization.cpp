#include "zarnic/platform/NSPropertyListSerialization.h"

#include <plist/plist.h>

#include <cstdlib>
#include <memory>
#include <optional>

#include "platform/foundation/FileBytes.h"
#include "platform/foundation/PropertyListGuard.h"
#include "zarnic/platform/NSDate.h"
#include "zarnic/platform/NSString.h"

namespace zn {
namespace {

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};

struct FreeList {
    void operator()(void* list) const { plist_free(list); }
};

using List = std::unique_ptr<void, FreeList>;
template <class T>
using Allocated = std::unique_ptr<T, Free>;

constexpr double secondsFrom1970To2001 = 978307200;

Value valueOf(plist_t node);

Value arrayOf(plist_t node) {
    Array items;
    plist_array_iter position = nullptr;
    plist_array_new_iter(node, &position);
    const Allocated<void> holder(position);
    for (plist_t item = nullptr;;) {
        plist_array_next_item(node, position, &item);
        if (item == nullptr)
            return items.copy();
        Value value = valueOf(item);
        if (value.absent())
            return {};
        items.add(std::move(value));
    }
}

Value dictionaryOf(plist_t node) {
    Dictionary entries;
    plist_dict_iter position = nullptr;
    plist_dict_new_iter(node, &position);
    const Allocated<void> holder(position);
    while (true) {
        plist_t item = nullptr;
        char* key = nullptr;
        plist_dict_next_item(node, position, &key, &item);
        const Allocated<char> keyHolder(key);
        if (item == nullptr)
            return entries.copy();
        Value value = valueOf(item);
        if (key == nullptr || !isValidUTF8(key) || value.absent())
            return {};
        entries.set(key, std::move(value));
    }
}

Value textOf(plist_t node) {
    std::uint64_t length = 0;
    const char* text = plist_get_string_ptr(node, &length);
    if (text == nullptr || !isValidUTF8({text, length}))
        return {};
    return std::string_view(text, length);
}

Value bytesOf(plist_t node) {
    std::uint64_t length = 0;
    const char* bytes = plist_get_data_ptr(node, &length);
    return Value::data(std::as_bytes(std::span(bytes, bytes == nullptr ? 0 : length)));
}

Value dateOf(plist_t node) {
    std::int32_t seconds = 0;
    std::int32_t microseconds = 0;
    plist_get_date_val(node, &seconds, &microseconds);
    return NSDate::dateWithTimeIntervalSince1970(seconds + microseconds / 1e6 +
                                                 secondsFrom1970To2001);
}

template <class T>
T scalarOf(plist_t node, void (*read)(plist_t, T*)) {
    T scalar{};
    read(node, &scalar);
    return scalar;
}

/// Recursive: only for lists that passed the guard.
Value valueOf(plist_t node) {
    switch (plist_get_node_type(node)) {
        case PLIST_BOOLEAN:
            return scalarOf(node, plist_get_bool_val) != 0;
        case PLIST_UINT:
            // The library keeps negative numbers as the bits of unsigned ones.
            return static_cast<std::int64_t>(scalarOf(node, plist_get_uint_val));
        case PLIST_REAL:
            return scalarOf(node, plist_get_real_val);
        case PLIST_STRING:
            return textOf(node);
        case PLIST_DATA:
            return bytesOf(node);
        case PLIST_DATE:
            return dateOf(node);
        case PLIST_UID:
            return Dictionary{{"CF$UID", scalarOf(node, plist_get_uid_val)}}.copy();
        case PLIST_ARRAY:
            return arrayOf(node);
        case PLIST_DICT:
            return dictionaryOf(node);
        default:
            return {};
    }
}

List parsed(std::string_view bytes) {
    plist_t list = nullptr;
    const auto length = static_cast<std::uint32_t>(bytes.size());
    if (bytes.starts_with("bplist")) {
        if (binaryPropertyListIsBounded(bytes))
            plist_from_bin(bytes.data(), length, &list);
    } else if (xmlPropertyListIsBounded(bytes)) {
        plist_from_xml(bytes.data(), length, &list);
    }
    return List(list);
}

}  // namespace

Value NSPropertyListSerialization::propertyListWithData(std::span<const std::byte> data) {
    std::string_view bytes(reinterpret_cast<const char*>(data.data()), data.size());
    if (bytes.starts_with("\xEF\xBB\xBF"))
        bytes.remove_prefix(3);
    if (bytes.empty() || bytes.size() > 0xFFFFFFFF)
        return {};
    const List list = parsed(bytes);
    return list ? valueOf(list.get()) : Value();
}

Value NSPropertyListSerialization::propertyListWithContentsOfFile(std::string_view path) {
    const auto bytes = fileBytes(path);
    return bytes ? propertyListWithData(std::as_bytes(std::span(*bytes))) : Value();
}

}  // namespace zn
