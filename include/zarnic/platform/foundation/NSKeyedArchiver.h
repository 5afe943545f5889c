#pragma once

#include <deque>
#include <map>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "zarnic/platform/foundation/NSCoder.h"

namespace zn {

/// Archives values and objects by key into a binary property list. Texts, data, numbers, null,
/// dates, arrays and dictionaries are archived as they are; any other object must be an `NSCoding`
/// of a class that `Class::named` finds. What is referred to twice is stored once, circles are
/// allowed, and graphs of any depth take bounded stack. Numbers keep their value and whether they
/// are boolean, whole or real. Use one archiver for one archive, from one thread.
class ZN_EXPORT NSKeyedArchiver final : public NSCoder {
    ZN_OBJECT(NSKeyedArchiver, NSCoder)
public:
    NSKeyedArchiver();
    ~NSKeyedArchiver() override;

    /// The archive of one value, as data; that of an absent value is one, too. Throws
    /// `NSInvalidArgumentException` for an object that cannot be archived.
    static Value archivedDataWithRootObject(const Value& root);
    /// Writes it to a file, whole or not at all; false when that fails.
    static bool archiveRootObject(const Value& root, std::string_view path);

    /// Outside of `encodeWithCoder` the keys are those of the archive itself. Throws
    /// `NSInvalidArgumentException` for a key that is no UTF-8, for an object that cannot be
    /// archived (which ends the archive), and after `encodedData`.
    void encodeObject(const Value& value, std::string_view key) override;
    /// Archivers do not read: these throw `NSInvalidArgumentException`.
    Value decodeObjectForKey(std::string_view key) override;
    bool containsValueForKey(std::string_view key) const override;

    /// Ends the archive and gives it as data. Throws `NSInvalidArgumentException` when something in
    /// it could not be archived, and the second time.
    Value encodedData();

private:
    enum class State {
        Open,
        Encoding,
        Broken,
        Ended,
    };
    struct Waiting {
        std::size_t index;
        Value value;
    };

    void requireOpen() const;
    std::size_t indexOf(const Value& value);
    std::size_t store(const Value& value);
    std::size_t append(const Value& stored);
    std::size_t classIndex(std::string_view name, const Class* type);
    Value classReference(std::string_view name, const Class* type = nullptr);
    Value classReference(const NSObject& object);
    Value textForm(std::string_view text);
    Value dateForm(double since1970);
    void encodeWaiting();
    Value objectForm(const NSObject& object);
    Value containerForm(const Value& container);
    Value references(const Array& values);

    Array objects_;
    Dictionary top_;
    /// The entries of the object that is being encoded, or of the archive.
    Dictionary current_;
    /// Where shared things stand: containers and objects by identity, texts by content. What has an
    /// identity is kept until the end, so that nothing new can take its place.
    std::unordered_map<const void*, std::size_t> places_;
    std::unordered_map<std::string, std::size_t> texts_;
    std::map<std::string, std::size_t, std::less<>> classes_;
    std::vector<Value> kept_;
    std::deque<Waiting> waiting_;
    State state_ = State::Open;
};

}  // namespace zn
