// For a test program whose clients stand still longer than the runner would bear: a pause between two
// looks at a child ends with the child only, so that there is never a hundredth look.

#include "platform/ChildPause.h"
#include "platform/PlatformUtil.h"

#include <poll.h>

void ChildPause::pause(int milliseconds) noexcept {
    pollfd watch{m_watch.number(), POLLIN, 0};
    if (!m_watch.isOpen() || poll(&watch, 1, -1) != 1)
        PlatformUtil::sleep(milliseconds);
}
