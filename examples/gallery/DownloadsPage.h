#pragma once

#include <zarnic/platform/uikit/UIImageView.h>
#include <zarnic/platform/uikit/UILabel.h>

#include <memory>

#include "Page.h"
#include "PictureServer.h"

namespace gallery {

/// Pictures that come from a web server, and what the caches hold of them.
class DownloadsPage final : public PageController {
    ZN_OBJECT(DownloadsPage, PageController)
public:
    ~DownloadsPage() override;
    void init() override;

protected:
    void build() override;

private:
    void addGrid();
    void addUse();
    void addActions();
    zn::Ref<zn::UIImageView> addPicture(const zn::Ref<zn::UIView>& row, double x, double side);
    zn::Ref<zn::UILabel> addFigure(const zn::Ref<zn::UIView>& panel, std::string_view title,
                                   double y);
    void load();
    void showUse();
    void deleteFiles();
    void forget();

    std::unique_ptr<PictureServer> server_;
    std::vector<zn::Ref<zn::UIImageView>> pictures_;
    zn::Ref<zn::UILabel> memory_;
    zn::Ref<zn::UILabel> files_;
    zn::Ref<zn::UILabel> requests_;
};

}  // namespace gallery
