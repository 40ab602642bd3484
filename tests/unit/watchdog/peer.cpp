// Another process with a watchdog. Each line of its standard input is a command and a number; it
// answers each with a line.

#include "BlockView.h"
#include "RecordedReloads.h"
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
Command command(Action action) {
    return [action](Watchdog& watchdog, unsigned int) {
        action(watchdog);
        return std::string("done");
    };
}

template <typename Question>
Command query(Question question) {
    return [question](Watchdog& watchdog, unsigned int number) {
        return std::to_string(question(watchdog, number));
    };
}

const std::map<std::string, Command> COMMANDS{
    {"initialize", query([](Watchdog& w, unsigned int) { return w.initialize(); })},
    {"creator", query([](Watchdog& w, unsigned int) { return w.isCreator(); })},
    {"start", command([](Watchdog& w) { w.start(); })},
    {"stop", command([](Watchdog& w) { w.stop(); })},
    {"save", command([](Watchdog& w) { w.sendSaveSettingsSignal(); })},
    {"refresh", command([](Watchdog& w) { w.sendRefreshSettingsSignal(); })},
    {"check", query([](Watchdog& w, unsigned int s) { return w.checkForRefreshSignal(s); })},
    {"wait", query([](Watchdog& w, unsigned int seconds) {
         std::cout << "waiting" << std::endl;
         return w.checkForRefreshSignal(seconds);
     })},
    {"lock", query([](Watchdog& w, unsigned int) { return w.wifiShmemLock(); })},
    {"unlock", query([](Watchdog& w, unsigned int) { return w.wifiShmemUnlock(); })},
    {"lock-signal", query([](Watchdog&, unsigned int) { return seenBlock().lockSignal(); })},
    {"unlock-signal", query([](Watchdog&, unsigned int) { return seenBlock().unlockSignal(); })},
    {"destroy", command([](Watchdog& w) { w.wifiShmemDestroy(); })},
    {"id", query([](Watchdog&, unsigned int) { return PlatformUtil::threadId(); })},
    {"reloads", query([](Watchdog&, unsigned int) { return test::RecordedReloads::calls(); })},
    {"await-reloads", command([](Watchdog&) { test::RecordedReloads::awaitCalls(1); })},
};

} // namespace

int main() {
    auto watchdog = std::make_unique<Watchdog>();
    std::string name;
    unsigned int number = 0;
    while (std::cin >> name >> number) {
        const auto found = COMMANDS.find(name);
        if (found == COMMANDS.end())
            return 2;
        std::cout << found->second(*watchdog, number) << std::endl;
    }
    return 0;
}
