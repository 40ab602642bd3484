// On Linux a thread has a name.

#include "platform/PlatformUtil.h"

#include <gtest/gtest.h>

#include <future>
#include <string>

namespace {

void* tellName(void* promise) {
    char name[32] = "";
    pthread_getname_np(pthread_self(), name, sizeof(name));
    static_cast<std::promise<std::string>*>(promise)->set_value(name);
    return nullptr;
}

std::string nameOfAThread(const char* asked) {
    std::promise<std::string> name;
    EXPECT_NE(PlatformUtil::createThread(tellName, &name, asked), -1);
    return name.get_future().get();
}

TEST(PlatformThread, HasItsName) {
    EXPECT_EQ(nameOfAThread("tShort"), "tShort");
}

TEST(PlatformThread, CutsALongName) {
    EXPECT_EQ(nameOfAThread("tWifiRefreshWatchdog"), "tWifiRefreshWat");
}

} // namespace
