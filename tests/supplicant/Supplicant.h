#pragma once

#include "HostCommand.h"

#include <string>
#include <sys/types.h>

namespace test {

/// The host's supplicant on wlan0, an Ethernet interface with this name. With the wired driver the
/// supplicant connects at once to a network without keys, whatever its SSID, and a scan finds nothing.
/// The destructor stops it.
///
/// A failure is thrown as std::runtime_error, with the supplicant's messages.
class Supplicant {
public:
    Supplicant();
    ~Supplicant();

    Supplicant(const Supplicant&) = delete;
    Supplicant& operator=(const Supplicant&) = delete;

    enum class Saving { Allowed, Refused };

    /// Starts it with these networks in its configuration file, and waits until it answers.
    void start(const std::string& networks = "", Saving saving = Saving::Allowed);

    /// Replaces the networks of the file, and makes the running supplicant read it.
    void reload(const std::string& networks = "") const;

    /// Starts it with the file that is there.
    void startAgain();

    /// Ends it by SIGTERM, and waits until it has ended.
    void stop();

    /// Ends it by SIGKILL: its pid file and its socket stay.
    void crash();

    /// Stops its execution until resume().
    void suspend();
    void resume();

    /// What the host's own client prints for a command.
    Lines ask(const std::string& command) const;

    /// The configured networks as the host's own client lists them.
    Lines networks() const;

    /// Waits until the status contains this line.
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
