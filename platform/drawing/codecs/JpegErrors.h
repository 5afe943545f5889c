#pragma once

#include <csetjmp>
#include <cstdio>

#include <jpeglib.h>

namespace zn {

/// Takes the codec's errors; its warnings are counted and nothing is printed.
struct JpegErrors : jpeg_error_mgr {
    JpegErrors();

    std::jmp_buf wayOut;
};

/// Runs the steps; false when the codec gave up in them. It leaves them by a jump, so they hold
/// nothing that needs destroying, and what they must leave behind lies outside.
template <class Steps>
bool runJpegSteps(JpegErrors& errors, const Steps& steps) {
    if (setjmp(errors.wayOut) != 0)
        return false;
    steps();
    return true;
}

}  // namespace zn
