#pragma once

#include "platform/uikit/controls/TintedImage.h"
#include "zarnic/platform/drawing/UIFont.h"
#include "zarnic/platform/uikit/UIBarButtonItem.h"
#include "zarnic/platform/uikit/UIButton.h"

namespace zn {

/// What a bar shows for an item without a view of its own.
class BarButton final : public UIButton {
    ZN_OBJECT(BarButton, UIButton)
public:
    BarButton(Ref<UIBarButtonItem> item, Ref<UIColor> barTint);
    ~BarButton() override;
    void init() override;

    Size sizeThatFits(Size size) const override;
    void layoutSubviews() override;

private:
    void tapped();
    void applyAttributes();

    Ref<UIBarButtonItem> item_;
    Ref<UIColor> tint_;
    Ref<TintedImage> picture_;
};

/// Font and colour of text attributes; null where there is none.
Ref<UIFont> fontOf(const Dictionary& attributes);
Ref<UIColor> colorOf(const Dictionary& attributes);

}  // namespace zn
