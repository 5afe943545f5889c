#pragma once

#include <string>

#include "zarnic/platform/drawing/UIImage.h"

namespace zn {

/// What a code reader sees in a picture that lies in the middle of a white sheet, `margin` pixels
/// of which show on every side. The bytes of the first code; empty when none is found.
std::string readByZBar(const Ref<UIImage>& picture, std::size_t margin);
std::string readByZXing(const Ref<UIImage>& picture, std::size_t margin);
/// The text that the second makes of the bytes.
std::string textByZXing(const Ref<UIImage>& picture, std::size_t margin);

}  // namespace zn
