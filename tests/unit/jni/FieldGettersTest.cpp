// Natives that read one field of one network.

#include "OneNetwork.h"

#include "support/FieldTable.h"
#include "unit/model/NetworkRows.h"

using namespace test;
using platwifi::Field;

namespace {

constexpr const char* CIPHERS = "getSupportedEncrytptionMethods0"; // of both sets

// API-1
Field fieldReadBy(const FieldRow& row) {
    return row.field == Field::EAP_ANONYMOUS_IDENTITY ? Field::EAP_IDENTITY : row.field;
}

// A number that no other field has, as far as the field can hold it.
unsigned int numberFor(const FieldRow& row) {
    switch (row.field) {
    case Field::SSID_BROADCASTED:
        return 1;
    case Field::PRIORITY:
        return 0xffffffffU;
    case Field::NETWORK_MODE:
        return 200;
    case Field::WEP_INDEX:
        return 3;
    case Field::PAIRWISE_CIPHERS:
        return 0x70501016;
    case Field::GROUP_CIPHERS:
        return 0x26042265;
    default:
        return 0x01020300 + platwifi::indexOf(row.field);
    }
}

class FieldGetters : public OneNetwork, public testing::Test {
protected:
    void fill() {
        for (const FieldRow& row : fieldRows()) {
            if (!isText(row))
                fields().setNumber(row.field, numberFor(row));
            else if (row.field != Field::SSID)
                fields().setText(row.field, row.name);
        }
    }

    // What the native of a field returns: "(null)" for null.
    std::string read(const FieldRow& row, const char* ssid = "home") {
        const NativeResult result = call(row.getter, {"wlan0", ssid});
        if (const auto* const number = std::get_if<jint>(&result))
            return std::to_string(*number);
        if (const auto* const flag = std::get_if<jboolean>(&result))
            return std::to_string(*flag);
        const jobject text = std::get<jobject>(result);
        return text ? java.textOf(text) : "(null)";
    }

    const std::vector<FieldRow> texts = rowsOf(true);
    const std::vector<FieldRow> numbers = rowsOf(false);

private:
    // The fields that cross to Java as they are.
    static std::vector<FieldRow> rowsOf(bool areTexts) {
        std::vector<FieldRow> rows;
        for (const FieldRow& row : fieldRows()) {
            if (row.getter && isText(row) == areTexts && !isEnciphered(row))
                rows.push_back(row);
        }
        return rows;
    }
};

TEST_F(FieldGetters, AreThoseOf24Fields) {
    EXPECT_EQ(texts.size(), 13U);
    EXPECT_EQ(numbers.size(), 11U);
}

TEST_F(FieldGetters, ReadNumbersBitForBit) {
    fill();
    for (const FieldRow& row : numbers)
        EXPECT_EQ(read(row), std::to_string(static_cast<jint>(numberFor(row)))) << row.getter;
    EXPECT_EQ(number(CIPHERS, {"wlan0", "home"}), 0x76543277) << "of either set";
    network().setSsidBroadcasted(false);
    EXPECT_FALSE(flag("getSsidBroadcasted0", {"wlan0", "home"}));
}

// API-1
TEST_F(FieldGetters, ReadTexts) {
    fill();
    for (const FieldRow& row : texts)
        EXPECT_EQ(read(row), rowOf(fieldReadBy(row)).name) << row.getter;
}

TEST_F(FieldGetters, ReadUnsetTextsAsNull) {
    for (const FieldRow& row : texts) {
        fields().setText(row.field, nullptr);
        EXPECT_EQ(read(row), "(null)") << row.getter;
    }
}

TEST_F(FieldGetters, ReadBytesThatAreNotUtf8) {
    network().setEAPIdentity("caf\xE9");
    EXPECT_EQ(read(rowOf(Field::EAP_IDENTITY)), "caf\xED\xB3\xA9");
}

TEST_F(FieldGetters, ReturnZeroAndNullWithoutTheNetwork) {
    fill();
    const auto readNothing = [this](const char* ssid) {
        for (const FieldRow& row : numbers)
            EXPECT_EQ(read(row, ssid), "0") << row.getter;
        EXPECT_EQ(number(CIPHERS, {"wlan0", ssid}), 0);
        for (const FieldRow& row : texts)
            EXPECT_EQ(read(row, ssid), "(null)") << row.getter;
    };
    for (const char* ssid : {"other", "", static_cast<const char*>(nullptr)})
        readNothing(ssid);
    loseNetworks();
    readNothing("home");
}

TEST_F(FieldGetters, ReturnNullWithTheErrorPendingIfJavaHasNoMemory) {
    network().setEAPIdentity("me");
    java.failCall(FakeJni::Call::NewStringUTF);
    EXPECT_EQ(read(rowOf(Field::EAP_IDENTITY)), "(null)");
    ASSERT_TRUE(java.pendingException());
    java.catchException();
}

TEST_F(FieldGetters, ChangeNothing) {
    fill();
    network().cleanDirtyFields();
    const FieldValues before = valuesOf(network());
    for (const FieldRow& row : texts)
        read(row);
    for (const FieldRow& row : numbers)
        read(row);
    number(CIPHERS, {"wlan0", "home"});
    EXPECT_EQ(valuesOf(network()), before);
    EXPECT_FALSE(network().getNetworkDirty());
}

} // namespace
