#pragma once

#include "model/WifiNetwork.h"
#include "support/FakeJni.h"
#include "unit/settings/LoadedSettings.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>

#define NATIVE(method) Java_com_quorvel_platwifi_BWifiPlatformService_##method

namespace test {

template <typename Result>
using GetterNative = Result (*)(JNIEnv*, jclass, jstring, jstring);

template <typename Value>
using SetterNative = jboolean (*)(JNIEnv*, jclass, jstring, jstring, Value);

/// Settings with one network, "home", and a Java environment to call natives with.
class OneNetwork {
public:
    OneNetwork() : m_settings(&m_loaded.load("0\thome\tany\t\n")) { network().cleanDirtyFields(); }

    /// Nothing stays locked, held or pending.
    ~OneNetwork() {
        std::thread([this] {
            m_settings->lockSettings();
            m_settings->unlockSettings();
        }).join();
        EXPECT_EQ(java.heldCharacters(), 0U);
        EXPECT_FALSE(java.pendingException());
    }

    OneNetwork(const OneNetwork&) = delete;
    OneNetwork& operator=(const OneNetwork&) = delete;

    WifiHostSettings& settings() { return *m_settings; }
    WifiNetwork& network() { return *m_settings->getNetwork("wlan0", "home"); }

    /// Calls a native for the network with this SSID.
    template <typename Native, typename... Values>
    auto call(Native native, const char* ssid, Values... values) {
        return native(java.environment(), nullptr, java.javaString("wlan0"),
                      ssid ? java.javaString(ssid) : nullptr, values...);
    }

    jstring javaText(const char* text) { return text ? java.javaString(text) : nullptr; }

    /// From here on there is an instance, but it has no networks.
    void loseNetworks() { m_settings = &m_loaded.fail(); }

    /// Makes the client ready for another load of the same network.
    void scriptLoad() { m_loaded.scriptLoad("0\thome\tany\t\n"); }

    void answer(const std::string& reply, int status = 0) { m_loaded.answer(reply, status); }
    Commands commands() const { return m_loaded.commands(); }

    FakeJni java;

private:
    LoadedSettings m_loaded;
    WifiHostSettings* m_settings;
};

} // namespace test
