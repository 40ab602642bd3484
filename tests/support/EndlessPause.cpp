// For a test program whose clients wait longer than 5 s. A pause between two looks at a child lasts
// until the child ends, so the library never comes to the 100th look and kills no client.

#include "platform/ChildPause.h"
#include "platform/PlatformUtil.h"

#include <poll.h>

void ChildPause::pause(int milliseconds) noexcept {
    pollfd watch{m_watch.number(), POLLIN, 0};
    if (!m_watch.isOpen() || poll(&watch, 1, -1) != 1)
        PlatformUtil::sleep(milliseconds);
}
