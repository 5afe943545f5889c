#include "zarnic/platform/services/Clipboard.h"

namespace zn {
namespace {

class ProcessClipboard final : public Clipboard {
public:
    std::optional<std::string> text() override { return text_; }
    void setText(std::string_view text) override { text_ = text; }

private:
    std::optional<std::string> text_;
};

}  // namespace

Ref<Clipboard> Clipboard::systemImplementation() {
    return make<ProcessClipboard>();
}

}  // namespace zn
