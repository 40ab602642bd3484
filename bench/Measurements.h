#pragma once

#include "Report.h"

namespace bench {

/// The measurements, one a file. The supplicant runs and has the networks of Networks.h. A measurement
/// changes neither the supplicant nor this process.
/// @throws std::runtime_error if the measurement is not possible
Rows measureCommand();
Rows measureLoad();
Rows measureJava();
Rows measureXml();
Rows measureXmlCall();
Rows measureIdle();
Rows measureSize();
Rows measureMemory();

} // namespace bench
