#pragma once

#include "HostCommand.h"

#include <string>
#include <sys/types.h>

namespace test {

/// The host's supplicant on the interface wlan0, which is an Ethernet interface in disguise: with
/// the wired driver a network without keys is connected at once, whatever its SSID, and a scan
/// finds nothing. Ends with this object.
///
/// What cannot be done is thrown as std::runtime_error, with the supplicant's own words.
class Supplicant {
public:
    Supplicant();
    ~Supplicant();

    Supplicant(const Supplicant&) = delete;
    Supplicant& operator=(const Supplicant&) = delete;

    enum class Saving { Allowed, Refused };

    /// Starts it with these networks in its configuration file; it answers when this returns.
    void start(const std::string& networks = "", Saving saving = Saving::Allowed);

    /// Makes a running one read these networks in place of those it has.
    void reload(const std::string& networks = "") const;

    /// Starts it with its file as it stands.
    void startAgain();

    /// Ends it in good order and waits for its end.
    void stop();

    /// Kills it: its pid file and its socket stay behind.
    void crash();

    /// Makes it stand still, without its end, until resume().
    void suspend();
    void resume();

    /// What the host's own client prints for a command.
    Lines ask(const std::string& command) const;

    /// The configured networks as the host's own client lists them.
    Lines networks() const;

    /// Waits until the status holds this line.
    void awaitStatus(const std::string& line) const;

    /// The configuration file.
    Lines file() const;
    void replaceFile(const std::string& networks, Saving saving = Saving::Allowed) const;
    void removeFile() const;

private:
    void end(int signal);

    pid_t m_process = 0;
};

/// Enabled networks without keys, as the configuration file has them.
std::string openNetworks(const Lines& ssids);

} // namespace test
