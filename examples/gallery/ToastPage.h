#pragma once

#include <zarnic/platform/uikit/UITextField.h>

#include "Page.h"

namespace gallery {

/// Shows toasts of every kind, with and without a keyboard.
class ToastPage : public PageController {
    ZN_OBJECT(ToastPage, PageController)
public:
    static constexpr const char* shortText = "Saved to your library";
    static constexpr const char* longText =
        "The photograph could not be sent just now. It stays in the outbox and goes out as soon as "
        "there is a connection again.";
    static constexpr const char* chineseText = "已复制到剪贴板，您可以在其他应用中粘贴";
    static constexpr const char* lockText = "Signing you in…";

    void init() override;
    void toggleKeyboard();

protected:
    void build() override;

private:
    zn::Ref<zn::UITextField> field_;
};

}  // namespace gallery
