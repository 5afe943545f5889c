#include "platform/foundation/plist/PropertyListBinaryReader.h"

#include <unicode/unistr.h>
#include <unicode/utf16.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <optional>
#include <vector>

#include "platform/foundation/plist/PropertyListFormat.h"
#include "platform/foundation/plist/PropertyListGraph.h"
#include "zarnic/platform/foundation/NSDate.h"
#include "zarnic/platform/foundation/NSString.h"

namespace zn {
namespace {

using namespace binarylist;

constexpr std::uint64_t maximumUnfoldedSize = 4'000'000;
/// Long texts count as so many objects more.
constexpr std::uint64_t bytesPerObject = 64;

Value wideText(std::string_view bytes) {
    std::u16string units(bytes.size() / 2, u'\0');
    for (std::size_t i = 0; i < units.size(); ++i)
        units[i] = static_cast<char16_t>(static_cast<unsigned char>(bytes[2 * i]) << 8 |
                                         static_cast<unsigned char>(bytes[2 * i + 1]));
    for (std::size_t position = 0; position < units.size();) {
        UChar32 character = 0;
        U16_NEXT(units.data(), position, units.size(), character);
        if (U_IS_SURROGATE(character))
            return {};
    }
    std::string text;
    icu::UnicodeString(false, units.data(), static_cast<std::int32_t>(units.size()))
        .toUTF8String(text);
    return text;
}

/// Reads each object once, from the root down.
class BinaryReader {
public:
    BinaryReader(std::string_view bytes, ShortReal shortReal)
        : bytes_(bytes), shortReal_(shortReal) {}

    Value read() {
        if (bytes_.size() < header.size() + trailerSize || bytes_.size() > 0xFFFFFFFF)
            return {};
        const std::size_t trailer = bytes_.size() - trailerSize;
        offsetSize_ = static_cast<unsigned char>(bytes_[trailer + 6]);
        referenceSize_ = static_cast<unsigned char>(bytes_[trailer + 7]);
        const auto count = *number(trailer + 8, 8);
        const auto root = *number(trailer + 16, 8);
        table_ = *number(trailer + 24, 8);
        if (count > bytes_.size() || table_ > bytes_.size())
            return {};
        objects_.resize(count);
        const Object* object = objectAt(root);
        return object == nullptr ? Value() : object->value;
    }

private:
    struct Object {
        enum class State : std::uint8_t { New, Open, Read };
        Value value;
        std::uint64_t unfolded = 1;  ///< The cost of this and what is below, copies counted.
        std::size_t height = 0;      ///< The levels of containers.
        State state = State::New;
    };
    /// The count in a marker, or in the integer after it, and where the content begins.
    struct Extent {
        std::uint64_t count;
        std::uint64_t content;
    };

    /// Null for one that cannot be read.
    const Object* objectAt(std::uint64_t index) {
        if (index >= objects_.size())
            return nullptr;
        Object& object = objects_[index];
        if (object.state == Object::State::Read)
            return &object;
        const auto offset = number(table_ + index * offsetSize_, offsetSize_);
        if (object.state == Object::State::Open || !offset || depth_ > maximumPropertyListDepth)
            return nullptr;
        object.state = Object::State::Open;
        ++depth_;
        object.value = valueAt(*offset, object);
        --depth_;
        object.state = Object::State::Read;
        return object.value.absent() ? nullptr : &object;
    }

    Value valueAt(std::uint64_t offset, Object& object) {
        const auto marker = number(offset, 1);
        if (!marker)
            return {};
        const std::size_t size = std::size_t{1} << (*marker & 0xF);
        switch (*marker >> 4) {
            case 0:
            case dateMarker >> 4:
            case doubleMarker >> 4:
                return fixed(static_cast<unsigned>(*marker), offset + 1);
            case integerKind:
                return integer(offset + 1, size);
            case referenceKind:
                return reference(offset + 1, (*marker & 0xF) + 1);
            default:
                return counted(static_cast<unsigned>(*marker >> 4), offset, object);
        }
    }

    Value fixed(unsigned marker, std::uint64_t offset) const {
        if (marker == falseMarker || marker == trueMarker)
            return marker == trueMarker;
        const auto bits = number(offset, marker == floatMarker ? 4 : 8);
        if (!bits)
            return {};
        if (marker == floatMarker) {
            const auto real = std::bit_cast<float>(static_cast<std::uint32_t>(*bits));
            return shortReal_ == ShortReal::Float ? Value(real) : Value(static_cast<double>(real));
        }
        const auto real = std::bit_cast<double>(*bits);
        if (marker == doubleMarker)
            return real;
        if (marker != dateMarker || std::isnan(real))
            return {};
        return NSDate::dateWithTimeIntervalSince1970(real + secondsFrom1970To2001);
    }

