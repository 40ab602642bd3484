// The whole library without children: natives, flat functions and operations of the settings in any order,
// with a supplicant in memory that answers plausibly, fails sometimes, or answers any bytes. As long as its
// answers are plausible, a command must name the network of the call.

#include "Input.h"
#include "ModelSupplicant.h"
#include "Require.h"

#include "jni/ServiceFunctions.h"
#include "model/WifiNetwork.h"
#include "settings/WifiHostSettings.h"
#include "supplicant/Arguments.h"
#include "supplicant/Reply.h"
#include "supplicant/WifiUtil.h"
#include "support/AllNatives.h"
#include "support/FakeJni.h"
#include "support/TestTime.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <set>

using fuzz::Input;
using fuzz::ModelSupplicant;
using Fault = ModelSupplicant::Fault;
using Command = ModelSupplicant::Command;

// Most of the time of a load is for reading values. Most runs read them without result files.
bool realValue(WifiUtil*, const char*, unsigned char, const char*, char*,
               unsigned int) __asm__("__real__ZN8WifiUtil15getNetworkValueEPKchS1_Pcj");
bool quickValue(WifiUtil*, const char*, unsigned char, const char*, char*,
                unsigned int) __asm__("__wrap__ZN8WifiUtil15getNetworkValueEPKchS1_Pcj");

namespace {

bool readsFiles = true; // else values come directly from the model

std::string firstLine(const std::string& text) {
    return text.substr(0, std::min<std::size_t>(text.find('\n'), 127));
}

} // namespace

bool quickValue(WifiUtil* util, const char* iface, unsigned char id, const char* key, char* out,
                unsigned int outSize) {
    if (readsFiles)
        return realValue(util, iface, id, key, out, outSize);
    const auto answer =
        ModelSupplicant::instance().run(iface, {"get_network", std::to_string(id), key});
    std::string value = firstLine(answer.output);
    if (!answer.hasExited || !platwifi::isAccepted(value.c_str()))
        return false;
    platwifi::stripQuotes(value.data());
    std::strncpy(out, value.c_str(), outSize);
    return true;
}

