#pragma once

#include <string>

namespace zn {

/// The running program: its path, and its name without the folder.
std::string programPath();
std::string programName();

/// The main bundle's `CFBundleIdentifier`, else the program's name; always fit for a file name.
std::string applicationIdentifier();

/// Where the user defaults are kept; its folder exists when it can be made.
std::string userDefaultsPath();

}  // namespace zn
