#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "zarnic/platform/foundation/NSError.h"
#include "zarnic/platform/foundation/Value.h"

namespace zn {

/// How JSON is read; combined with `|`.
enum class NSJSONReadingOptions : std::uint8_t {
    None = 0,
    /// Arrays and dictionaries, at every depth, are of the mutable form.
    MutableContainers = 1,
    /// Texts are values, which are replaced, not changed: this adds nothing.
    MutableLeaves = 2,
    /// The whole text may be a single text, number, boolean or null.
    AllowFragments = 4,
};

/// How JSON is written.
enum class NSJSONWritingOptions : std::uint8_t {
    None = 0,
    /// One item or member on a line, each level two spaces further in, and ` : ` after a key.
    PrettyPrinted = 1,
};

constexpr NSJSONReadingOptions operator|(NSJSONReadingOptions left, NSJSONReadingOptions right) {
    return static_cast<NSJSONReadingOptions>(static_cast<unsigned>(left) |
                                             static_cast<unsigned>(right));
}
constexpr bool contains(NSJSONReadingOptions options, NSJSONReadingOptions option) {
    return (static_cast<unsigned>(options) & static_cast<unsigned>(option)) != 0;
}

/// The key, in the user information of an error of reading, of the number of bytes before the fault
/// (in the data as given, whatever its encoding).
inline constexpr const char* NSJSONSerializationErrorIndex = "NSJSONSerializationErrorIndex";

/// JSON text to values and back. Functions of any thread.
///
/// A failure gives an absent value and, where the caller passed a place for it, an error of
/// `NSCocoaErrorDomain` whose debug description says what is wrong and where; the place is left as
/// it is otherwise.
class ZN_EXPORT NSJSONSerialization {
public:
    /// How deep arrays and dictionaries may stand within each other, in reading and in writing.
    static constexpr std::size_t maximumDepth = 512;

    /// The array or dictionary that the bytes describe. They are UTF-8, UTF-16 or UTF-32, told
    /// apart by a byte-order mark or by their zeros. Stricter readers would refuse a comma before a
    /// closing bracket; everything else that RFC 8259 does not allow is an error, and so are lone
    /// surrogates and a nest deeper than `maximumDepth`. Of members with the same key the first
    /// counts. Whole numbers become 64-bit integers while they fit, other numbers doubles (those
    /// too large for one are an error); `true` and `false` become booleans. The code of an error is
    /// `NSPropertyListReadCorruptError`.
    static Value JSONObjectWithData(std::span<const std::byte> data,
                                    NSJSONReadingOptions options = NSJSONReadingOptions::None,
                                    Ref<NSError>* error = nullptr);
    /// The same from a value of data; throws `NSInvalidArgumentException` for any other.
    static Value JSONObjectWithData(const Value& data,
                                    NSJSONReadingOptions options = NSJSONReadingOptions::None,
                                    Ref<NSError>* error = nullptr);

    /// The UTF-8 text, as data, of an array or dictionary. Throws `NSInvalidArgumentException` for
    /// a value that `isValidJSONObject` refuses. A text that is not UTF-8 is an error.
    static Value dataWithJSONObject(const Value& object,
                                    NSJSONWritingOptions options = NSJSONWritingOptions::None,
                                    Ref<NSError>* error = nullptr);

    /// Whether the value is an array or dictionary of texts, finite numbers, nulls, arrays and
    /// dictionaries, no deeper than `maximumDepth`.
    static bool isValidJSONObject(const Value& object);
};

}  // namespace zn
