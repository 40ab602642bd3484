// Fields by their name in `Field`.

#include "model/NetworkFields.h"

#include "NetworkRows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace test;
using platwifi::Field;
using platwifi::NetworkFields;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// A network, and a record of its values at the last startAnew().
class FieldsOfANetwork {
protected:
    /// What the getters of the network return differently than before.
    FieldValues changes() const { return changesSince(m_before, network); }

    void startAnew() {
        network.cleanDirtyFields();
        m_before = valuesOf(network);
    }

    WifiNetwork network;
    NetworkFields& fields = NetworkFields::of(network);

private:
    FieldValues m_before = valuesOf(network);
};

class NetworkFieldsTest : public FieldsOfANetwork, public testing::Test {};
class NetworkField : public FieldsOfANetwork, public testing::TestWithParam<FieldRow> {
protected:
    bool set() {
        const Field field = GetParam().field;
        return isText(GetParam()) ? fields.setText(field, "1") : fields.setNumber(field, 1);
    }

    std::string get() const {
        const Field field = GetParam().field;
        return isText(GetParam()) ? fields.text(field) : std::to_string(fields.number(field));
    }
};

TEST_P(NetworkField, IsThatOfItsGetterAndMarksItsOwnFlag) {
    EXPECT_TRUE(set());
    EXPECT_EQ(get(), "1");
    EXPECT_THAT(changes(), ElementsAre(GetParam().name + std::string("=1")));
    EXPECT_EQ(dirtyOf(network), hasFlag(GetParam()) ? FieldValues{GetParam().name} : FieldValues{});
    EXPECT_EQ(fields.isDirty(GetParam().field), hasFlag(GetParam()));
}

TEST_P(NetworkField, IsComparedUnlessItIsAReportedNumberOrTheBroadcastFlag) {
    set();
    network.cleanDirtyFields();
    const bool isCompared = isText(GetParam()) || hasFlag(GetParam());
    EXPECT_EQ(set(), !isCompared || GetParam().field == Field::SSID_BROADCASTED);
}

TEST_P(NetworkField, IsMarkedByItsNameUnlessItIsReported) {
    fields.setDirty(GetParam().field, true);
    EXPECT_EQ(dirtyOf(network), hasFlag(GetParam()) ? FieldValues{GetParam().name} : FieldValues{});
    fields.setDirty(GetParam().field, false);
    EXPECT_THAT(dirtyOf(network), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Every, NetworkField, testing::ValuesIn(fieldRows()),
                         [](const auto& row) { return row.param.name; });

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
