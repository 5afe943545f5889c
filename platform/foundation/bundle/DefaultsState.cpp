#include "platform/foundation/bundle/DefaultsState.h"

#include "zarnic/platform/foundation/Dispatch.h"

namespace zn {

Value NSUserDefaults::State::find(std::string_view key) const {
    const std::lock_guard guard(mutex_);
    const auto change = changes_.find(key);
    const Value& own = change != changes_.end() ? change->second.value : written_[key];
    return own.absent() ? registered_[key] : own;
}

Dictionary NSUserDefaults::State::all() const {
    const std::lock_guard guard(mutex_);
    Dictionary result = written_.mutableCopy();
    for (const auto& [key, change] : changes_) {
        if (change.value.absent())
            result.remove(key);
        else
            result.set(key, change.value);
    }
    for (const auto [key, value] : registered_) {
        if (!result.contains(key))
            result.set(key, value);
    }
    return result.copy();
}

void NSUserDefaults::State::change(std::string_view key, const Value& value) {
    const std::lock_guard guard(mutex_);
    changes_.insert_or_assign(std::string(key), Change{value, ++lastNumber_});
    if (!std::exchange(writeIsDue_, true))
        writeSoon();
}

void NSUserDefaults::State::addRegistered(const Dictionary& defaults) {
    const std::lock_guard guard(mutex_);
    Dictionary merged = registered_.mutableCopy();
    for (const auto [key, value] : defaults)
        merged.set(key, value);
    registered_ = merged;
}

void NSUserDefaults::State::writeSoon() {
    dispatchGlobal([self = shared_from_this()] { self->writeChanges(); });
}

void NSUserDefaults::State::writeChanges() {
    {
        const std::lock_guard guard(mutex_);
        if (changes_.empty())
            return;
    }
    synchronize();
}

bool NSUserDefaults::State::synchronize() {
    const std::lock_guard fileGuard(fileMutex_);
    std::uint64_t lastNumber = 0;
    DefaultsFile::Changes pending;
    {
        const std::lock_guard guard(mutex_);
        writeIsDue_ = false;
        lastNumber = lastNumber_;
        pending = changes();
    }
    if (pending.empty()) {
        take(file_.read(), lastNumber);
        return true;
    }
    const auto written = file_.change(pending);
    if (written)
        take(*written, lastNumber);
    return written.has_value();
}

DefaultsFile::Changes NSUserDefaults::State::changes() const {
    DefaultsFile::Changes list;
    list.reserve(changes_.size());
    for (const auto& [key, change] : changes_)
        list.emplace_back(key, change.value);
    return list;
}

void NSUserDefaults::State::take(const Dictionary& written, std::uint64_t lastNumber) {
    const std::lock_guard guard(mutex_);
    written_ = written;
    std::erase_if(changes_, [&](const auto& entry) { return entry.second.number <= lastNumber; });
}

}  // namespace zn
