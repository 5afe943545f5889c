#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>
#include <vector>

namespace zn {

/// The numbers of keys, found by their hashes. The keys themselves lie with the caller. Flat, with
/// linear probing: to find, to add and to remove each touch one piece of memory, mostly.
class KeyIndex {
public:
    using Hash = std::uint32_t;
    using Number = std::uint32_t;

    static Hash hashOf(std::string_view key) {
        return static_cast<Hash>(std::hash<std::string_view>()(key));
    }

    std::size_t count() const { return count_; }

    /// The number added under the hash of which `matches(number)` holds.
    template <class Matches>
    std::optional<Number> find(Hash hash, const Matches& matches) const {
        if (cells_.empty())
            return std::nullopt;
        for (std::size_t place = hash & mask();; place = (place + 1) & mask()) {
            const Cell& cell = cells_[place];
            if (!cell.used)
                return std::nullopt;
            if (cell.hash == hash && matches(cell.number))
                return cell.number;
        }
    }
    /// The number must not be there yet.
    void add(Hash hash, Number number);
    /// The number must be there.
    void remove(Hash hash, Number number);
    void clear();

private:
    struct Cell {
        Hash hash = 0;
        Number number : 31 = 0;
        Number used : 1 = 0;
    };
    std::size_t mask() const { return cells_.size() - 1; }
    void put(Cell cell);
    void grow();

    /// A power of two, at most half of them used.
    std::vector<Cell> cells_;
    std::size_t count_ = 0;
};

}  // namespace zn
