#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "zarnic/platform/foundation/Class.h"
#include "zarnic/platform/foundation/Value.h"

namespace zn {

/// The application's settings: property lists by key, kept in one file for all programs of the same
/// identifier (`$XDG_CONFIG_HOME/ID/defaults.plist`, under `ZARNIC_HOME`
/// `Library/Preferences/defaults.plist`). A change is seen at once in this process and written soon
/// after on a thread of the pool, at the latest when the program ends. Programs that change
/// different keys lose nothing; of the same key the change written last counts. Without a folder
/// that can be written to, the settings live in memory. A file that is no property list is put
/// aside as `defaults.plist.damaged`. Safe from any thread.
class ZN_EXPORT NSUserDefaults final : public NSObject {
    ZN_OBJECT(NSUserDefaults, NSObject)
public:
    /// The application's own, read on first use.
    static Ref<NSUserDefaults> standardUserDefaults();

    /// Settings in another file; use `standardUserDefaults` for the application's.
    explicit NSUserDefaults(std::string path);
    ~NSUserDefaults() override;

    /// What was set, else what was registered, else absent; containers are immutable.
    Value objectForKey(std::string_view key) const;
    /// A number comes as its text; nothing for other kinds.
    std::optional<std::string> stringForKey(std::string_view key) const;
    /// Absent for other kinds.
    Value arrayForKey(std::string_view key) const;
    Value dictionaryForKey(std::string_view key) const;
    Value dataForKey(std::string_view key) const;
    /// Of a number or a text (see `Value`), else 0 or false.
    std::int64_t integerForKey(std::string_view key) const;
    bool boolForKey(std::string_view key) const;
    float floatForKey(std::string_view key) const;
    double doubleForKey(std::string_view key) const;
    /// All keys, those set before those only registered.
    Dictionary dictionaryRepresentation() const;

    /// Keeps an immutable copy, in which characters are integers; an absent value removes the key.
    /// Throws `NSInvalidArgumentException` for what is no property list.
    void setObject(const Value& value, std::string_view key);
    void setInteger(std::int64_t value, std::string_view key) { setObject(value, key); }
    void setBool(bool value, std::string_view key) { setObject(value, key); }
    void setFloat(float value, std::string_view key) { setObject(value, key); }
    void setDouble(double value, std::string_view key) { setObject(value, key); }
    /// What was registered shows again.
    void removeObjectForKey(std::string_view key);

    /// Values for keys that are not set, kept in memory only; later ones replace earlier ones of
    /// the same key. Throws as `setObject` does.
    void registerDefaults(const Dictionary& defaults);

    /// Reads what other programs wrote and writes what was changed here, now; false when the file
    /// cannot be written.
    bool synchronize();

private:
    struct State;
    std::shared_ptr<State> state_;
};

}  // namespace zn
