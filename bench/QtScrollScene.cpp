#include "bench/QtScrollScene.h"

#include <QApplication>
#include <QLabel>
#include <QScrollBar>

#include "bench/ScrollScene.h"

namespace bench {
namespace {

int pixels(double points) {
    return static_cast<int>(points * scroll::scale);
}

void paintBackground(QWidget& widget, const QColor& color) {
    widget.setPalette(QPalette(color));
    widget.setAutoFillBackground(true);
}

void addLabel(QWidget* row, const std::string& text, double size, const char* color,
              Qt::Alignment alignment) {
    auto* label = new QLabel(QString::fromStdString(text), row);
    QFont font("Inter");
    font.setPixelSize(pixels(size));
    label->setFont(font);
    QPalette palette;
    palette.setColor(QPalette::WindowText, QColor(color));
    label->setPalette(palette);
    label->setAlignment(alignment | Qt::AlignVCenter);
    label->setGeometry(pixels(scroll::margin), 0, pixels(scroll::width - 2 * scroll::margin),
                       pixels(scroll::rowHeight - 1));
}

void addRow(QWidget* page, int index) {
    auto* row = new QWidget(page);
    paintBackground(*row, Qt::white);
    row->setGeometry(0, pixels(index * scroll::rowHeight), pixels(scroll::width),
                     pixels(scroll::rowHeight));
    addLabel(row, scroll::title(index), scroll::titleSize, "#1a1a1a", Qt::AlignLeft);
    addLabel(row, scroll::detail(index), scroll::detailSize, "#666666", Qt::AlignRight);
    auto* line = new QWidget(row);
    paintBackground(*line, QColor("#cccccc"));
    line->setGeometry(pixels(scroll::margin), pixels(scroll::rowHeight - 1),
                      pixels(scroll::width - scroll::margin), pixels(1));
}

}  // namespace

QtScrollScene::QtScrollScene() : area_(std::make_unique<QScrollArea>()) {
    area_->setFrameShape(QFrame::NoFrame);
    area_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area_->resize(pixels(scroll::width), pixels(scroll::height));
    auto* page = new QWidget;
    paintBackground(*page, Qt::white);
    page->resize(pixels(scroll::width), pixels(scroll::length));
    for (int index = 0; index < scroll::rows; ++index)
        addRow(page, index);
    area_->setWidget(page);
    area_->show();
    QApplication::processEvents();
}

QtScrollScene::~QtScrollScene() = default;

void QtScrollScene::show(double offset) {
    area_->verticalScrollBar()->setValue(pixels(offset));
    QApplication::processEvents();
}

QImage QtScrollScene::picture() {
    return area_->grab().toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

}  // namespace bench
