#pragma once

#include <atomic>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <iterator>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "zarnic/platform/foundation/NSObject.h"

namespace zn {

class Array;
class ContainerFiller;
class Dictionary;
struct ValueBlocks;

namespace detail {
/// The head of every block that values share. Counting is atomic; what the block holds is not
/// guarded.
struct Counted {
    std::atomic<std::uint32_t> references{1};
    /// Where the block lies in a piece of memory that others lie in, too; 0 when it has its own.
    std::uint32_t offset = 0;

    void retain() noexcept { references.fetch_add(1, std::memory_order_relaxed); }
    /// Whether this was the last reference. Nobody but the holder of the only one could add
    /// another, so that one needs no locked instruction.
    bool release() noexcept {
        return unique() || references.fetch_sub(1, std::memory_order_acq_rel) == 1;
    }
    bool unique() const noexcept { return references.load(std::memory_order_acquire) == 1; }
};
}  // namespace detail

/// The dynamic value: absent, null, a number that keeps its kind, text, data, an array, a
/// dictionary, or any object. Sixteen bytes; texts and data of up to 14 bytes live inside, longer
/// ones and everything else in counted blocks that copies share. Different values may be used from
/// different threads, even when they share a block; one value or one mutable container may not.
class ZN_EXPORT Value {
public:
    enum class Kind : std::uint8_t {
        Absent,
        Null,
        Integer,
        Unsigned,
        Boolean,
        Character,
        Float,
        Double,
        String,
        Data,
        Array,
        Dictionary,
        Object,
    };

    Value() noexcept = default;
    Value(const Value& other) noexcept { take(other), retain(); }
    Value(Value&& other) noexcept { take(other), other.forget(); }
    Value& operator=(const Value& other) noexcept { return *this = Value(other); }
    Value& operator=(Value&& other) noexcept {
        Value old;
        old.take(*this), take(other), other.forget();
        return *this;
    }
    ~Value() {
        if (length_ == sharedLength)
            release();
    }

    Value(bool boolean) noexcept;
    Value(char character) noexcept;
    /// Unsigned 64-bit numbers within the signed range become `Integer`, as on the platform.
    template <std::integral T>
    requires(!std::same_as<T, bool> && !std::same_as<T, char>) Value(T number)
    noexcept
        : Value(IntegerTag{}, static_cast<std::uint64_t>(number),
                std::is_unsigned_v<T> && (static_cast<std::uint64_t>(number) >> 63) != 0) {}
    Value(float number) noexcept;
    Value(double number) noexcept;
    /// A null pointer gives an absent value.
    Value(const char* text);
    Value(std::string_view text);
    Value(const std::string& text);
    Value(const Array& array) noexcept;
    Value(const Dictionary& dictionary) noexcept;
    /// A null reference gives an absent value.
    template <std::derived_from<NSObject> T>
    Value(const Ref<T>& object) : Value(ObjectTag{}, Ref<const NSObject>(object)) {}
    /// Other pointers would otherwise pass as booleans.
    template <class T>
    requires(!std::same_as<std::remove_const_t<T>, char>) Value(T*)
    = delete;

    /// The null object, distinct from absent.
    static Value null() noexcept;
    static Value data(std::span<const std::byte> bytes);

    Kind kind() const noexcept { return kind_; }
    bool absent() const noexcept { return kind() == Kind::Absent; }
    bool isNull() const noexcept { return kind() == Kind::Null; }
    bool isNumber() const noexcept { return kind() >= Kind::Integer && kind() <= Kind::Double; }
    bool isString() const noexcept { return kind() == Kind::String; }
    bool isData() const noexcept { return kind() == Kind::Data; }
    bool isArray() const noexcept { return kind() == Kind::Array; }
    bool isDictionary() const noexcept { return kind() == Kind::Dictionary; }
    bool isObject() const noexcept { return kind() == Kind::Object; }

    /// Conversions as on the platform. Integers keep their low bits, reals truncate toward zero
    /// (out of range saturates, not a number gives 0), a number is true when its integer part is
    /// not 0; texts are parsed from their beginning (see `NSString.h`); everything else gives 0 or
    /// false.
    bool boolValue() const noexcept;
    std::int32_t intValue() const noexcept;
    std::int64_t longLongValue() const noexcept;
    std::uint64_t unsignedLongLongValue() const noexcept;
    float floatValue() const noexcept;
    double doubleValue() const noexcept;
    /// The text of a number or a string, else empty.
    std::string stringValue() const;

