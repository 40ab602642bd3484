#pragma once

namespace test {

/// Whether this system tells the calling thread when a child ends.
bool systemTellsEnds();

/// Makes the system refuse that to the calling thread, for the rest of its life, as an older kernel
/// does. False where it cannot be made so.
bool refuseToTellEnds();

} // namespace test
