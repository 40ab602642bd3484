// Reading a scan. The supplicant here has no radio, so a stand-in for the client prints the lines.

#include "BareCommand.h"
#include "Networks.h"
#include "Stopwatch.h"
#include "curves/Curves.h"
#include "settings/WifiHostSettings.h"
#include "supplicant/ReplyLines.h"
#include "supplicant/WifiUtil.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>

namespace bench {
namespace {

namespace fs = std::filesystem;

constexpr unsigned int NUMBERS[] = {1, 32, 64, 128, 255, 400, 500};
constexpr unsigned int MOST_READ = 255;
constexpr int ROUNDS = 5;
constexpr int CALLS = 25;

const fs::path FOLDER = "/tmp/bench-boot";

std::string listOfNetworks() {
    std::string text = "network id / ssid / bssid / flags\n";
    for (unsigned int i = 0; i < NETWORK_COUNT; ++i)
        text +=
            std::to_string(i) + "\t" + ssidOf(i) + "\tany\t" + (i == 0 ? "[CURRENT]" : "") + "\n";
    return text;
}

// Names of usual length; every fourth one is that of a configured network.
std::string scanOf(unsigned int lines) {
    std::string text = "bssid / frequency / signal level / flags / ssid\n";
    for (unsigned int i = 0; i < lines; ++i) {
        const bool isConfigured = i % 4 == 0;
        const std::string number = std::to_string(1000 + i);
        text += "02:00:00:00:" + number.substr(0, 2) + ":" + number.substr(2) + "\t" +
                (i % 3 == 0 ? "5180" : "2412") + "\t-" + std::to_string(30 + i % 60) +
                "\t[WPA2-PSK-CCMP][WPS][ESS]\t" +
                (isConfigured ? ssidOf(i / 4 % NETWORK_COUNT) : "neighbour " + number) + "\n";
    }
    return text;
}

/// A boot directory with the stand-in, during its lifetime.
class ScriptedClient {
public:
    ScriptedClient() {
        fs::create_directory(FOLDER);
        fs::create_symlink(REPLY_CLIENT, FOLDER / "wpa_cli");
        setReply("interface", std::string("Selected interface '") + WLAN +
                                  "'\nAvailable interfaces:\n" + WLAN + "\n");
        setReply("list_networks", listOfNetworks());
        setReply("status", "ssid=" + ssidOf(0) + "\nwpa_state=COMPLETED\n");
        setReply("scan_results", scanOf(0));
        setenv("PLATFORM_BOOT_DIR", FOLDER.c_str(), 1);
    }
    ~ScriptedClient() {
        unsetenv("PLATFORM_BOOT_DIR");
        fs::remove_all(FOLDER);
    }

    ScriptedClient(const ScriptedClient&) = delete;
    ScriptedClient& operator=(const ScriptedClient&) = delete;

    static void setReply(const char* command, const std::string& text) {
        std::ofstream(FOLDER / command) << text;
    }
};

void readScan() {
    platwifi::ReplyLines lines(MOST_READ);
    if (!WifiUtil::getInstance()->discoverNetworks(WLAN, lines.data(), lines.capacity(),
                                                   &lines.count) ||
        lines.count == 0)
        throw std::runtime_error("the scan cannot be read");
}

void readBare() {
    runBare(REPLY_CLIENT, {"-iwlan0", "scan_results"});
}

// A load makes it due.
double secondsOfARefresh() {
    WifiHostSettings& settings = *WifiHostSettings::getInstance(nullptr);
    settings.refreshAllSettings();
    return secondsOf([&settings] { settings.refreshDatabaseNetworksStatus(); });
}

struct Measured {
    Series lines{"the lines of the scan", {}};
    Series refresh{"status refresh of 32 networks with this scan", {}};
    Series bare{"the stand-in, bare", {}};

    void begin(double x) {
        for (Series* const series : {&lines, &refresh, &bare})
            series->points.push_back({x, {}});
    }

    void runRound() {
        lines.points.back().values.push_back(medianSecondsOf(readScan, CALLS));
        refresh.points.back().values.push_back(secondsOfARefresh());
        bare.points.back().values.push_back(medianSecondsOf(readBare, CALLS));
    }
};

Measured measure() {
    const ScriptedClient client;
    Measured measured;
    for (const unsigned int number : NUMBERS) {
        ScriptedClient::setReply("scan_results", scanOf(number));
        measured.begin(number);
        for (int round = 0; round < ROUNDS; ++round)
            measured.runRound();
        std::cout << '.' << std::flush;
    }
    WifiHostSettings::unload();
    WifiUtil::unload();
    return measured;
}

// Of the lines that are read.
double perLine(const Series& series) {
    Series read = series;
    while (read.points.back().x > MOST_READ)
        read.points.pop_back();
    return fit(read).slope;
}

} // namespace

Curve measureScanCurve() {
    const Measured measured = measure();
    return {{measured.lines, measured.refresh},
            measured.bare,
            "Reading takes " + inSeconds(first(measured.lines)) + " for 1 line and " +
                inSeconds(perLine(measured.lines)) + " for each further one; a refresh of 32 " +
                "networks takes " + inSeconds(perLine(measured.refresh)) +
                " a line. For 500 lines they take " + inSeconds(last(measured.lines)) + " and " +
                inSeconds(last(measured.refresh)) + ", the bare stand-in " +
                inSeconds(last(measured.bare)) + "."};
}

} // namespace bench
