// What a caller in C uses in place of the platform's classes.

#include "platwifi.h"

#include "jni/ServiceFunctions.h"
#include "model/WifiNetwork.h"
#include "model/WifiTypes.h"

#include "support/KeyWorld.h"
#include "unit/settings/LoadedSettings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct FreeText {
    void operator()(char* text) const { platwifiFree(text); }
};
using Text = std::unique_ptr<char, FreeText>;

/// The ids of reported errors.
class CErrors {
public:
    CErrors() : m_errors(platwifiNewErrors(&CErrors::report, this)) {}
    ~CErrors() { platwifiFreeErrors(m_errors); }

    CErrors(const CErrors&) = delete;
    CErrors& operator=(const CErrors&) = delete;

    ErrorHandler* get() const { return m_errors; }
    std::vector<std::string> ids;
    std::string lastText;

private:
    static void report(void* context, const char* id, const char* text) {
        auto& self = *static_cast<CErrors*>(context);
        self.ids.emplace_back(id);
        self.lastText = text;
    }

    ErrorHandler* m_errors;
};

class CSecrets : public test::KeyWorld {
protected:
    static Text encrypted(const char* plain) {
        char* secret = nullptr;
        EXPECT_EQ(platwifiEncrypt(nullptr, plain, &secret), 1);
        return Text(secret);
    }

    static Text decrypted(const char* secret) {
        char* plain = nullptr;
        EXPECT_EQ(platwifiDecrypt(nullptr, secret, &plain), 1);
        return Text(plain);
    }

    CErrors errors;
};

class CDocument : public CSecrets {
protected:
    CDocument() : settings(&loaded.load("0\thome\tany\t\n")) {}

    // The document has the key of a network whose security uses it.
    void setKey(const char* key) {
        WifiNetwork& network = *settings->getNetwork("wlan0", "home");
        network.setProtocol(PROTOCOL_WPA);
        network.setKeyManagement(KEY_MGMT_WPA_PSK);
        network.setPsk(key);
    }

    Text document(bool full) {
        char* text = nullptr;
        EXPECT_EQ(platwifiXml(errors.get(), full ? 1 : 0, &text), 1);
        return Text(text);
    }

    static std::string fromWriter(bool full) {
        BufferedXWriter out;
        getWifiHostSettingsXML(&out, nullptr, full);
        return out.text();
    }

    test::LoadedSettings loaded;
    WifiHostSettings* settings;
};

TEST(CLibrary, HasTheVersionOfTheProject) {
    EXPECT_STREQ(platwifiVersion(), EXPECTED_VERSION);
    EXPECT_EQ(platwifiVersion(), platwifiVersion());
}

TEST(CLibrary, FreesNothingForNull) {
    platwifiFree(nullptr);
    platwifiFreeList(nullptr, 3);
    platwifiFreeErrors(nullptr);
}

TEST(CLibrary, FreesAListWithItsTexts) { // the leak checker sees what is left
    char** const list = new char* [3] { new char[2], nullptr, new char[4] };
    platwifiFreeList(list, 3);
}

TEST_F(CDocument, IsThatOfTheWriter) {
    EXPECT_EQ(document(true).get(), fromWriter(true));
    EXPECT_EQ(document(false).get(), fromWriter(false));
    EXPECT_NE(fromWriter(true), fromWriter(false));
}

TEST_F(CDocument, NeedsAPlace) {
    EXPECT_EQ(platwifiXml(errors.get(), 1, nullptr), 0);
}

TEST_F(CDocument, HasSecretsThatDecipher) {
    setKey("correct horse");
    const std::string text = document(true).get();
    const std::string key = "crypt1:";
    const std::size_t begin = text.find(key);
    ASSERT_NE(begin, std::string::npos);
    const std::string secret = text.substr(begin, text.find('"', begin) - begin);
    EXPECT_STREQ(decrypted(secret.c_str()).get(), "correct horse");
    EXPECT_THAT(errors.ids, IsEmpty());
}

TEST_F(CDocument, ReportsASecretThatCannotBeEnciphered) {
    setKey("correct horse");
    putKey("too short");
    document(true);
    EXPECT_THAT(errors.ids, ElementsAre("crypt.key-size"));
}

TEST_F(CDocument, TakesASecretOfThisProcess) {
    const Text secret = encrypted("correct horse");
    const char* const name = "psk";
    const char* const value = secret.get();
    EXPECT_EQ(setNetworkParameters(errors.get(), "wlan0", "home", &name, &value, 1), 1);
    EXPECT_STREQ(settings->getNetwork("wlan0", "home")->getPsk(), "correct horse");
    EXPECT_THAT(errors.ids, IsEmpty());
}

TEST_F(CDocument, ReportsEverySecretThatDoesNotDecipher) {
    const char* const names[] = {"psk", "priority", "eapPassword"};
    const char* const values[] = {"in plain", "4", "process1:abc"};
    EXPECT_EQ(setNetworkParameters(errors.get(), "wlan0", "home", names, values, 3), 1);
    EXPECT_THAT(errors.ids, ElementsAre("crypt.damaged", "crypt.damaged"));
    EXPECT_NE(errors.lastText, "");
}

TEST_F(CSecrets, AreEncipheredForThisProcess) {
    const Text secret = encrypted("correct horse");
    EXPECT_THAT(secret.get(), testing::StartsWith("process1:"));
    EXPECT_STREQ(decrypted(secret.get()).get(), "correct horse");
}

TEST_F(CSecrets, FailWithoutATextAndWithoutAPlace) {
    char* text = nullptr;
    EXPECT_EQ(platwifiEncrypt(errors.get(), nullptr, &text), 0);
    EXPECT_EQ(platwifiEncrypt(errors.get(), "plain", nullptr), 0);
    EXPECT_EQ(platwifiDecrypt(errors.get(), "process1:", nullptr), 0);
    EXPECT_EQ(platwifiDecrypt(errors.get(), "plain", &text), 0);
    EXPECT_EQ(text, nullptr);
    EXPECT_THAT(errors.ids, ElementsAre("crypt.null-input", "crypt.null-input", "crypt.null-input",
                                        "crypt.damaged"));
}

TEST_F(CSecrets, IgnoreErrorsWithoutAFunction) {
    ErrorHandler* const none = platwifiNewErrors(nullptr, nullptr);
    char* text = nullptr;
    EXPECT_EQ(platwifiDecrypt(none, "plain", &text), 0);
    platwifiFreeErrors(none);
}

} // namespace
