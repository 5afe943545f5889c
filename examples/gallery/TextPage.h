#pragma once

#include <zarnic/platform/uikit/UITextField.h>
#include <zarnic/platform/uikit/UITextView.h>

#include "Page.h"

namespace gallery {

/// Text to type into: fields of several kinds, a text view with a placeholder, fonts.
class TextPage : public PageController {
    ZN_OBJECT(TextPage, PageController)
public:
    void init() override;
    /// Begins to edit the name, with a word of it selected.
    void editName();
    /// Writes into the text view.
    void writeNote();

protected:
    void build() override;

private:
    zn::Ref<zn::UITextField> addField(std::string_view placeholder);

    zn::Ref<zn::UITextField> name_;
    zn::Ref<zn::UITextView> note_;
};

}  // namespace gallery
