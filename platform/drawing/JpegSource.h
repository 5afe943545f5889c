#pragma once

#include <cstddef>
#include <span>

#include "platform/drawing/JpegErrors.h"

namespace zn {

/// Gives the codec a file in memory. To a file that ends too soon it adds the mark of the picture's
/// end, on which the codec makes up what it still wants.
class JpegSource : public jpeg_source_mgr {
public:
    explicit JpegSource(std::span<const std::byte> bytes);

    /// The codec wanted more than there is.
    bool ended() const { return ended_; }
    /// In which row of blocks it stood then.
    JDIMENSION endRow() const { return endRow_; }

private:
    static JpegSource& of(j_decompress_ptr codec) { return static_cast<JpegSource&>(*codec->src); }
    void end(JDIMENSION row);
    void skip(std::size_t length);

    bool ended_ = false;
    JDIMENSION endRow_ = 0;
};

}  // namespace zn
