#pragma once

#include <QGraphicsOpacityEffect>
#include <QImage>
#include <QWidget>

#include <memory>

namespace bench {

/// The scene as widgets, in an offscreen window of the raster engine.
class QtScene {
public:
    QtScene();
    ~QtScene();

    /// Paints everything into a picture of 750 x 1334 pixels.
    void paintAll();
    /// One frame of the toast's fade: sets its opacity and repaints what that changes.
    void paintToast(double opacity);
    const QImage& picture() const { return picture_; }

private:
    QImage picture_;
    std::unique_ptr<QWidget> window_;
    QWidget* toast_ = nullptr;
    QGraphicsOpacityEffect* opacity_ = nullptr;
};

}  // namespace bench
