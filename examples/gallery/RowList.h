#pragma once

#include <zarnic/platform/uikit/UIControl.h>
#include <zarnic/platform/uikit/UIView.h>

#include <functional>
#include <string>
#include <vector>

namespace gallery {

/// One line of a list: a title, a quieter text below or at the right, and what a tap does.
struct Row {
    std::string title;
    std::string detail;
    /// Without one the row only tells.
    std::function<void()> tapped;
};

/// A panel of rows with lines between them, as high as its rows.
class RowList : public zn::UIView {
    ZN_OBJECT(RowList, zn::UIView)
public:
    /// Place and width.
    RowList(zn::Point origin, double width, std::vector<Row> rows);
    void init() override;

private:
    zn::Point origin_;
    double width_;
    std::vector<Row> rows_;
};

}  // namespace gallery
