#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace fuzz {

/// A supplicant in memory, and its client. It answers commands as wpa_supplicant 2.10 does, assigns new
/// network ids when it reads its file, and leaves networks out of the file that it cannot save. It replaces
/// the library's children in a program that links ModelRunner.cpp.
class ModelSupplicant {
public:
    struct Network {
        unsigned int mark; ///< known to this model alone; unlike the id it never changes
        unsigned int id;
        std::optional<std::string> ssid; ///< bytes
        std::map<std::string, std::string> values;
        bool isDisabled = false;
    };

    /// What happens to a command.
    enum class Fault {
        NONE,
        REFUSED,      ///< not carried out, "FAIL"
        SILENT,       ///< not carried out, no output
        KILLED,       ///< not carried out, the child ends by a signal
        KILLED_AFTER, ///< carried out, but the child ends by a signal and its output is lost
        GARBAGE,      ///< not carried out, `garbage` as output
    };

    struct Answer {
        bool hasExited; ///< with status 0
        std::string output;
    };

    using Command = std::vector<std::string>; ///< the word of the client, then its arguments

    /// The instance that the library of this program uses.
    static ModelSupplicant& instance();

    /// Restores the first state: one adapter, "wlan0", and no networks.
    void reset();

    /// A network that is in the file already.
    /// @param isSavable  false for a WPA key management without a key
    Network& configure(unsigned int id, const std::optional<std::string>& ssid, bool isSavable);

    /// Runs the client.
    Answer run(const std::string& iface, const Command& command);

    std::vector<Network>& networks() { return m_networks; }
    const Network* withId(const std::string& id) const;
    const Network* withMark(unsigned int mark) const;

    /// The mark of the network that was added last; marks increase.
    unsigned int lastMark() const { return m_marks; }

    /// The column of list_networks for an SSID.
    static std::string printed(const std::string& ssid);

    /// Called before each command, and returns its fault.
    std::function<Fault(const Command&)> before;

    std::string garbage;
    std::string adapters = "wlan0\n"; ///< a line each
    std::string found;                ///< lines of scan_results
    std::string state = "INACTIVE";
    unsigned int current = 0; ///< mark of the current network, or 0
    bool hasStamps = false;
    bool isListed = true; ///< in the process table
    int commands = 0;     ///< number of commands since reset()

private:
    std::string carriedOut(const Command& command);
    std::string stamped(const std::string& word, std::string reply) const;
    std::string add();
    std::string remove(const Network& network);
    std::string select(const Network& network);
    std::string set(Network& network, const std::string& key, const std::string& value);
    std::string get(const Network& network, const std::string& key) const;
    std::string list() const;
    std::string status() const;
    std::string onNetwork(const Command& command, Network& network);
    std::string readFile();

    std::vector<Network> m_networks;
    std::vector<Network> m_file;
    unsigned int m_marks = 0;
};

} // namespace fuzz
