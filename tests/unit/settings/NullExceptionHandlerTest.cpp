#include "settings/WifiHostSettings.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <type_traits>

namespace {

TEST(NullExceptionHandler, OnlySavesWhatIsReported) {
    std::unique_ptr<ErrorHandler> handler = std::make_unique<NullExceptionHandler>();
    MessageBundle bundle("some.id", "some text");
    handler->error(&bundle);
    ASSERT_NE(handler->savedError(), nullptr);
    EXPECT_STREQ(handler->savedError()->id(), "some.id");
    EXPECT_STREQ(handler->savedError()->text(), "some text");
    EXPECT_NE(handler->savedError(), &bundle) << "the bundle stays the reporter's";
}

TEST(NullExceptionHandler, KeepsTheOtherOperationsOfItsBase) {
    NullExceptionHandler handler;
    handler.error("only a text");
    ASSERT_NE(handler.savedError(), nullptr);
    EXPECT_STREQ(handler.savedError()->text(), "only a text");
    handler.clearError();
    EXPECT_EQ(handler.savedError(), nullptr);
    handler.error(static_cast<MessageBundle*>(nullptr));
    EXPECT_EQ(handler.savedError(), nullptr);
}

// Saving is a virtual call: a derived sink may keep errors in its own way.
class Counting : public NullExceptionHandler {
public:
    int saved = 0;
    void saveError(MessageBundle*) override { ++saved; }
};

TEST(NullExceptionHandler, SavesThroughTheVirtualOperation) {
    Counting handler;
    MessageBundle bundle("id", "text");
    handler.error(&bundle);
    EXPECT_EQ(handler.saved, 1);
    EXPECT_EQ(handler.savedError(), nullptr);
}

TEST(NullExceptionHandler, DerivesVirtuallyAndAddsNoFields) {
    struct Both : NullExceptionHandler, virtual ErrorHandler {};
    EXPECT_TRUE((std::is_base_of<ErrorHandler, Both>::value));
    EXPECT_EQ(sizeof(NullExceptionHandler), sizeof(ErrorHandler) + sizeof(void*))
        << "only the pointer to its own virtual table comes on top";
}

// Its own table: error(MessageBundle*) first, before both destructors.
TEST(NullExceptionHandler, HasErrorInTheFirstSlotOfItsOwnTable) {
    NullExceptionHandler handler;
    void** const table = *reinterpret_cast<void***>(&handler);
    const auto error = reinterpret_cast<void (*)(NullExceptionHandler*, MessageBundle*)>(table[0]);
    MessageBundle bundle("slot", "first");
    error(&handler, &bundle);
    ASSERT_NE(handler.savedError(), nullptr);
    EXPECT_STREQ(handler.savedError()->id(), "slot");
}

TEST(NullExceptionHandler, GoesWhenAnExceptionPassesThrough) {
    const auto failing = [] {
        const std::unique_ptr<ErrorHandler> handler = std::make_unique<NullExceptionHandler>();
        handler->error("saved, then dropped");
        throw std::runtime_error("below");
    };
    EXPECT_THROW(failing(), std::runtime_error);
}

} // namespace
