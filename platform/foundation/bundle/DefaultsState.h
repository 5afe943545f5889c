#pragma once

#include <map>
#include <mutex>
#include <string>

#include "platform/foundation/bundle/DefaultsFile.h"
#include "zarnic/platform/foundation/NSUserDefaults.h"

namespace zn {

/// What is in memory, and its way to the file. Reading never waits for the disk.
struct NSUserDefaults::State : std::enable_shared_from_this<NSUserDefaults::State> {
    explicit State(std::string path) : file_(std::move(path)), written_(file_.read()) {}

    Value find(std::string_view key) const;
    Dictionary all() const;
    /// An absent value removes the key.
    void change(std::string_view key, const Value& value);
    void addRegistered(const Dictionary& defaults);
    bool synchronize();
    /// The same, when there is something to write.
    void writeChanges();

private:
    struct Change {
        Value value;
        std::uint64_t number;  ///< Tells it from a later change of the same key.
    };

    void writeSoon();
    DefaultsFile::Changes changes() const;
    void take(const Dictionary& written, std::uint64_t lastNumber);

    std::mutex fileMutex_;
    DefaultsFile file_;

    mutable std::mutex mutex_;
    Dictionary written_;
    std::map<std::string, Change, std::less<>> changes_;
    Dictionary registered_;
    std::uint64_t lastNumber_ = 0;
    bool writeIsDue_ = false;
};

}  // namespace zn
