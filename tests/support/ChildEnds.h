#pragma once

namespace test {

/// Whether this system can notify the calling thread of the end of a child (pidfd_open).
bool systemNotifiesOfChildEnd();

/// Makes that fail for the calling thread from now on, as on an older kernel. False when the system
/// does not allow it.
bool refuseChildEndNotification();

} // namespace test
