#include "platform/foundation/json/JSONWriter.h"
#include "zarnic/NSObject+ZNCategory.h"
#include "zarnic/platform/foundation/NSJSONSerialization.h"
#include "zarnic/platform/foundation/NSLog.h"

namespace zn {
namespace {

/// The receiver's JSON in that layout; empty, and logged, when it has none.
JSONWriter written(const Value& receiver, JSONLayout layout) {
    JSONWriter writer(layout);
    if (writer.write(receiver))
        return writer;
    NSLog("ConvertToJsonData Failed:%s", writer.error()->description().c_str());
    return JSONWriter(layout);
}

}  // namespace

Value zn_convertToJsonData(const Value& receiver) {
    if (receiver.absent())
        return {};
    const JSONWriter writer = written(receiver, JSONLayout::Pretty);
    const auto text = writer.text();
    return text.empty() ? Value() : Value::data(std::as_bytes(std::span(text)));
}

std::optional<std::string> zn_convertToJsonString(const Value& receiver) {
    if (receiver.absent())
        return std::nullopt;
    const JSONWriter writer = written(receiver, JSONLayout::Stripped);
    const auto text = writer.text();
    return text.empty() ? std::nullopt : std::optional<std::string>(text);
}

Value ZN_ConvertToObject(std::string_view json) {
    if (!zn_NotNull(json))
        return {};
    Ref<NSError> error;
    const Value object = NSJSONSerialization::JSONObjectWithData(
        std::as_bytes(std::span(json)), NSJSONReadingOptions::MutableContainers, &error);
    if (error)
        NSLog("ConvertToObject Failed:%s", error->description().c_str());
    return object;
}

}  // namespace zn
