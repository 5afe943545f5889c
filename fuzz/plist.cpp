// Reads hostile property lists. What reads must also describe and copy itself, and read the same
// after it was written.

#include <cstdint>
#include <cstdlib>

#include "zarnic/platform/foundation/NSPropertyListSerialization.h"
#include "zarnic/platform/foundation/Value.h"

using zn::NSPropertyListFormat;
using zn::Value;

namespace {

Value rewritten(const Value& list, NSPropertyListFormat format) {
    const Value data = zn::NSPropertyListSerialization::dataWithPropertyList(list, format);
    return zn::NSPropertyListSerialization::propertyListWithData(data.bytes());
}

void require(bool truth) {
    if (!truth)
        std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Value list =
        zn::NSPropertyListSerialization::propertyListWithData(std::as_bytes(std::span(data, size)));
    if (list.absent())
        return 0;
    require(list.mutableCopy().description() == list.description());
    require(rewritten(list, NSPropertyListFormat::Binary) == list);
    // XML cannot say everything; what it says is the same whenever it is written.
    const Value xml = rewritten(list, NSPropertyListFormat::XML);
    require(xml.absent() || rewritten(xml, NSPropertyListFormat::XML) == xml);
    return 0;
}
