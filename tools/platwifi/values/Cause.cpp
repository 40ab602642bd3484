#include "values/Cause.h"

#include <iterator>

namespace cli {
namespace {

// In the order of Cause. docs/behaviour.md and the manual page have the same table.
constexpr CauseEntry CAUSES[] = {
    {Cause::WRONG_KEY, "wrongKey", 10, "the access point refuses the key",
     "correct it with platwifi set SSID psk=-"},
    {Cause::REFUSED, "refused", 11, "the access point refuses this device",
     "try again later, or see the settings of the access point"},
    {Cause::LOGIN_REFUSED, "loginRefused", 12, "the server refuses the identity or the password",
     "correct them with platwifi set SSID eapIdentity=NAME eapPassword=-"},
    {Cause::SERVER_NOT_TRUSTED, "serverNotTrusted", 13,
     "the certificate of the server is not trusted",
     "set the certificate of its authority with platwifi set SSID CACertificateFile=PATH"},
    {Cause::CERTIFICATE_FILE, "certificateFile", 14,
     "the supplicant cannot load a certificate or the private key",
     "correct it with platwifi set; platwifi show SSID has the paths"},
    {Cause::NOT_IN_RANGE, "notInRange", 15, "no access point of this name is in range",
     "see platwifi scan; a hidden network needs platwifi set SSID ssidBroadcasted=false"},
    {Cause::OTHER_SECURITY, "otherSecurity", 16, "the access point has another security",
     "compare platwifi scan and platwifi show SSID, then platwifi set SSID key_mgmt=WORD"},
    {Cause::NEEDS_PMF_OR_WPA3, "needsPmfOrWpa3", 17,
     "the access point requires WPA3 or management frame protection",
     "set it with platwifi set SSID key_mgmt=SAE pmf=required"},
    {Cause::TIMED_OUT, "timedOut", 18, "the connection takes too long",
     "the supplicant goes on trying: platwifi disconnect ends that"},
    {Cause::ADAPTER_BLOCKED, "adapterBlocked", 19, "the adapter is blocked or switched off",
     "switch it on: rfkill unblock wifi, as root"},
    {Cause::SUPPLICANT_GONE, "supplicantGone", 20, "the supplicant no longer serves the interface",
     "start it again; platwifi doctor tells more"},
};
static_assert(std::size(CAUSES) == static_cast<std::size_t>(Cause::SUPPLICANT_GONE) + 1);

} // namespace

const CauseEntry& entryOf(Cause cause) {
    return CAUSES[static_cast<std::size_t>(cause)];
}

} // namespace cli
