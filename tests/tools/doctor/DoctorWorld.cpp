#include "DoctorWorld.h"

#include "supplicant/WifiUtil.h"

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <grp.h>
#include <stdexcept>
#include <sys/mount.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace test {
namespace {

constexpr unsigned int OTHER_ID = 65534;

} // namespace

EmptyFolder::EmptyFolder(const std::string& path) : m_path(path) {
    if (mount("private", path.c_str(), "tmpfs", 0, "mode=755") != 0)
        throw std::runtime_error("cannot replace " + path + ": " + std::strerror(errno));
}

EmptyFolder::~EmptyFolder() {
    EXPECT_EQ(umount2(m_path.c_str(), MNT_DETACH), 0);
}

void putFile(const std::string& path, const std::string& text) {
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    std::ofstream(path) << text;
}

ListeningSocket::ListeningSocket(const std::string& path)
    : m_socket(socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0)) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, path.data(), path.size());
    const auto* const generic = reinterpret_cast<const sockaddr*>(&address);
    if (bind(m_socket, generic, sizeof address) != 0)
        throw std::runtime_error("no socket " + path + ": " + std::strerror(errno));
}

ListeningSocket::~ListeningSocket() {
    close(m_socket);
}

OrdinaryUser::OrdinaryUser() : m_groups(static_cast<std::size_t>(getgroups(0, nullptr))) {
    getgroups(static_cast<int>(m_groups.size()), m_groups.data());
    m_done = setgroups(0, nullptr) == 0 && setegid(OTHER_ID) == 0 && seteuid(OTHER_ID) == 0;
}

OrdinaryUser::~OrdinaryUser() {
    if (!m_done)
        return;
    EXPECT_EQ(seteuid(0), 0);
    EXPECT_EQ(setegid(0), 0);
    EXPECT_EQ(setgroups(m_groups.size(), m_groups.data()), 0);
}

const std::string DoctorWorld::FOLDER = "/run/wpa_supplicant";
const std::string DoctorWorld::SOCKET = FOLDER + "/wlan0";
const std::string DoctorWorld::PID_FILE = "/var/run/wpa_supplicant.pid";
const std::string DoctorWorld::SYSTEM_FOLDER = "/sys/class/net/wlan0";
const std::string DoctorWorld::RADIO_SWITCH = "/sys/class/rfkill/rfkill0";

void DoctorWorld::SetUp() {
    std::filesystem::create_directories(FOLDER);
    m_socket.emplace(SOCKET);
    m_system.emplace("/sys/class");
    putFile(SYSTEM_FOLDER + "/ifindex", "7\n");
    putFile(SYSTEM_FOLDER + "/phy80211/name", "phy0\n");
    putFile(RADIO_SWITCH + "/name", "phy0\n");
    putFile(RADIO_SWITCH + "/type", "wlan\n");
    putFile(RADIO_SWITCH + "/soft", "0\n");
    putFile(RADIO_SWITCH + "/hard", "0\n");
    setenv("PLATFORM_KEY_FILE", "/tmp/no folder/crypt.key", 1);
    answer();
}

void DoctorWorld::TearDown() {
    m_socket.reset();
    m_system.reset();
    for (const std::string& folder : {FOLDER, std::string("/run/NetworkManager"),
                                      std::string("/run/systemd"), std::string("/run/netplan")})
        std::filesystem::remove_all(folder);
    std::filesystem::remove(PID_FILE);
    unsetenv("PLATFORM_KEY_FILE");
    unsetenv("PLATWIFI_PROFILE");
    WifiUtil::unload();
}

void DoctorWorld::setProfile(const std::string& name) {
    setenv("PLATWIFI_PROFILE", name.c_str(), 1);
}

void DoctorWorld::setProcesses(const std::string& lines) {
    m_standIn.reset();
    m_standIn.on({"arg"}).prints(lines);
    answer();
}

void DoctorWorld::setReply(std::vector<std::string> command, const std::string& reply) {
    command.insert(command.begin(), "-iwlan0");
    m_standIn.reset();
    m_standIn.on(command).prints(reply);
    answer();
}

void DoctorWorld::answer() {
    m_standIn.on({"-iwlan0", "arg"}).prints("12 wpa_supplicant -B -i wlan0\n");
    m_standIn.on({"arg"}).prints("12 wpa_supplicant -B -i wlan0\n");
    m_standIn.on({"interface"})
        .prints("Selected interface 'wlan0'\nAvailable interfaces:\nwlan0\n");
    m_standIn.on({"-iwlan0", "ping"}).prints("PONG\n");
    m_standIn.on({"-iwlan0", "get", "update_config"}).prints("1");
    m_standIn.on({"-iwlan0", "get", "country"}).prints("DE");
    m_standIn.on({"-iwlan0", "get_capability", "freq"})
        .prints("Mode[A] Channels:\n 36 = 5180 MHz\n");
    m_standIn.on({"-iwlan0", "status"}).prints("wpa_state=COMPLETED\nip_address=192.0.2.7\n");
}

} // namespace test
