// What join configures for what access points offer: one table.

#include "host/BestSecurity.h"

#include "model/WifiTypes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using cli::ALL_METHODS;
using cli::bestSecurity;
using cli::Credentials;
using cli::Security;
using testing::ElementsAre;
using testing::ElementsAreArray;

namespace {

using Texts = std::vector<std::string>;

constexpr unsigned int WITHOUT_WPA3 =
    ALL_METHODS & ~(KEY_MGMT_SAE | KEY_MGMT_FT_SAE | KEY_MGMT_SUITE_B_192 | KEY_MGMT_OWE);

const Texts WPA3 = {"WPA3-SAE", "key_mgmt=SAE", "pmf=required"};
const Texts MIXED = {"WPA2-PSK/WPA3-SAE", "key_mgmt=WPA-PSK SAE", "pmf=optional"};
const Texts WPA2 = {"WPA2-PSK", "key_mgmt=WPA-PSK", "pmf=optional", "protocol=RSN"};
const Texts WPA1 = {"WPA-PSK", "key_mgmt=WPA-PSK"};
const Texts ENTERPRISE = {"WPA2-Enterprise", "key_mgmt=WPA-EAP", "pmf=optional", "protocol=RSN"};
const Texts OWE = {"OWE", "key_mgmt=OWE", "pmf=required"};
const Texts OPEN = {"open", "key_mgmt=NONE"};
const Texts NOTHING = {};

// The name and the properties; nothing without a security.
Texts shown(const std::optional<Security>& security) {
    Texts texts;
    if (security) {
        texts = security->properties;
        texts.insert(texts.begin(), security->name);
    }
    return texts;
}

struct Row {
    const char* title;
    Texts flags; // of each access point
    unsigned int capable;
    Texts expected;
};

const Row ROWS[] = {
    {"WPA3 alone", {"[WPA2-SAE-CCMP][ESS]"}, ALL_METHODS, WPA3},
    {"WPA3 alone, and the supplicant has none", {"[WPA2-SAE-CCMP][ESS]"}, WITHOUT_WPA3, NOTHING},
    {"WPA3 with fast transition",
     {"[WPA2-SAE+FT/SAE-CCMP][ESS]"},
     ALL_METHODS,
     {"WPA3-SAE", "key_mgmt=SAE FT-SAE", "pmf=required"}},
    {"WPA3 with a method that is not known",
     {"[WPA2-SAE+SAE-EXT-KEY-GCMP-256][ESS]"},
     ALL_METHODS,
     WPA3},
    {"mixed", {"[WPA2-PSK+SAE-CCMP][ESS]"}, ALL_METHODS, MIXED},
    {"mixed, as another supplicant prints it", {"[RSN-PSK+SAE-CCMP][ESS]"}, ALL_METHODS, MIXED},
    {"mixed, and the supplicant has no WPA3", {"[WPA2-PSK+SAE-CCMP][ESS]"}, WITHOUT_WPA3, WPA2},
    {"WPA2", {"[WPA2-PSK-CCMP][ESS]"}, ALL_METHODS, WPA2},
    {"WPA2 with more flags", {"[WPA2-PSK-CCMP+TKIP-preauth][WPS][ESS]"}, ALL_METHODS, WPA2},
    {"WPA and WPA2", {"[WPA-PSK-TKIP][WPA2-PSK-CCMP][ESS]"}, ALL_METHODS, WPA2},
    {"WPA2 that requires management frame protection",
     {"[WPA2-PSK-SHA256-CCMP][ESS]"},
     ALL_METHODS,
     {"WPA2-PSK", "key_mgmt=WPA-PSK-SHA256", "pmf=optional", "protocol=RSN"}},
    {"WPA2 with fast transition",
     {"[WPA2-PSK+FT/PSK-CCMP][ESS]"},
     ALL_METHODS,
     {"WPA2-PSK", "key_mgmt=WPA-PSK FT-PSK", "pmf=optional", "protocol=RSN"}},
    {"WPA2 with fast transition, which the radio has not",
     {"[WPA2-PSK+FT/PSK-CCMP][ESS]"},
     ALL_METHODS & ~KEY_MGMT_FT_PSK,
     WPA2},
    {"WPA", {"[WPA-PSK-TKIP][ESS]"}, ALL_METHODS, WPA1},
    {"enterprise", {"[WPA2-EAP-CCMP][ESS]"}, ALL_METHODS, ENTERPRISE},
    {"enterprise with SHA-256",
     {"[WPA2-EAP+EAP-SHA256-CCMP][ESS]"},
     ALL_METHODS,
     {"WPA2-Enterprise", "key_mgmt=WPA-EAP WPA-EAP-SHA256", "pmf=optional", "protocol=RSN"}},
    {"enterprise with WPA alone",
     {"[WPA-EAP-TKIP][ESS]"},
     ALL_METHODS,
     {"WPA-Enterprise", "key_mgmt=WPA-EAP"}},
    {"enterprise with 192 bits",
     {"[WPA2-EAP-SUITE-B-192-GCMP-256][ESS]"},
     ALL_METHODS,
     {"WPA3-Enterprise-192", "key_mgmt=WPA-EAP-SUITE-B-192", "pmf=required",
      "encryption=GCMP-256"}},
    {"Suite B with 128 bits", {"[WPA2-EAP-SUITE-B-GCMP][ESS]"}, ALL_METHODS, NOTHING},
    {"OWE", {"[WPA2-OWE-CCMP][ESS]"}, ALL_METHODS, OWE},
    {"OWE, and the supplicant has none", {"[WPA2-OWE-CCMP][ESS]"}, WITHOUT_WPA3, NOTHING},
    {"open, and OWE beside it", {"[OWE-TRANS-OPEN][ESS]"}, ALL_METHODS, OWE},
    {"open, and OWE that the supplicant has not", {"[OWE-TRANS-OPEN][ESS]"}, WITHOUT_WPA3, OPEN},
    {"open", {"[ESS]"}, ALL_METHODS, OPEN},
    {"open without any flag", {""}, ALL_METHODS, OPEN},
    {"open with setup by a button", {"[WPS][ESS]"}, ALL_METHODS, OPEN},
    {"WEP", {"[WEP][ESS]"}, ALL_METHODS, {"WEP", "key_mgmt=NONE"}},
    {"a method that is not known", {"[WPA2-DPP-CCMP][ESS]"}, ALL_METHODS, NOTHING},
    {"flags that are cut off", {"[WPA2-PSK-CC"}, ALL_METHODS, WPA2},

    // Several access points with one SSID.
    {"none", {}, ALL_METHODS, NOTHING},
    {"an open one among others", {"[ESS]", "[WPA2-PSK-CCMP][ESS]", "[ESS]"}, ALL_METHODS, WPA2},
    {"one with WPA", {"[WPA2-PSK-CCMP][ESS]", "[WPA-PSK-TKIP][ESS]"}, ALL_METHODS, WPA2},
    {"WPA2 beside WPA3", {"[WPA2-PSK-CCMP][ESS]", "[WPA2-SAE-CCMP][ESS]"}, ALL_METHODS, WPA3},
    {"WPA2 beside mixed", {"[WPA2-PSK-CCMP][ESS]", "[WPA2-PSK+SAE-CCMP][ESS]"}, ALL_METHODS, MIXED},
    {"mixed beside WPA3", {"[WPA2-PSK+SAE-CCMP][ESS]", "[WPA2-SAE-CCMP][ESS]"}, ALL_METHODS, WPA3},
    {"open beside OWE", {"[ESS]", "[WPA2-OWE-CCMP][ESS]"}, ALL_METHODS, OWE},
    {"two methods of one kind",
     {"[WPA2-PSK-CCMP][ESS]", "[WPA2-PSK-SHA256-CCMP][ESS]"},
     ALL_METHODS,
     {"WPA2-PSK", "key_mgmt=WPA-PSK WPA-PSK-SHA256", "pmf=optional", "protocol=RSN"}},
};

TEST(BestSecurity, IsThatOfTheTable) {
    for (const Row& row : ROWS) {
        EXPECT_THAT(shown(bestSecurity(row.flags, row.capable)), ElementsAreArray(row.expected))
            << row.title;
    }
}

TEST(BestSecurity, AsksForWhatItNeeds) {
    const std::pair<const char*, Credentials> cases[] = {
        {"[WPA2-SAE-CCMP][ESS]", Credentials::KEY},
        {"[WPA2-PSK+SAE-CCMP][ESS]", Credentials::KEY},
        {"[WPA2-PSK-CCMP][ESS]", Credentials::KEY},
        {"[WPA-PSK-TKIP][ESS]", Credentials::KEY},
        {"[WPA2-EAP-CCMP][ESS]", Credentials::LOGIN},
        {"[WPA2-EAP-SUITE-B-192-GCMP-256][ESS]", Credentials::LOGIN},
        {"[WPA-EAP-TKIP][ESS]", Credentials::LOGIN},
        {"[WPA2-OWE-CCMP][ESS]", Credentials::NONE},
        {"[WEP][ESS]", Credentials::WEP_KEY},
        {"[ESS]", Credentials::NONE},
    };
    for (const auto& [flags, credentials] : cases)
        EXPECT_EQ(bestSecurity({flags}, ALL_METHODS)->credentials, credentials) << flags;
}

TEST(BestSecurity, IsOneThatNeedsWhatIsGiven) {
    const Texts both = {"[WPA2-PSK-CCMP][ESS]", "[WPA2-EAP-CCMP][ESS]"};
    EXPECT_THAT(shown(bestSecurity(both, ALL_METHODS)), ElementsAreArray(ENTERPRISE));
    EXPECT_THAT(shown(bestSecurity(both, ALL_METHODS, Credentials::KEY)), ElementsAreArray(WPA2));
    EXPECT_THAT(shown(bestSecurity({"[ESS]"}, ALL_METHODS, Credentials::KEY)),
                ElementsAreArray(OPEN))
        << "there is none";
}

TEST(BestSecurity, OfAChosenKeyManagementNeedsTheSame) {
    EXPECT_EQ(cli::credentialsFor(KEY_MGMT_SAE), Credentials::KEY);
    EXPECT_EQ(cli::credentialsFor(KEY_MGMT_SAE | KEY_MGMT_WPA_PSK), Credentials::KEY);
    EXPECT_EQ(cli::credentialsFor(KEY_MGMT_WPA_PSK), Credentials::KEY);
    EXPECT_EQ(cli::credentialsFor(KEY_MGMT_WPA_EAP), Credentials::LOGIN);
    EXPECT_EQ(cli::credentialsFor(KEY_MGMT_OWE), Credentials::NONE);
    EXPECT_EQ(cli::credentialsFor(KEY_MGMT_NONE), Credentials::NONE);
}

} // namespace
