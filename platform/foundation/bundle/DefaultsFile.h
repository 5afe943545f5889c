#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "zarnic/platform/foundation/Value.h"

namespace zn {

/// The file of the user defaults, which several programs may read and write.
class DefaultsFile {
public:
    using Changes = std::vector<std::pair<std::string, Value>>;

    explicit DefaultsFile(std::string path) : path_(std::move(path)) {}

    /// Its dictionary; empty when there is none.
    Dictionary read() const;
    /// Applies the changes (an absent value removes its key) to what is in the file, while no other
    /// program does so; the outcome, or nothing when it cannot be written.
    std::optional<Dictionary> change(const Changes& changes);

private:
    bool putDamagedAside() const;

    std::string path_;
};

}  // namespace zn
