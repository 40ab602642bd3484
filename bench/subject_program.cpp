// A process that is measured from outside. It prints "ready". For each line that it reads it does a part of its
// work and prints "begun". It waits until its input ends.

#include "settings/WifiHostSettings.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <thread>

namespace {

constexpr int FIRST_LOADS = 100;
constexpr int MORE_LOADS = 1000;

struct Role {
    const char* name;
    void (*begin)();
    void (*goOn)(); // for each line but the first
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

void nothing() {}

void loadAgain(int times) {
    for (int i = 0; i < times; ++i) {
        if (!WifiHostSettings::reload(nullptr))
            std::abort();
    }
}

// The first reloads find the places in the heap, and the second stack of a thread, that later ones use.
void loadUntilSettled() {
    loadSettings();
    loadAgain(FIRST_LOADS);
}

void loadOften() {
    loadAgain(MORE_LOADS);
}

constexpr Role ROLES[] = {
    {"settings", loadSettings, nothing},
    {"loads", loadUntilSettled, loadOften},
    {"second", wakeEverySecond, nothing},
};

void say(const char* line) {
    std::puts(line);
    std::fflush(stdout);
}

[[noreturn]] void play(const Role& role) {
    say("ready");
    auto work = role.begin;
    while (std::getchar() != EOF) {
        work();
        say("begun");
        work = role.goOn;
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
