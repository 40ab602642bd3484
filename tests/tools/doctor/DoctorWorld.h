#pragma once

#include "checks/CheckFunctions.h"
#include "support/StandIn.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

namespace test {

/// What stands at the path of a control socket, as the supplicant puts it there. Nobody listens any
/// more when the object is gone; the socket stays.
class ListeningSocket {
public:
    explicit ListeningSocket(const std::string& path);
    ~ListeningSocket();
    ListeningSocket(const ListeningSocket&) = delete;
    ListeningSocket& operator=(const ListeningSocket&) = delete;

private:
    int m_socket;
};

/// Makes this process one of the user and the group nobody, where it is root's.
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

/// A host on which everything is in order, with a supplicant that serves wlan0. Tests spoil it.
class DoctorWorld : public testing::Test {
protected:
    static const std::string FOLDER; ///< of the control sockets
    static const std::string SOCKET;
    static const std::string PID_FILE;

    void SetUp() override;
    void TearDown() override;

    /// Makes the rules of such a host. To spoil one, forget them, make its own first, then these.
    void answer();

    StandIn m_standIn;
    std::optional<ListeningSocket> m_socket;
};

} // namespace test