    /// The text's UTF-8 bytes; empty for other kinds. Valid while this value lives unchanged.
    std::string_view string() const noexcept;
    /// The bytes; empty for other kinds.
    std::span<const std::byte> bytes() const noexcept;
    /// The container itself, shared; throws `NSInvalidArgumentException` for another kind.
    Array array() const;
    Dictionary dictionary() const;
    /// The object; null for other kinds.
    Ref<NSObject> object() const;
    template <std::derived_from<NSObject> T>
    Ref<T> object() const {
        return as<T>(object());
    }

    /// Containers of the immutable or mutable form, one level deep (an immutable one is its own
    /// immutable copy); other kinds give themselves.
    Value copy() const;
    Value mutableCopy() const;

    /// What the platform's object placeholder prints: text raw, numbers, `<null>`, `(null)`, data
    /// as
    /// `<01020304 05>`, containers with one item to a line.
    std::string description() const;

    /// By value: numbers across kinds (not a number equals itself), containers by content whatever
    /// their form and order of keys, objects by `isEqual`. Equal values have equal hashes. A
    /// container that holds itself must not be compared or described.
    friend ZN_EXPORT bool operator==(const Value& left, const Value& right);
    std::size_t hash() const noexcept;

private:
    struct IntegerTag {};
    struct ObjectTag {};
    struct Bytes;
    struct Object;
    Value(IntegerTag, std::uint64_t bits, bool isUnsigned) noexcept;
    Value(ObjectTag, Ref<const NSObject> object);
    friend class Array;
    friend class Dictionary;
    friend struct ValueBlocks;

    /// The `length_` of a value whose payload is a counted block.
    static constexpr std::uint8_t sharedLength = 0xFF;
    static constexpr std::size_t inlineCapacity = 14;

    template <class T>
    T payload() const noexcept {
        T result;
        std::memcpy(&result, payload_, sizeof result);
        return result;
    }
    template <class T>
    void setPayload(Kind kind, T payload) noexcept {
        std::memcpy(payload_, &payload, sizeof payload);
        kind_ = kind;
    }
    void setBlock(Kind kind, detail::Counted* block) noexcept {
        setPayload(kind, block);
        length_ = sharedLength;
    }
    void setBytes(Kind kind, std::string_view bytes);
    std::string_view rawBytes() const noexcept;

    void take(const Value& other) noexcept {
        std::memcpy(payload_, other.payload_, sizeof payload_);
        length_ = other.length_;
        kind_ = other.kind_;
    }
    void forget() noexcept {
        length_ = 0;
        kind_ = Kind::Absent;
    }
    void retain() const noexcept {
        if (length_ == sharedLength)
            payload<detail::Counted*>()->retain();
    }
    void release() noexcept;

    alignas(8) unsigned char payload_[inlineCapacity] = {};
    std::uint8_t length_ = 0;
    Kind kind_ = Kind::Absent;
};
static_assert(sizeof(Value) == 16);

/// An ordered list of values, shared by its copies. Storing an absent value throws
/// `NSInvalidArgumentException`, an index out of range `NSRangeException`, changing an immutable
/// one `NSInternalInconsistencyException`.
class ZN_EXPORT Array {
public:
    /// A new, empty, mutable array.
    Array();
    /// A new mutable array. In braces, a single array is an item, not the original of a copy.
    Array(std::initializer_list<Value> items);
    Array(const Array& other) noexcept;
    Array& operator=(const Array& other) noexcept;
    ~Array();

    std::size_t count() const noexcept;
    bool empty() const noexcept { return count() == 0; }
    const Value& operator[](std::size_t index) const;
    const Value* begin() const noexcept;
    const Value* end() const noexcept;

    void add(Value item);
    /// An index equal to the count appends.
    void insert(std::size_t index, Value item);
    void replace(std::size_t index, Value item);
    void remove(std::size_t index);
    void removeAll();
    void reserve(std::size_t count);

