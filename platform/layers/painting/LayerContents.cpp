#include "platform/layers/painting/LayerContents.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace zn {
namespace {

Size pixelSize(const CGImage& image) {
    return {static_cast<double>(image.width()), static_cast<double>(image.height())};
}

/// How far along the free room each gravity lies: 0 at the left or top edge, 1 at the other.
Point gravityFraction(CAContentsGravity gravity) {
    switch (gravity) {
        case CAContentsGravity::Top:
            return {0.5, 0};
        case CAContentsGravity::Bottom:
            return {0.5, 1};
        case CAContentsGravity::Left:
            return {0, 0.5};
        case CAContentsGravity::Right:
            return {1, 0.5};
        case CAContentsGravity::TopLeft:
            return {0, 0};
        case CAContentsGravity::TopRight:
            return {1, 0};
        case CAContentsGravity::BottomLeft:
            return {0, 1};
        case CAContentsGravity::BottomRight:
            return {1, 1};
        default:
            return {0.5, 0.5};
    }
}

Size stretchedSize(CAContentsGravity gravity, Size natural, Size room) {
    double across = room.width / natural.width, down = room.height / natural.height;
    switch (gravity) {
        case CAContentsGravity::Resize:
            return room;
        case CAContentsGravity::ResizeAspect:
            return {natural.width * std::min(across, down),
                    natural.height * std::min(across, down)};
        case CAContentsGravity::ResizeAspectFill:
            return {natural.width * std::max(across, down),
                    natural.height * std::max(across, down)};
        default:
            return natural;
    }
}

Rect onPixels(const Rect& rect) {
    double left = std::floor(rect.minX() + 0.5), top = std::floor(rect.minY() + 0.5);
    return {left, top, std::max(std::floor(rect.maxX() + 0.5) - left, 1.0),
            std::max(std::floor(rect.maxY() + 0.5) - top, 1.0)};
}

/// Pictures that layers drew are rounded up to whole pixels: the last ones reach a little over.
double overreach(double pixels, double drawn, double scale) {
    double exact = drawn * scale;
    return pixels >= exact && pixels < exact + 1 ? pixels / exact : 1;
}

}  // namespace

Rect contentsBox(const LayerState& state, const LayerPlacement& placement) {
    Size pixels = pixelSize(*state.contents);
    Size natural = state.drawnSize.value_or(
        Size{pixels.width / state.contentsScale, pixels.height / state.contentsScale});
    natural = {natural.width * placement.unit, natural.height * placement.unit};
    const Rect& box = placement.box;
    Size size = stretchedSize(state.contentsGravity, natural, box.size);
    Point fraction = gravityFraction(state.contentsGravity);
    Rect place{box.minX() + (box.width() - size.width) * fraction.x,
               box.minY() + (box.height() - size.height) * fraction.y, size.width, size.height};
    if (!state.drawnSize)
        return placement.aligned ? onPixels(place) : place;
    if (*state.drawnSize == state.bounds.size)
        place = {box.origin, natural};
    else if (placement.aligned)
        place = onPixels(place);
    place.size.width *= overreach(pixels.width, state.drawnSize->width, state.contentsScale);
    place.size.height *= overreach(pixels.height, state.drawnSize->height, state.contentsScale);
    return place;
}

namespace {

/// Where one side is cut: the source in whole pixels, the destination with unstretched ends.
struct Cuts {
    std::array<int, 4> source;
    std::array<double, 4> destination;
};

Cuts cutSide(int pixels, double low, double high, double start, double length,
             double unitsPerPixel) {
    int first = static_cast<int>(std::lround(std::clamp(low, 0.0, 1.0) * pixels));
    int second = static_cast<int>(std::lround(std::clamp(high, 0.0, 1.0) * pixels));
    second = std::max(first, second);
    double head = first * unitsPerPixel, tail = (pixels - second) * unitsPerPixel;
    // Ends that do not fit share what there is.
    if (head + tail > length && head + tail > 0) {
        double shrink = length / (head + tail);
        head *= shrink;
        tail *= shrink;
    }
    return {{0, first, second, pixels},
            {start, start + head, start + length - tail, start + length}};
}

}  // namespace

std::vector<ContentsPart> contentsParts(const LayerState& state, const LayerPlacement& placement) {
    Rect box = contentsBox(state, placement);
    int width = static_cast<int>(state.contents->width());
    int height = static_cast<int>(state.contents->height());
    const Rect& center = state.contentsCenter;
    if (center == Rect(0, 0, 1, 1))
        return {{{0, 0, width, height}, box}};
    double unitsPerPixel = placement.unit / state.contentsScale;
    Cuts x = cutSide(width, center.minX(), center.maxX(), box.minX(), box.width(), unitsPerPixel);
    Cuts y = cutSide(height, center.minY(), center.maxY(), box.minY(), box.height(), unitsPerPixel);
    std::vector<ContentsPart> parts;
    for (std::size_t row = 0; row < 3; ++row)
        for (std::size_t column = 0; column < 3; ++column)
            parts.push_back(
                {{x.source[column], y.source[row], x.source[column + 1] - x.source[column],
                  y.source[row + 1] - y.source[row]},
                 {x.destination[column], y.destination[row],
                  x.destination[column + 1] - x.destination[column],
                  y.destination[row + 1] - y.destination[row]}});
    return parts;
}

}  // namespace zn
