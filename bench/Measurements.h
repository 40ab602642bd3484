#pragma once

#include "Report.h"

namespace test {
class Supplicant;
}

namespace bench {

/// The measurements, one a file. The supplicant runs and has the networks of Networks.h. A measurement
/// changes neither the supplicant nor this process.
/// @throws std::runtime_error if the measurement is not possible
Rows measureCommand();
Rows measureStatus();
Rows measureLoad();
Rows measureJava();
Rows measureXml();
Rows measureXmlCall();
Rows measureIdle();
Rows measureSize();
Rows measureMemory();

/// Measures how costs grow, under the profile `modern`. Writes the data of each curve and the list of curves to
/// CURVES_FOLDER; the rows have figures alone. Changes the networks of the supplicant.
Rows measureCurves(const test::Supplicant& supplicant);

} // namespace bench
