#pragma once

#include "host/Link.h"
#include "process/Cancellation.h"
#include "process/Console.h"
#include "process/UserInput.h"
#include "values/Failure.h"
#include "values/Values.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

class WifiHostSettings;

namespace cli {

/// What a command works with, and what it reports beside its output.
struct Context {
    const Request& request;
    Cancellation& interrupt; ///< ends the command early
    const UserInput& input;
    Console out;           ///< standard output
    Console err;           ///< standard error
    bool hasSaved = false; ///< set after a save: other processes must be notified of it
    Status status = DONE;  ///< FAILED if the command has done its work and found something wrong
    bool isWholeProcess = true; ///< else the process goes on with the settings after the command
};

/// The Wi-Fi of this host. Reaches the supplicant and loads the settings when a command first needs
/// them; if that fails, finds the cause.
class Host {
public:
    explicit Host(Context& context) : m_context(context) {}

    /// Leaves the memory shared with other processes (see leaveSharedBlock()) where the process ends as well.
    ~Host();

    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    /// The interfaces that the supplicant lists; one at least.
    /// @throws Failure if the supplicant cannot be reached
    const std::vector<std::string>& adapters();

    /// The interface that holds the networks: the first one listed. @throws Failure as adapters() does
    const std::string& firstAdapter();

    /// The interface of this command: the one on the command line, or the first one listed.
    /// @throws Failure if there is none, or if the supplicant does not serve that one
    const std::string& iface();

    /// How many networks a load of the settings finds, asked without one.
    /// @throws Failure as settings() does
    std::size_t networkCount();

    /// What the supplicant does on the interface. @throws Failure if it does not answer
    LinkState link();

    /// The settings. The first call loads them, with a line of progress if that takes long.
    /// @throws Failure if they cannot be loaded, or if they are those of another interface
    WifiHostSettings& settings();

    /// The SSIDs of the configured networks as the library has them, the last one added first.
    std::vector<std::string> networks();

    /// The network that the command line names, as the library has it (see readingsOf()). @throws Failure for
    /// an unknown network
    std::string network();

    /// The same; nothing for an unknown network.
    std::optional<std::string> findNetwork();

    /// The network that the interface is connected to; "" if there is none.
    std::string currentNetwork();

private:
    void load();
    void requireServed(const std::string& wanted);
    [[noreturn]] void throwSilent();
    [[noreturn]] void throwNotLoaded();

    Context& m_context;
    std::vector<std::string> m_adapters;
    std::string m_first;
    std::string m_iface;
    WifiHostSettings* m_settings = nullptr;
};

} // namespace cli
