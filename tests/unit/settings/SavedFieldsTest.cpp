#include "settings/SavedFields.h"

#include "model/NetworkFields.h"
#include "supplicant/WifiUtil.h"
#include "support/FieldTable.h"
#include "support/StandIn.h"
#include "support/WordTable.h"
#include "unit/model/NetworkRows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

using namespace platwifi;
using testing::ElementsAre;
using testing::IsEmpty;

namespace test {
namespace {

using Calls = std::vector<Arguments>;

constexpr FieldSet WEP_KEYS =
    setOf(Field::WEP_KEY0, Field::WEP_KEY1, Field::WEP_KEY2, Field::WEP_KEY3);

// Every field that is written, in this order.
// clang-format off
const Field SAVE_ORDER[] = {
    Field::SSID, Field::BSSID, Field::SSID_BROADCASTED, Field::KEY_MANAGEMENT, Field::PRIORITY,
    Field::NETWORK_MODE, Field::AUTH_ALG, Field::PAIRWISE_CIPHERS, Field::GROUP_CIPHERS,
    Field::EAP_MODES, Field::PROTOCOL, Field::WEP_INDEX, Field::WEP_KEY0, Field::WEP_KEY1,
    Field::WEP_KEY2, Field::WEP_KEY3, Field::EAP_IDENTITY, Field::EAP_ANONYMOUS_IDENTITY,
    Field::EAP_PASSWORD, Field::PSK, Field::CA_CERTIFICATE, Field::CA_CERTIFICATE_DIR,
    Field::CLIENT_CERTIFICATE, Field::PRIVATE_KEY_FILE, Field::PRIVATE_KEY_PASSWORD,
    Field::PHASE1_STEP, Field::PHASE2_STEP, Field::CA_CERTIFICATE2, Field::CA_CERTIFICATE_DIR2,
    Field::CLIENT_CERTIFICATE2, Field::PRIVATE_KEY_FILE2, Field::PRIVATE_KEY_PASSWORD2,
};
// clang-format on

std::string inQuotes(const std::string& text) {
    return '"' + text + '"';
}

// The texts that a save writes in quotes and that may be empty: all but the names of the network.
std::vector<FieldRow> quotedTexts() {
    std::vector<FieldRow> rows;
    for (const FieldRow& row : fieldRows())
        if (isText(row) && row.key && row.field != Field::SSID && row.field != Field::BSSID)
            rows.push_back(row);
    return rows;
}

// Saves the dirty fields of one network, whose id is 7, with a scripted client.
class SaveFields : public testing::Test {
protected:
    SaveFields() { network.setNetworkId(7); }

    static Arguments sent(Field field, const std::string& value) {
        return {"/proc/boot/wpa_cli", "-iwlan0", "set_network", "7", rowOf(field).key, value};
    }

    static Arguments bssidCommand(const std::string& value) {
        return {"/proc/boot/wpa_cli", "-iwlan0", "bssid", "7", value};
    }

    // The commands of a save.
    Calls save(const std::string& reply = "OK\n", const char* iface = "wlan0") {
        standIn.reset();
        standIn.on({"*"}).prints(reply);
        saveDirtyFields(util, iface, network);
        return standIn.calls();
    }

    // The commands of a save where this field alone is dirty.
    Calls saveOnly(Field field) {
        fields.clearDirty();
        fields.setDirty(field, true);
        return save();
    }

    std::vector<std::string> dirty() const { return dirtyOf(network); }

    // Saves the field, and expects that nothing stays dirty.
    void expectSent(Field field, const std::string& value) {
        EXPECT_THAT(saveOnly(field), ElementsAre(sent(field, value)));
        EXPECT_THAT(dirty(), IsEmpty());
    }

    void expectNothingSent(Field field) {
        EXPECT_THAT(saveOnly(field), IsEmpty());
        EXPECT_THAT(dirty(), IsEmpty());
    }

