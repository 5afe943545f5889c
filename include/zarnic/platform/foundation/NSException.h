#pragma once

#include <exception>
#include <string>

#include "zarnic/platform/foundation/Export.h"

namespace zn {

inline constexpr const char* NSInvalidArgumentException = "NSInvalidArgumentException";
inline constexpr const char* NSRangeException = "NSRangeException";
inline constexpr const char* NSUndefinedKeyException = "NSUnknownKeyException";
inline constexpr const char* NSInternalInconsistencyException = "NSInternalInconsistencyException";
inline constexpr const char* NSInvalidUnarchiveOperationException =
    "NSInvalidUnarchiveOperationException";

/// The platform's one exception: a name (see the constants) and a reason for people.
class ZN_EXPORT NSException : public std::exception {
public:
    NSException(std::string name, std::string reason);
    ~NSException() override;

    const std::string& name() const { return name_; }
    const std::string& reason() const { return reason_; }
    /// Name and reason in one line.
    const char* what() const noexcept override { return what_.c_str(); }

private:
    std::string name_;
    std::string reason_;
    std::string what_;
};

}  // namespace zn
