#include "FieldNatives.h"

#include <gmock/gmock.h>

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;

extern "C" jboolean NATIVE(saveHostSettings0)(JNIEnv*, jclass);

namespace {

class SaveNative : public testing::Test {
protected:
    jboolean save() { return NATIVE(saveHostSettings0)(world.java.environment(), nullptr); }

    OneNetwork world;
};

TEST_F(SaveNative, SavesWhatWasChanged) {
    world.answer("OK\n");
    EXPECT_EQ(save(), JNI_TRUE);
    EXPECT_THAT(world.commands(), IsEmpty());
    world.network().setPriority(5);
    EXPECT_EQ(save(), JNI_TRUE);
    EXPECT_THAT(world.commands(), ElementsAre("-iwlan0 set_network 0 priority 5",
                                              "-iwlan0 save_config", "-iwlan0 reconfigure"));
}

TEST_F(SaveNative, TellsThatSavingFailed) {
    world.answer("FAIL\n");
    world.network().setPriority(5);
    EXPECT_EQ(save(), JNI_FALSE);
}

TEST_F(SaveNative, SucceedsWithoutAnyNetworks) {
    world.loseNetworks();
    EXPECT_EQ(save(), JNI_TRUE);
}

} // namespace
