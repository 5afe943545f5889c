#pragma once

#include <zarnic/platform/uikit/UILabel.h>

#include <cstdint>
#include <utility>
#include <vector>

#include "Page.h"

namespace gallery {

/// Switches the application's language while it runs.
class LanguagePage : public PageController {
    ZN_OBJECT(LanguagePage, PageController)
public:
    void init() override;
    /// By the name of a localization; an unknown one follows the device.
    void choose(std::string_view localization);

protected:
    void build() override;

private:
    void addCard();
    void addLanguages();
    void addKeyedLabel(const char* key, const zn::Ref<zn::UILabel>& label);
    void refresh();

    zn::Ref<zn::UIView> card_;
    std::vector<std::pair<const char*, zn::Ref<zn::UILabel>>> labels_;
    std::vector<std::pair<std::int64_t, zn::Ref<zn::UILabel>>> marks_;
};

}  // namespace gallery
