#include "DoctorWorld.h"

#include "supplicant/WifiUtil.h"

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <grp.h>
#include <stdexcept>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace test {
namespace {

constexpr unsigned int OTHER_ID = 65534;

} // namespace

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

void DoctorWorld::SetUp() {
    std::filesystem::create_directories(FOLDER);
    m_socket.emplace(SOCKET);
    setenv("PLATFORM_KEY_FILE", "/tmp/no folder/crypt.key", 1);
    answer();
}

void DoctorWorld::TearDown() {
    m_socket.reset();
    std::filesystem::remove_all(FOLDER);
    std::filesystem::remove(PID_FILE);
    unsetenv("PLATFORM_KEY_FILE");
    WifiUtil::unload();
}

void DoctorWorld::answer() {
    m_standIn.on({"-iwlan0", "arg"}).prints("12 wpa_supplicant -B -i wlan0\n");
    m_standIn.on({"arg"}).prints("12 wpa_supplicant -B -i wlan0\n");
    m_standIn.on({"interface"})
        .prints("Selected interface 'wlan0'\nAvailable interfaces:\nwlan0\n");
    m_standIn.on({"-iwlan0", "ping"}).prints("PONG\n");
    m_standIn.on({"-iwlan0", "get", "update_config"}).prints("1");
}

} // namespace test
