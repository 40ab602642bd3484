// A process that is measured from outside. It prints "ready", reads a line, does its work, prints "begun",
// and then waits until its input ends.

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

// The least that a process needs to check something once a second.
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
