#include <algorithm>
#include <bit>
#include <vector>

#include "platform/drawing/codecs/Exif.h"
#include "platform/drawing/codecs/ImageCodec.h"
#include "platform/drawing/codecs/JpegSource.h"
#include "platform/drawing/pixels/PixelFormat.h"

namespace zn {

namespace {

constexpr int exifMarker = JPEG_APP0 + 1;

/// Some programs store how much ink is left out instead of how much there is; those say so.
enum class Ink { None, Stored, LeftOut };

/// Cyan, magenta, yellow and black bytes to words, in place.
void colorInk(std::span<std::uint32_t> row, Ink ink) {
    const std::uint32_t turned = ink == Ink::Stored ? 0xFF : 0;
    auto* bytes = reinterpret_cast<const JSAMPLE*>(row.data());
    for (std::uint32_t& pixel : row) {
        const std::uint32_t light = bytes[3] ^ turned;
        pixel = 0xFF000000 | premultiplied(bytes[0] ^ turned, light) << 16 |
                premultiplied(bytes[1] ^ turned, light) << 8 |
                premultiplied(bytes[2] ^ turned, light);
        bytes += sizeof(std::uint32_t);
    }
}

class JpegReader {
public:
    explicit JpegReader(std::span<const std::byte> bytes) : source_(bytes), codec_() {
        codec_.err = &errors_;
        runJpegSteps(errors_, [this] { jpeg_create_decompress(&codec_); });
        source_.attach(&codec_);
    }
    ~JpegReader() { jpeg_destroy_decompress(&codec_); }
    JpegReader(const JpegReader&) = delete;
    JpegReader& operator=(const JpegReader&) = delete;

    std::optional<DecodedImage> read() {
        if (!readHeader() || !start())
            return std::nullopt;
        std::vector<std::uint32_t> first(codec_.output_width);
        if (!readRow(first.data()))
            return std::nullopt;
        return DecodedImage{readPixels(first), orientation()};
    }

    /// When the codec gave up between scans, its state is of no use, but another reader can decode
    /// what it had read before: how many bytes lie behind that.
    std::optional<std::size_t> bytesBehindGoodOnes() const {
        return gaveUp_ ? std::optional(bytesLeft_) : std::nullopt;
    }

private:
    bool readHeader() {
        constexpr unsigned longestSegment = 0xFFFF;
        const auto steps = [this] {
            jpeg_save_markers(&codec_, exifMarker, longestSegment);
            jpeg_read_header(&codec_, TRUE);
            codec_.buffered_image = jpeg_has_multiple_scans(&codec_);
        };
        // Behind the header there must be something of the first scan.
        return codec_.mem && runJpegSteps(errors_, steps) && !source_.ended() &&
               source_.bytes_in_buffer > 0 && mayDecode(codec_.image_width, codec_.image_height);
    }

    bool start() {
        if (codec_.jpeg_color_space == JCS_CMYK || codec_.jpeg_color_space == JCS_YCCK) {
            ink_ = codec_.saw_Adobe_marker ? Ink::LeftOut : Ink::Stored;
            codec_.out_color_space = JCS_CMYK;
        } else {
            codec_.out_color_space =
                std::endian::native == std::endian::little ? JCS_EXT_BGRA : JCS_EXT_ARGB;
        }
        rowsShown_ = codec_.image_height;
        return runJpegSteps(errors_, [this] { jpeg_start_decompress(&codec_); }) &&
               (!codec_.buffered_image || readScans());
    }

    /// Each scan refines the whole picture and costs as much time, even one of a few bytes.
    int mostScans() const {
        constexpr std::uint64_t mostWork = 2'000'000'000;
        const std::uint64_t pixels = std::uint64_t{codec_.image_width} * codec_.image_height;
        return static_cast<int>(std::clamp<std::uint64_t>(mostWork / pixels, 30, 500));
    }

