// The listing of everything on standard error.

#include "ReportedSettings.h"
#include "SettingsState.h"

#include "model/NetworkFields.h"
#include "support/FieldTable.h"
#include "support/WordTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <climits>
#include <map>
#include <string>

using namespace platwifi;
using testing::HasSubstr;
using testing::IsEmpty;

namespace test {
namespace {

const std::string HEADER = "Network Database: \n";
const std::string IDLE = "Current WPA_STATUS        : IDLE\n";

// Every field that is shown, in this order.
// clang-format off
const Field DUMP_ORDER[] = {
    Field::SSID, Field::BSSID, Field::CHANNEL, Field::STRENGTH, Field::SSID_BROADCASTED,
    Field::PRIORITY, Field::NETWORK_MODE, Field::PROTOCOL, Field::KEY_MANAGEMENT,
    Field::PAIRWISE_CIPHERS, Field::GROUP_CIPHERS, Field::EAP_MODES, Field::AUTH_ALG, Field::PSK,
    Field::WEP_INDEX, Field::WEP_KEY0, Field::WEP_KEY1, Field::WEP_KEY2, Field::WEP_KEY3,
    Field::EAP_IDENTITY, Field::EAP_ANONYMOUS_IDENTITY, Field::EAP_PASSWORD,
    Field::PRIVATE_KEY_PASSWORD, Field::CA_CERTIFICATE, Field::CA_CERTIFICATE_DIR,
    Field::CLIENT_CERTIFICATE, Field::PRIVATE_KEY_FILE, Field::PHASE1_STEP, Field::PHASE2_STEP,
    Field::PRIVATE_KEY_PASSWORD2, Field::CA_CERTIFICATE2, Field::CA_CERTIFICATE_DIR2,
    Field::CLIENT_CERTIFICATE2, Field::PRIVATE_KEY_FILE2,
};
// clang-format on

constexpr FieldSet WEP_FIELDS =
    setOf(Field::WEP_INDEX, Field::WEP_KEY0, Field::WEP_KEY1, Field::WEP_KEY2, Field::WEP_KEY3);

// What stands behind the label of each field that is shown.
using Values = std::map<Field, std::string>;

// Of a network that has nothing but an SSID.
Values blank() {
    Values values;
    for (const Field field : DUMP_ORDER)
        if (!contains(WEP_FIELDS, field))
            values[field] = isText(rowOf(field)) ? " " : wordsOf(field).empty() ? " 0" : " UNKNOWN";
    values[Field::SSID] = " home";
    values[Field::SSID_BROADCASTED] = " no";
    return values;
}

std::string linesOf(const Values& values) {
    std::string lines;
    for (const Field field : DUMP_ORDER) {
        const auto value = values.find(field);
        if (value != values.end())
            lines += std::string("\t") + rowOf(field).label + value->second + "\n";
    }
    return lines + "\n";
}

// The lines of a network that has nothing but an SSID and these values.
std::string linesWith(const Values& others) {
    Values values = others;
    values.merge(blank());
    return linesOf(values);
}

class Dump : public testing::Test {
protected:
    Dump() { setState(WPA_STATE_IDLE); }

    void setState(WpaState state) { reported.settings->*memberOf(SupplicantState{}) = state; }

    // @param networks  their lines
    void expectDump(const std::string& networks, const std::string& end = IDLE) {
        EXPECT_EQ(reported.dump(), std::string(HEADER).append(networks).append(end));
    }

    NetworkFields& add(const char* ssid) { return NetworkFields::of(reported.add(ssid)); }