    /// Sizes below eight bytes are unsigned; of sixteen bytes the upper ones only carry the sign.
    Value integer(std::uint64_t offset, std::size_t size) const {
        const auto upper = size == 16 ? number(offset, 8) : 0;
        const auto bits = size == 16 ? number(offset + 8, 8) : number(offset, size);
        if (!upper || !bits)
            return {};
        const auto asSigned = static_cast<std::int64_t>(*bits);
        if (size < 16 || (*upper == ~std::uint64_t{0} && asSigned < 0))
            return asSigned;
        return *upper == 0 ? Value(*bits) : Value();
    }

    Value reference(std::uint64_t offset, std::size_t size) const {
        const auto index = number(offset, size);
        return index ? Dictionary{{"CF$UID", *index}}.copy() : Value();
    }

    Value counted(unsigned kind, std::uint64_t offset, Object& object) {
        const auto extent = extentAt(offset);
        if (!extent || extent->count > bytes_.size())
            return {};
        if (kind == arrayKind)
            return array(*extent, object);
        if (kind == dictionaryKind)
            return dictionary(*extent, object);
        const std::uint64_t length = kind == wideTextKind ? extent->count * 2 : extent->count;
        if (extent->content > bytes_.size() || length > bytes_.size() - extent->content)
            return {};
        object.unfolded += length / bytesPerObject;
        const std::string_view content = bytes_.substr(extent->content, length);
        if (kind == wideTextKind)
            return wideText(content);
        if (kind == dataKind)
            return Value::data(std::as_bytes(std::span(content)));
        return kind == textKind && isValidUTF8(content) ? Value(content) : Value();
    }

    std::optional<Extent> extentAt(std::uint64_t offset) const {
        const std::uint64_t count = *number(offset, 1) & 0xF;
        if (count != longCount)
            return Extent{count, offset + 1};
        const auto marker = number(offset + 1, 1);
        if (!marker || *marker >> 4 != integerKind)
            return std::nullopt;
        const std::size_t size = std::size_t{1} << (*marker & 0xF);
        const auto longer = number(offset + 2, size);
        return longer ? std::optional(Extent{*longer, offset + 2 + size}) : std::nullopt;
    }

    Value array(const Extent& extent, Object& object) {
        Array items;
        object.height = 1;
        for (std::uint64_t i = 0; i < extent.count; ++i) {
            const Object* item = child(extent.content, i, object);
            if (item == nullptr)
                return {};
            items.add(item->value);
        }
        return items.copy();
    }

    Value dictionary(const Extent& extent, Object& object) {
        Dictionary entries;
        object.height = 1;
        for (std::uint64_t i = 0; i < extent.count; ++i) {
            const Object* key = child(extent.content, i, object);
            if (key == nullptr || !key->value.isString())
                return {};
            const Object* item = child(extent.content, extent.count + i, object);
            if (item == nullptr)
                return {};
            entries.set(key->value.string(), item->value);
        }
        return entries.copy();
    }

    const Object* child(std::uint64_t references, std::uint64_t position, Object& parent) {
        const auto index = number(references + position * referenceSize_, referenceSize_);
        const Object* object = index ? objectAt(*index) : nullptr;
        if (object == nullptr)
            return nullptr;
        parent.unfolded += object->unfolded;
        parent.height = std::max(parent.height, object->height + 1);
        const bool bounded =
            parent.unfolded <= maximumUnfoldedSize && parent.height <= maximumPropertyListDepth;
        return bounded ? object : nullptr;
    }

    std::optional<std::uint64_t> number(std::uint64_t offset, std::size_t size) const {
        if (size == 0 || size > 8 || offset > bytes_.size() || size > bytes_.size() - offset)
            return std::nullopt;
        std::uint64_t result = 0;
        for (const char byte : bytes_.substr(offset, size))
            result = result << 8 | static_cast<unsigned char>(byte);
        return result;
    }

    std::string_view bytes_;
    ShortReal shortReal_;
    std::size_t offsetSize_ = 0;
    std::size_t referenceSize_ = 0;
    std::uint64_t table_ = 0;
    std::vector<Object> objects_;
    std::size_t depth_ = 0;
};

}  // namespace

Value readBinaryPropertyList(std::string_view bytes, ShortReal shortReal) {
    return BinaryReader(bytes, shortReal).read();
}

}  // namespace zn
