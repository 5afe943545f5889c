#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "zarnic/platform/foundation/Class.h"
#include "zarnic/platform/foundation/NSObject.h"

namespace zn {

/// A URL and its parts, immutable. Parts are split as RFC 1808 orders it. A URL with a scheme that
/// no slash follows (`mailto:somebody`) is opaque: it has neither host nor path nor query.
class ZN_EXPORT NSURL final : public NSObject {
    ZN_OBJECT(NSURL, NSObject)
public:
    /// Null for a text that is no URL: one with blanks, characters outside ASCII, quotes, any of
    /// ``<>\^{|}` `` and the grave accent, a second `#`, or a `%` without two hexadecimal digits.
    /// The empty text is an empty relative URL.
    static Ref<NSURL> URLWithString(std::string_view text);

    const std::string& absoluteString() const { return text_; }
    /// As written, without the colon.
    const std::optional<std::string>& scheme() const { return scheme_; }
    // Percent escapes are decoded. Absent without a `//` part, or when that leaves it empty.
    const std::optional<std::string>& user() const { return user_; }
    const std::optional<std::string>& password() const { return password_; }
    /// Without the brackets of an IPv6 address.
    const std::optional<std::string>& host() const { return host_; }
    /// Absent also when it is not a number from 0 to 65535.
    std::optional<int> port() const { return port_; }
    /// Percent escapes are decoded, one slash at the end is taken away (unless it is all), and what
    /// follows the first `;` is left out. Empty for a host without a path; absent for an opaque
    /// URL, for one without host and path, and when the escapes give no valid UTF-8.
    const std::optional<std::string>& path() const { return path_; }
    /// The same, since no URL here has a base.
    const std::optional<std::string>& relativePath() const { return path_; }
    // Not decoded; absent without their mark (`;`, `?`, `#`), empty for a bare one.
    const std::optional<std::string>& parameterString() const { return parameters_; }
    const std::optional<std::string>& query() const { return query_; }
    const std::optional<std::string>& fragment() const { return fragment_; }

    /// The same text.
    bool isEqual(const NSObject& other) const override;
    std::size_t hash() const override;
    std::string description() const override { return text_; }

    /// For `URLWithString` alone.
    class Key {
        friend class NSURL;
        Key() = default;
    };
    NSURL(Key, std::string text);

private:
    void split();
    void splitNetworkPart(std::string_view part);
    void splitHost(std::string_view part);

    std::string text_;
    std::optional<std::string> scheme_;
    std::optional<std::string> user_;
    std::optional<std::string> password_;
    std::optional<std::string> host_;
    std::optional<int> port_;
    std::optional<std::string> path_;
    std::optional<std::string> parameters_;
    std::optional<std::string> query_;
    std::optional<std::string> fragment_;
};

}  // namespace zn
