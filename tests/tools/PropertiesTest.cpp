#include "edits/PropertyTable.h"

#include "edits/PropertyRules.h"
#include "edits/Secrets.h"
#include "jni/ServiceFunctions.h"
#include "model/WifiNetwork.h"
#include "settings/WifiHostSettings.h"
#include "supplicant/WifiUtil.h"
#include "support/FieldTable.h"
#include "support/LoadedHost.h"
#include "support/TestTime.h"
#include "values/Failure.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>

using cli::Entry;
using cli::Property;
using cli::propertyOf;
using cli::WrongUse;
using testing::HasSubstr;
using testing::Not;

namespace {

/// The library with a network of the supplicant in memory.
class TheProperties : public testing::Test {
protected:
    static void SetUpTestSuite() {
        time = std::make_unique<test::TestTime>();
        time->deadlinesAre(test::QUICK);
        setenv("PLATFORM_KEY_FILE", "/tmp/crypt.key", 1);
        ASSERT_EQ(setWifiProfile(nullptr, "modern"), 1);
        host = std::make_unique<test::LoadedHost>();
        host->answers({"home"});
        WifiHostSettings::reload(nullptr);
    }

    static void TearDownTestSuite() {
        WifiHostSettings::unload();
        WifiUtil::unload();
        host.reset();
        time.reset();
    }

    static const WifiNetwork& network() {
        return *WifiHostSettings::getInstance(nullptr)->getNetwork(nullptr, "home");
    }

    /// Sets a property as the user would. @return the value that is shown then
    static std::string shownAfter(const std::string& name, const std::string& written) {
        const Property& property = propertyOf(name);
        std::string value = property.take(property, written);
        if (property.entry == Entry::ENCIPHERED)
            value = cli::enciphered(value);
        const char* const names[] = {property.name};
        const char* const values[] = {value.c_str()};
        EXPECT_EQ(setNetworkParameters(nullptr, "wlan0", "home", names, values, 1), 1);
        return shown(property, network());
    }

