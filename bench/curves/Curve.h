#pragma once

#include "Report.h"

#include <string>
#include <vector>

namespace bench {

/// What was measured at one place of the x axis.
struct Point {
    double x;
    std::vector<double> values; ///< one for each round; times are in seconds
};

struct Series {
    std::string label;
    std::vector<Point> points; ///< in ascending order of x
};

/// A picture, and what it shows.
struct Curve {
    std::vector<Series> series; ///< drawn with their spread
    Series ideal;               ///< drawn as a dashed line; without points there is none
    std::string finding;        ///< sentences for a user: what it is
    Rows figures = {};          ///< of targets
};

/// A straight line.
struct Line {
    double start; ///< where x is 0
    double slope;
};

/// The line through the medians with the least squares of the distances.
Line fit(const Series& series);

/// The slope from `x` on, divided by the slope up to `x`. 1 is a straight line; more is a cost that grows faster than
/// its work.
double bend(const Series& series, double x);

/// The median at the first and the last place.
double first(const Series& series);
double last(const Series& series);

} // namespace bench
