#pragma once

#include <vector>

namespace zn {

/// What one axis of a scroll view allows: all in points.
struct ScrollRange {
    /// The offsets between which it comes to rest.
    double low = 0;
    double high = 0;
    /// The view's size.
    double side = 0;
    bool bounces = true;

    double nearest(double offset) const;
    bool contains(double offset) const { return low <= offset && offset <= high; }
    /// How far outside an offset is: negative before the beginning, positive after the end.
    double beyond(double offset) const { return offset - nearest(offset); }

    /// Where the content is shown when the finger has pulled it to `offset`. Beyond an edge by x it
    /// moves by (1 - 1 / (x c / side + 1)) side with c = 0.55, a rule found by measuring the
    /// platform (public analyses of its scroll mechanics); without bouncing it stays at the edge.
    double banded(double offset) const;
    /// The offset that is shown at `shown`.
    double unbanded(double shown) const;
    /// How fast it is shown to move when it is pulled at a speed of 1 from `offset`.
    double bandedSpeed(double offset) const;
};

/// One coordinate of an offset that moves by itself, in closed form: where it is depends on the
/// time alone, not on how often one looks. Points and seconds.
///
/// Inside the range its speed falls by the deceleration rate d in each millisecond, so that it goes
/// -v / (1000 ln d) points; at an edge it goes on as a critically damped spring that pulls it back.
class ScrollCourse {
public:
    /// Stays.
    explicit ScrollCourse(double place = 0) : end_(place) {}
    /// Flies on freely; from outside the range it springs back.
    static ScrollCourse coasting(double place, double velocity, const ScrollRange& range,
                                 double decelerationRate);
    /// Comes to rest at `target`, which is inside the range.
    static ScrollCourse settling(double place, double velocity, double target,
                                 const ScrollRange& range, double decelerationRate);
    /// The same, quicker, as pages do.
    static ScrollCourse turning(double place, double velocity, double target,
                                const ScrollRange& range);
    /// The page, a multiple of the side inside the range, at which it should rest: the next one
    /// in the direction of a flick, else the nearest. The place itself, brought into the range,
    /// when pages have no size.
    static double pageFor(double place, double velocity, const ScrollRange& range);

    double placeAt(double seconds) const;
    double velocityAt(double seconds) const;
    double duration() const { return duration_; }
    double end() const { return end_; }

private:
    /// From its start on: target + (offset + slope t) e^(-rate t).
    struct Phase {
        double start;
        double target;
        double offset;
        double slope;
        double rate;
        double placeAfter(double seconds) const;
        double velocityAfter(double seconds) const;
        /// When it is as good as at its target.
        double rest() const;
    };

    explicit ScrollCourse(const ScrollRange& range) : range_(range) {}
    const Phase* phaseAt(double seconds) const;
    void coast(double place, double velocity, double rate);
    void spring(double place, double velocity, double edge, double coastingRate);
    void finish(const Phase& phase);

    ScrollRange range_;
    std::vector<Phase> phases_;
    /// Where the next phase begins.
    double clock_ = 0;
    double duration_ = 0;
    double end_ = 0;
};

}  // namespace zn