    bool readScans() {
        bool whole = false;
        const int most = mostScans();
        gaveUp_ = !runJpegSteps(errors_, [&] {
            while (!whole && !starvedEarly() && codec_.input_scan_number <= most) {
                bytesLeft_ = bytesLeft();
                whole = jpeg_consume_input(&codec_) == JPEG_REACHED_EOI;
            }
        });
        if (gaveUp_)
            return false;
        const int complete = codec_.input_scan_number - (whole ? 0 : 1);
        if (complete < 1)
            rowsShown_ = std::min(rowsShown_, codec_.input_iMCU_row * blockRowHeight());
        return runJpegSteps(errors_, [&] { jpeg_start_output(&codec_, std::max(1, complete)); });
    }

    /// What the first scan lacks must not become as much memory as the file claims.
    bool starvedEarly() const { return source_.starved() && codec_.input_scan_number == 1; }

    /// From the mark on at which the codec stands, if it stands at one.
    std::size_t bytesLeft() const {
        constexpr std::size_t markLength = 2;
        return source_.bytes_in_buffer + (codec_.unread_marker != 0 ? markLength : 0);
    }

    JDIMENSION blockRowHeight() const {
        return static_cast<JDIMENSION>(codec_.max_v_samp_factor) * DCTSIZE;
    }

    /// False when there is no further row.
    bool readRow(std::uint32_t* row) {
        bool read = false;
        if (codec_.output_scanline < rowsShown_)
            runJpegSteps(errors_, [&] {
                auto* samples = reinterpret_cast<JSAMPROW>(row);
                read = jpeg_read_scanlines(&codec_, &samples, 1) == 1;
            });
        if (!codec_.buffered_image && source_.starved())
            rowsShown_ = std::min(rowsShown_, (source_.starvedRow() + 1) * blockRowHeight());
        if (read && ink_ != Ink::None)
            colorInk({row, codec_.output_width}, ink_);
        return read;
    }

    Ref<CGImage> readPixels(std::span<const std::uint32_t> first) {
        const std::size_t width = codec_.output_width, height = codec_.output_height;
        auto pixels = std::make_unique_for_overwrite<std::uint32_t[]>(width * height);
        std::ranges::copy(first, pixels.get());
        std::size_t rows = 1;
        while (readRow(pixels.get() + rows * width))
            ++rows;
        std::fill(pixels.get() + rows * width, pixels.get() + height * width, 0);
        return make<CGImage>(
            width, height, std::move(pixels),
            rows == height ? CGImage::Opacity::Opaque : CGImage::Opacity::Translucent);
    }

    UIImageOrientation orientation() const {
        for (auto segment = codec_.marker_list; segment; segment = segment->next)
            if (segment->data_length >= 6 && segment->data[0] == 'E' && segment->data[1] == 'x')
                return exifOrientationOfSegment(
                    std::as_bytes(std::span(segment->data, segment->data_length)));
        return UIImageOrientation::Up;
    }

    JpegErrors errors_;
    JpegSource source_;
    jpeg_decompress_struct codec_;
    Ink ink_ = Ink::None;
    JDIMENSION rowsShown_ = 0;
    std::size_t bytesLeft_ = 0;
    bool gaveUp_ = false;
};

}  // namespace

bool hasJpegSignature(std::span<const std::byte> bytes) {
    constexpr std::byte mark{0xFF};
    return bytes.size() >= 3 && bytes[0] == mark && bytes[1] == std::byte{0xD8} && bytes[2] == mark;
}

std::optional<DecodedImage> decodeJpeg(std::span<const std::byte> bytes) {
    std::optional<std::size_t> left;
    {
        JpegReader reader(bytes);
        if (auto image = reader.read())
            return image;
        left = reader.bytesBehindGoodOnes();
    }
    return left ? JpegReader(bytes.first(bytes.size() - *left)).read() : std::nullopt;
}

}  // namespace zn
