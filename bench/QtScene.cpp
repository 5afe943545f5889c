#include "bench/QtScene.h"

#include <QGraphicsBlurEffect>
#include <QGraphicsPixmapItem>
#include <QGraphicsScene>
#include <QPainter>

#include "bench/Scene.h"

namespace bench {
namespace {

QFont fontOfSize(double size) {
    QFont font("Inter");
    font.setPixelSize(static_cast<int>(size));
    return font;
}

/// A rounded box with a text in its middle.
class Box : public QWidget {
public:
    Box(QWidget* parent, const QColor& color, const QString& text, double fontSize)
        : QWidget(parent), color_(color), text_(text) {
        setFont(fontOfSize(fontSize));
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(color_);
        painter.drawRoundedRect(rect(), scene::radius, scene::radius);
        painter.setPen(Qt::white);
        painter.drawText(rect(), Qt::AlignCenter, text_);
    }

private:
    QColor color_;
    QString text_;
};

QPixmap blurredShadow(const QSize& size, int margin) {
    QPixmap box(size);
    box.fill(Qt::transparent);
    {
        QPainter painter(&box);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setBrush(QColor(0, 0, 0, 153));
        painter.setPen(Qt::NoPen);
        painter.drawRoundedRect(box.rect(), scene::radius, scene::radius);
    }
    auto* blur = new QGraphicsBlurEffect;
    blur->setBlurRadius(42);
    auto* item = new QGraphicsPixmapItem(box);
    item->setGraphicsEffect(blur);
    QGraphicsScene scene;
    scene.addItem(item);
    QPixmap result(size + QSize(2 * margin, 2 * margin));
    result.fill(Qt::transparent);
    QPainter painter(&result);
    scene.render(&painter, result.rect(), QRectF(result.rect()).translated(-margin, -margin));
    return result;
}

/// The toast with a shadow that was blurred once.
class Toast : public QWidget {
public:
    static constexpr int margin = 48;

    explicit Toast(QWidget* parent)
        : QWidget(parent), shadow_(blurredShadow(inner().size().toSize(), margin)) {
        setFont(fontOfSize(15));
        setGeometry(static_cast<int>(scene::toastX) - margin,
                    static_cast<int>(scene::toastY) - margin,
                    static_cast<int>(scene::toastWidth) + 2 * margin,
                    static_cast<int>(scene::toastHeight) + 2 * margin + 16);
    }

protected:
    static QRectF inner() { return {margin, margin, scene::toastWidth, scene::toastHeight}; }

    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.drawPixmap(0, 16, shadow_);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(0, 0, 0, 189));
        painter.drawRoundedRect(inner(), scene::radius, scene::radius);
        painter.setPen(Qt::white);
        painter.drawText(inner(), Qt::AlignCenter, scene::toastText);
    }

private:
    QPixmap shadow_;
};

}  // namespace

QtScene::QtScene()
    : picture_(static_cast<int>(scene::width * scene::scale),
               static_cast<int>(scene::height * scene::scale),
               QImage::Format_ARGB32_Premultiplied) {
    picture_.setDevicePixelRatio(scene::scale);
    window_ = std::make_unique<QWidget>();
    window_->resize(static_cast<int>(scene::width), static_cast<int>(scene::height));
    window_->setPalette(QPalette(Qt::white));
    window_->setAutoFillBackground(true);
    for (int index = 0; index < scene::columns * scene::rows; ++index) {
        const double x = index % scene::columns * scene::cellWidth + scene::gap;
        const double y = index / scene::columns * scene::cellHeight + scene::gap;
        auto* box = new Box(window_.get(), QColor::fromHsv(index * 6, 150, 200),
                            "Box " + QString::number(index), scene::fontSize);
        box->setGeometry(static_cast<int>(x), static_cast<int>(y),
                         static_cast<int>(scene::cellWidth - 2 * scene::gap),
                         static_cast<int>(scene::cellHeight - 2 * scene::gap));
    }
    toast_ = new Toast(window_.get());
    opacity_ = new QGraphicsOpacityEffect;
    toast_->setGraphicsEffect(opacity_);
    toast_->hide();
    window_->show();
}

QtScene::~QtScene() = default;

void QtScene::paintAll() {
    toast_->hide();
    window_->render(&picture_);
}

void QtScene::paintToast(double opacity) {
    toast_->show();
    opacity_->setOpacity(opacity);
    window_->render(&picture_, toast_->pos(), QRegion(toast_->geometry()));
}

}  // namespace bench
