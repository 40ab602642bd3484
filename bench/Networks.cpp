#include "Networks.h"

#include <iterator>

namespace bench {
namespace {

// The fields of a network other than the SSID.
const char* const KINDS[] = {
    "key_mgmt=NONE\n priority=9",
    "proto=RSN\n key_mgmt=WPA-PSK\n pairwise=CCMP\n group=CCMP\n psk=\"correct horse battery\"",
    "key_mgmt=NONE\n group=WEP104 WEP40\n wep_key0=\"abcde\"\n wep_key1=0123456789\n"
    " wep_tx_keyidx=1\n auth_alg=SHARED",
    "proto=RSN\n key_mgmt=WPA-EAP\n eap=PEAP\n identity=\"bob@example.org\"\n"
    " anonymous_identity=\"R&D <guest>\"\n password=\"secret\"\n"
    " ca_cert=\"/etc/ssl/certs/ca.pem\"\n phase1=\"peapver=0\"\n phase2=\"auth=MSCHAPV2\"",
    "proto=RSN\n key_mgmt=WPA-EAP\n eap=TTLS\n identity=\"bob\"\n password=\"secret\"\n"
    " ca_path=\"/etc/ssl/certs\"\n phase2=\"auth=PAP\"",
    "proto=RSN\n key_mgmt=WPA-EAP\n eap=TLS\n identity=\"Bob \"the builder\" B\"\n"
    " ca_cert=\"/etc/ssl/certs/ca.pem\"\n client_cert=\"/etc/ssl/certs/client.pem\"\n"
    " private_key=\"/etc/ssl/private/client.key\"\n private_key_passwd=\"key password\"",
    "proto=WPA\n key_mgmt=WPA-PSK\n pairwise=TKIP\n group=TKIP\n psk=\"correct horse\"\n"
    " scan_ssid=1",
    "proto=RSN\n key_mgmt=WPA-PSK\n psk=\"battery staple\"\n priority=3\n disabled=1",
};

std::string twoDigits(unsigned int number) {
    return (number < 10 ? "0" : "") + std::to_string(number);
}

std::string addressOf(unsigned int number) {
    return "02:00:00:00:" + twoDigits(number / 100) + ":" + twoDigits(number % 100);
}

// The supplicant connects to the first network, which needs no key and has no BSSID.
std::string network(unsigned int number) {
    const std::string address = number == 0 ? "" : " bssid=" + addressOf(number) + "\n";
    return "network={\n ssid=\"" + ssidOf(number) + "\"\n" + address + " " +
           KINDS[number % std::size(KINDS)] + "\n}\n";
}

} // namespace

std::string ssidOf(unsigned int number) {
    return "network " + twoDigits(number);
}

std::string networks(unsigned int count) {
    std::string text;
    for (unsigned int i = 0; i < count; ++i)
        text += network(i);
    return text;
}

} // namespace bench
