// Calls that run client commands.

#include "Calls.h"
#include "Supplicant.h"
#include "jni/ServiceFunctions.h"
#include "model/WifiTypes.h"
#include "settings/WifiHostSettings.h"
#include "supplicant/ReplyLines.h"
#include "supplicant/WifiUtil.h"
#include "support/FakeJni.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

#define NATIVE(method) Java_com_quorvel_platwifi_BWifiPlatformService_##method

extern "C" {
jboolean NATIVE(connectToNetwork0)(JNIEnv*, jclass, jstring, jstring);
jboolean NATIVE(disconnectFromNetwork0)(JNIEnv*, jclass, jstring, jstring);
jboolean NATIVE(roamNetworks0)(JNIEnv*, jclass, jstring);
jboolean NATIVE(saveHostSettings0)(JNIEnv*, jclass);
jint NATIVE(getDaemonStatus0)(JNIEnv*, jclass, jstring);
jint NATIVE(getNetworkStatus0)(JNIEnv*, jclass, jstring, jstring);
jstring NATIVE(getCurrentNetwork0)(JNIEnv*, jclass, jstring);
}

namespace stress {
namespace {

constexpr const char* IFACE = "wlan0";

bool isNetwork(const char* ssid) {
    return std::strncmp(ssid, "guest-", 6) == 0 ||
           std::count(FIXED_NETWORKS.begin(), FIXED_NETWORKS.end(), ssid) == 1;
}

void checkSelected(const std::string& ssid) {
    expect(Supplicant::lastSelected() == ssid, "the wrong network was selected");
}

void connect(Worker& worker) {
    const std::string& ssid = worker.random.oneOf(FIXED_NETWORKS);
    expect(connectToNetwork(nullptr, IFACE, ssid.c_str()) != 0, "a configured network was refused");
    checkSelected(ssid);
}

void connectNative(Worker& worker) {
    const std::string& ssid = worker.random.oneOf(FIXED_NETWORKS);
    test::FakeJni& java = worker.java();
    const auto connected = NATIVE(connectToNetwork0)(java.environment(), nullptr,
                                                     java.javaString(IFACE), java.javaString(ssid));
    expect(connected == JNI_TRUE, "a configured network was refused by the native");
    checkSelected(ssid);
}

void connectToGuest(Worker& worker) {
    const bool connected = connectToNetwork(nullptr, IFACE, worker.guest.c_str()) != 0;
    expect(connected == worker.hasGuest, "a connection to the guest network has the wrong result");
    if (connected)
        checkSelected(worker.guest);
}

void disconnect(Worker& worker) {
    const std::string& ssid = worker.random.oneOf(FIXED_NETWORKS);
    expect(disconnectFromNetwork(nullptr, IFACE, ssid.c_str()) != 0, "a disconnection failed");
}

void disconnectNative(Worker& worker) {
    test::FakeJni& java = worker.java();
    const auto disconnected =
        NATIVE(disconnectFromNetwork0)(java.environment(), nullptr, java.javaString(IFACE),
                                       java.javaString(worker.random.oneOf(FIXED_NETWORKS)));
    expect(disconnected == JNI_TRUE, "a disconnection by the native failed");
}

void roam(Worker&) {
    expect(roamNetworks(nullptr, IFACE) != 0, "roamNetworks failed");
}

void roamNative(Worker& worker) {
    test::FakeJni& java = worker.java();
    const auto roamed = NATIVE(roamNetworks0)(java.environment(), nullptr, java.javaString(IFACE));
    expect(roamed == JNI_TRUE, "roamNetworks0 failed");
}

void addGuest(Worker& worker) {
    const bool added = addWifiNetwork(nullptr, IFACE, worker.guest.c_str()) != 0;
    expect(added != worker.hasGuest, "an addition has the wrong result");
    worker.hasGuest = true;
    expect(Supplicant::get().has(worker.guest), "an added network is not in the supplicant");
}

void removeGuest(Worker& worker) {
    expect(removeWifiNetwork(nullptr, IFACE, worker.guest.c_str()) != 0, "a removal failed");
    worker.hasGuest = false;
    expect(!Supplicant::get().has(worker.guest), "a removed network is in the supplicant");
}

void save(Worker&) {
    expect(saveWifiHostSettings(nullptr) == 1, "a save failed");
}

void saveNative(Worker& worker) {
    const auto saved = NATIVE(saveHostSettings0)(worker.java().environment(), nullptr);
    expect(saved == JNI_TRUE, "a save by the native failed");
}

void askDaemonStatus(Worker&) {
    const int state = getDaemonStatus(nullptr, IFACE);
    expect(state == WPA_STATE_COMPLETED || state == WPA_STATE_IDLE,
           "the supplicant's state is one that it never had");
}

void askDaemonStatusNative(Worker& worker) {
    test::FakeJni& java = worker.java();
    const jint state =
        NATIVE(getDaemonStatus0)(java.environment(), nullptr, java.javaString(IFACE));
    expect(state == WPA_STATE_COMPLETED || state == WPA_STATE_IDLE,
           "the native's state is one that the supplicant never had");
}

void askCurrentNetwork(Worker&) {
    char* ssid = nullptr;
    const int found = getCurrentNetwork(nullptr, IFACE, &ssid);
    expect((found == 1) == (ssid != nullptr), "a current network without a name, or the reverse");
    expect(!ssid || isNetwork(ssid), "the current network is not configured");
    delete[] ssid;
}

void askCurrentNetworkNative(Worker& worker) {
    test::FakeJni& java = worker.java();
    const jstring ssid =
        NATIVE(getCurrentNetwork0)(java.environment(), nullptr, java.javaString(IFACE));
    expect(!ssid || isNetwork(java.textOf(ssid).c_str()),
           "the native's current network is not configured");
}

void askNetworkStatus(Worker& worker) {
    test::FakeJni& java = worker.java();
    const jint status =
        NATIVE(getNetworkStatus0)(java.environment(), nullptr, java.javaString(IFACE),
                                  java.javaString(worker.random.oneOf(FIXED_NETWORKS)));
    expect(status != 0, "a configured network has no status");
}

void refreshStatus(Worker&) {
    expect(WifiHostSettings::getInstance(nullptr)->refreshDatabaseNetworksStatus(),
           "the status could not be brought up to date");
}

void askForSupplicant(Worker&) {
    expect(isWifiEnabled(nullptr, IFACE) != 0, "the supplicant is not found");
    expect(isWifiEnabled(nullptr, nullptr) == 0, "a pid file is found");
    expect(hashCACertificates(nullptr) == 1, "hashCACertificates failed");
}

void discover(Worker&) {
    constexpr unsigned char CAPACITY = 32;
    char** lines = nullptr;
    unsigned char count = 0;
    expect(discoverNetworks(nullptr, IFACE, &lines, CAPACITY, &count) == 1, "a scan failed");
    expect(count == FIXED_NETWORKS.size(), "a scan found another number of access points");
    for (unsigned int i = 0; i < count; ++i)
        delete[] lines[i];
    delete[] lines;
}

void askDriver(Worker&) {
    WifiUtil* const util = WifiUtil::getInstance();
    platwifi::ReplyLines lines(32);
    expect(util && util->getWifiAdapters(lines.data(), lines.capacity(), &lines.count),
           "the driver cannot list the adapters");
    expect(lines.count == 1 && std::strcmp(lines.data()[0], IFACE) == 0,
           "the driver lists other adapters");
    platwifi::ReplyLines networks(255);
    expect(
        util->getNetworkDatabaseSsids(IFACE, networks.data(), networks.capacity(), &networks.count),
        "the driver cannot list the networks");
    expect(networks.count >= FIXED_NETWORKS.size(), "the driver lists too few networks");
}

// A writer begins the document, the settings write the rest.
void writeXml(Worker& worker) {
    BufferedXWriter writer;
    expect(getWifiHostSettingsXML(&writer, nullptr, worker.random.oneIn(2)) == 1,
           "the XML document failed");
    const std::string text(writer.text(), writer.length());
    const std::string end = "</wifiHostSettings>\n";
    expect(text.size() > end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0,
           "the XML document is not complete");
    for (const std::string& ssid : FIXED_NETWORKS)
        expect(text.find(" ssid=\"" + ssid + '"') != std::string::npos,
               "a network is missing in the XML document");
}

void dump(Worker&) {
    WifiHostSettings::getInstance(nullptr)->dump();
}

} // namespace

void discardDumps() {
    if (std::FILE* const nowhere = std::fopen("/dev/null", "w"))
        stderr = nowhere;
}

Calls commandCalls() {
    return {
        {"connectToNetwork", 30, connect},
        {"connectToNetwork0", 20, connectNative},
        {"connectToNetwork (guest)", 20, connectToGuest},
        {"disconnectFromNetwork", 10, disconnect},
        {"disconnectFromNetwork0", 10, disconnectNative},
        {"roamNetworks", 10, roam},
        {"roamNetworks0", 10, roamNative},
        {"addWifiNetwork", 8, addGuest},
        {"removeWifiNetwork", 24, removeGuest},
        {"saveWifiHostSettings", 4, save},
        {"saveHostSettings0", 4, saveNative},
        {"getDaemonStatus", 20, askDaemonStatus},
        {"getDaemonStatus0", 20, askDaemonStatusNative},
        {"getCurrentNetwork", 20, askCurrentNetwork},
        {"getCurrentNetwork0", 20, askCurrentNetworkNative},
        {"getNetworkStatus0", 20, askNetworkStatus},
        {"refreshDatabaseNetworksStatus", 30, refreshStatus},
        {"isWifiEnabled", 20, askForSupplicant},
        {"discoverNetworks", 5, discover},
        {"WifiUtil's lists", 20, askDriver},
        {"getWifiHostSettingsXML", 10, writeXml},
        {"dump", 5, dump},
    };
}

} // namespace stress
