#pragma once

#include <string>

namespace zn {

/// A real as `%.{digits}g` prints it, whatever the program's locale; `nan`, `inf`, `-inf`.
std::string realText(double number, int digits);

/// Truncates toward zero; out of range saturates, not a number gives 0.
template <class Integer>
Integer saturated(double number);

}  // namespace zn
