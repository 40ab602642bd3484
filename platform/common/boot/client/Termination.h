#pragma once

namespace client {

/// Lets SIGINT and SIGTERM end the program after two seconds with a message and exit status 1, as the host's
/// client does. A reply that comes before is printed as usual.
void delayTermination() noexcept;

} // namespace client
