#pragma once

#include "connection/Diagnosis.h"
#include "events/Event.h"

#include <optional>
#include <string>

namespace cli {

/// Judges an attempt to connect by the events that the supplicant reports one after another. Events of other
/// networks, such as the one that the interface was connected to before, do not count.
class EventJudge {
public:
    /// @param ssid  the network, as the library has it
    explicit EventJudge(std::string ssid);

    void onEvent(const Event& event);

    /// Why the connection fails; nothing as long as it may still succeed.
    const std::optional<Diagnosis>& failure() const { return m_failure; }

    /// Whether an access point of the network was tried: then one is in range, and fits.
    bool wasTried() const { return m_wasTried; }

    /// How many scans have begun since the construction, and have finished.
    int finishedScans() const { return m_finishedScans; }

    /// What is known after the time-out; "" if that is nothing.
    std::string hindrance() const;

private:
    struct Reaction;
    static const Reaction REACTIONS[];

    void onAttempt(const Event& event);
    void onWrongKey(const Event& event);
    void onAuthenticationRefused(const Event& event);
    void onAssociationRefused(const Event& event);
    void onDisconnected(const Event& event);
    void onNoAnswer(const Event& event);
    void onSuspended(const Event& event);
    void onMethodRefused(const Event& event);
    void onMethodChosen(const Event& event);
    void onMethodUnusable(const Event& event);
    void onCertificateRejected(const Event& event);
    void onLoginRefused(const Event& event);
    void onCredentialNeeded(const Event& event);
    void onEapStatus(const Event& event);
    void onEapFailed(const Event& event);
    void onScanStarted(const Event& event);
    void onScanFinished(const Event& event);
    void onGone(const Event& event);

    bool concerns(const Event& event) const;
    void refuse(const Event& event, const std::string& found);
    void fail(Cause cause, const std::string& found = "", const std::string& step = "");

    const std::string m_ssid;
    std::optional<Diagnosis> m_failure;

    // The attempt that is under way.
    bool m_isOurs = false;     ///< it is for the wanted network
    std::string m_accessPoint; ///< its BSSID
    std::string
        m_refusedMethod;  ///< EAP method that the server proposes and the network does not have
    std::string m_method; ///< EAP method that both sides have chosen
    std::string m_serverAlert; ///< TLS alert of the server

    // All attempts so far.
    bool m_wasTried = false;
    bool m_isSuspended = false;
    bool m_hadNoAnswer = false;
    std::string m_refusal;        ///< the last refusal by an access point
    std::string m_refusedAtBssid; ///< that access point

    bool m_isScanning = false; ///< a scan has begun since the construction
    int m_finishedScans = 0;
};

} // namespace cli
