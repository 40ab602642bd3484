// Another process with a watchdog: does what the lines of its standard input say, and answers each with
// a line.

#include "BlockView.h"
#include "Door.h"
#include "watchdog/WifiHostSettingsWatchdog.h"

#include <functional>
#include <iostream>
#include <map>
#include <memory>
#include <string>

namespace {

using Watchdog = WifiHostSettingsWatchdog;
using Command = std::function<std::string(Watchdog&, unsigned int)>;

SharedSignalBlock& seenBlock() {
    static const test::BlockView view;
    return *view.operator->();
}

template <typename Action>
Command does(Action action) {
    return [action](Watchdog& watchdog, unsigned int) {
        action(watchdog);
        return std::string("done");
    };
}

template <typename Question>
Command tells(Question question) {
    return [question](Watchdog& watchdog, unsigned int number) {
        return std::to_string(question(watchdog, number));
    };
}

const std::map<std::string, Command> COMMANDS{
    {"initialize", tells([](Watchdog& w, unsigned int) { return w.initialize(); })},
    {"creator", tells([](Watchdog& w, unsigned int) { return w.isCreator(); })},
    {"start", does([](Watchdog& w) { w.start(); })},
    {"stop", does([](Watchdog& w) { w.stop(); })},
    {"save", does([](Watchdog& w) { w.sendSaveSettingsSignal(); })},
    {"refresh", does([](Watchdog& w) { w.sendRefreshSettingsSignal(); })},
    {"check", tells([](Watchdog& w, unsigned int s) { return w.checkForRefreshSignal(s); })},
    {"wait", tells([](Watchdog& w, unsigned int seconds) {
         std::cout << "waiting" << std::endl;
         return w.checkForRefreshSignal(seconds);
     })},
    {"lock", tells([](Watchdog& w, unsigned int) { return w.wifiShmemLock(); })},
    {"unlock", tells([](Watchdog& w, unsigned int) { return w.wifiShmemUnlock(); })},
    {"lock-signal", tells([](Watchdog&, unsigned int) { return seenBlock().lockSignal(); })},
    {"unlock-signal", tells([](Watchdog&, unsigned int) { return seenBlock().unlockSignal(); })},
    {"destroy", does([](Watchdog& w) { w.wifiShmemDestroy(); })},
    {"id", tells([](Watchdog&, unsigned int) { return PlatformUtil::threadId(); })},
    {"reloads", tells([](Watchdog&, unsigned int) { return test::Door::calls(); })},
    {"await-reloads", does([](Watchdog&) { test::Door::awaitCalls(1); })},
};

} // namespace

int main() {
    auto watchdog = std::make_unique<Watchdog>();
    std::string name;
    unsigned int number = 0;
    while (std::cin >> name >> number) {
        const auto command = COMMANDS.find(name);
        if (command == COMMANDS.end())
            return 2;
        std::cout << command->second(*watchdog, number) << std::endl;
    }
    return 0;
}
