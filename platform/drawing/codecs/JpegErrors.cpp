#include "platform/drawing/codecs/JpegErrors.h"

namespace zn {

namespace {

[[noreturn]] void leave(j_common_ptr codec) {
    std::longjmp(static_cast<JpegErrors*>(codec->err)->wayOut, 1);
}

void stayQuiet(j_common_ptr) {}

}  // namespace

JpegErrors::JpegErrors() : jpeg_error_mgr() {
    jpeg_std_error(this);
    error_exit = leave;
    output_message = stayQuiet;
}

}  // namespace zn
