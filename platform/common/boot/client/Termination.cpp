#include "Termination.h"

#include "common/boot/Output.h"

#include <signal.h>
#include <unistd.h>

namespace client {
namespace {

constexpr unsigned int GRACE_SECONDS = 2;

void end(int /*signal*/) {
    boot::output.add("eloop: could not process SIGINT or SIGTERM in two seconds. Looks like there\n"
                     "is a bug that ends up in a busy loop that prevents clean shutdown.\n"
                     "Killing program forcefully.\n\n");
    boot::output.flush();
    _exit(1);
}

void handle(int signal, void (*handler)(int)) noexcept {
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigaction(signal, &action, nullptr);
}

volatile sig_atomic_t isGraceStarted = 0;

void startGrace(int /*signal*/) {
    if (isGraceStarted)
        return;
    isGraceStarted = 1;
    handle(SIGALRM, end);
    alarm(GRACE_SECONDS);
}

} // namespace

void delayTermination() noexcept {
    handle(SIGINT, startGrace);
    handle(SIGTERM, startGrace);
}

} // namespace client
