// Natives for secrets, which cross to Java and back enciphered.

#include "FieldNatives.h"

#include "support/KeyWorld.h"

using namespace test;

#define READS(method) jstring NATIVE(method)(JNIEnv*, jclass, jstring, jstring);
#define WRITES(method) jboolean NATIVE(method)(JNIEnv*, jclass, jstring, jstring, jstring);

extern "C" {
READS(getPreSharedKey0)
WRITES(setPreSharedKey0)
READS(getEAPPassword0)
WRITES(setEAPPassword0)
READS(getPrivateKeyPassword0)
WRITES(setPrivateKeyPassword0)
READS(getPrivateKeyPassword20)
WRITES(setPrivateKeyPassword20)
}

namespace {

struct Secret {
    const char* name;
    GetterNative<jstring> get;
    SetterNative<jstring> set;
    const char* (WifiNetwork::*read)() const;
    bool (WifiNetwork::*write)(const char*);
};

// clang-format off
const Secret SECRETS[] = {
    {"Psk", NATIVE(getPreSharedKey0), NATIVE(setPreSharedKey0), &WifiNetwork::getPsk, &WifiNetwork::setPsk},
    {"EAPPassword", NATIVE(getEAPPassword0), NATIVE(setEAPPassword0), &WifiNetwork::getEAPPassword, &WifiNetwork::setEAPPassword},
    {"PrivateKeyPassword", NATIVE(getPrivateKeyPassword0), NATIVE(setPrivateKeyPassword0), &WifiNetwork::getPrivateKeyPassword, &WifiNetwork::setPrivateKeyPassword},
    {"PrivateKeyPassword2", NATIVE(getPrivateKeyPassword20), NATIVE(setPrivateKeyPassword20), &WifiNetwork::getPrivateKeyPassword2, &WifiNetwork::setPrivateKeyPassword2},
};
// clang-format on

class SecretNatives : public KeyWorld {
protected:
    const char* read(const Secret& secret) { return (world.network().*secret.read)(); }

    bool write(const Secret& secret, const char* plain) {
        return (world.network().*secret.write)(plain);
    }

    jboolean set(const Secret& secret, const char* enciphered, const char* ssid = "home") {
        return world.call(secret.set, ssid, world.javaText(enciphered));
    }

    // Whether an exception was pending that does not tell the text.
    bool catchException(const std::string& text) {
        const auto exception = world.java.pendingException();
        world.java.catchException();
        return exception && exception->message.find(text) == std::string::npos;
    }

    OneNetwork world;
};

TEST_F(SecretNatives, ReadEnciphered) {
    for (const Secret& secret : SECRETS)
        write(secret, secret.name);
    for (const Secret& secret : SECRETS) {
        SCOPED_TRACE(secret.name);
        const jstring text = world.call(secret.get, "home");
        ASSERT_NE(text, nullptr);
        const std::string enciphered = world.java.textOf(text);
        EXPECT_EQ(enciphered.find(secret.name), std::string::npos);
        EXPECT_EQ(decrypted(enciphered).text, secret.name);
    }
}

TEST_F(SecretNatives, ReadWhatIsUnsetAsNull) {
    for (const Secret& secret : SECRETS)
        EXPECT_EQ(world.call(secret.get, "home"), nullptr) << secret.name;
}

TEST_F(SecretNatives, ReadNullWithTheCausePendingWithoutACipher) {
    putKey("too short");
    for (const Secret& secret : SECRETS) {
        write(secret, "hush");
        EXPECT_EQ(world.call(secret.get, "home"), nullptr) << secret.name;
        EXPECT_TRUE(catchException("hush"));
    }
}

// NET-6
TEST_F(SecretNatives, StoreThePlainText) {
    for (const Secret& secret : SECRETS) {
        SCOPED_TRACE(secret.name);
        EXPECT_EQ(set(secret, encrypted(secret.name).text->c_str()), JNI_TRUE);
        EXPECT_STREQ(read(secret), secret.name);
        EXPECT_EQ(set(secret, encrypted(secret.name).text->c_str()), JNI_FALSE) << "no change";
    }
    for (const Secret& secret : SECRETS)
        EXPECT_STREQ(read(secret), secret.name) << "each in a field of its own";
}

TEST_F(SecretNatives, ClearWithoutACipher) {
    putKey("too short");
    for (const Secret& secret : SECRETS) {
        SCOPED_TRACE(secret.name);
        write(secret, "hush");
        EXPECT_EQ(set(secret, ""), JNI_TRUE);
        EXPECT_STREQ(read(secret), "");
        EXPECT_EQ(set(secret, ""), JNI_FALSE);
        write(secret, "hush");
        EXPECT_EQ(set(secret, nullptr), JNI_TRUE);
        EXPECT_EQ(read(secret), nullptr);
    }
}

TEST_F(SecretNatives, LeaveTheFieldWhereATextDoesNotDecipher) {
    for (const Secret& secret : SECRETS) {
        SCOPED_TRACE(secret.name);
        write(secret, "before");
        EXPECT_EQ(set(secret, "in plain"), JNI_FALSE);
        EXPECT_TRUE(catchException("in plain"));
        EXPECT_STREQ(read(secret), "before");
    }
}

TEST_F(SecretNatives, FailWithoutTheNetworkAndWithoutDeciphering) {
    for (const Secret& secret : SECRETS) {
        SCOPED_TRACE(secret.name);
        EXPECT_EQ(set(secret, "in plain", "other"), JNI_FALSE);
        EXPECT_EQ(world.call(secret.get, "other"), nullptr);
    }
}

} // namespace
