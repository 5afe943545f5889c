#pragma once

#include <QImage>
#include <cstdio>
#include <cstdlib>

#include "zarnic/platform/drawing/CGImage.h"

/// What the benchmarks share: the peer draws into an image of the same format, and both results are
/// compared before either is timed.
namespace bench {

inline QImage peerImage(int side) {
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

/// The mean difference of a colour component, in steps of 1/255.
inline double meanDifference(const zn::CGImage& ours, const QImage& peer) {
    if (ours.width() != static_cast<std::size_t>(peer.width()) ||
        ours.height() != static_cast<std::size_t>(peer.height()))
        return 255;
    double sum = 0;
    for (std::size_t y = 0; y < ours.height(); ++y) {
        const auto* mine = reinterpret_cast<const uchar*>(&ours.pixels()[y * ours.width()]);
        const uchar* other = peer.constScanLine(static_cast<int>(y));
        for (std::size_t index = 0; index < ours.width() * 4; ++index)
            sum += std::abs(mine[index] - other[index]);
    }
    return sum / static_cast<double>(ours.pixels().size() * 4);
}

/// Ends the program when the two did not do the same work.
inline void requireSame(const char* name, const zn::CGImage& ours, const QImage& peer,
                        double tolerance) {
    const double difference = meanDifference(ours, peer);
    if (difference <= tolerance)
        return;
    std::fprintf(stderr, "%s: results differ by %.3f/255\n", name, difference);
    std::exit(1);
}

}  // namespace bench