    static std::unique_ptr<test::TestTime> time;
    static std::unique_ptr<test::LoadedHost> host;
};

std::unique_ptr<test::TestTime> TheProperties::time;
std::unique_ptr<test::LoadedHost> TheProperties::host;

// The message of the refusal; "" if the value is accepted.
std::string refusalOf(const std::string& name, const std::string& written) {
    try {
        propertyOf(name).take(propertyOf(name), written);
        return "";
    } catch (const WrongUse& refusal) {
        return refusal.what();
    }
}

// The same where the value is right, but this host has no such thing.
std::string failureOf(const std::string& name, const std::string& written) {
    try {
        propertyOf(name).take(propertyOf(name), written);
        return "";
    } catch (const cli::Failure& failure) {
        return failure.what();
    }
}

TEST_F(TheProperties, HaveWordsThatTheLibraryAccepts) {
    for (const Property& property : cli::properties()) {
        for (const cli::Word& word : property.words) {
            EXPECT_THAT(shownAfter(property.name, word.text), HasSubstr(word.text))
                << property.name;
        }
    }
}

TEST_F(TheProperties, TakeWordsInAnyCaseAndTheirNumbers) {
    EXPECT_EQ(shownAfter("key_mgmt", "wpa-psk"), "WPA-PSK");
    EXPECT_EQ(shownAfter("key_mgmt", std::to_string(KEY_MGMT_NONE)), "NONE");
    EXPECT_EQ(shownAfter("ssidBroadcasted", "FALSE"), "false");
    EXPECT_EQ(shownAfter("ssidBroadcasted", "1"), "true");
}

TEST_F(TheProperties, TakeSeveralWords) {
    EXPECT_EQ(shownAfter("key_mgmt", "sae,WPA-PSK"), "WPA-PSK SAE");
    EXPECT_EQ(shownAfter("key_mgmt", "WPA-PSK SAE FT-SAE"), "WPA-PSK SAE FT-SAE");
    EXPECT_EQ(shownAfter("protocol", "RSN+WPA"), "WPA RSN");
    EXPECT_EQ(shownAfter("eap", "PEAP TTLS"), "PEAP TTLS");
    EXPECT_EQ(shownAfter("encryption", "GCMP-256 CCMP"), "CCMP GCMP-256");
    EXPECT_EQ(shownAfter("encryption", "CCMP+TKIP"), "CCMP TKIP");
    EXPECT_THAT(refusalOf("key_mgmt", "SAE,WPA9"), HasSubstr("key_mgmt takes one of NONE, "));
    EXPECT_THAT(refusalOf("mode", "MANAGED ADHOC"), HasSubstr("mode takes one of "));
}

TEST_F(TheProperties, TakeWhetherManagementFramesAreProtected) {
    EXPECT_EQ(shownAfter("pmf", "required"), "required");
    EXPECT_EQ(shownAfter("pmf", "1"), "optional");
    EXPECT_EQ(shownAfter("pmf", "default"), "default");
}

TEST_F(TheProperties, RefuseAnyOtherWordAndListTheirWords) {
    for (const Property& property : cli::properties()) {
        if (property.words.empty())
            continue;
        for (const char* written : {"", "no word", "99", "CCMP WPA9", ",", "-1"}) {
            const std::string refusal = refusalOf(property.name, written);
            EXPECT_THAT(refusal, HasSubstr(property.name)) << written;
            for (const cli::Word& word : property.words)
                EXPECT_THAT(refusal, HasSubstr(word.text));
        }
    }
}

struct Bound {
    const char* name;
    const char* inside;
    const char* outside;
};

constexpr Bound BOUNDS[] = {
    {"priority", "2147483647", "2147483648"},
    {"priority", "0", "-1"},
    {"index", "0", "-1"},
    {"index", "3", "4"},
};

TEST_F(TheProperties, HaveRanges) {
    for (const Bound& bound : BOUNDS) {
        EXPECT_EQ(shownAfter(bound.name, bound.inside), bound.inside);
        EXPECT_THAT(refusalOf(bound.name, bound.outside), HasSubstr("a number from "));
    }
    EXPECT_EQ(shownAfter("priority", "+7"), "7");
    EXPECT_EQ(shownAfter("priority", "007"), "7");
}

TEST_F(TheProperties, RefuseWhatIsNoNumber) {
    for (const char* written : {"", "five", "5x", "0x5", " 5", "5 ", "+", "-", "--5", "1e3",
                                "99999999999999999999", "5.0"})
        EXPECT_THAT(refusalOf("priority", written), HasSubstr("priority takes a number"))
            << written;
}

TEST_F(TheProperties, TakeAnAddressOrAnyForTheBssid) {
    EXPECT_EQ(shownAfter("bssid", "02:00:0a:0F:01:ff"), "02:00:0a:0F:01:ff");
    EXPECT_EQ(shownAfter("bssid", "any"), "any");
    for (const char* written : {"", "02:00:00:00:01", "02:00:00:00:01:0", "02:00:00:00:01:00:",
                                "02-00-00-00-01-00", "02:00:00:00:01:0g", "020000000100", "every"})
        EXPECT_THAT(refusalOf("bssid", written), HasSubstr("a MAC address such as")) << written;
}

TEST_F(TheProperties, TakeTextsThatCanBeSentToTheSupplicant) {
    for (const Property& property : cli::properties()) {
        if (property.take != cli::takeText || isSecret(property))
            continue;
        const std::string longest(255, 'x');
        EXPECT_EQ(shownAfter(property.name, "wi-fi \"x\" café"), "wi-fi \"x\" café");
        EXPECT_EQ(shownAfter(property.name, longest), longest);
        EXPECT_EQ(shownAfter(property.name, ""), "") << "cleared";
        EXPECT_THAT(refusalOf(property.name, longest + "x"), HasSubstr("255 bytes"));
        EXPECT_THAT(refusalOf(property.name, "two\nlines"), HasSubstr("control characters"));
        EXPECT_THAT(refusalOf(property.name, "\"quoted\""), HasSubstr("double quote"));
    }
}

TEST_F(TheProperties, TakePathsOfWhatExists) {
    const std::string path = "/tmp/café \"x\".pem";
    std::ofstream{path};
    const auto folder = std::filesystem::current_path();
    std::filesystem::current_path("/tmp");
    unsigned int paths = 0;
    for (const Property& property : cli::properties()) {
        if (property.take != cli::takePath)
            continue;
        ++paths;
        EXPECT_EQ(shownAfter(property.name, path), path);
        EXPECT_EQ(shownAfter(property.name, path.substr(5)), path)
            << "the supplicant runs elsewhere";
        EXPECT_EQ(shownAfter(property.name, "/tmp"), "/tmp");
        EXPECT_EQ(shownAfter(property.name, "blob://ca"), "blob://ca");
        EXPECT_EQ(shownAfter(property.name, ""), "") << "cleared";
        EXPECT_THAT(refusalOf(property.name, "two\nlines"), HasSubstr("control characters"));
        const std::string missing = failureOf(property.name, "/tmp/no/ca.pem");
        EXPECT_THAT(missing,
                    HasSubstr(property.name + std::string(": there is no /tmp/no/ca.pem")));
    }
    EXPECT_EQ(paths, 8U);
    std::filesystem::current_path(folder);
}

struct Secret {
    const char* name;
    std::string text;
};

const Secret KEPT[] = {
    {"psk", "8 chars."},
    {"psk", std::string(63, 'x')},
    {"psk", std::string(64, 'a')},
    {"psk", "sae"},
    {"psk", std::string(255, 'x')},
    {"key1", "5char"},
    {"key2", "13 characters"},
    {"key3", "0123456789"},
    {"key4", std::string(26, 'F')},
    {"eapPassword", "p"},
    {"privateKeyPassword", "geheim"},
    {"privateKeyPassword2", std::string(255, 'x')},
};

TEST_F(TheProperties, ShowOnlyWhetherASecretIsSet) {
    for (const Secret& secret : KEPT) {
        EXPECT_EQ(shownAfter(secret.name, secret.text), "(set)") << secret.name;
    }
}

TEST_F(TheProperties, ClearAPassword) {
    shownAfter("eapPassword", "geheim");
    EXPECT_EQ(shownAfter("eapPassword", ""), "");
}

// The supplicant refuses an empty key, and keeps the old one.
TEST_F(TheProperties, DoNotClearAKey) {
    for (const char* const name : {"psk", "key1", "key2", "key3", "key4"})
        EXPECT_THAT(refusalOf(name, ""), HasSubstr(std::string(name) + " takes "));
}

const Secret REFUSED[] = {
    {"psk", std::string(256, 'x')},
    {"psk", "\"quoted-key\""},
    {"psk", "control\tcharacter"},
    {"key1", "four"},
    {"key1", "sixsix"},
    {"key1", "tencharsss"},
    {"key1", std::string(26, 'g')},
    {"eapPassword", std::string(256, 'x')},
    {"eapPassword", "two\nlines"},
    {"privateKeyPassword", "ends with \""},
};

TEST_F(TheProperties, RefuseASecretWithoutRepeatingIt) {
    for (const Secret& secret : REFUSED) {
        const std::string refusal = refusalOf(secret.name, secret.text);
        EXPECT_THAT(refusal, HasSubstr(std::string(secret.name) + " takes "));
        EXPECT_THAT(refusal, Not(HasSubstr(secret.text)));
    }
}

TEST_F(TheProperties, KnowAKeyThatFitsEveryKeyManagement) {
    for (const std::string& key : {std::string(8, 'x'), std::string(63, 'x'), std::string(64, 'F')})
        EXPECT_TRUE(cli::isPsk(key));
    for (const std::string& key : {std::string(7, 'x'), std::string(64, 'g'), std::string(65, 'a')})
        EXPECT_FALSE(cli::isPsk(key));
}

// The names in the table of docs/native-api.md, whose "key1 to key4" includes key2 and key3.
std::set<std::string> documentedNames() {
    std::ifstream file(NATIVE_API_DOCUMENT);
    std::set<std::string> names = {"key2", "key3"};
    bool isInTable = false;
    for (std::string line; std::getline(file, line);) {
        isInTable = line.rfind("## ", 0) == 0 ? line == "## Properties of a network" : isInTable;
        const std::string cell = line.substr(0, line.find('|', 1));
        for (std::size_t at = cell.find('`');
             isInTable && line[0] == '|' && at != std::string::npos;
             at = cell.find('`', cell.find('`', at + 1) + 1))
            names.insert(cell.substr(at + 1, cell.find('`', at + 1) - at - 1));
    }
    return names;
}

TEST_F(TheProperties, HaveTheNamesThatTheLibraryKnows) {
    std::set<std::string> names;
    for (const Property& property : cli::properties())
        EXPECT_TRUE(names.insert(property.name).second) << property.name << " twice";
    EXPECT_EQ(names, documentedNames());
}

TEST_F(TheProperties, AreUnknownByAnyOtherName) {
    for (const char* name : {"", "PSK", "psk ", "Priority", "ps\033k"}) {
        try {
            propertyOf(name);
            FAIL() << name;
        } catch (const WrongUse& error) {
            EXPECT_THAT(error.what(), HasSubstr("there is no property"));
            EXPECT_THAT(error.what(), Not(HasSubstr("\033")));
        }
    }
}

TEST_F(TheProperties, AreSuggestedForAnUnknownName) {
    const auto messageFor = [](const char* name) -> std::string {
        try {
            propertyOf(name);
        } catch (const WrongUse& error) {
            return error.what();
        }
        return "";
    };
    EXPECT_THAT(messageFor("priorty"), HasSubstr("priorty (did you mean priority?)"));
    EXPECT_THAT(messageFor("colour"), Not(HasSubstr("did you mean")));
    EXPECT_THAT(messageFor("colour"), HasSubstr("the properties are bssid, ssidBroadcasted, mode"));
}

TEST_F(TheProperties, CanAllBeReadAndAllButTheReportedOnesBeSet) {
    for (const Property& property : cli::properties()) {
        EXPECT_NE(property.read, nullptr);
        EXPECT_EQ(property.take == nullptr, property.entry == Entry::REPORTED) << property.name;
        EXPECT_FALSE(isSecret(property) && !property.words.empty());
    }
}

TEST_F(TheProperties, AreEncipheredWhereTheLibraryTakesThemEnciphered) {
    for (const test::FieldRow& row : test::fieldRows()) {
        if (row.property) {
            EXPECT_EQ(propertyOf(row.property).entry == Entry::ENCIPHERED, isEnciphered(row))
                << row.property;
        }
    }
}

} // namespace
