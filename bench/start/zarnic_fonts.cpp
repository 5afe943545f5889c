#include <cstdio>

#include "zarnic/UIFont+ZNCategory.h"

/// Prints all fonts, beside `fc-list : family postscriptname`.
int main() {
    for (const auto& line : zn::ZN_GetAllFontNames())
        std::puts(line.c_str());
}
