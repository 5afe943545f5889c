#include "platform/drawing/JpegSource.h"

#include <algorithm>
#include <array>

namespace zn {

namespace {

constexpr std::array<JOCTET, 2> endOfImage{0xFF, JPEG_EOI};

}  // namespace

JpegSource::JpegSource(std::span<const std::byte> bytes) : jpeg_source_mgr() {
    next_input_byte = reinterpret_cast<const JOCTET*>(bytes.data());
    bytes_in_buffer = bytes.size();
    init_source = [](j_decompress_ptr) {};
    term_source = [](j_decompress_ptr) {};
    resync_to_restart = jpeg_resync_to_restart;
    fill_input_buffer = [](j_decompress_ptr codec) -> boolean {
        of(codec).end(codec->input_iMCU_row);
        return TRUE;
    };
    skip_input_data = [](j_decompress_ptr codec, long length) {
        if (length > 0)
            of(codec).skip(static_cast<std::size_t>(length));
    };
}

void JpegSource::end(JDIMENSION row) {
    if (!ended_)
        endRow_ = row;
    ended_ = true;
    next_input_byte = endOfImage.data();
    bytes_in_buffer = endOfImage.size();
}

void JpegSource::skip(std::size_t length) {
    const std::size_t skipped = std::min(length, bytes_in_buffer);
    next_input_byte += skipped;
    bytes_in_buffer -= skipped;
}

}  // namespace zn
