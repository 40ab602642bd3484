// Fields are for the first adapter; each adapter has a configuration to save.

#include "SaveSettings.h"
#include "SettingsState.h"

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const std::string SAVE_SECOND = "-iwlan1 save_config";
const std::string REREAD_SECOND = "-iwlan1 reconfigure";

class SaveTwoAdapters : public SaveSettings {
protected:
    SaveTwoAdapters() {
        adapters = "wlan0\nwlan1\n";
        loadChanged();
    }

    void loadChanged() {
        load({"home"});
        network("home")->setPriority(5);
    }
};

// SAVE-2, SAVE-3
TEST_F(SaveTwoAdapters, WritesToTheFirstAndSavesAndReadsBothAgain) {
    const Arguments refused[] = {{"none"}, {"-iwlan0", "save_config"}, {"-iwlan0", "reconfigure"}};
    for (const Arguments& command : refused) {
        SCOPED_TRACE(command.back());
        SaveSignals::reset();
        loadChanged();
        answerTo(command, "FAIL\n");
        EXPECT_THAT(saveGiving(1),
                    ElementsAre(priority("0", "5"), SAVE, SAVE_SECOND, REREAD, REREAD_SECOND));
        EXPECT_EQ(SaveSignals::count, 1);
    }
}

// SAVE-2
TEST_F(SaveTwoAdapters, FailsWhenTheSecondIsNotSaved) {
    answerTo({"-iwlan1", "save_config"}, "FAIL\n");
    EXPECT_THAT(saveGiving(0), ElementsAre(priority("0", "5"), SAVE, SAVE_SECOND));
    EXPECT_EQ(SaveSignals::count, 0);
}

TEST_F(SaveTwoAdapters, LeavesOneWithoutANameOut) {
    char*& first = (settings().*memberOf(AdapterNames{}))->data()[0];
    delete[] first;
    first = nullptr;
    EXPECT_THAT(saveGiving(1), ElementsAre(SAVE_SECOND, REREAD_SECOND));
    EXPECT_FALSE(network("home")->getNetworkDirty());
}

TEST_F(SaveTwoAdapters, FailsWithoutAny) {
    settings().removeNetwork("wlan0", "home");
    (settings().*memberOf(AdapterNames{}))->count = 0;
    EXPECT_THAT(saveGiving(0), IsEmpty());
    (settings().*memberOf(AdapterNames{})).reset();
    EXPECT_THAT(saveGiving(0), IsEmpty());
}

} // namespace
