#pragma once

#include <string>

/// The page that both libraries scroll: 200 rows with two labels each, white, on a screen of 375 x
/// 667 points with two pixels a point.
namespace bench::scroll {

inline constexpr int rows = 200;
inline constexpr double width = 375;
inline constexpr double height = 667;
inline constexpr double scale = 2;
inline constexpr double rowHeight = 44;
inline constexpr double margin = 16;
inline constexpr double titleSize = 16;
inline constexpr double detailSize = 13;
inline constexpr double length = rows * rowHeight;

inline std::string title(int row) {
    return "Row number " + std::to_string(row);
}
inline std::string detail(int row) {
    return std::to_string(row * 44) + " points down";
}

/// The offsets of the frames, in points: down and up again by 7 points a frame.
class Offsets {
public:
    double next() {
        if (offset_ + step_ < 0 || offset_ + step_ > length - height)
            step_ = -step_;
        return offset_ += step_;
    }

private:
    double offset_ = 0;
    double step_ = 7;
};

}  // namespace bench::scroll
