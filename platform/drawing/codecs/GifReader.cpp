#include <gif_lib.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <vector>

#include "platform/drawing/codecs/ImageCodec.h"

namespace zn {

namespace {

struct FileDeleter {
    void operator()(GifFileType* file) const { DGifCloseFile(file, nullptr); }
};

class GifReader {
public:
    explicit GifReader(std::span<const std::byte> bytes) : rest_(bytes) {
        file_.reset(DGifOpen(this, read, nullptr));
    }

    std::optional<DecodedImage> read() {
        if (!file_ || !findImage() || !placeImage())
            return std::nullopt;
        const auto colors = palette();
        std::vector<GifPixelType> line(width_);
        pastEndIsZero_ = true;
        std::unique_ptr<std::uint32_t[]> pixels;
        for (const std::size_t row : rowOrder()) {
            if (DGifGetLine(file_.get(), line.data(), static_cast<int>(width_)) != GIF_OK)
                break;
            if (!pixels)
                pixels = std::make_unique<std::uint32_t[]>(screenWidth_ * screenHeight_);
            draw(line, row, colors, pixels.get());
        }
        if (!pixels)
            return std::nullopt;
        return DecodedImage{make<CGImage>(screenWidth_, screenHeight_, std::move(pixels))};
    }

private:
    using Palette = std::array<std::uint32_t, 256>;

    static int read(GifFileType* file, GifByteType* bytes, int length) {
        return static_cast<GifReader*>(file->UserData)->readBytes(bytes, length);
    }

    /// A file that ends within the pixels seems to go on with empty blocks, so that the last row is
    /// good without what should follow it.
    int readBytes(GifByteType* bytes, int length) {
        const auto wanted = static_cast<std::size_t>(length);
        const std::size_t given = std::min(wanted, rest_.size());
        std::memcpy(bytes, rest_.data(), given);
        rest_ = rest_.subspan(given);
        if (!pastEndIsZero_)
            return static_cast<int>(given);
        std::fill(bytes + given, bytes + wanted, GifByteType{0});
        return length;
    }

    /// Goes to the first picture, past what stands before it.
    bool findImage() {
        GifRecordType type = UNDEFINED_RECORD_TYPE;
        while (DGifGetRecordType(file_.get(), &type) == GIF_OK) {
            if (type == IMAGE_DESC_RECORD_TYPE)
                return DGifGetImageDesc(file_.get()) == GIF_OK;
            if (type != EXTENSION_RECORD_TYPE || !readExtension())
                return false;
        }
        return false;
    }

    bool readExtension() {
        int code = 0;
        GifByteType* block = nullptr;
        if (DGifGetExtension(file_.get(), &code, &block) != GIF_OK)
            return false;
        GraphicsControlBlock control;
        if (code == GRAPHICS_EXT_FUNC_CODE && block &&
            DGifExtensionToGCB(block[0], block + 1, &control) == GIF_OK)
            clearIndex_ = control.TransparentColor;
        while (block)
            if (DGifGetExtensionNext(file_.get(), &block) != GIF_OK)
                return false;
        return true;
    }

    /// The canvas is the file's screen, or as large as the picture when the file names none.
    bool placeImage() {
        const auto number = [](GifWord value) { return static_cast<std::size_t>(value); };
        const GifImageDesc& image = file_->Image;
        left_ = number(image.Left);
        top_ = number(image.Top);
        width_ = number(image.Width);
        height_ = number(image.Height);
        const bool named = file_->SWidth > 0 && file_->SHeight > 0;
        screenWidth_ = named ? number(file_->SWidth) : left_ + width_;
        screenHeight_ = named ? number(file_->SHeight) : top_ + height_;
        return mayDecode(width_, height_) && mayDecode(screenWidth_, screenHeight_);
    }

    /// Clear where the file has no colour.
    Palette palette() const {
        Palette colors{};
        const ColorMapObject* map =
            file_->Image.ColorMap ? file_->Image.ColorMap : file_->SColorMap;
        const std::size_t count =
            map ? std::min(colors.size(), static_cast<std::size_t>(map->ColorCount)) : 0;
        for (std::size_t i = 0; i < count; ++i) {
            const GifColorType& color = map->Colors[i];
            colors[i] = 0xFF000000U | std::uint32_t{color.Red} << 16 |
                        std::uint32_t{color.Green} << 8 | color.Blue;
        }
        if (clearIndex_ >= 0)
            colors[static_cast<std::size_t>(clearIndex_)] = 0;
        return colors;
    }

    /// The rows as they follow each other in the file (GIF89a, appendix E).
    std::vector<std::size_t> rowOrder() const {
        struct Pass {
            std::size_t first, step;
        };
        constexpr Pass all[]{{0, 1}};
        constexpr Pass interlaced[]{{0, 8}, {4, 8}, {2, 4}, {1, 2}};
        std::vector<std::size_t> rows;
        rows.reserve(height_);
        for (const auto [first, step] :
             file_->Image.Interlace ? std::span<const Pass>(interlaced) : std::span(all))
            for (std::size_t row = first; row < height_; row += step)
                rows.push_back(row);
        return rows;
    }

    /// What lies outside the screen is cut away.
    void draw(std::span<const GifPixelType> line, std::size_t row, const Palette& colors,
              std::uint32_t* pixels) const {
        const std::size_t y = top_ + row;
        if (y >= screenHeight_ || left_ >= screenWidth_)
            return;
        const std::size_t count = std::min(width_, screenWidth_ - left_);
        std::transform(line.begin(), line.begin() + static_cast<std::ptrdiff_t>(count),
                       pixels + y * screenWidth_ + left_,
                       [&colors](GifPixelType index) { return colors[index]; });
    }

    std::span<const std::byte> rest_;
    bool pastEndIsZero_ = false;
    std::unique_ptr<GifFileType, FileDeleter> file_;
    int clearIndex_ = NO_TRANSPARENT_COLOR;
    std::size_t left_ = 0, top_ = 0, width_ = 0, height_ = 0;
    std::size_t screenWidth_ = 0, screenHeight_ = 0;
};

}  // namespace

bool hasGifSignature(std::span<const std::byte> bytes) {
    return bytes.size() >= 6 && (std::memcmp(bytes.data(), GIF87_STAMP, 6) == 0 ||
                                 std::memcmp(bytes.data(), GIF89_STAMP, 6) == 0);
}

std::optional<DecodedImage> decodeGif(std::span<const std::byte> bytes) {
    return GifReader(bytes).read();
}

}  // namespace zn
