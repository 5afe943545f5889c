#include "platform/drawing/codecs/JpegSource.h"

#include <algorithm>
#include <array>

#include <jerror.h>

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
    fill_input_buffer = end;
    skip_input_data = skip;
}

void JpegSource::attach(j_decompress_ptr codec) {
    codec->src = this;
    codec->err->emit_message = noteWarning;
}

boolean JpegSource::end(j_decompress_ptr codec) {
    JpegSource& source = of(codec);
    source.ended_ = true;
    source.next_input_byte = endOfImage.data();
    source.bytes_in_buffer = endOfImage.size();
    // Arithmetic coding may leave out what is zero at the end, and warns of nothing.
    if (codec->arith_code)
        source.starve(codec->input_iMCU_row);
    return TRUE;
}

void JpegSource::skip(j_decompress_ptr codec, long length) {
    if (length <= 0)
        return;
    JpegSource& source = of(codec);
    const std::size_t skipped = std::min(static_cast<std::size_t>(length), source.bytes_in_buffer);
    source.next_input_byte += skipped;
    source.bytes_in_buffer -= skipped;
}

void JpegSource::noteWarning(j_common_ptr codec, int level) {
    if (level >= 0)
        return;
    ++codec->err->num_warnings;
    auto* decoder = reinterpret_cast<j_decompress_ptr>(codec);
    if (codec->err->msg_code == JWRN_HIT_MARKER && of(decoder).ended_)
        of(decoder).starve(decoder->input_iMCU_row);
}

void JpegSource::starve(JDIMENSION row) {
    if (!starved_)
        starvedRow_ = row;
    starved_ = true;
}

}  // namespace zn
