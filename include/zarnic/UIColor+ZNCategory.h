#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "zarnic/platform/drawing/UIColor.h"

/// Additions to `UIColor`: 24-bit numbers, hexadecimal texts, lightness. Any thread. Numbers
/// between 0 and 255 come from components by cutting (0.5 gives 127), components from numbers by a
/// single-precision division by 255, so that every number survives the way there and back. An
/// absent colour reads as 0.
namespace zn {

/// Red, green and blue are each one of the 256 steps by chance.
ZN_EXPORT Ref<UIColor> ZN_GetArc4randomColor(float alpha);
/// 0xRRGGBB, without the alpha.
ZN_EXPORT std::int32_t ZN_GetIntValueFromColor(const Ref<UIColor>& color);
/// That number plus the alpha between 0 and 1: half transparent red is 16711680.5, opaque red the
/// next number after red, 16711681.
ZN_EXPORT double ZN_GetDoubleValueFromColor(const Ref<UIColor>& color);

/// The colour of a text like `#RRGGBB`, `0xAARRGGBB` or `RRGGBB`, in either case, white space
/// around it. Clear for any other count of digits, short forms (`#FFF`) included; a pair that
/// begins with no digit counts as 0.
ZN_EXPORT Ref<UIColor> ZN_ColorWithHexString(std::string_view text);
/// The same with an alpha between 0 and 1; one of 0 or less leaves the text's own, which without
/// digits for it is 1.
ZN_EXPORT Ref<UIColor> ZN_ColorwithHexString(std::string_view text, double alpha);
/// `rrggbb`, or `aarrggbb` without its leading zeros as far as six digits: an alpha below 16/255
/// gives fewer than eight, which `ZN_ColorWithHexString` does not always read back.
ZN_EXPORT std::string ZN_HexStringWithColor(const Ref<UIColor>& color, bool hasAlpha);

/// Whether the components of `ZN_GetRGBComponents` sum up to at least 382, half of white.
ZN_EXPORT bool ZN_IsLightColor(const Ref<UIColor>& color);
/// Red, green and blue as drawn on nothing, between 0 and 255: multiplied by the alpha and rounded.
ZN_EXPORT void ZN_GetRGBComponents(std::span<double, 3> components, const Ref<UIColor>& color);

ZN_EXPORT std::int32_t zn_GetRed(const Ref<UIColor>& color);
ZN_EXPORT std::int32_t zn_GetGreen(const Ref<UIColor>& color);
ZN_EXPORT std::int32_t zn_GetBlue(const Ref<UIColor>& color);
/// Between 0 and 1.
ZN_EXPORT double zn_GetAlpha(const Ref<UIColor>& color);

}  // namespace zn
