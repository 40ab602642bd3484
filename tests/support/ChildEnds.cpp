#include "support/ChildEnds.h"

#include <cerrno>
#include <cstddef>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace test {

#if defined(CHILD_ENDS_ARE_LOOKED_FOR)

constexpr unsigned int CALL = SYS_waitid;

// This process is no child of its own.
bool systemNotifiesOfChildEnd() {
    return waitid(P_PID, static_cast<id_t>(getpid()), nullptr, WEXITED | WNOHANG) == -1 &&
           errno == ECHILD;
}

#elif defined(SYS_pidfd_open)

constexpr unsigned int CALL = SYS_pidfd_open;

bool systemNotifiesOfChildEnd() {
    const long watch = syscall(SYS_pidfd_open, getpid(), 0);
    if (watch == -1)
        return false;
    close(static_cast<int>(watch));
    return true;
}

#else

bool systemNotifiesOfChildEnd() {
    return false;
}

bool refuseChildEndNotification() {
    return true;
}

#endif

#if defined(CHILD_ENDS_ARE_LOOKED_FOR) || defined(SYS_pidfd_open)

bool refuseChildEndNotification() {
    sock_filter program[] = {
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, CALL, 0, 1),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | ENOSYS),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    };
    const sock_fprog filter{sizeof(program) / sizeof(program[0]), program};
    return prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
           prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filter) == 0;
}

#endif

} // namespace test
