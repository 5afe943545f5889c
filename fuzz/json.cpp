// Reads hostile JSON. What reads is written in each form, and what was written reads as equal
// again.

#include <cstdint>
#include <cstdlib>

#include "platform/foundation/json/JSONWriter.h"
#include "zarnic/platform/foundation/NSJSONSerialization.h"

namespace {

using zn::Value;

Value read(std::span<const std::byte> bytes, zn::Ref<zn::NSError>* error = nullptr) {
    return zn::NSJSONSerialization::JSONObjectWithData(
        bytes, zn::NSJSONReadingOptions::MutableContainers, error);
}

void require(bool condition) {
    if (!condition)
        std::abort();
}

std::string written(const Value& value, zn::JSONLayout layout) {
    zn::JSONWriter writer(layout);
    require(writer.write(value));
    return std::string(writer.text());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    zn::Ref<zn::NSError> error;
    const Value value = read(std::as_bytes(std::span(data, size)), &error);
    require(value.absent() == (error != nullptr));
    if (value.absent()) {
        const auto& byte = error->userInfo()[zn::NSJSONSerializationErrorIndex];
        require(byte.unsignedLongLongValue() <= size);
        return 0;
    }
    const std::string compact = written(value, zn::JSONLayout::Compact);
    std::string pretty = written(value, zn::JSONLayout::Pretty);
    require(read(std::as_bytes(std::span(compact))) == value);
    require(read(std::as_bytes(std::span(pretty))) == value);
    std::erase_if(pretty, [](char byte) { return byte == ' ' || byte == '\n'; });
    require(written(value, zn::JSONLayout::Stripped) == pretty);
    return 0;
}
