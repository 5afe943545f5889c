#pragma once

#include <cstddef>
#include <span>

#include "platform/drawing/codecs/JpegErrors.h"

namespace zn {

/// Gives the codec a file in memory. To a file that ends too soon it adds the mark of the picture's
/// end, on which the codec makes up what it still wants.
class JpegSource : public jpeg_source_mgr {
public:
    explicit JpegSource(std::span<const std::byte> bytes);

    /// Takes the codec's warnings too: one tells when it begins to make things up.
    void attach(j_decompress_ptr codec);

    /// The codec looked for more than there is, be it only to have it at hand.
    bool ended() const { return ended_; }
    /// The codec makes things up, and in which row of blocks it began.
    bool starved() const { return starved_; }
    JDIMENSION starvedRow() const { return starvedRow_; }

private:
    static JpegSource& of(j_decompress_ptr codec) { return static_cast<JpegSource&>(*codec->src); }
    static boolean end(j_decompress_ptr codec);
    static void skip(j_decompress_ptr codec, long length);
    static void noteWarning(j_common_ptr codec, int level);
    void starve(JDIMENSION row);

    bool ended_ = false;
    bool starved_ = false;
    JDIMENSION starvedRow_ = 0;
};

}  // namespace zn
