#pragma once

#include "curves/Curve.h"

namespace test {
class Supplicant;
}

namespace bench {

// The other curves, one a file. The supplicant has the networks that networks() gives for its default.

/// How reading a scan grows with its lines: a stand-in for the client prints them.
Curve measureScanCurve();

/// Calls of a native a second, and the time of one, against the threads that call at the same time.
struct ThreadCurves {
    Curve calls;
    Curve time;
};
ThreadCurves measureThreadCurves();

/// The time until the last one of several processes has noticed a save. Changes the supplicant's networks.
Curve measureNoticeCurve(const test::Supplicant& supplicant);

} // namespace bench
