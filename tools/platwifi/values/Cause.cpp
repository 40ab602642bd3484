#include "values/Cause.h"

#include <iterator>

namespace cli {
namespace {

// In the order of Cause. docs/behaviour.md and the manual page have the same table.
constexpr CauseEntry CAUSES[] = {
    {Cause::WRONG_KEY, 10, "wrongKey", "the access point refuses the key",
     "correct it with platwifi set SSID psk=-"},
    {Cause::REFUSED, 11, "refused", "the access point refuses this device",
     "try again later, or see the settings of the access point"},
    {Cause::LOGIN_REFUSED, 12, "loginRefused", "the server refuses the identity or the password",
     "correct them with platwifi set SSID eapIdentity=NAME eapPassword=-"},
    {Cause::SERVER_NOT_TRUSTED, 13, "serverNotTrusted",
     "the certificate of the server is not trusted",
     "set the certificate of its authority with platwifi set SSID CACertificateFile=PATH"},
    {Cause::CERTIFICATE_FILE, 14, "certificateFile",
     "the supplicant cannot load a certificate or the private key",
     "correct it with platwifi set; platwifi show SSID has the paths"},
    {Cause::NOT_IN_RANGE, 15, "notInRange", "no access point of this name is in range",
     "see platwifi scan; a hidden network needs platwifi set SSID ssidBroadcasted=false"},
    {Cause::OTHER_SECURITY, 16, "otherSecurity", "the access point has another security",
     "compare platwifi scan and platwifi show SSID, then platwifi set SSID key_mgmt=WORD"},
    {Cause::NEEDS_PMF_OR_WPA3, 17, "needsPmfOrWpa3",
     "the access point requires WPA3 or management frame protection",
     "set it with platwifi set SSID key_mgmt=SAE pmf=required"},
    {Cause::TIMED_OUT, 18, "timedOut", "the connection takes too long",
     "the supplicant goes on trying: platwifi disconnect ends that"},
    {Cause::ADAPTER_BLOCKED, 19, "adapterBlocked", "the adapter is blocked or switched off",
     "switch it on: rfkill unblock wifi, as root"},
    {Cause::SUPPLICANT_GONE, 20, "supplicantGone", "the supplicant no longer serves the interface",
     "start it again; platwifi doctor tells more"},
};
static_assert(std::size(CAUSES) == static_cast<std::size_t>(Cause::SUPPLICANT_GONE) + 1);

} // namespace

const CauseEntry& entryOf(Cause cause) {
    return CAUSES[static_cast<std::size_t>(cause)];
}

} // namespace cli
