#pragma once

#include "Page.h"

namespace gallery {

/// Tells what the machine and its screen are.
class DevicePage : public PageController {
    ZN_OBJECT(DevicePage, PageController)
public:
    void init() override;

protected:
    void build() override;
};

}  // namespace gallery
