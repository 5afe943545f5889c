#include "zarnic/platform/foundation/NSPropertyListSerialization.h"

#include <plist/plist.h>

#include <cstdlib>
#include <memory>

#include "platform/foundation/files/FileBytes.h"
#include "platform/foundation/plist/PropertyListBinaryReader.h"
#include "platform/foundation/plist/PropertyListWriters.h"
#include "platform/foundation/plist/PropertyListXmlGuard.h"
#include "zarnic/platform/foundation/NSString.h"

namespace zn {
namespace {

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};

struct FreeList {
    void operator()(void* list) const { plist_free(list); }
};

/// The library's own values lose the sign of large integers and the seconds of far dates; the
/// binary form that it makes of them does not. It shortens reals, though, and repairs texts.
Value readXmlPropertyList(std::string_view text) {
    if (text.size() > 0xFFFFFFFF || !isValidUTF8(text) || !xmlPropertyListIsBounded(text))
        return {};
    plist_t parsed = nullptr;
    plist_from_xml(text.data(), static_cast<std::uint32_t>(text.size()), &parsed);
    const std::unique_ptr<void, FreeList> list(parsed);
    if (!list)
        return {};
    char* bytes = nullptr;
    std::uint32_t length = 0;
    plist_to_bin(list.get(), &bytes, &length);
    const std::unique_ptr<char, Free> binary(bytes);
    return binary ? readBinaryPropertyList({bytes, length}, ShortReal::Double) : Value();
}

}  // namespace

Value NSPropertyListSerialization::propertyListWithData(std::span<const std::byte> data) {
    std::string_view bytes(reinterpret_cast<const char*>(data.data()), data.size());
    if (bytes.starts_with("bplist"))
        return readBinaryPropertyList(bytes, ShortReal::Float);
    if (bytes.starts_with("\xEF\xBB\xBF"))
        bytes.remove_prefix(3);
    return bytes.empty() ? Value() : readXmlPropertyList(bytes);
}

Value NSPropertyListSerialization::propertyListWithContentsOfFile(std::string_view path) {
    const auto bytes = fileBytes(path);
    return bytes ? propertyListWithData(std::as_bytes(std::span(*bytes))) : Value();
}

Value NSPropertyListSerialization::dataWithPropertyList(const Value& plist,
                                                        NSPropertyListFormat format) {
    const auto bytes =
        format == NSPropertyListFormat::XML ? xmlPropertyList(plist) : binaryPropertyList(plist);
    return bytes ? Value::data(std::as_bytes(std::span(*bytes))) : Value();
}

}  // namespace zn
