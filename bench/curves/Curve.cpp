#include "curves/Curve.h"

namespace bench {
namespace {

struct Sums {
    double count = 0;
    double x = 0;
    double y = 0;
    double xx = 0;
    double xy = 0;

    void add(double thisX, double thisY) {
        count += 1;
        x += thisX;
        y += thisY;
        xx += thisX * thisX;
        xy += thisX * thisY;
    }

    double slope() const { return (count * xy - x * y) / (count * xx - x * x); }
};

template <typename Accepts>
Sums sumsOf(const Series& series, Accepts accepts) {
    Sums sums;
    for (const Point& point : series.points) {
        if (accepts(point.x))
            sums.add(point.x, median(point.values));
    }
    return sums;
}

} // namespace

Line fit(const Series& series) {
    const Sums sums = sumsOf(series, [](double) { return true; });
    const double slope = sums.slope();
    return {(sums.y - slope * sums.x) / sums.count, slope};
}

double bend(const Series& series, double x) {
    const Sums lower = sumsOf(series, [x](double place) { return place <= x; });
    const Sums upper = sumsOf(series, [x](double place) { return place >= x; });
    return upper.slope() / lower.slope();
}

double first(const Series& series) {
    return median(series.points.front().values);
}

double last(const Series& series) {
    return median(series.points.back().values);
}

} // namespace bench
