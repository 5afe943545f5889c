#pragma once

#include <vector>

#include "Page.h"

namespace gallery {

/// The pictures of the page of routes.
std::vector<Page> routePages();

}  // namespace gallery
