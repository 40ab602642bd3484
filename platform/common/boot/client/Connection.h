#pragma once

#include "Request.h"

struct wpa_ctrl;

namespace client {

/// The connection to the supplicant of one interface.
class Connection {
public:
    /// @param iface  null for the first interface that the supplicant listens on; its name is printed
    explicit Connection(const char* iface) noexcept;
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    bool isOpen() const noexcept { return m_control != nullptr; }

    /// Sends a request and prints the reply, or that there is none.
    /// @return the exit status
    int ask(const Request& request) const noexcept;

private:
    wpa_ctrl* m_control = nullptr;
};

} // namespace client
