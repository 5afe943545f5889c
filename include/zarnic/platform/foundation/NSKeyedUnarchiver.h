#pragma once

#include <cstddef>
#include <deque>
#include <span>
#include <vector>

#include "zarnic/platform/foundation/NSCoder.h"
#include "zarnic/platform/foundation/NSError.h"

namespace zn {

/// Reads the archives of `NSKeyedArchiver`, hostile ones included: only registered classes that are
/// `NSCoding` are made, time and memory stay in proportion to the archive, and whatever is wrong is
/// an error. Mutable containers come back mutable, shared things shared. An object that is nested
/// in another is filled before the other gets it, except in circles and deeper than 128. Use one
/// unarchiver for one archive, from one thread.
class ZN_EXPORT NSKeyedUnarchiver final : public NSCoder {
    ZN_OBJECT(NSKeyedUnarchiver, NSCoder)
public:
    /// The value that was archived. Throws `NSInvalidArgumentException` for data that is no archive
    /// and `NSInvalidUnarchiveOperationException` for an archive that holds what it must not; also
    /// passes on what an object throws that cannot use its values.
    static Value unarchiveObjectWithData(std::span<const std::byte> data);
    /// The same from a file; absent when there is none.
    static Value unarchiveObjectWithFile(std::string_view path);
    /// The same with an absent value and an error (in `NSCocoaErrorDomain`, code 4864) in place of
    /// an exception. `error` may be null; it is written only on failure.
    static Value unarchiveTopLevelObjectWithData(std::span<const std::byte> data,
                                                 Ref<NSError>* error);

    /// For archives with several keys. An error ends the archive. Throws
    /// `NSInvalidArgumentException` for data that is no archive.
    explicit NSKeyedUnarchiver(std::span<const std::byte> data);
    ~NSKeyedUnarchiver() override;

    /// Outside of `initWithCoder` the keys are those of the archive itself. Throws as above.
    Value decodeObjectForKey(std::string_view key) override;
    bool containsValueForKey(std::string_view key) const override;
    /// Unarchivers do not write: throws `NSInvalidArgumentException`.
    void encodeObject(const Value& value, std::string_view key) override;

private:
    struct Slot {
        Value value;
        bool read = false;
    };

    Value read(const Value& reference);
    Value start(std::size_t index, const Value& form);
    Value startOfClass(std::size_t index, const Dictionary& form);
    Value startPlain(std::string_view className, const Dictionary& form);
    Value startObject(std::string_view className);
    std::string_view classNameOf(const Dictionary& form) const;
    void fillOrWait(std::size_t index);
    void fill(std::size_t index);
    void fillArray(const Array& array, const Dictionary& form);
    void fillDictionary(const Dictionary& dictionary, const Dictionary& form);
    void fillWaiting();
    void abandon();

    Array objects_;
    Dictionary top_;
    /// The entries of the object that is being decoded, or of the archive.
    Dictionary current_;
    std::vector<Slot> slots_;
    std::deque<std::size_t> waiting_;
    std::vector<Value> containersMade_;
    int depth_ = 0;
};

}  // namespace zn
