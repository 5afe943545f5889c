#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "zarnic/platform/foundation/Class.h"
#include "zarnic/platform/foundation/Value.h"

namespace zn {

/// The domain of the platform's own errors.
inline constexpr const char* NSCocoaErrorDomain = "NSCocoaErrorDomain";
/// The domain of `errno` values.
inline constexpr const char* NSPOSIXErrorDomain = "NSPOSIXErrorDomain";

/// The codes, in `NSCocoaErrorDomain`, of JSON and property lists that cannot be read or written.
inline constexpr std::int64_t NSPropertyListReadCorruptError = 3840;
inline constexpr std::int64_t NSPropertyListWriteInvalidError = 3852;

/// Keys of an error's user information: a sentence for the user, one for the developer, and the
/// error beneath this one.
inline constexpr const char* NSLocalizedDescriptionKey = "NSLocalizedDescription";
inline constexpr const char* NSDebugDescriptionErrorKey = "NSDebugDescription";
inline constexpr const char* NSUnderlyingErrorKey = "NSUnderlyingError";

/// What went wrong, immutable: the code is one of the domain's.
class ZN_EXPORT NSError final : public NSObject {
    ZN_OBJECT(NSError, NSObject)
public:
    /// The user information is copied.
    NSError(std::string_view domain, std::int64_t code, const Dictionary& userInfo);

    static Ref<NSError> errorWithDomain(std::string_view domain, std::int64_t code,
                                        const Dictionary& userInfo = {});

    const std::string& domain() const { return domain_; }
    std::int64_t code() const { return code_; }
    const Dictionary& userInfo() const { return userInfo_; }

    /// The text under `NSLocalizedDescriptionKey`, else a sentence made of domain and code.
    std::string localizedDescription() const;

    /// Domain, code and user information are equal.
    bool isEqual(const NSObject& other) const override;
    std::size_t hash() const override;
    /// `Error Domain=NSCocoaErrorDomain Code=3840 "..." UserInfo={NSDebugDescription=...}`: in
    /// quotation marks the description for the user, else that for the developer.
    std::string description() const override;

private:
    std::string domain_;
    std::int64_t code_;
    Dictionary userInfo_;
};

}  // namespace zn
