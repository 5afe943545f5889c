#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "zarnic/platform/foundation/Value.h"

namespace zn {

/// The texts of a `.strings` file, by key. Immutable, so safe from any thread.
class ZN_EXPORT StringsTable {
public:
    struct Entry {
        std::string_view key;
        std::string_view value;
    };

    /// From a file's bytes: property list (XML or binary) or text form, UTF-8 or UTF-16. `error`
    /// says what is wrong and on which line when the whole is unreadable; the table is empty then.
    StringsTable(std::string bytes, std::string& error);

    StringsTable(const StringsTable&) = delete;
    StringsTable& operator=(const StringsTable&) = delete;

    /// The value under the key; of several the last.
    std::optional<std::string_view> find(std::string_view key) const noexcept;
    std::size_t count() const noexcept { return entries_.size(); }

private:
    void readPropertyList(std::string_view bytes, std::string& error);
    void index();

    /// What the entries' texts lie in: either of the two.
    std::string text_;
    Value plist_;
    std::vector<Entry> entries_;
    /// Open addressing over a power of two: the entry's place plus one, 0 for none.
    std::vector<std::uint32_t> slots_;
};

}  // namespace zn