    ReportedSettings reported;
};

TEST_F(Dump, OfAnEmptyDatabaseHasTheStateAlone) {
    expectDump("");
}

TEST_F(Dump, AfterAFailureHasNoNetworks) {
    reported.fail();
    expectDump("", "Current WPA_STATUS        : UNKNOWN\n");
    EXPECT_THAT(reported.loaded.commands(), IsEmpty());
}

// DUMP-1
TEST_F(Dump, HasALineForEveryField) {
    NetworkFields& fields = add("home");
    Values values;
    for (const Field field : DUMP_ORDER) {
        const WordRow number = wordsOf(field).empty() ? WordRow{3, "3"} : wordsOf(field).front();
        const std::string text = isText(rowOf(field)) ? rowOf(field).name : number.dumpWord;
        if (isText(rowOf(field)))
            fields.setText(field, text.c_str());
        else
            fields.setNumber(field, number.number);
        values[field] = " " + text;
    }
    expectDump(linesOf(values));
}

TEST_F(Dump, OfANetworkWithNothingSetHasEmptyLines) {
    NetworkFields& fields = add("home");
    expectDump(linesWith({}));
    fields.setText(Field::SSID, nullptr);
    expectDump(linesWith({{Field::SSID, " "}}));
}

TEST_F(Dump, HasTheNetworkAddedLastFirst) {
    for (const char* const ssid : {"home", "work", "train"})
        add(ssid);
    expectDump(linesWith({{Field::SSID, " train"}}) + linesWith({{Field::SSID, " work"}}) +
               linesWith({}));
}

TEST_F(Dump, HasAnyTextAsItIs) {
    NetworkFields& fields = add("home");
    for (const std::string& text :
         {std::string("<caf\xC3\xA9> %s \xFF"), std::string(1000000, 'x')}) {
        fields.setText(Field::PSK, text.c_str());
        expectDump(linesWith({{Field::PSK, " " + text}}));
    }
}

// DUMP-3
TEST_F(Dump, HasSignedNumbers) {
    NetworkFields& fields = add("home");
    fields.setNumber(Field::CHANNEL, UINT_MAX);
    fields.setNumber(Field::STRENGTH, INT_MAX);
    fields.setNumber(Field::PRIORITY, 1U << 31U);
    expectDump(linesWith({{Field::CHANNEL, " -1"},
                          {Field::STRENGTH, " 2147483647"},
                          {Field::PRIORITY, " -2147483648"}}));
}

// DUMP-6
TEST_F(Dump, HasWepKeysOnlyBesideTheFirst) {
    NetworkFields& fields = add("home");
    fields.setNumber(Field::WEP_INDEX, 3);
    // each set of keys, one bit a key
    for (unsigned int keys = 0; keys < 16; ++keys) {
        SCOPED_TRACE(keys);
        Values shown;
        for (unsigned int slot = 0; slot < WEP_KEY_COUNT; ++slot) {
            const bool isSet = (keys & (1U << slot)) != 0;
            fields.setText(wepKeyField(slot), isSet ? "a key" : nullptr);
            if (isSet && (keys & 1U) != 0)
                shown[wepKeyField(slot)] = " a key";
        }
        if (!shown.empty())
            shown[Field::WEP_INDEX] = " 3";
        expectDump(linesWith(shown));
    }
}

// The words of a number, each behind a blank.
class DumpWords : public Dump {
protected:
    void expectWords(Field field, unsigned int number, const std::string& words) {
        SCOPED_TRACE(rowOf(field).name + (" " + std::to_string(number)));
        m_fields.setNumber(field, number);
        expectDump(linesWith({{field, words}}));
        m_fields.setNumber(field, NetworkFields().number(field));
    }

private:
    NetworkFields& m_fields = add("home");
};

// DUMP-4, DUMP-5
TEST_F(DumpWords, AreThoseOfTheFlagsOfASet) {
    for (const auto& [field, rows] : fieldWords()) {
        if (!isSet(field))
            continue;
        std::string all;
        unsigned int known = 0;
        for (const WordRow& row : rows) {
            expectWords(field, row.number, std::string(" ") + row.dumpWord);
            all += std::string(" ") + row.dumpWord;
            known |= row.number;
        }
        expectWords(field, 0, " UNKNOWN");
        expectWords(field, UINT_MAX, all);
        expectWords(field, UINT_MAX & ~known, "");
    }
}

TEST_F(DumpWords, AreThatOfTheNumberWhereItIsNoSet) {
    for (const Field field : {Field::NETWORK_MODE, Field::SSID_BROADCASTED, Field::AUTH_ALG}) {
        for (const WordRow& row : wordsOf(field))
            expectWords(field, row.number, std::string(" ") + row.dumpWord);
    }
    for (const unsigned int number : {2U, 3U, 255U})
        expectWords(Field::NETWORK_MODE, number, " UNKNOWN");
    expectWords(Field::AUTH_ALG, 0, " UNKNOWN");
    expectWords(Field::AUTH_ALG, 4, " AUTO");
    for (const unsigned int number : {5U, UINT_MAX})
        expectWords(Field::AUTH_ALG, number, "");
}

TEST_F(DumpWords, AreThatOfTheState) {
    std::map<unsigned int, std::string> words = {{0, " UNKNOWN"}, {9, ""}, {10, ""}};
    for (const WordRow& row : stateWords())
        words[row.number] = std::string(" ") + row.dumpWord;
    for (const auto& [state, word] : words) {
        setState(static_cast<WpaState>(state));
        expectDump(linesWith({}), "Current WPA_STATUS        :" + word + "\n");
    }
}

TEST_F(Dump, HasTheCurrentNetwork) {
    NetworkFields& fields = add("home");
    reported.answerStatus("ssid=home\nwpa_state=COMPLETED\n");
    reported.settings->getCurrentStatus("wlan0");
    const std::string end = "Current WPA_STATUS        : COMPLETED\n";
    expectDump(linesWith({}), "Currently associated with: home\n" + end);
    fields.setText(Field::SSID, nullptr);
    expectDump(linesWith({{Field::SSID, " "}}), "Currently associated with: \n" + end);
}

// DUMP-2
TEST_F(Dump, BringsTheNetworksUpToDateFirst) {
    reported.loadForRefresh("0\thome\tany\t\n");
    reported.loaded.standIn.on({"-iwlan0", "list_networks"}).prints("h\n0\thome\tany\t[CURRENT]\n");
    reported.loaded.standIn.on({"-iwlan0", "scan_results"})
        .prints("h\n02:00:00:00:00:01\t2462\t-40\t[ESS]\thome\n");
    const std::string dump = reported.dump();
    EXPECT_THAT(dump, HasSubstr("\tNetwork BSSID   : 02:00:00:00:00:01\n"
                                "\tChannel         : 11\n"
                                "\tStrength        : 100\n"));
    EXPECT_THAT(dump, HasSubstr("\nCurrently associated with: home\n"));
}

} // namespace
} // namespace test
