#include "zarnic/platform/drawing/CGContext.h"

#include <new>

#include "platform/drawing/context/ContextState.h"

namespace zn {

namespace {

/// Pixels, all clear, and a surface that draws on them.
struct Pixels {
    std::unique_ptr<std::uint32_t[]> words;
    CairoSurface surface;
};

/// Without a surface for sizes that cannot be.
Pixels makePixels(double width, double height, bool opaque) {
    constexpr auto longestSide = static_cast<double>(longestSurfaceSide);
    if (!(width > 0 && height > 0 && width <= longestSide && height <= longestSide))
        return {};
    const auto count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    std::unique_ptr<std::uint32_t[]> words(new (std::nothrow) std::uint32_t[count]());
    if (!words)
        return {};
    CairoSurface surface(cairo_image_surface_create_for_data(
        reinterpret_cast<unsigned char*>(words.get()),
        opaque ? CAIRO_FORMAT_RGB24 : CAIRO_FORMAT_ARGB32, static_cast<int>(width),
        static_cast<int>(height), static_cast<int>(width) * 4));
    if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS)
        return {};
    return {std::move(words), std::move(surface)};
}

/// Calls `row(bytes, pixels)` for every row of the caller's memory and of the surface.
template <class Row>
void eachRow(const BitmapBuffer& bitmap, cairo_surface_t* surface, Row row) {
    cairo_surface_flush(surface);
    const auto width = static_cast<std::size_t>(cairo_image_surface_get_width(surface));
    const int height = cairo_image_surface_get_height(surface);
    const std::ptrdiff_t stride = cairo_image_surface_get_stride(surface);
    unsigned char* data = cairo_image_surface_get_data(surface);
    for (int y = 0; y < height; ++y) {
        auto* pixels = reinterpret_cast<std::uint32_t*>(data + y * stride);
        row(bitmap.bytes + static_cast<std::size_t>(y) * bitmap.bytesPerRow,
            std::span<std::uint32_t>{pixels, width});
    }
}

}  // namespace

CGContext::State::State(CairoSurface target, const cairo_matrix_t& baseMatrix, double pixelScale,
                        bool isOpaque)
    : surface(std::move(target)),
      cairo(cairo_create(surface.get())),
      base(baseMatrix),
      scale(pixelScale),
      opaque(isOpaque) {
    cairo_set_matrix(cairo.get(), &base);
    cairo_set_line_width(cairo.get(), 1);
}

CGContext::CGContext(std::unique_ptr<State> state) : state_(std::move(state)) {}

CGContext::~CGContext() {
    flush();
}

Ref<CGContext> CGContext::bitmap(void* buffer, std::size_t width, std::size_t height,
                                 std::size_t bitsPerComponent, std::size_t bytesPerRow,
                                 CGColorSpace space, std::uint32_t bitmapInfo) {
    const auto format = PixelFormat::of(space, bitmapInfo);
    if (!format || bitsPerComponent != 8)
        return nullptr;
    Pixels target =
        makePixels(static_cast<double>(width), static_cast<double>(height), !format->hasAlpha());
    const std::size_t neededPerRow = width * format->bytesPerPixel();
    if (!target.surface || (bytesPerRow != 0 && bytesPerRow < neededPerRow))
        return nullptr;
    const cairo_matrix_t upward{1, 0, 0, -1, 0, static_cast<double>(height)};
    auto state = std::make_unique<State>(std::move(target.surface), upward, 1, !format->hasAlpha());
    state->pixels = std::move(target.words);
    if (buffer != nullptr) {
        state->bitmap = BitmapBuffer{static_cast<std::byte*>(buffer),
                                     bytesPerRow != 0 ? bytesPerRow : neededPerRow, *format};
        eachRow(*state->bitmap, state->surface.get(),
                [&](std::byte* bytes, auto pixels) { format->read(bytes, pixels); });
        cairo_surface_mark_dirty(state->surface.get());
    }
    return make<CGContext>(std::move(state));
}

Ref<CGContext> CGContext::image(Size size, bool opaque, double scale) {
    Pixels target =
        makePixels(std::ceil(size.width * scale), std::ceil(size.height * scale), opaque);
    if (!target.surface || !(scale > 0))
        return nullptr;
    auto state = std::make_unique<State>(std::move(target.surface),
                                         cairo_matrix_t{scale, 0, 0, scale, 0, 0}, scale, opaque);
    state->pixels = std::move(target.words);
    return make<CGContext>(std::move(state));
}

std::size_t CGContext::pixelWidth() const {
    return static_cast<std::size_t>(cairo_image_surface_get_width(state_->surface.get()));
}

std::size_t CGContext::pixelHeight() const {
    return static_cast<std::size_t>(cairo_image_surface_get_height(state_->surface.get()));
}

Ref<CGImage> CGContext::makeImage() const {
    return imageOfSurface(state_->surface.get(), state_->opaque);
}

void CGContext::flush() {
    cairo_surface_flush(state_->surface.get());
    if (const auto& bitmap = state_->bitmap)
        eachRow(*bitmap, state_->surface.get(),
                [&](std::byte* bytes, auto pixels) { bitmap->format.write(pixels, bytes); });
}

AffineTransform CGContext::ctm() const {
    cairo_matrix_t matrix;
    cairo_get_matrix(state_->cairo.get(), &matrix);
    return fromCairo(matrix);
}

bool CGContext::flipped() const {
    return state_->flipped();
}

}  // namespace zn
