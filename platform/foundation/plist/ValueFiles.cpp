#include "zarnic/platform/foundation/ValueFiles.h"

#include <string>

#include "platform/foundation/files/AtomicFile.h"
#include "platform/foundation/files/FileBytes.h"
#include "zarnic/platform/foundation/NSException.h"
#include "zarnic/platform/foundation/NSPropertyListSerialization.h"

namespace zn {
namespace {

std::string_view textOf(std::span<const std::byte> bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

bool writeBytes(std::string_view bytes, std::string_view path, bool atomically) {
    // The system's names end at a zero; nothing may be written to a shorter one.
    if (path.find('\0') != path.npos)
        return false;
    const std::string name(path);
    return atomically ? writeFileAtomically(name, bytes) : writeFileInPlace(name, bytes);
}

}  // namespace

bool writeToFile(const Value& value, std::string_view path, bool atomically) {
    switch (value.kind()) {
        case Value::Kind::Absent:
            return false;
        case Value::Kind::String:
            return writeBytes(value.string(), path, atomically);
        case Value::Kind::Data:
            return writeBytes(textOf(value.bytes()), path, atomically);
        case Value::Kind::Array:
        case Value::Kind::Dictionary: {
            const Value list =
                NSPropertyListSerialization::dataWithPropertyList(value, NSPropertyListFormat::XML);
            return !list.absent() && writeBytes(textOf(list.bytes()), path, atomically);
        }
        default:
            throw NSException(
                NSInvalidArgumentException,
                "only texts, data, arrays and dictionaries write themselves to files");
    }
}

Value dataWithContentsOfFile(std::string_view path) {
    const auto bytes = fileBytes(path);
    return bytes ? Value::data(std::as_bytes(std::span(*bytes))) : Value();
}

}  // namespace zn
