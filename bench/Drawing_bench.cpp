#include <benchmark/benchmark.h>

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

#include "bench/Peer.h"
#include "zarnic/platform/drawing/CGContext.h"

using namespace zn;

namespace {

constexpr int side = 512;
constexpr CGColor blue = {0, 0.25, 0.75, 1};

/// The same drawing by the library and by its peer.
struct Drawing {
    const char* name;
    void (*ours)(CGContext& context);
    void (*peer)(QPainter& painter);
    double tolerance;
};

void strokeCurve(CGContext& context) {
    context.setStrokeColor(blue);
    context.setLineWidth(6);
    context.setLineCap(CGLineCap::Round);
    context.moveTo({20, 20});
    context.addCurveTo({490, 490}, {500, 10}, {10, 500});
    context.drawPath(CGPathDrawingMode::Stroke);
}

void peerStrokeCurve(QPainter& painter) {
    QPainterPath path(QPointF(20, 20));
    path.cubicTo(500, 10, 10, 500, 490, 490);
    painter.strokePath(path,
                       QPen(QColor::fromRgbF(0, 0.25F, 0.75F), 6, Qt::SolidLine, Qt::RoundCap));
}

void peerGradient(QPainter& painter) {
    QLinearGradient gradient(0, 0, side, 0);
    gradient.setColorAt(0, Qt::white);
    gradient.setColorAt(1, Qt::black);
    painter.fillRect(0, 0, side, side, gradient);
}

const Drawing drawings[] = {
    {"ellipse",
     [](CGContext& context) {
         context.setFillColor(blue);
         context.fillEllipse({{6, 26}, {500, 460}});
     },
     [](QPainter& painter) {
         painter.setPen(Qt::NoPen);
         painter.setBrush(QColor::fromRgbF(0, 0.25F, 0.75F));
         painter.drawEllipse(QRectF(6, 26, 500, 460));
     },
     0.5},
    {"curve", strokeCurve, peerStrokeCurve, 0.5},
    {"gradient",
     [](CGContext& context) {
         context.drawLinearGradient({{{1, 1, 1, 1}, {0, 0, 0, 1}}, {}}, {0, 0}, {side, 0}, 0);
     },
     peerGradient, 1},
};

void compare(const Drawing& drawing) {
    const auto context = CGContext::image({side, side}, false, 1);
    drawing.ours(*context);
    QImage image = bench::peerImage(side);
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        drawing.peer(painter);
    }
    bench::requireSame(drawing.name, *context->makeImage(), image, drawing.tolerance);
}

void Draw_Zarnic(benchmark::State& state) {
    const Drawing& drawing = drawings[state.range(0)];
    state.SetLabel(drawing.name);
    compare(drawing);
    const auto context = CGContext::image({side, side}, false, 1);
    for ([[maybe_unused]] auto turn : state)
        drawing.ours(*context);
}

void Draw_Qt(benchmark::State& state) {
    const Drawing& drawing = drawings[state.range(0)];
    state.SetLabel(drawing.name);
    compare(drawing);
    QImage image = bench::peerImage(side);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    for ([[maybe_unused]] auto turn : state)
        drawing.peer(painter);
}

BENCHMARK(Draw_Zarnic)->DenseRange(0, std::size(drawings) - 1);
BENCHMARK(Draw_Qt)->DenseRange(0, std::size(drawings) - 1);

}  // namespace
