// Natives for secrets, which cross to Java and back enciphered.

#include "OneNetwork.h"

#include "support/FieldTable.h"
#include "support/KeyWorld.h"

using namespace test;

namespace {

class SecretNatives : public OneNetwork, public KeyWorld {
protected:
    SecretNatives() {
        for (const FieldRow& row : fieldRows()) {
            if (isEnciphered(row))
                secrets.push_back(row);
        }
    }

    const char* stored(const FieldRow& row) { return fields().text(row.field); }
    void store(const FieldRow& row, const char* plain) { fields().setText(row.field, plain); }
    std::string read(const FieldRow& row) { return text(row.getter, {"wlan0", "home"}); }

    // Whether an exception was pending that does not contain the text.
    bool catchException(const std::string& text) {
        const auto exception = java.pendingException();
        java.catchException();
        return exception && exception->message.find(text) == std::string::npos;
    }

    std::vector<FieldRow> secrets;
};

// TEXT-2
TEST_F(SecretNatives, ReadEnciphered) {
    EXPECT_EQ(secrets.size(), 4U);
    for (const FieldRow& row : secrets)
        store(row, row.name);
    for (const FieldRow& row : secrets) {
        SCOPED_TRACE(row.getter);
        const std::string enciphered = read(row);
        EXPECT_EQ(enciphered.find(row.name), std::string::npos);
        EXPECT_EQ(decrypted(enciphered).text, row.name);
    }
}

TEST_F(SecretNatives, ReadAnUnsetSecretAsNull) {
    for (const FieldRow& row : secrets)
        EXPECT_EQ(read(row), "(null)") << row.getter;
}

TEST_F(SecretNatives, ReadNullWithTheCausePendingWithoutACipher) {
    putKey("too short");
    for (const FieldRow& row : secrets) {
        store(row, "hush");
        EXPECT_EQ(read(row), "(null)") << row.getter;
        EXPECT_TRUE(catchException("hush"));
    }
}

// NET-6
TEST_F(SecretNatives, StoreThePlainText) {
    for (const FieldRow& row : secrets) {
        SCOPED_TRACE(row.setter);
        EXPECT_TRUE(set(row.setter, encrypted(row.name).text->c_str()));
        EXPECT_FALSE(set(row.setter, encrypted(row.name).text->c_str())) << "no change";
    }
    for (const FieldRow& row : secrets)
        EXPECT_STREQ(stored(row), row.name) << "each in a field of its own";
}

TEST_F(SecretNatives, ClearWithoutACipher) {
    putKey("too short");
    for (const FieldRow& row : secrets) {
        SCOPED_TRACE(row.setter);
        store(row, "hush");
        EXPECT_TRUE(set(row.setter, ""));
        EXPECT_STREQ(stored(row), "");
        EXPECT_FALSE(set(row.setter, ""));
        store(row, "hush");
        EXPECT_TRUE(set(row.setter, nullptr));
        EXPECT_EQ(stored(row), nullptr);
    }
}

// TEXT-3
// API-10
TEST_F(SecretNatives, LeaveTheFieldIfATextDoesNotDecipher) {
    for (const FieldRow& row : secrets) {
        SCOPED_TRACE(row.setter);
        store(row, "before");
        EXPECT_FALSE(set(row.setter, "in plain"));
        EXPECT_TRUE(catchException("in plain"));
        EXPECT_STREQ(stored(row), "before");
    }
}

TEST_F(SecretNatives, FailWithoutTheNetworkAndWithoutDeciphering) {
    for (const FieldRow& row : secrets) {
        EXPECT_FALSE(set(row.setter, "in plain", "other")) << row.setter;
        EXPECT_EQ(object(row.getter, {"wlan0", "other"}), nullptr) << row.getter;
    }
}

} // namespace
