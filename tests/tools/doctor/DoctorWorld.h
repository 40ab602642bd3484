#pragma once

#include "checks/CheckFunctions.h"
#include "support/StandIn.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

namespace test {

/// Listens at the path of a control socket, as the supplicant does. The destructor stops that and leaves
/// the file of the socket.
class ListeningSocket {
public:
    explicit ListeningSocket(const std::string& path);
    ~ListeningSocket();
    ListeningSocket(const ListeningSocket&) = delete;
    ListeningSocket& operator=(const ListeningSocket&) = delete;

private:
    int m_socket;
};

/// Gives a process of root the user id and the group id 65534, which have no rights of their own, while the
/// object exists. Converts to whether it does so.
class OrdinaryUser {
public:
    OrdinaryUser();
    ~OrdinaryUser();
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;
    explicit operator bool() const { return m_done; }

private:
    std::vector<gid_t> m_groups;
    bool m_done;
};

/// Replaces a folder by an empty one while the object exists.
class EmptyFolder {
public:
    explicit EmptyFolder(const std::string& path);
    ~EmptyFolder();
    EmptyFolder(const EmptyFolder&) = delete;
    EmptyFolder& operator=(const EmptyFolder&) = delete;

private:
    const std::string m_path;
};

/// Writes a file, and makes its folders.
void putFile(const std::string& path, const std::string& text);

/// A host without faults, with a supplicant that serves wlan0, which is connected and has an address. Each
/// test adds its fault.
class DoctorWorld : public testing::Test {
protected:
    static const std::string FOLDER; ///< of the control sockets
    static const std::string SOCKET;
    static const std::string PID_FILE;

    void SetUp() override;
    void TearDown() override;

    /// The kernel's description of wlan0.
    static const std::string SYSTEM_FOLDER;

    /// The switch of its radio.
    static const std::string RADIO_SWITCH;

    /// The program is started with this value of PLATWIFI_PROFILE.
    static void setProfile(const std::string& name);

    /// The processes that run, a line each: the process id and the arguments.
    void setProcesses(const std::string& lines);

    /// Replaces the answer to a command of the client for wlan0.
    void setReply(std::vector<std::string> command, const std::string& reply);

    /// Adds the answers of such a supplicant. The first one that fits counts: to change one, a test
    /// resets the stand-in, adds its own answer, and calls this.
    void answer();

    StandIn m_standIn;
    std::optional<EmptyFolder> m_system; ///< in the place of /sys/class
    std::optional<ListeningSocket> m_socket;
};

} // namespace test
