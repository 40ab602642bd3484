#pragma once

namespace test {

/// Whether a pause of the calling thread can end with a child: by the call pidfd_open of Linux, or by waitid.
bool systemNotifiesOfChildEnd();

/// Makes that fail for the calling thread from now on, as on an older kernel. False when the system
/// does not allow it.
bool refuseChildEndNotification();

} // namespace test
