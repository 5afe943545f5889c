#pragma once

#include <functional>
#include <optional>
#include <string_view>

#include "platform/services/linux/Bus.h"

namespace zn {

/// Reads a message from its beginning to its end. What is not there reads as absent.
class BusReader {
public:
    explicit BusReader(const BusMessage& message);

    /// A text, an object path or a signature.
    std::optional<std::string_view> text(char type = 's');
    /// The boolean inside a variant; the variant is passed over when it holds something else.
    std::optional<bool> booleanVariant();
    /// Calls `item` for each item of an array whose items have the contents; `item` must read its
    /// item whole. False when there is no such array.
    bool array(const char* contents, const std::function<void()>& item);
    /// The same for the entries of a dictionary.
    bool dictionary(const char* contents, const std::function<void()>& entry);
    void skip(const char* types);

private:
    bool readable() const { return message_ != nullptr && !failed_; }
    sd_bus_message* message_;
    bool failed_ = false;
};

}  // namespace zn
