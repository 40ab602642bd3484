#pragma once

#include "edits/Edits.h"
#include "host/Host.h"

#include <string>

namespace cli {

inline constexpr const char* NOT_SAVED = "the supplicant did not save its configuration, and "
                                         "nothing was changed; see that the file says "
                                         "update_config=1 and can be written: platwifi doctor";

/// Changes of networks that the supplicant has and its file has not: for a network that is tried before it is
/// saved. The destructor takes them back unless they were saved: the supplicant reads its file again.
/// While an object exists, a signal does not end the program by force, so that the changes are taken back first;
/// a process that is killed leaves the file as it was.
class UnsavedChanges {
public:
    UnsavedChanges(Context& context, Host& host);
    ~UnsavedChanges();

    UnsavedChanges(const UnsavedChanges&) = delete;
    UnsavedChanges& operator=(const UnsavedChanges&) = delete;

    // Each sends the change to the supplicant. An SSID is as the library has it.
    // They throw Failure if the supplicant refuses it.

    void add(const std::string& ssid, const Edits& edits);

    /// Ends the connection to this network, which has the old values.
    void change(const std::string& ssid, const Edits& edits);

    void remove(const std::string& ssid);

    /// Writes the supplicant's file. The connection stays: the supplicant does not read the file again.
    /// @throws Failure
    void save();

private:
    void keepUntried(const std::string& ssid);
    void write();
    void endConnectionTo(const std::string& ssid);
    void takeBack();
    void removeWhatOthersSaved();

    Context& m_context;
    Host& m_host;
    const Cancellation::Deferred m_deferred;
    const bool m_wasDisconnected; ///< by a user: the supplicant did not look for networks
    std::string m_added;          ///< the SSID that add() was called with; "" for none
    bool m_isSent = false;        ///< the supplicant may have something that its file has not
};

} // namespace cli
