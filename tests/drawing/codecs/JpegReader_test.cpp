#include <gtest/gtest.h>
#include <turbojpeg.h>

#include <algorithm>
#include <array>

#include "tests/drawing/Pixels.h"
#include "tests/drawing/codecs/ImageFiles.h"

namespace zn {
namespace {

/// By the codec's other interface, in the format of images.
std::vector<std::uint32_t> referencePixels(const Bytes& jpeg) {
    const auto* bytes = reinterpret_cast<const unsigned char*>(jpeg.data());
    const tjhandle handle = tjInitDecompress();
    int width = 0, height = 0, subsampling = 0, space = 0;
    tjDecompressHeader3(handle, bytes, jpeg.size(), &width, &height, &subsampling, &space);
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(width * height));
    EXPECT_EQ(
        tjDecompress2(handle, bytes, jpeg.size(), reinterpret_cast<unsigned char*>(pixels.data()),
                      width, 0, height, TJPF_BGRA, TJFLAG_ACCURATEDCT),
        0);
    tjDestroy(handle);
    return pixels;
}

Ref<CGImage> decoded(std::span<const std::byte> bytes) {
    const auto image = UIImage::imageWithData(bytes);
    return image ? image->cgImage() : nullptr;
}

void sample(jpeg_compress_struct& codec, int horizontal, int vertical) {
    codec.comp_info[0].h_samp_factor = horizontal;
    codec.comp_info[0].v_samp_factor = vertical;
}

/// Right behind the file's first marker, as the rules of EXIF want it.
Bytes withSegment(const Bytes& jpeg, int marker, std::span<const std::byte> content) {
    Bytes result(jpeg.begin(), jpeg.begin() + 2);
    appendNumber(result, 0xFF, 1);
    appendNumber(result, static_cast<std::uint32_t>(marker), 1);
    appendNumber(result, static_cast<std::uint32_t>(content.size() + 2) >> 8, 1);
    appendNumber(result, static_cast<std::uint32_t>(content.size() + 2), 1);
    append(result, content);
    append(result, std::span(jpeg).subspan(2));
    return result;
}

Bytes withExif(const Bytes& jpeg, std::span<const std::byte> data) {
    Bytes content;
    appendText(content, std::string_view("Exif\0\0", 6));
    append(content, data);
    return withSegment(jpeg, JPEG_APP0 + 1, content);
}

TEST(JpegReader, ReadsEveryKindAsTheCodecDoes) {
    const std::pair<const char*, JpegSettings> kinds[] = {
        {"full colours", [](auto& codec) { sample(codec, 1, 1); }},
        {"half as wide", [](auto& codec) { sample(codec, 2, 1); }},
        {"half both ways", [](auto& codec) { sample(codec, 2, 2); }},
        {"half as high", [](auto& codec) { sample(codec, 1, 2); }},
        {"grey", [](auto& codec) { jpeg_set_colorspace(&codec, JCS_GRAYSCALE); }},
        {"stored as RGB", [](auto& codec) { jpeg_set_colorspace(&codec, JCS_RGB); }},
        {"progressive", [](auto& codec) { jpeg_simple_progression(&codec); }},
        {"restarts", [](auto& codec) { codec.restart_interval = 1; }},
        {"arithmetic", [](auto& codec) { codec.arith_code = TRUE; }},
    };
    const std::pair<std::size_t, std::size_t> sizes[] = {{1, 1}, {1, 33}, {33, 1}, {61, 47}};
    for (const auto& [name, settings] : kinds)
        for (const auto& [width, height] : sizes) {
            const Bytes jpeg = jpegFile(*grainyPicture(width, height), settings);
            const auto image = decoded(jpeg);
            ASSERT_TRUE(image) << name;
            EXPECT_EQ(image->width(), width) << name;
            EXPECT_TRUE(std::ranges::equal(image->pixels(), referencePixels(jpeg)))
                << name << ' ' << width << 'x' << height;
            EXPECT_TRUE(image->opaque());
        }
}

TEST(JpegReader, TurnsInkIntoLight) {
    // Half of the cyan ink and a fifth of the black.
    constexpr std::array<std::uint8_t, 4> ink{128, 0, 0, 51}, leftOut{127, 255, 255, 204};
    for (const J_COLOR_SPACE stored : {JCS_CMYK, JCS_YCCK})
        for (const bool marked : {true, false}) {
            if (stored == JCS_YCCK && !marked)
                continue;  // Only the mark tells it from plain ink.
            const auto jpeg = jpegFile(marked ? leftOut : ink, 1, 1, JCS_CMYK, [&](auto& codec) {
                jpeg_set_colorspace(&codec, stored);
                jpeg_set_quality(&codec, 100, TRUE);
                codec.write_Adobe_marker = marked;
            });
            const auto image = decoded(jpeg);
            ASSERT_TRUE(image);
            const std::uint32_t pixel = image->pixels()[0];
            EXPECT_NEAR(pixel >> 16 & 0xFF, 102, 2) << marked;
            EXPECT_NEAR(pixel >> 8 & 0xFF, 204, 2) << marked;
            EXPECT_NEAR(pixel & 0xFF, 204, 2) << marked;
            EXPECT_EQ(pixel >> 24, 0xFFU);
        }
}

TEST(JpegReader, HonoursEveryOrientation) {
    // By their EXIF number, from 1.
    constexpr UIImageOrientation orientations[] = {UIImageOrientation::Up,
                                                   UIImageOrientation::UpMirrored,
                                                   UIImageOrientation::Down,
                                                   UIImageOrientation::DownMirrored,
                                                   UIImageOrientation::LeftMirrored,
                                                   UIImageOrientation::Right,
                                                   UIImageOrientation::RightMirrored,
                                                   UIImageOrientation::Left};
    const Bytes jpeg = jpegFile(*grainyPicture(24, 16));
    for (std::uint16_t number = 1; number <= 8; ++number)
        for (const bool littleEndian : {false, true}) {
            const auto image =
                UIImage::imageWithData(withExif(jpeg, exifData(number, littleEndian)));
            ASSERT_TRUE(image);
            EXPECT_EQ(image->imageOrientation(), orientations[number - 1]) << number;
            EXPECT_EQ(image->size(), number < 5 ? (Size{24, 16}) : (Size{16, 24})) << number;
        }
}

/// Four flat quarters, which survive the loss: red and green above blue and white.
Ref<CGImage> quarters() {
    auto pixels = std::make_unique<std::uint32_t[]>(64 * 32);
    for (std::size_t i = 0; i < 64 * 32; ++i)
        pixels[i] = i / 64 < 16 ? (i % 64 < 32 ? 0xFFFF0000 : 0xFF00FF00)
                                : (i % 64 < 32 ? 0xFF0000FF : 0xFFFFFFFF);
    return make<CGImage>(64, 32, std::move(pixels));
}

Ref<CGImage> drawn(const Ref<UIImage>& image) {
    UIGraphicsBeginImageContext(image->size());
    image->drawAtPoint({0, 0});
    const auto result = UIGraphicsGetImageFromCurrentImageContext()->cgImage();
    UIGraphicsEndImageContext();
    return result;
}

TEST(JpegReader, DrawsATurnedFileAsItsImageWasDrawn) {
    for (int value = 0; value < 8; ++value) {
        const auto image =
            UIImage::imageWithCGImage(quarters(), 1, static_cast<UIImageOrientation>(value));
        const auto before = drawn(image);
        const auto after = drawn(UIImage::imageWithData(*UIImageJPEGRepresentation(image, 1)));
        ASSERT_EQ(after->width(), before->width());
        for (std::size_t i = 0; i < before->pixels().size(); ++i)
            for (const int shift : {0, 8, 16})
                ASSERT_NEAR(before->pixels()[i] >> shift & 0xFF, after->pixels()[i] >> shift & 0xFF,
                            3)
                    << value;
    }
}

TEST(JpegReader, ABrokenExifLeavesThePictureUpright) {
    const Bytes jpeg = jpegFile(*grainyPicture(8, 8));
    const Bytes good = exifData(6, false);
    std::vector<Bytes> broken;
    for (std::size_t length = 0; length < 32; ++length)
        broken.emplace_back(good.begin(), good.begin() + static_cast<std::ptrdiff_t>(length));
    const auto changed = [&](std::size_t place, int value) {
        Bytes copy = good;
        copy[place] = static_cast<std::byte>(value);
        return copy;
    };
    broken.insert(broken.end(), {exifData(0, false), exifData(9, true), changed(0, 'I'),
                                 changed(3, 43), changed(4, 0xFF), changed(7, 0xFF)});
    for (const Bytes& data : broken) {
        const auto image = UIImage::imageWithData(withExif(jpeg, data));
        ASSERT_TRUE(image);
        EXPECT_EQ(image->imageOrientation(), UIImageOrientation::Up) << data.size();
    }
}

TEST(JpegReader, ShowsTheRowsOfATruncatedFileThatDecode) {
    const Bytes jpeg = jpegFile(*grainyPicture(100, 200));
    const auto whole = decoded(jpeg);
    const auto half = decoded(std::span(jpeg).first(jpeg.size() / 2));
    ASSERT_TRUE(half);
    EXPECT_EQ(half->height(), 200U);
    EXPECT_FALSE(half->opaque());
    EXPECT_TRUE(
        std::ranges::equal(half->pixels().first(100 * 60), whole->pixels().first(100 * 60)));
    EXPECT_EQ(pixelAt(half, 99, 199), "00000000");
    // Many programs forget the mark of the end.
    const auto endless = decoded(std::span(jpeg).first(jpeg.size() - 2));
    EXPECT_TRUE(std::ranges::equal(endless->pixels(), whole->pixels()));
    EXPECT_TRUE(endless->opaque());
}

TEST(JpegReader, ShowsTheScansOfAProgressiveFileThatDecode) {
    const Bytes jpeg =
        jpegFile(*grainyPicture(100, 200), [](auto& codec) { jpeg_simple_progression(&codec); });
    const auto whole = decoded(jpeg);
    const auto most = decoded(std::span(jpeg).first(jpeg.size() * 9 / 10));
    ASSERT_TRUE(most);
    EXPECT_TRUE(most->opaque());
    EXPECT_FALSE(std::ranges::equal(most->pixels(), whole->pixels()));
    for (std::size_t i = 0; i < whole->pixels().size(); i += 7)
        EXPECT_NEAR(most->pixels()[i] >> 16 & 0xFF, whole->pixels()[i] >> 16 & 0xFF, 90);
}

/// Where each scan begins, and last where the file's end is marked.
std::vector<std::size_t> scanPlaces(const Bytes& jpeg) {
    std::vector<std::size_t> places;
    for (std::size_t i = 0; i + 1 < jpeg.size(); ++i)
        if (jpeg[i] == std::byte{0xFF} &&
            (jpeg[i + 1] == std::byte{0xDA} || jpeg[i + 1] == std::byte{JPEG_EOI}))
            places.push_back(i);
    return places;
}

/// One scan for each component.
Bytes separateScans(std::uint32_t color) {
    static constexpr jpeg_scan_info scans[] = {
        {1, {0}, 0, 63, 0, 0}, {1, {1}, 0, 63, 0, 0}, {1, {2}, 0, 63, 0, 0}};
    return jpegFile(*imageOf(1, 1, {color}), [](auto& codec) {
        codec.scan_info = scans;
        codec.num_scans = 3;
    });
}

TEST(JpegReader, EndlessScansComeToAnEnd) {
    const Bytes bright = separateScans(0xFFFFFFFF), dark = separateScans(0xFF000000);
    const auto places = scanPlaces(bright);
    const auto scan = [&](const Bytes& file) {
        return std::span(file).subspan(places[0], places[1] - places[0]);
    };
    for (const auto& [repeats, expected] : {std::pair(20, 0U), {1000, 0xFFU}}) {
        Bytes jpeg(bright.begin(), bright.begin() + static_cast<std::ptrdiff_t>(places[1]));
        for (int i = 0; i < repeats; ++i)
            append(jpeg, scan(bright));
        append(jpeg, std::span(dark).subspan(places[0]));
        const auto image = decoded(jpeg);
        ASSERT_TRUE(image);
        EXPECT_NEAR(image->pixels()[0] & 0xFF, expected, 2) << repeats;
    }
}

TEST(JpegReader, GarbageBetweenTheScansLeavesThoseBeforeIt) {
    const Bytes jpeg =
        jpegFile(*grainyPicture(40, 40), [](auto& codec) { jpeg_simple_progression(&codec); });
    const std::size_t last = scanPlaces(jpeg)[5];
    const auto good = std::span(jpeg).first(last);
    Bytes damaged(good.begin(), good.end());
    // A second head, of a picture without components.
    constexpr std::uint8_t head[] = {0xFF, 0xC1, 0, 8, 8, 0, 1, 0, 1, 0};
    append(damaged, std::as_bytes(std::span(head)));
    append(damaged, std::span(jpeg).subspan(last));
    const auto expected = decoded(good);
    const auto image = decoded(damaged);
    ASSERT_TRUE(expected && image);
    EXPECT_TRUE(std::ranges::equal(image->pixels(), expected->pixels()));
}

TEST(JpegReader, NeedsSomethingOfTheFirstScan) {
    for (const bool progressive : {false, true}) {
        const Bytes jpeg = jpegFile(*grainyPicture(40, 40), [&](auto& codec) {
            if (progressive)
                jpeg_simple_progression(&codec);
        });
        const std::size_t scan = scanPlaces(jpeg)[0];
        const auto headLength = scan + 2 + std::to_integer<std::size_t>(jpeg[scan + 3]);
        EXPECT_FALSE(decoded(std::span(jpeg).first(headLength)));
        EXPECT_TRUE(decoded(std::span(jpeg).first(headLength + 40)));
    }
}

}  // namespace
}  // namespace zn
