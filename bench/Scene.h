#pragma once

#include <cstddef>

/// The scene that both libraries draw: 60 rounded boxes with a label each, on a screen of 375 x 667
/// points with two pixels a point, and a toast over them.
namespace bench::scene {

inline constexpr int columns = 6;
inline constexpr int rows = 10;
inline constexpr double width = 375;
inline constexpr double height = 667;
inline constexpr double scale = 2;
inline constexpr double cellWidth = width / columns;
inline constexpr double cellHeight = height / rows;
inline constexpr double gap = 4;
inline constexpr double radius = 8;
inline constexpr double fontSize = 13;
inline constexpr double toastX = 106;
inline constexpr double toastY = 309;
inline constexpr double toastWidth = 163;
inline constexpr double toastHeight = 49;
inline constexpr const char* toastText = "Saved to your library";

}  // namespace bench::scene
