#pragma once

#include <QImage>
#include <QScrollArea>

#include <memory>

namespace bench {

/// The page as widgets in a scroll area, in a window of as many pixels of one point each. A frame
/// is what the window system would be given: the area moves what it can, and paints the rest.
class QtScrollScene {
public:
    QtScrollScene();
    ~QtScrollScene();

    /// Moves the content there (points of the scene) and paints what that changes.
    void show(double offset);
    QImage picture();

private:
    std::unique_ptr<QScrollArea> area_;
};

}  // namespace bench
