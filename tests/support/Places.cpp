#include "tests/support/Places.h"

// The build gives both to this file alone: paths in the command line of every test would keep
// compiler caches from sharing them between trees.
std::string sourceFolder() {
    return ZARNIC_SOURCE_DIR;
}

std::string galleryProgram() {
    return ZARNIC_GALLERY;
}
