#pragma once

#include "Page.h"

namespace gallery {

/// The list of the other pages.
class HomePage : public PageController {
    ZN_OBJECT(HomePage, PageController)
public:
    void init() override;

protected:
    void build() override;
};

}  // namespace gallery
