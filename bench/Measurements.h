#pragma once

#include "Report.h"

namespace bench {

/// What can be measured, each in a file of its own. The supplicant runs and has the networks of
/// Networks.h; a measurement leaves it, and this process, as it found them.
/// @throws std::runtime_error where something does not work
Rows measureCommand();
Rows measureLoad();
Rows measureJava();
Rows measureXml();
Rows measureXmlCall();
Rows measureIdle();
Rows measureSize();
Rows measureMemory();

} // namespace bench
