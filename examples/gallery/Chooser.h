#pragma once

#include <zarnic/platform/drawing/UIColor.h>
#include <zarnic/platform/uikit/UIControl.h>

#include <functional>
#include <string>
#include <vector>

namespace gallery {

/// A row of fields of which one is chosen; it has a ring around it.
class Chooser : public zn::UIView {
    ZN_OBJECT(Chooser, zn::UIView)
public:
    /// A text, or without one a colour.
    struct Option {
        std::string text;
        zn::Ref<zn::UIColor> color;
    };
    using Chosen = std::function<void(std::size_t)>;

    Chooser(double width, std::vector<Option> options, Chosen chosen);
    void init() override;
    void choose(std::size_t index);

private:
    zn::Ref<zn::UIControl> field(std::size_t index, const zn::Rect& frame);

    std::vector<Option> options_;
    Chosen chosen_;
    std::vector<zn::Ref<zn::UIControl>> fields_;
};

}  // namespace gallery