namespace {

constexpr const char* KEY_FILE = "/tmp/fuzz-library.key"; // in the private world
constexpr const char* ADAPTER = "wlan0";
constexpr const char* NO_SSID = "SSID N/A";
constexpr unsigned char CAPACITY = 255;
constexpr std::size_t MOST_CALLS = 12;

const std::string SSIDS[] = {
    "home",
    "work",
    "cafe",
    "cafe-guest",
    "-",
    "any",
    "a:b",
    "tab\tbed",
    "back\\slash",
    "\"quoted\"",
    "caf\xC3\xA9",
    "\xFF\x01",
    "\xF0\x9F\x93\xB6\xF0\x9F\x93\xB6\xF0\x9F\x93\xB6\xF0\x9F\x93\xB6"
    "\xF0\x9F\x93\xB6\xF0\x9F\x93\xB6\xF0\x9F\x93\xB6\xF0\x9F\x93\xB6",
    "\xD0\xB4\xD0\xBE\xD0\xBC\xD0\xB0\xD1\x88\xD0\xBD\xD1\x8F\xD1\x8F"
    "\xD1\x81\xD0\xB5\xD1\x82\xD1\x8C\xD0\xBD\xD0\xBE\xD0\xBC\xD0\xB5",
    NO_SSID,
    "",
};
constexpr unsigned int SSID_COUNT = sizeof(SSIDS) / sizeof(SSIDS[0]);

/// Which network of the supplicant a network in memory is, by the model's mark.
using Marks = std::map<std::string, unsigned int>;

enum class Call { NONE, LOAD, ADD, REMOVE, CONNECT, ROAM, SAVE };

/// What the call in progress may name, and its faults.
struct Watch {
    Call call = Call::NONE;
    std::string ssid;            ///< of REMOVE and CONNECT
    bool isPlausible = true;     ///< no reply was garbage, so ids must be right
    std::map<int, Fault> faults; ///< by the number of the command
    Marks marks;
    std::map<unsigned int, std::optional<std::string>> ssids; ///< of marks, as they were last seen
    std::set<unsigned int> added; ///< marks of networks that the call in progress has made
    int edits = 0;
};

Watch watch;

ModelSupplicant& model() {
    return ModelSupplicant::instance();
}

unsigned int markOf(const std::string& ssid) {
    const auto found = watch.marks.find(ssid);
    return found == watch.marks.end() ? 0 : found->second;
}

void noteSsids() {
    for (const ModelSupplicant::Network& network : model().networks())
        watch.ssids[network.mark] = network.ssid;
}

// Only other programs add several networks with one SSID. The command may then name any of them, because the
// library finds networks by SSID.
bool isMeant(const ModelSupplicant::Network& network, unsigned int mark) {
    const auto seen = watch.ssids.find(mark);
    return network.mark == mark || (seen != watch.ssids.end() && seen->second == network.ssid);
}

bool isInMemory(const ModelSupplicant::Network& network) {
    return std::any_of(watch.marks.begin(), watch.marks.end(),
                       [&](const auto& entry) { return isMeant(network, entry.second); });
}

std::string lineOf(const Command& command) {
    std::string line;
    for (const std::string& word : command)
        line += word + " ";
    return line + "in " + std::to_string(static_cast<int>(watch.call)) + " " + watch.ssid;
}

// An edit is written together with the mark of its network: see edit().
void requireOwnValue(const Command& command, const ModelSupplicant::Network& network) {
    if (command.size() != 4 || command[3].rfind("\"mark ", 0) != 0)
        return;
    const auto mark = static_cast<unsigned int>(std::strtoul(command[3].c_str() + 6, nullptr, 10));
    REQUIRE_FOR(isMeant(network, mark), lineOf(command));
}

// The supplicant refuses an id that it does not know, so such a command changes nothing.
void requireRightNetwork(const Command& command) {
    const ModelSupplicant::Network* const network = model().withId(command[1]);
    if (!network)
        return;
    switch (watch.call) {
    case Call::LOAD:
        return; // values are compared after the load
    case Call::ADD:
        REQUIRE_FOR(watch.added.count(network->mark) != 0, lineOf(command));
        return;
    case Call::REMOVE:
    case Call::CONNECT:
        REQUIRE_FOR(isMeant(*network, markOf(watch.ssid)), lineOf(command));
        return;
    case Call::ROAM:
    case Call::SAVE:
        REQUIRE_FOR(isInMemory(*network), lineOf(command));
        requireOwnValue(command, *network);
        return;
    case Call::NONE:
        REQUIRE_FOR(false, lineOf(command));
    }
}

bool namesNetwork(const std::string& word) {
    for (const char* const one : {"set_network", "get_network", "enable_network", "select",
                                  "remove_network", "bssid", "disable_network"}) {
        if (word == one)
            return true;
    }
    return false;
}

Fault beforeCommand(const Command& command) {
    for (const std::string& word : command)
        REQUIRE_FOR(!platwifi::isClientOption(word.c_str()) || word == "-", lineOf(command));
    const auto planned = watch.faults.find(model().commands);
    const Fault fault = planned == watch.faults.end() ? Fault::NONE : planned->second;
    watch.isPlausible = watch.isPlausible && fault != Fault::GARBAGE;
    noteSsids();
    if (watch.isPlausible && command.size() > 1 && namesNetwork(command[0]))
        requireRightNetwork(command);
    if (command[0] == "add_network")
        watch.added.insert(model().lastMark() + 1);
    return fault;
}

std::vector<std::string> namesInMemory(WifiHostSettings& settings) {
    const platwifi::SettingsLock lock(settings);
    char* names[CAPACITY] = {};
    unsigned char count = 0;
    if (!settings.getNetworkDatabaseSsids(ADAPTER, names, CAPACITY, &count))
        settings.unlockSettings(); // see there
    std::vector<std::string> list;
    for (const char* const name : names) {
        if (name)
            list.emplace_back(name);
        delete[] name;
    }
    return list;
}

bool hasNoName(const ModelSupplicant::Network& network) {
    const std::string name = network.ssid.value_or("");
    return name.empty() || name == "any" || name.find(':') != std::string::npos;
}

// The network that a load calls by this name: the first one listed.
unsigned int loadedMarkOf(const std::string& name) {
    for (const ModelSupplicant::Network& network : model().networks()) {
        const std::string column =
            hasNoName(network) ? NO_SSID : ModelSupplicant::printed(*network.ssid);
        if (column == name)
            return network.mark;
    }
    return 0;
}

// After a load every network in memory is a network of the supplicant and has its values.
void followLoad(WifiHostSettings& settings) {
    watch.marks.clear();
    for (const std::string& name : namesInMemory(settings)) {
        const unsigned int mark = loadedMarkOf(name);
        watch.marks[name] = mark;
        if (!watch.isPlausible)
            continue;
        REQUIRE_FOR(mark != 0, name);
        const auto& values = model().withMark(mark)->values;
        const auto phase = values.find("phase1");
        const platwifi::SettingsLock lock(settings);
        const char* const held = settings.getNetwork(ADAPTER, name.c_str())->getPhase1Step();
        const bool isRight =
            phase == values.end() || !held || phase->second == '"' + std::string(held) + '"';
        REQUIRE_FOR(isRight, name + " " + (held ? held : "(null)"));
    }
}

/// The name of a network in memory, or any text.
std::string ssidFrom(Input& input, WifiHostSettings* settings) {
    const unsigned int choice = input.byte();
    if (choice < SSID_COUNT)
        return SSIDS[choice];
    if (choice == 0xFF || !settings)
        return input.text(40);
    const auto names = namesInMemory(*settings);
    return names.empty() ? "home" : names[choice % names.size()];
}

std::string ifaceFrom(Input& input) {
    const unsigned int choice = input.byte();
    return choice < 0xF0 ? ADAPTER : choice < 0xF8 ? "wlan1" : input.text(20);
}

WifiHostSettings& loaded() {
    watch.call = Call::LOAD;
    WifiHostSettings* const settings = WifiHostSettings::getInstance(nullptr);
    REQUIRE(settings);
    return *settings;
}

// Calls ------------------------------------------------------------------------------------------

void reload(Input& input, WifiHostSettings& settings) {
    watch.call = Call::LOAD;
    if (input.flag())
        settings.refreshAllSettings();
    else
        WifiHostSettings::reload(nullptr);
    followLoad(*WifiHostSettings::getInstance(nullptr));
}

void add(Input& input, WifiHostSettings& settings) {
    watch.call = Call::ADD;
    const std::string iface = ifaceFrom(input);
    const std::string ssid = ssidFrom(input, &settings);
    if (addWifiNetwork(nullptr, iface.c_str(), ssid.c_str()) != 0)
        watch.marks[ssid] = model().networks().empty() ? 0 : model().networks().back().mark;
}

void remove(Input& input, WifiHostSettings& settings) {
    watch.call = Call::REMOVE;
    const std::string iface = ifaceFrom(input);
    watch.ssid = ssidFrom(input, &settings);
    if (removeWifiNetwork(nullptr, iface.c_str(), watch.ssid.c_str()) != 0)
        watch.marks.erase(watch.ssid);
}

void connect(Input& input, WifiHostSettings& settings) {
    watch.call = Call::CONNECT;
    const std::string iface = ifaceFrom(input);
    watch.ssid = ssidFrom(input, &settings);
    connectToNetwork(nullptr, iface.c_str(), watch.ssid.c_str());
}

void disconnect(Input& input, WifiHostSettings& settings) {
    const std::string iface = ifaceFrom(input);
    const std::string ssid = ssidFrom(input, &settings);
    disconnectFromNetwork(nullptr, iface.c_str(), ssid.c_str());
}

void roam(Input& input, WifiHostSettings&) {
    watch.call = Call::ROAM;
    roamNetworks(nullptr, ifaceFrom(input).c_str());
}

void save(Input&, WifiHostSettings&) {
    watch.call = Call::SAVE;
    saveWifiHostSettings(nullptr);
}

// Each edit also sets a text field that contains the mark of its network.
void edit(Input& input, WifiHostSettings& settings) {
    const std::string ssid = ssidFrom(input, &settings);
    const std::string own =
        "mark " + std::to_string(markOf(ssid)) + " " + std::to_string(++watch.edits);
    static constexpr const char* FIELDS[] = {"key_mgmt", "priority", "bssid", "eapIdentity",
                                             "protocol", "key1",     "index", "CACertificateFile"};
    const char* const names[] = {"phase1", FIELDS[input.below(8)]};
    const std::string value = input.text(140);
    const char* const values[] = {own.c_str(), value.c_str()};
    setNetworkParameters(nullptr, ADAPTER, ssid.c_str(), names, values, 2);
}

// Open, or with a WPA key management and no key, which the supplicant cannot save.
void secure(Input& input, WifiHostSettings& settings) {
    const std::string ssid = ssidFrom(input, &settings);
    const char* const names[] = {"key_mgmt"};
    const char* const values[] = {input.flag() ? "1" : "2"};
    setNetworkParameters(nullptr, ADAPTER, ssid.c_str(), names, values, 1);
}

void rename(Input& input, WifiHostSettings& settings) {
    const std::string ssid = ssidFrom(input, &settings);
    const std::string name = ssidFrom(input, nullptr);
    const platwifi::SettingsLock lock(settings);
    WifiNetwork* const network = settings.getNetwork(ADAPTER, ssid.c_str());
    if (!network || name.empty() || settings.getNetwork(ADAPTER, name.c_str()))
        return;
    network->setSsid(name.c_str());
    const unsigned int mark = markOf(ssid);
    watch.marks.erase(ssid);
    watch.marks[name] = mark;
}

void report(Input& input, WifiHostSettings&) {
    BufferedXWriter out;
    getWifiHostSettingsXML(&out, nullptr, input.flag());
}

void refreshStatus(Input&, WifiHostSettings& settings) {
    static test::TestTime time;
    time.advance(std::chrono::seconds(6));
    settings.refreshDatabaseNetworksStatus();
}

void ask(Input& input, WifiHostSettings&) {
    const std::string iface = ifaceFrom(input);
    char* text = nullptr;
    getCurrentNetwork(nullptr, iface.c_str(), &text);
    delete[] text;
    const int state = getDaemonStatus(nullptr, iface.c_str());
    REQUIRE(state >= 0 && state <= static_cast<int>(WPA_STATE_COMPLETED));
    getWifiAdapter(nullptr, &text);
    delete[] text;
}

void discover(Input& input, WifiHostSettings&) {
    char** list = nullptr;
    unsigned char count = 0;
    const auto capacity = input.byte();
    if (discoverNetworks(nullptr, ADAPTER, &list, capacity, &count) == 0)
        return;
    REQUIRE(count <= capacity);
    for (unsigned int i = 0; i < capacity; ++i)
        delete[] list[i];
    delete[] list;
}

void happen(Input& input, WifiHostSettings&) {
    static constexpr const char* STATES[] = {"INACTIVE",     "SCANNING",    "COMPLETED",
                                             "DISCONNECTED", "ASSOCIATING", "AUTHENTICATING"};
    model().state = STATES[input.below(6)];
    model().isListed = input.flag();
    model().found = "02:00:00:00:01:00\t2412\t-30\t[ESS]\t" +
                    ModelSupplicant::printed(ssidFrom(input, nullptr)) + "\n";
}

std::string modified(const std::string& text) {
    std::string ascii;
    for (const char byte : text)
        ascii += static_cast<unsigned char>(byte) < 0x80 ? byte : '?';
    return ascii;
}

// Natives that load, add, remove, rename, connect and save are left out: the functions that they call are
// called above.
bool isPlain(const std::string& name) {
    return name.rfind("get", 0) == 0 ||
           (name.rfind("set", 0) == 0 && name != "setSsid0" && name != "setKeyManagement0") ||
           name == "isWifiEnabled0" || name == "hashCACertificates0" || name == "discoverNetworks0";
}

void native(Input& input, WifiHostSettings& settings) {
    const test::Native& one = test::NATIVES[input.byte() % test::NATIVE_COUNT];
    if (!isPlain(one.name) || namesInMemory(settings).size() != watch.marks.size())
        return; // or a network without a name keeps the lock
    test::FakeJni java;
    test::NativeArguments with;
    with.iface = java.javaString(modified(ifaceFrom(input)));
    with.ssid = java.javaString(modified(ssidFrom(input, &settings)));
    with.text = java.javaString(modified(input.text(40)));
    with.number = static_cast<int>(input.byte()) - 8;
    with.flag = input.flag();
    one.call(java.environment(), with);
}

using Step = void (*)(Input&, WifiHostSettings&);

constexpr Step STEPS[] = {add,      remove, connect, disconnect, roam,          save,
                          edit,     secure, rename,  report,     refreshStatus, ask,
                          discover, happen, native,  reload};

// Inputs -----------------------------------------------------------------------------------------

void configure(Input& input) {
    const unsigned int count = input.below(5);
    unsigned int id = 0;
    std::set<std::string> names;
    for (unsigned int i = 0; i < count; ++i) {
        const unsigned int how = input.byte();
        const std::string ssid = ssidFrom(input, nullptr).substr(0, 32);
        id += how >> 6U; // gaps
        ModelSupplicant::Network& network = model().configure(
            id++, ssid.empty() ? std::optional<std::string>() : ssid, (how & 1U) != 0);
        network.values["phase1"] = "\"mark " + std::to_string(network.mark) + "\"";
        network.isDisabled = (how & 2U) != 0;
    }
}

void planFaults(Input& input) {
    for (unsigned int count = input.below(4); count > 0; --count) {
        const int command = 1 + static_cast<int>(input.byte());
        watch.faults[command] = static_cast<Fault>(1 + input.below(5));
    }
    if (!watch.faults.empty())
        model().garbage = input.text(300);
}

void begin(Input& input) {
    model().reset();
    watch = Watch();
    model().before = beforeCommand;
    const unsigned int how = input.below(16);
    model().hasStamps = how == 1;
    readsFiles = how <= 2;
    configure(input);
    planFaults(input);
}

void end() {
    WifiHostSettings::unload();
    WifiUtil::unload();
    REQUIRE(model().commands > 0); // else children were started: the runner was not replaced
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const int keyFile = setenv("PLATFORM_KEY_FILE", KEY_FILE, 1);
    REQUIRE(keyFile == 0);
    Input input(data, size);
    begin(input);
    followLoad(loaded());
    for (std::size_t i = 0; i < MOST_CALLS && !input.isEmpty(); ++i) {
        WifiHostSettings& settings = loaded();
        watch.call = Call::NONE;
        watch.added.clear();
        STEPS[input.below(sizeof(STEPS) / sizeof(STEPS[0]))](input, settings);
    }
    end();
    return 0;
}
