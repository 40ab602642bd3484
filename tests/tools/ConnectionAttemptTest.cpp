#include "host/ConnectionAttempt.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using cli::ConnectionAttempt;
using testing::HasSubstr;

namespace {

constexpr bool WANTED = true;

struct Report {
    WpaState state;
    bool isOnNetwork;
};

using History = std::vector<Report>;

ConnectionAttempt after(const History& history) {
    ConnectionAttempt attempt;
    for (const Report& report : history)
        attempt.onState(report.state, report.isOnNetwork);
    return attempt;
}

const History SUCCESS = {{WPA_STATE_SCANNING, !WANTED},       {WPA_STATE_ASSOCIATING, WANTED},
                         {WPA_STATE_ASSOCIATED, WANTED},      {WPA_STATE_4WAY_HANDSHAKE, WANTED},
                         {WPA_STATE_GROUP_HANDSHAKE, WANTED}, {WPA_STATE_COMPLETED, WANTED}};

TEST(AnAttempt, IsCompleteOnTheNetworkThatIsWanted) {
    EXPECT_TRUE(after(SUCCESS).isComplete());
    EXPECT_FALSE(after(SUCCESS).isRefused());
    EXPECT_EQ(after(SUCCESS).last(), WPA_STATE_COMPLETED);
}

TEST(AnAttempt, IsNotCompleteInAnyEarlierState) {
    for (std::size_t count = 0; count < SUCCESS.size(); ++count) {
        const auto end = SUCCESS.begin() + static_cast<std::ptrdiff_t>(count);
        EXPECT_FALSE(after({SUCCESS.begin(), end}).isComplete());
    }
}

struct Refusal {
    WpaState reached;
    WpaState back;
    const char* cause;
};

constexpr Refusal REFUSALS[] = {
    {WPA_STATE_4WAY_HANDSHAKE, WPA_STATE_DISCONNECTED, "key is probably wrong"},
    {WPA_STATE_4WAY_HANDSHAKE, WPA_STATE_SCANNING, "key is probably wrong"},
    {WPA_STATE_GROUP_HANDSHAKE, WPA_STATE_DISCONNECTED, "key is probably wrong"},
    {WPA_STATE_ASSOCIATED, WPA_STATE_DISCONNECTED, "identity, password or certificate"},
    {WPA_STATE_ASSOCIATED, WPA_STATE_SCANNING, "identity, password or certificate"},
};

TEST(AnAttempt, IsRefusedIfItFallsBackAfterTheAssociation) {
    for (const Refusal& refusal : REFUSALS) {
        const ConnectionAttempt attempt = after({{WPA_STATE_SCANNING, !WANTED},
                                                 {WPA_STATE_ASSOCIATED, WANTED},
                                                 {refusal.reached, WANTED},
                                                 {refusal.back, !WANTED}});
        EXPECT_TRUE(attempt.isRefused());
        EXPECT_FALSE(attempt.isComplete());
        EXPECT_THAT(attempt.likelyCause(), HasSubstr(refusal.cause));
    }
}

TEST(AnAttempt, StaysRefused) {
    EXPECT_TRUE(after({{WPA_STATE_4WAY_HANDSHAKE, WANTED},
                       {WPA_STATE_DISCONNECTED, !WANTED},
                       {WPA_STATE_ASSOCIATING, WANTED}})
                    .isRefused());
}

TEST(AnAttempt, ThatWasNeverAssociatedIsNotRefused) {
    const ConnectionAttempt attempt = after({{WPA_STATE_SCANNING, !WANTED},
                                             {WPA_STATE_DISCONNECTED, !WANTED},
                                             {WPA_STATE_ASSOCIATING, WANTED},
                                             {WPA_STATE_SCANNING, !WANTED}});
    EXPECT_FALSE(attempt.isRefused());
}

// The supplicant disconnects from another network first.
TEST(AnAttempt, IgnoresStatesOfTheNetworkBefore) {
    const History leaving = {{WPA_STATE_COMPLETED, !WANTED}, {WPA_STATE_DISCONNECTED, !WANTED}};
    EXPECT_FALSE(after({leaving[0]}).isComplete());
    EXPECT_FALSE(after(leaving).isRefused());
    History notInRange = leaving;
    notInRange.push_back({WPA_STATE_SCANNING, !WANTED});
    EXPECT_THAT(after(notInRange).likelyCause(), HasSubstr("no access point in range"));
}

TEST(AnAttempt, IsRefusedIfTheSupplicantBeginsToAvoidTheNetwork) {
    ConnectionAttempt attempt = after({{WPA_STATE_SCANNING, !WANTED}});
    attempt.onListed(false);
    EXPECT_FALSE(attempt.isRefused());
    attempt.onListed(true);
    EXPECT_TRUE(attempt.isRefused());
    EXPECT_THAT(attempt.likelyCause(), HasSubstr("refuses the key, or the identity and password"));
}

TEST(AnAttempt, IsNotRefusedIfTheNetworkWasAvoidedBefore) {
    ConnectionAttempt attempt = after({{WPA_STATE_SCANNING, !WANTED}});
    attempt.onListed(true);
    attempt.onListed(true);
    EXPECT_FALSE(attempt.isRefused());
    attempt.onListed(false);
    attempt.onListed(true);
    EXPECT_TRUE(attempt.isRefused());
}

struct Furthest {
    WpaState state;
    const char* cause;
};

constexpr Furthest CAUSES[] = {
    {WPA_STATE_UNKNOWN, "does not answer; platwifi doctor"},
    {WPA_STATE_DISCONNECTED, "is the network disabled?"},
    {WPA_STATE_IDLE, "is the network disabled?"},
    {WPA_STATE_SCANNING, "no access point in range"},
    {WPA_STATE_ASSOCIATING, "the access point does not answer"},
    {WPA_STATE_ASSOCIATED, "identity, password or certificate"},
    {WPA_STATE_4WAY_HANDSHAKE, "platwifi set SSID psk=-"},
    {WPA_STATE_GROUP_HANDSHAKE, "platwifi set SSID psk=-"},
    {WPA_STATE_COMPLETED, "it was connected and is no more"},
};

TEST(AnAttempt, JudgesTheCauseByTheFurthestState) {
    for (const Furthest& furthest : CAUSES) {
        ConnectionAttempt attempt;
        attempt.onState(furthest.state, WANTED);
        attempt.onState(WPA_STATE_UNKNOWN, !WANTED);
        EXPECT_THAT(attempt.likelyCause(), HasSubstr(furthest.cause));
        EXPECT_EQ(attempt.last(), WPA_STATE_UNKNOWN);
    }
}

} // namespace