    StandIn standIn;
    WifiUtil util;
    WifiNetwork network;
    NetworkFields& fields = NetworkFields::of(network);
};

TEST_F(SaveFields, WritesTheSsidInQuotes) {
    for (const char* const ssid : {"home", ""}) {
        fields.setText(Field::SSID, ssid);
        expectSent(Field::SSID, inQuotes(ssid));
    }
}

// SAVE-10
TEST_F(SaveFields, WritesTheBssidAsAFieldAndByTheCommandOfTheClient) {
    const char* const none = "00:00:00:00:00:00";
    const struct {
        const char* bssid;
        const char* sent;
    } rows[] = {
        {"02:00:00:00:01:00", "02:00:00:00:01:00"},
        {"any", none},
        {none, none},
        {nullptr, none},
        {"ANY", "ANY"},
        {"", ""}, // an empty text, which is not an unset one
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.bssid ? row.bssid : "(null)");
        fields.setText(Field::BSSID, "02:00:00:00:02:00");
        EXPECT_TRUE(fields.setText(Field::BSSID, row.bssid));
        EXPECT_THAT(saveOnly(Field::BSSID),
                    ElementsAre(sent(Field::BSSID, row.sent), bssidCommand(row.sent)));
        EXPECT_THAT(dirty(), IsEmpty());
    }
}

// A mask is no value: it stands for a secret that was not changed.
// SAVE-8, SAVE-9, TEXT-4
TEST_F(SaveFields, WritesTextsInQuotesAndNoMask) {
    for (const FieldRow& row : quotedTexts()) {
        SCOPED_TRACE(row.name);
        for (const char* const text : {row.key, "", "**"}) {
            fields.setText(row.field, "before");
            fields.setText(row.field, text);
            expectSent(row.field, inQuotes(text));
        }
        fields.setText(row.field, nullptr);
        expectSent(row.field, inQuotes(""));
        fields.setText(row.field, "*");
        if (isEnciphered(row) || contains(WEP_KEYS, row.field))
            expectNothingSent(row.field);
        else
            expectSent(row.field, inQuotes("*"));
    }
}

// SAVE-11
TEST_F(SaveFields, WritesNumbersInDecimal) {
    const std::map<Field, std::map<unsigned int, const char*>> numbers = {
        {Field::PRIORITY,
         {{5, "5"},
          {0, "0"},
          {2147483647U, "2147483647"},
          {2147483648U, "-2147483648"},
          {4294967295U, "-1"}}},
        {Field::NETWORK_MODE, {{2, "2"}, {255, "255"}}},
        {Field::WEP_INDEX, {{0, "0"}, {1, "1"}, {2, "2"}, {3, "3"}}},
    };
    for (const auto& [field, texts] : numbers) {
        for (const auto& [number, text] : texts) {
            SCOPED_TRACE(rowOf(field).name);
            fields.setNumber(field, number);
            expectSent(field, text);
        }
    }
}

// SAVE-5
TEST_F(SaveFields, WritesTheWordOfANumber) {
    for (const auto& [field, words] : fieldWords()) {
        for (const WordRow& word : words) {
            SCOPED_TRACE(std::string(rowOf(field).name) + " " + word.word);
            fields.setNumber(field, word.number);
            expectSent(field, word.word);
        }
    }
}

// SAVE-5, SAVE-7
TEST_F(SaveFields, WritesNothingForANumberWithoutAWordButClearsItsFlag) {
    const std::map<Field, std::vector<unsigned int>> wordless = {
        {Field::KEY_MANAGEMENT, {6, 3, 31, 32}}, {Field::AUTH_ALG, {4, 5, 8}},
        {Field::PAIRWISE_CIPHERS, {6, 7, 8}},    {Field::GROUP_CIPHERS, {6, 30, 1, 24, 32}},
        {Field::EAP_MODES, {3, 6, 2047, 2048}},  {Field::PROTOCOL, {3, 4}},
    };
    for (const auto& [field, numbers] : wordless) {
        for (const unsigned int number : numbers) {
            SCOPED_TRACE(std::string(rowOf(field).name) + " " + std::to_string(number));
            fields.setNumber(field, number);
            expectNothingSent(field);
        }
    }
}

// SAVE-6
TEST_F(SaveFields, LeavesDirtyWhatCannotBeWritten) {
    fields.setNumber(Field::CHANNEL, 11);
    for (const Field field :
         {Field::SSID, Field::CHANNEL, Field::KEY_MANAGEMENT, Field::AUTH_ALG,
          Field::PAIRWISE_CIPHERS, Field::GROUP_CIPHERS, Field::EAP_MODES, Field::PROTOCOL}) {
        SCOPED_TRACE(rowOf(field).name);
        EXPECT_THAT(saveOnly(field), IsEmpty());
        EXPECT_THAT(dirty(), ElementsAre(rowOf(field).name));
    }
}

// Every field has a value and is dirty.
class SaveAllFields : public SaveFields {
protected:
    SaveAllFields() {
        for (const FieldRow& row : fieldRows()) {
            if (isText(row))
                fields.setText(row.field, row.name);
            else if (row.field != Field::NETWORK_ID)
                fields.setNumber(row.field, numberOf(row.field).number);
            fields.setDirty(row.field, true);
        }
    }

    static WordRow numberOf(Field field) {
        return wordsOf(field).empty() ? WordRow{2, "2"} : wordsOf(field).front();
    }

    static std::string sentValueOf(const FieldRow& row) {
        if (isText(row))
            return row.field == Field::BSSID ? row.name : inQuotes(row.name);
        return numberOf(row.field).word;
    }

    static Calls everything() {
        Calls calls;
        for (const Field field : SAVE_ORDER)
            calls.push_back(sent(field, sentValueOf(rowOf(field))));
        calls.insert(calls.begin() + 2, bssidCommand("bssid"));
        return calls;
    }
};

TEST_F(SaveAllFields, WritesEverythingOnceInOneOrder) {
    const std::vector<std::string> before = valuesOf(network);
    EXPECT_EQ(save(), everything());
    EXPECT_THAT(dirty(), ElementsAre("channel"));
    EXPECT_EQ(valuesOf(network), before);
    EXPECT_THAT(save(), IsEmpty());
}

// SAVE-2
TEST_F(SaveAllFields, GoesOnSilentlyAfterRefusalsAndClearsTheFlagsAllTheSame) {
    testing::internal::CaptureStderr();
    EXPECT_EQ(save("FAIL\n"), everything());
    EXPECT_THAT(dirty(), ElementsAre("channel"));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(SaveAllFields, WithoutAnInterfaceClearsTheFlagsAndRunsNothing) {
    EXPECT_THAT(save("OK\n", nullptr), IsEmpty());
    EXPECT_THAT(dirty(), ElementsAre("channel"));
}

TEST_F(SaveAllFields, WritesNothingThatIsClean) {
    network.cleanDirtyFields();
    EXPECT_THAT(save(), IsEmpty());
}

} // namespace
} // namespace test
