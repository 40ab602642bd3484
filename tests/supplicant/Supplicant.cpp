#include "Supplicant.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <thread>

namespace test {
namespace {

constexpr const char* CONFIGURATION = "/run/wpa_supplicant.conf";
constexpr const char* CONTROL_FOLDER = "/run/wpa_supplicant";
constexpr const char* PID_FILE = "/var/run/wpa_supplicant.pid";
constexpr const char* LOG = "/run/wpa_supplicant.log";
constexpr const char* CLIENT = "wpa_cli -iwlan0 ";

std::string joined(const Lines& lines) {
    std::string text;
    for (const std::string& line : lines)
        text += line + "\n";
    return text;
}

constexpr std::chrono::seconds MAX_WAIT{300}; // in case that the event never comes
constexpr std::chrono::milliseconds POLL_INTERVAL{5};

void await(const std::string& what, const std::function<bool()>& happened) {
    const auto end = std::chrono::steady_clock::now() + MAX_WAIT;
    while (!happened()) {
        if (std::chrono::steady_clock::now() > end)
            throw std::runtime_error("timed out: " + what + "\n" + joined(linesOfFile(LOG)));
        std::this_thread::sleep_for(POLL_INTERVAL);
    }
}

bool holds(const Lines& lines, const std::string& line) {
    return std::find(lines.begin(), lines.end(), line) != lines.end();
}

pid_t processInPidFile() {
    pid_t process = 0;
    std::ifstream(PID_FILE) >> process;
    return process;
}

} // namespace

Supplicant::Supplicant() {
    if (!std::getenv("PLATWIFI_PRIVATE_INTERFACE")) // never the interface of the host
        throw std::runtime_error(
            "no private interface: start this program with tests/supplicant/run");
    prctl(PR_SET_CHILD_SUBREAPER, 1); // reaps the supplicant, which runs in the background
}

Supplicant::~Supplicant() {
    if (m_process > 0)
        end(SIGTERM);
    std::filesystem::remove_all(CONTROL_FOLDER);
    std::filesystem::remove(PID_FILE);
}

void Supplicant::start(const std::string& networks, Saving saving) {
    replaceFile(networks, saving);
    startAgain();
}

void Supplicant::reload(const std::string& networks) const {
    replaceFile(networks);
    const Lines answer = ask("reconfigure");
    if (answer != Lines{"OK"})
        throw std::runtime_error("the supplicant does not reload its file\n" + joined(answer));
}

void Supplicant::startAgain() {
    const HostCommand started("wpa_supplicant -B -Dwired -i wlan0 -c " +
                              std::string(CONFIGURATION) + " -P " + PID_FILE + " -f " + LOG);
    if (started.status != 0)
        throw std::runtime_error("cannot start wpa_supplicant\n" + joined(started.lines) +
                                 joined(linesOfFile(LOG)));
    await("the supplicant answers", [this] { return ask("ping") == Lines{"PONG"}; });
    m_process = processInPidFile();
}

void Supplicant::stop() {
    end(SIGTERM);
}

void Supplicant::crash() {
    end(SIGKILL);
}

void Supplicant::end(int signal) {
    kill(m_process, signal);
    kill(m_process, SIGCONT);
    waitpid(m_process, nullptr, 0);
    m_process = 0;
}

void Supplicant::suspend() {
    kill(m_process, SIGSTOP);
    waitpid(m_process, nullptr, WUNTRACED);
}

void Supplicant::resume() {
    kill(m_process, SIGCONT);
}

Lines Supplicant::ask(const std::string& command) const {
    return HostCommand(CLIENT + command).lines;
}

Lines Supplicant::networks() const {
    Lines lines = ask("list_networks");
    if (lines.empty())
        throw std::runtime_error("the client lists no networks");
    lines.erase(lines.begin()); // the header
    return lines;
}

void Supplicant::awaitStatus(const std::string& line) const {
    await("status " + line, [&] { return holds(ask("status"), line); });
}

Lines Supplicant::file() const {
    return linesOfFile(CONFIGURATION);
}

void Supplicant::replaceFile(const std::string& networks, Saving saving) const {
    std::ofstream file(CONFIGURATION);
    file << "ctrl_interface=" << CONTROL_FOLDER << '\n';
    if (saving == Saving::Allowed)
        file << "update_config=1\n";
    file << networks;
}

void Supplicant::removeFile() const {
    std::filesystem::remove(CONFIGURATION);
}

std::string openNetworks(const Lines& ssids) {
    std::string text;
    for (const std::string& ssid : ssids)
        text += "network={\n\tssid=\"" + ssid + "\"\n\tkey_mgmt=NONE\n}\n";
    return text;
}

} // namespace test
