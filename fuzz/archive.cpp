// Reads hostile archives. What reads is archived again and read once more.

#include <cstdint>
#include <cstdlib>
#include <utility>
#include <vector>

#include "platform/foundation/archives/ContainerFiller.h"
#include "zarnic/platform/foundation/NSKeyedArchiver.h"
#include "zarnic/platform/foundation/NSKeyedUnarchiver.h"

using zn::Ref;
using zn::Value;

namespace {

class Node : public zn::NSObject, public zn::NSCoding {
    ZN_OBJECT(Node, zn::NSObject)
public:
    void encodeWithCoder(const Ref<zn::NSCoder>& coder) const override {
        coder->encodeObject(content, "content");
        coder->encodeObject(next, "next");
    }
    void initWithCoder(const Ref<zn::NSCoder>& coder) override {
        content = coder->decodeObjectForKey("content");
        next = coder->decodeObjectForKey("next");
    }

    Value content;
    Value next;
};
ZN_REGISTER_CLASS(Node);

/// Ends the circles of what was read, else it would stay for ever.
void dismantle(const Value& root) {
    std::vector<Value> waiting{root};
    while (!waiting.empty()) {
        const Value value = std::move(waiting.back());
        waiting.pop_back();
        if (const auto node = value.object<Node>()) {
            waiting.push_back(std::exchange(node->content, {}));
            waiting.push_back(std::exchange(node->next, {}));
        } else if (value.isArray()) {
            waiting.insert(waiting.end(), value.array().begin(), value.array().end());
            zn::ContainerFiller::clear(value);
        } else if (value.isDictionary()) {
            for (const auto& [key, item] : value.dictionary())
                waiting.push_back(item);
            zn::ContainerFiller::clear(value);
        }
    }
}

}  // namespace

/// Circles that nothing reaches any more are the archive's doing.
extern "C" const char* __asan_default_options() {
    return "detect_leaks=0";
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Ref<zn::NSError> error;
    const Value read = zn::NSKeyedUnarchiver::unarchiveTopLevelObjectWithData(
        std::as_bytes(std::span(data, size)), &error);
    if (error)
        return 0;
    const Value again = zn::NSKeyedArchiver::archivedDataWithRootObject(read);
    const Value::Kind kind = read.kind();
    dismantle(read);
    const Value second =
        zn::NSKeyedUnarchiver::unarchiveTopLevelObjectWithData(again.bytes(), &error);
    if (error || second.kind() != kind)
        std::abort();
    dismantle(second);
    return 0;
}
