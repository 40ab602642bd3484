// Fields by their name in `Field`.

#include "model/NetworkFields.h"

#include "NetworkRows.h"
#include "model/WifiTypes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

using platwifi::Field;
using platwifi::NetworkFields;
using test::dirtyOf;
using test::valuesOf;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// A field with the name that NetworkRows gives it.
struct NamedField {
    Field field;
    const char* name;
};

const NamedField WRITTEN_TEXTS[] = {
    {Field::SSID, "ssid"},
    {Field::BSSID, "bssid"},
    {Field::PSK, "psk"},
    {Field::EAP_IDENTITY, "EAPIdentity"},
    {Field::EAP_ANONYMOUS_IDENTITY, "EAPAnonymousIdentity"},
    {Field::EAP_PASSWORD, "EAPPassword"},
    {Field::CA_CERTIFICATE, "CACertificate"},
    {Field::CA_CERTIFICATE_DIR, "CACertificateDir"},
    {Field::CLIENT_CERTIFICATE, "ClientCertificate"},
    {Field::PRIVATE_KEY_FILE, "PrivateKeyFile"},
    {Field::PRIVATE_KEY_PASSWORD, "PrivateKeyPassword"},
    {Field::PHASE1_STEP, "Phase1Step"},
    {Field::PHASE2_STEP, "Phase2Step"},
    {Field::CA_CERTIFICATE2, "CACertificate2"},
    {Field::CA_CERTIFICATE_DIR2, "CACertificateDir2"},
    {Field::CLIENT_CERTIFICATE2, "ClientCertificate2"},
    {Field::PRIVATE_KEY_FILE2, "PrivateKeyFile2"},
    {Field::PRIVATE_KEY_PASSWORD2, "PrivateKeyPassword2"},
    {Field::WEP_KEY0, "wepKey0"},
    {Field::WEP_KEY1, "wepKey1"},
    {Field::WEP_KEY2, "wepKey2"},
    {Field::WEP_KEY3, "wepKey3"},
};

const NamedField WRITTEN_NUMBERS[] = {
    {Field::SSID_BROADCASTED, "ssidBroadcasted"},
    {Field::NETWORK_MODE, "networkMode"},
    {Field::CHANNEL, "channel"},
    {Field::PRIORITY, "priority"},
    {Field::PROTOCOL, "protocol"},
    {Field::KEY_MANAGEMENT, "keyManagement"},
    {Field::AUTH_ALG, "authAlg"},
    {Field::GROUP_CIPHERS, "groupCiphers"},
    {Field::PAIRWISE_CIPHERS, "pairwiseCiphers"},
    {Field::EAP_MODES, "eapModes"},
    {Field::WEP_INDEX, "wepIndex"},
};

const NamedField REPORTED_NUMBERS[] = {
    {Field::NETWORK_ID, "networkId"},
    {Field::NETWORK_STATUS, "networkStatus"},
    {Field::STRENGTH, "strength"},
};

class NetworkFieldsTest : public testing::Test {
protected:
    /// What the getters of the network give differently than before.
    std::vector<std::string> changes() const {
        const std::vector<std::string> now = valuesOf(network);
        std::vector<std::string> changed;
        for (std::size_t i = 0; i < now.size(); ++i) {
            if (now[i] != m_before[i])
                changed.push_back(now[i]);
        }
        return changed;
    }

    void startAnew() {
        network.cleanDirtyFields();
        m_before = valuesOf(network);
    }

    WifiNetwork network;
    NetworkFields& fields = NetworkFields::of(network);

private:
    std::vector<std::string> m_before = valuesOf(network);
};

TEST_F(NetworkFieldsTest, ATextIsThatOfItsGetterAndMarksItsOwnFlag) {
    for (const NamedField& row : WRITTEN_TEXTS) {
        SCOPED_TRACE(row.name);
        startAnew();
        EXPECT_EQ(fields.text(row.field), nullptr);
        EXPECT_TRUE(fields.setText(row.field, "text"));
        EXPECT_STREQ(fields.text(row.field), "text");
        EXPECT_THAT(changes(), ElementsAre(row.name + std::string("=text")));
        EXPECT_THAT(dirtyOf(network), ElementsAre(row.name));
        EXPECT_TRUE(fields.isDirty(row.field));
        fields.setDirty(row.field, false);
        EXPECT_FALSE(fields.setText(row.field, "text"));
        EXPECT_THAT(dirtyOf(network), IsEmpty());
    }
}