    bool isMutable() const noexcept;
    bool identical(const Array& other) const noexcept;
    Array copy() const;
    Array mutableCopy() const;

private:
    friend class ContainerFiller;
    friend class Value;
    friend struct ValueBlocks;
    struct Storage;
    explicit Array(Storage* storage) noexcept;
    Storage& mutableStorage() const;
    Storage* storage_;
};

/// Distinct texts in their order, to be the keys of dictionaries. Copies share one table until one
/// of them is changed; up to twelve keys are searched in order, more through an index.
class ZN_EXPORT KeyTable {
public:
    static constexpr std::size_t notFound = static_cast<std::size_t>(-1);

    KeyTable() noexcept = default;
    KeyTable(std::initializer_list<std::string_view> keys);
    KeyTable(const KeyTable& other) noexcept;
    KeyTable(KeyTable&& other) noexcept : storage_(std::exchange(other.storage_, nullptr)) {}
    KeyTable& operator=(KeyTable other) noexcept;
    ~KeyTable();

    std::size_t count() const noexcept;
    /// The index of the key, or `notFound`.
    std::size_t find(std::string_view key) const noexcept;
    /// The index of the key, which goes to the end if it is new.
    std::size_t add(std::string_view key);
    /// Valid while a table holds the key unchanged.
    std::string_view operator[](std::size_t index) const noexcept;

private:
    struct Storage;
    Storage& own();
    Storage* storage_ = nullptr;
};

/// Text keys to values, in insertion order, shared by its copies. Same exceptions as `Array`.
class ZN_EXPORT Dictionary {
public:
    using Entry = std::pair<std::string_view, const Value&>;
    class Iterator;

    /// A new, empty, mutable dictionary.
    Dictionary();
    /// A new mutable dictionary; of entries with the same key the last value counts.
    Dictionary(std::initializer_list<std::pair<std::string_view, Value>> entries);
    /// A new mutable dictionary in one block of memory that shares the keys: how the rows of a
    /// query are made. The values are moved from; an absent one leaves its key out. Throws
    /// `NSInvalidArgumentException` when the counts differ.
    Dictionary(const KeyTable& keys, std::span<Value> values);
    Dictionary(const Dictionary& other) noexcept;
    Dictionary& operator=(const Dictionary& other) noexcept;
    ~Dictionary();

    std::size_t count() const noexcept;
    bool empty() const noexcept { return count() == 0; }
    /// The value under the key, or an absent one. The reference holds until the next change.
    const Value& operator[](std::string_view key) const noexcept;
    bool contains(std::string_view key) const noexcept { return !(*this)[key].absent(); }
    /// The i-th entry in insertion order. To see all of them, iterate.
    Entry entry(std::size_t index) const;
    Iterator begin() const noexcept;
    Iterator end() const noexcept;
    std::vector<std::string> allKeys() const;

    /// A new key goes to the end; an old one keeps its place.
    void set(std::string_view key, Value value);
    void remove(std::string_view key);
    void removeAll();

    bool isMutable() const noexcept;
    bool identical(const Dictionary& other) const noexcept;
    Dictionary copy() const;
    Dictionary mutableCopy() const;

private:
    friend class ContainerFiller;
    friend class Value;
    friend struct ValueBlocks;
    struct Storage;
    explicit Dictionary(Storage* storage) noexcept;
    Storage& mutableStorage() const;
    Storage* storage_;
};

/// Goes over the entries in insertion order; a change of the dictionary ends its validity.
class ZN_EXPORT Dictionary::Iterator {
public:
    using iterator_category = std::input_iterator_tag;
    using value_type = Entry;
    using difference_type = std::ptrdiff_t;
    using pointer = void;
    using reference = Entry;

    Entry operator*() const noexcept;
    Iterator& operator++() noexcept;
    friend bool operator==(const Iterator& left, const Iterator& right) noexcept {
        return left.slot_ == right.slot_;
    }

private:
    friend class Dictionary;
    Iterator(const Storage* storage, std::size_t slot) noexcept;
    void skipHoles() noexcept;

    const Storage* storage_;
    std::size_t slot_;
};

}  // namespace zn
