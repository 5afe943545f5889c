#pragma once

#include <zarnic/platform/drawing/UIImage.h>

#include "Page.h"

namespace gallery {

/// What is done with pictures: tints, scalings, captures, crops and the icons of an application.
class ImagesPage : public PageController {
    ZN_OBJECT(ImagesPage, PageController)
public:
    void init() override;

protected:
    void build() override;

private:
    void addOperations(const zn::Ref<zn::UIImage>& picture);
    void addCaptures();
    void addIcons(const zn::Ref<zn::UIImage>& picture);
};

}  // namespace gallery
