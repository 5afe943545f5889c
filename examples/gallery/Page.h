#pragma once

#include <zarnic/ZNViewController.h>
#include <zarnic/platform/uikit/UIScrollView.h>

#include <functional>
#include <string>
#include <vector>

namespace gallery {

/// The base of the gallery's screens: a light background and a column of content that scrolls
/// when it is higher than the screen.
class PageController : public zn::ZNViewController {
    ZN_OBJECT(PageController, zn::ZNViewController)
public:
    void viewDidLoad() override;
    void viewDidLayoutSubviews() override;
    /// Scrolls to the end of the column.
    void showEnd();

protected:
    /// Fills the column; called once, and again by `rebuild`.
    virtual void build() {}
    /// Empties the column and fills it anew.
    void rebuild();

    double contentWidth();
    void addText(std::string_view text);
    void addHeading(std::string_view text);
    /// Puts the view below what is there already, moved to the column.
    void add(const zn::Ref<zn::UIView>& view);

private:
    zn::Ref<zn::UIScrollView> content_;
    double bottom_ = 0;
};

/// A picture of the gallery: what it shows, and how it comes about.
struct Page {
    std::string name;
    std::string title;
    /// Told at start-up by `--list`.
    std::string summary;
    std::function<zn::Ref<PageController>()> make;
    /// Brings the screen to the moment of the picture. Returns how many seconds to let pass.
    std::function<double(const zn::Ref<PageController>&)> pose;
    /// Undoes what outlives the screen. Returns how many seconds to let pass.
    std::function<double()> leave;
};

const std::vector<Page>& pages();
const Page* pageNamed(std::string_view name);

}  // namespace gallery
