#pragma once

#include "zarnic/platform/host/HeadlessHost.h"
#include "zarnic/platform/uikit/UIWindow.h"

namespace bench {

/// The scene as views, on the headless screen.
class ZarnicScene {
public:
    static ZarnicScene& shared();

    /// Paints everything into the screen's picture of 750 x 1334 pixels.
    void paintAll();
    /// One frame of the toast's fade: sets its opacity and repaints what that changes.
    void paintToast(double opacity);
    zn::HeadlessHost& host() { return host_; }

private:
    ZarnicScene();

    zn::HeadlessHost host_;
    zn::Ref<zn::UIWindow> window_;
    zn::Ref<zn::UIWindow> toast_;
};

}  // namespace bench
