#include "zarnic/platform/foundation/NSError.h"

namespace zn {

NSError::NSError(std::string_view domain, std::int64_t code, const Dictionary& userInfo)
    : domain_(domain), code_(code), userInfo_(userInfo.copy()) {}

Ref<NSError> NSError::errorWithDomain(std::string_view domain, std::int64_t code,
                                      const Dictionary& userInfo) {
    return make<NSError>(domain, code, userInfo);
}

std::string NSError::localizedDescription() const {
    const Value& text = userInfo_[NSLocalizedDescriptionKey];
    if (text.isString())
        return text.stringValue();
    return "The operation couldn’t be completed. (" + domain_ + " error " + std::to_string(code_) +
           ".)";
}

bool NSError::isEqual(const NSObject& other) const {
    const auto* error = dynamic_cast<const NSError*>(&other);
    return error != nullptr && error->domain_ == domain_ && error->code_ == code_ &&
           Value(error->userInfo_) == Value(userInfo_);
}

std::size_t NSError::hash() const {
    return std::hash<std::string>{}(domain_) ^ std::hash<std::int64_t>{}(code_);
}

std::string NSError::description() const {
    const Value& forUser = userInfo_[NSLocalizedDescriptionKey];
    const Value& forDeveloper = userInfo_[NSDebugDescriptionErrorKey];
    const bool onlyForDeveloper = !forUser.isString() && forDeveloper.isString();
    std::string text = "Error Domain=" + domain_ + " Code=" + std::to_string(code_) + " \"" +
                       (onlyForDeveloper ? forDeveloper.stringValue() : localizedDescription()) +
                       "\"";
    if (userInfo_.empty())
        return text;
    const char* separator = " UserInfo={";
    for (const auto& [key, value] : userInfo_) {
        text.append(separator).append(key).append("=") += value.description();
        separator = ", ";
    }
    return text + "}";
}

}  // namespace zn
