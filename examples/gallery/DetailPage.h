#pragma once

#include <zarnic/platform/foundation/NSURL.h>

#include "Page.h"

namespace gallery {

/// A screen that is opened by its name, and shows what it was given.
class DetailPage : public PageController {
    ZN_OBJECT(DetailPage, PageController)
public:
    void init() override;

protected:
    void build() override;
};

/// Opens the screen that the URL names above the root navigation controller's root; says so when
/// there is none.
bool openURL(const zn::Ref<zn::NSURL>& url);

}  // namespace gallery
