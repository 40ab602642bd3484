#include "supplicant/ValueQuoting.h"

#include <gtest/gtest.h>

#include <string>

using namespace platwifi;

namespace {

// VALUE-1
TEST(ValueQuoting, QuotesTextFieldsOnly) {
    for (const char* key : {"wep_key0",
                            "wep_key1",
                            "wep_key2",
                            "wep_key3",
                            "wep_key",
                            "wep_keyring",
                            "ca_cert",
                            "ca_cert2",
                            "ca_path",
                            "ca_path2",
                            "client_cert",
                            "client_cert2",
                            "private_key",
                            "private_key2",
                            "private_key_passwd",
                            "private_key_passwd2",
                            "ssid",
                            "psk",
                            "private_key2_passwd",
                            "identity",
                            "password",
                            "phase1",
                            "anonymous_identity",
                            "phase2",
                            "ca_certy"})
        EXPECT_EQ(quotedFor(key, "some text"), "\"some text\"") << key;
    for (const char* key : {"key_mgmt", "proto",
                            "pairwise", "group",
                            "eap",      "auth_alg",
                            "mode",     "bssid",
                            "disabled", "wep_tx_keyidx",
                            "priority", "scan_ssid",
                            "ssid2",    "psk2",
                            "Ssid",     "password2",
                            "phase",    "phase11",
                            "wep_ke",   "xssid",
                            "",         "identity2",
                            "ca_pat",   "client_cer",
                            "phase22",  "anonymous_identity2"})
        EXPECT_EQ(quotedFor(key, "WPA-PSK"), "WPA-PSK") << key;
}

// VALUE-2
TEST(ValueQuoting, LeavesAValueWithAQuoteAtEitherEnd) {
    for (const char* value : {"\"home\"", "\"ab", "ab\"", "\"", "\"\""})
        EXPECT_EQ(quotedFor("ssid", value), value);
    EXPECT_EQ(quotedFor("ssid", "a\"b"), "\"a\"b\"") << "a quote inside does not count";
}

TEST(ValueQuoting, QuotesAnEmptyText) {
    EXPECT_EQ(quotedFor("identity", ""), "\"\"");
    EXPECT_EQ(quotedFor("key_mgmt", ""), "");
}

// VALUE-3
TEST(ValueQuoting, SendsKeysInHexadecimalBareByTheirLengthAlone) {
    const struct {
        const char* key;
        std::size_t length;
        bool bare;
    } rows[] = {
        {"wep_key0", 10, true},  {"wep_key3", 26, true},  {"wep_key1", 9, false},
        {"wep_key1", 11, false}, {"wep_key1", 25, false}, {"wep_key1", 27, false},
        {"wep_key1", 5, false},  {"wep_key1", 13, false}, {"wep_key1", 64, false},
        {"psk", 64, true},       {"psk", 63, false},      {"psk", 65, false},
        {"psk", 10, false},      {"psk", 26, false},      {"password", 64, false},
        {"ssid", 10, false},     {"identity", 26, false},
    };
    for (const auto& row : rows) {
        const std::string value(row.length, 'z');
        const std::string expected = row.bare ? value : '"' + value + '"';
        EXPECT_EQ(quotedFor(row.key, value.c_str()), expected) << row.key << ' ' << row.length;
    }
}

// VALUE-4
TEST(ValueQuoting, QuotesAnySsid) {
    EXPECT_EQ(quoted("a\"b c"), "\"a\"b c\"");
    EXPECT_EQ(quoted("\"x\""), "\"\"x\"\"");
    EXPECT_EQ(quoted(""), "\"\"");
}

} // namespace