TEST_F(NetworkFieldsTest, ANumberIsThatOfItsGetterAndMarksItsOwnFlag) {
    for (const NamedField& row : WRITTEN_NUMBERS) {
        SCOPED_TRACE(row.name);
        startAnew();
        EXPECT_TRUE(fields.setNumber(row.field, 1));
        EXPECT_EQ(fields.number(row.field), 1U);
        EXPECT_THAT(changes(), ElementsAre(row.name + std::string("=1")));
        EXPECT_THAT(dirtyOf(network), ElementsAre(row.name));
        EXPECT_TRUE(fields.isDirty(row.field));
        fields.setDirty(row.field, false);
        EXPECT_EQ(fields.setNumber(row.field, 1), row.field == Field::SSID_BROADCASTED);
    }
}

TEST_F(NetworkFieldsTest, WhatTheSupplicantReportsIsNeverDirty) {
    for (const NamedField& row : REPORTED_NUMBERS) {
        SCOPED_TRACE(row.name);
        startAnew();
        EXPECT_TRUE(fields.setNumber(row.field, 7));
        EXPECT_TRUE(fields.setNumber(row.field, 7)) << "not compared";
        EXPECT_EQ(fields.number(row.field), 7U);
        EXPECT_THAT(changes(), ElementsAre(row.name + std::string("=7")));
        fields.setDirty(row.field, true);
        EXPECT_FALSE(network.getNetworkDirty());
    }
    startAnew();
    EXPECT_TRUE(fields.setText(Field::IP_ADDRESS, "10.0.0.1"));
    EXPECT_FALSE(fields.setText(Field::IP_ADDRESS, "10.0.0.1"));
    EXPECT_STREQ(fields.text(Field::IP_ADDRESS), "10.0.0.1");
    EXPECT_THAT(changes(), ElementsAre("ipAddress=10.0.0.1"));
    EXPECT_FALSE(network.getNetworkDirty());
}

TEST_F(NetworkFieldsTest, AnEmptyWepKeyClearsItsSlotAndChangesNoFlag) {
    fields.setText(Field::WEP_KEY2, "abcde");
    startAnew();
    EXPECT_FALSE(fields.setText(Field::WEP_KEY2, ""));
    EXPECT_EQ(fields.text(Field::WEP_KEY2), nullptr);
    EXPECT_THAT(dirtyOf(network), IsEmpty());
    fields.setText(Field::WEP_KEY2, "abcde");
    fields.setText(Field::WEP_KEY2, "");
    EXPECT_THAT(dirtyOf(network), ElementsAre("wepKey2"));
}

TEST_F(NetworkFieldsTest, AWepIndexAboveThreeIsRefused) {
    fields.setNumber(Field::WEP_INDEX, 3);
    startAnew();
    EXPECT_FALSE(fields.setNumber(Field::WEP_INDEX, 4));
    EXPECT_FALSE(fields.setNumber(Field::WEP_INDEX, 256));
    EXPECT_THAT(changes(), IsEmpty());
    EXPECT_THAT(dirtyOf(network), IsEmpty());
}

TEST_F(NetworkFieldsTest, ModeAndIdKeepEightBits) {
    fields.setNumber(Field::NETWORK_MODE, 0x101);
    fields.setNumber(Field::NETWORK_ID, 0x203);
    EXPECT_EQ(fields.number(Field::NETWORK_MODE), 1U);
    EXPECT_EQ(fields.number(Field::NETWORK_ID), 3U);
    startAnew();
    EXPECT_FALSE(fields.setNumber(Field::NETWORK_MODE, 0x201)) << "the same 8 bits";
    EXPECT_THAT(dirtyOf(network), IsEmpty());
}

TEST_F(NetworkFieldsTest, AreSeenThroughAConstantNetwork) {
    const WifiNetwork& constant = network;
    EXPECT_EQ(&NetworkFields::of(constant), &fields);
}

} // namespace
