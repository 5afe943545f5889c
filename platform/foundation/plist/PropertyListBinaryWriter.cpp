#include <algorithm>
#include <bit>
#include <string_view>

#include "platform/foundation/plist/PropertyListFormat.h"
#include "platform/foundation/plist/PropertyListGraph.h"
#include "platform/foundation/plist/PropertyListWriters.h"
#include "platform/foundation/text/Utf8.h"
#include "zarnic/platform/foundation/NSDate.h"

namespace zn {
namespace {

using namespace binarylist;

/// The smallest number of bytes that holds every number up to this one: 1, 2, 4 or 8.
std::size_t byteCount(std::uint64_t number) {
    for (const std::size_t size : {1U, 2U, 4U}) {
        if (number >> (8 * size) == 0)
            return size;
    }
    return 8;
}

bool isAscii(std::string_view text) {
    return std::ranges::all_of(
        text, [](char character) { return static_cast<unsigned char>(character) < 0x80; });
}

void appendUtf16(std::u16string& text, char32_t character) {
    if (character > 0xFFFF) {
        text += static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10));
        character = 0xDC00 + (character & 0x3FF);
    }
    text += static_cast<char16_t>(character);
}

class BinaryWriter {
public:
    explicit BinaryWriter(const PropertyListGraph& graph)
        : graph_(graph), referenceSize_(byteCount(graph.nodes().size())) {}

    std::string bytes() {
        bytes_ = header;
        std::vector<std::uint64_t> offsets;
        offsets.reserve(graph_.nodes().size());
        for (const auto& node : graph_.nodes()) {
            offsets.push_back(bytes_.size());
            write(node);
        }
        writeTrailer(offsets);
        return std::move(bytes_);
    }

private:
    void write(const PropertyListGraph::Node& node) {
        if (node.value == nullptr || node.value->isString())
            writeText(node.text);
        else if (const auto reference = archiveReference(*node.value))
            writeReference(*reference);
        else if (node.value->isArray() || node.value->isDictionary())
            writeContainer(node);
        else if (node.value->isData())
            writeData(node.value->bytes());
        else if (node.value->isObject())
            writeReal(dateMarker, node.value->object<NSDate>()->timeIntervalSince1970() -
                                      secondsFrom1970To2001);
        else
            writeNumber(*node.value);
    }

    void writeNumber(const Value& number) {
        switch (number.kind()) {
            case Value::Kind::Boolean:
                return put(number.boolValue() ? trueMarker : falseMarker, 1);
            case Value::Kind::Float:
                put(floatMarker, 1);
                return put(std::bit_cast<std::uint32_t>(number.floatValue()), 4);
            case Value::Kind::Double:
                return writeReal(doubleMarker, number.doubleValue());
            case Value::Kind::Unsigned:
                // What the signed range does not hold takes sixteen bytes.
                put(integerKind << 4 | 4, 1);
                put(0, 8);
                return put(number.unsignedLongLongValue(), 8);
            default:
                writeInteger(static_cast<std::uint64_t>(number.longLongValue()));
        }
    }

    void writeReal(unsigned marker, double number) {
        put(marker, 1);
        put(std::bit_cast<std::uint64_t>(number), 8);
    }

    void writeInteger(std::uint64_t bits) {
        const std::size_t size = byteCount(bits);
        put(integerKind << 4 | static_cast<unsigned>(std::countr_zero(size)), 1);
        put(bits, size);
    }

    void writeReference(std::uint64_t reference) {
        const std::size_t size = byteCount(reference);
        put(referenceKind << 4 | (size - 1), 1);
        put(reference, size);
    }

    void writeText(std::string_view text) {
        if (isAscii(text)) {
            writeHead(textKind, text.size());
            bytes_ += text;
            return;
        }
        std::u16string wide;
        for (std::size_t position = 0; position < text.size();)
            appendUtf16(wide, nextCharacter(text, position));
        writeHead(wideTextKind, wide.size());
        for (const char16_t unit : wide)
            put(unit, 2);
    }

    void writeData(std::span<const std::byte> data) {
        writeHead(dataKind, data.size());
        bytes_.append(reinterpret_cast<const char*>(data.data()), data.size());
    }

    void writeContainer(const PropertyListGraph::Node& node) {
        const bool isArray = node.value->isArray();
        writeHead(isArray ? arrayKind : dictionaryKind,
                  isArray ? node.referenceCount : node.referenceCount / 2);
        const auto& references = graph_.references();
        for (std::size_t i = 0; i < node.referenceCount; ++i)
            put(references[node.firstReference + i], referenceSize_);
    }

    void writeHead(unsigned kind, std::size_t count) {
        put(kind << 4 | std::min<std::size_t>(count, longCount), 1);
        if (count >= longCount)
            writeInteger(count);
    }

    void writeTrailer(const std::vector<std::uint64_t>& offsets) {
        const std::uint64_t table = bytes_.size();
        const std::size_t offsetSize = byteCount(table);
        for (const std::uint64_t offset : offsets)
            put(offset, offsetSize);
        put(0, 6);
        put(offsetSize, 1);
        put(referenceSize_, 1);
        put(offsets.size(), 8);
        put(0, 8);  // The root.
        put(table, 8);
    }

    void put(std::uint64_t number, std::size_t size) {
        for (std::size_t shift = 8 * size; shift > 0; shift -= 8)
            bytes_ += static_cast<char>(number >> (shift - 8));
    }

    const PropertyListGraph& graph_;
    const std::size_t referenceSize_;
    std::string bytes_;
};

}  // namespace

std::optional<std::string> binaryPropertyList(const Value& value) {
    const auto graph = PropertyListGraph::of(value);
    return graph ? std::optional(BinaryWriter(*graph).bytes()) : std::nullopt;
}

}  // namespace zn
