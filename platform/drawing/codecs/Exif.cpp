#include "platform/drawing/codecs/Exif.h"

#include <algorithm>
#include <array>
#include <optional>

namespace zn {

namespace {

/// By the values of the enumeration.
constexpr std::array<std::uint8_t, 8> numbers{1, 3, 8, 6, 2, 4, 5, 7};

/// Numbers in the byte order that the data declare; absent beyond their end.
class Fields {
public:
    explicit Fields(std::span<const std::byte> data) : data_(data) {}

    /// False when the data do not begin as a directory of either byte order.
    bool begin() {
        littleEndian_ = number(0, 2) == 0x4949;
        return (littleEndian_ || number(0, 2) == 0x4D4D) && number(2, 2) == 42;
    }

    std::optional<std::uint32_t> number(std::size_t place, std::size_t length) const {
        if (place > data_.size() || data_.size() - place < length)
            return std::nullopt;
        std::uint32_t value = 0;
        for (std::size_t i = 0; i < length; ++i) {
            const std::size_t next = littleEndian_ ? place + length - 1 - i : place + i;
            value = value << 8 | std::to_integer<std::uint32_t>(data_[next]);
        }
        return value;
    }

private:
    std::span<const std::byte> data_;
    bool littleEndian_ = false;
};

/// The value of the orientation's entry in the first directory.
std::optional<std::uint32_t> storedNumber(const Fields& fields) {
    constexpr std::uint32_t orientationTag = 0x0112, shortNumber = 3;
    constexpr std::size_t entryLength = 12;
    const std::size_t directory = fields.number(4, 4).value_or(0);
    const std::uint32_t count = fields.number(directory, 2).value_or(0);
    for (std::uint32_t i = 0; i < count; ++i) {
        const std::size_t entry = directory + 2 + i * entryLength;
        if (fields.number(entry, 2) == orientationTag)
            return fields.number(entry + 2, 2) == shortNumber ? fields.number(entry + 8, 2)
                                                              : std::nullopt;
    }
    return std::nullopt;
}

}  // namespace

std::uint8_t exifNumber(UIImageOrientation orientation) {
    return numbers[static_cast<std::size_t>(orientation)];
}

UIImageOrientation exifOrientation(std::span<const std::byte> data) {
    Fields fields(data);
    const auto stored = fields.begin() ? storedNumber(fields) : std::nullopt;
    const auto found = std::ranges::find(numbers, stored);
    return found == numbers.end() ? UIImageOrientation::Up
                                  : static_cast<UIImageOrientation>(found - numbers.begin());
}

UIImageOrientation exifOrientationOfSegment(std::span<const std::byte> segment) {
    constexpr std::array<std::byte, 6> word{std::byte{'E'}, std::byte{'x'}, std::byte{'i'},
                                            std::byte{'f'}, std::byte{0},   std::byte{0}};
    const bool begins =
        segment.size() >= word.size() && std::equal(word.begin(), word.end(), segment.begin());
    return exifOrientation(begins ? segment.subspan(word.size()) : segment);
}

}  // namespace zn
