#include "zarnic/platform/uikit/UIPasteboard.h"

#include "zarnic/platform/services/Clipboard.h"
#include "zarnic/platform/services/Services.h"

namespace zn {

UIPasteboard::UIPasteboard() = default;

UIPasteboard::~UIPasteboard() = default;

Ref<UIPasteboard> UIPasteboard::generalPasteboard() {
    static const auto& pasteboard = *new Ref<UIPasteboard>(make<UIPasteboard>());
    return pasteboard;
}

std::optional<std::string> UIPasteboard::string() const {
    return Services::get<Clipboard>()->text();
}

void UIPasteboard::setString(std::string_view text) {
    Services::get<Clipboard>()->setText(text);
}

bool UIPasteboard::hasStrings() const {
    return string().has_value();
}

}  // namespace zn
