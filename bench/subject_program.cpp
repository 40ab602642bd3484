// A process to be looked at from outside. It says "ready", begins when it is told to by a line, says
// "begun", and does nothing from then on until its input ends.

#include "settings/WifiHostSettings.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <thread>

namespace {

struct Role {
    const char* name;
    void (*begin)();
};

void loadSettings() {
    WifiHostSettings::getInstance(nullptr);
}

// What the least watchful process has that looks at something once a second.
void wakeEverySecond() {
    std::thread([] {
        for (;;)
            std::this_thread::sleep_for(std::chrono::seconds(1));
    }).detach();
}

constexpr Role ROLES[] = {{"settings", loadSettings}, {"second", wakeEverySecond}};

void say(const char* line) {
    std::puts(line);
    std::fflush(stdout);
}

[[noreturn]] void play(const Role& role) {
    say("ready");
    std::getchar();
    role.begin();
    say("begun");
    while (std::getchar() != EOF) {
    }
    std::_Exit(0); // at once: the threads have nothing to save
}

} // namespace

int main(int count, char** arguments) {
    for (const Role& role : ROLES) {
        if (count == 2 && std::strcmp(arguments[1], role.name) == 0)
            play(role);
    }
    return 2;
}
