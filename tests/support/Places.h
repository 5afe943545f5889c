#pragma once

#include <string>

/// The root of the source tree that the tests were built from, without a slash at its end.
std::string sourceFolder();

/// The gallery's program; empty in builds without examples.
std::string galleryProgram();
