#pragma once

#include <zarnic/platform/foundation/NSNotificationCenter.h>
#include <zarnic/platform/uikit/UILabel.h>

#include "Page.h"

namespace gallery {

/// What the machine's services say while the page is open, and a font from a file.
class ServicesPage : public PageController {
    ZN_OBJECT(ServicesPage, PageController)
public:
    void init() override;
    void viewDidLoad() override;

    /// Called at each change of the Bluetooth power.
    void ZNBluetoothHelperDelegateStatus(bool status);
    void lockStatusChanged(const zn::Ref<zn::NSNotification>& notification);

protected:
    void build() override;

private:
    zn::Ref<zn::UILabel> addStatus(std::string_view title, std::string_view text);
    void addSample(std::string_view title, const zn::Ref<zn::UIFont>& font);

    zn::Ref<zn::UILabel> bluetooth_;
    zn::Ref<zn::UILabel> lock_;
};

}  // namespace gallery
