#include "platform/ErrorHandler.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <string>
#include <vector>

namespace {

using testing::ElementsAre;

TEST(MessageBundle, KeepsItsOwnCopies) {
    char id[] = "net.down";
    char text[] = "the network is down";
    const MessageBundle bundle(id, text);
    id[0] = text[0] = '-';
    EXPECT_STREQ(bundle.id(), "net.down");
    EXPECT_STREQ(bundle.text(), "the network is down");
}

TEST(MessageBundle, TreatsNullAsEmpty) {
    const MessageBundle bundle(nullptr, nullptr);
    EXPECT_STREQ(bundle.id(), "");
    EXPECT_STREQ(bundle.text(), "");
}

TEST(ErrorHandler, SavesTheErrorReportedLast) {
    ErrorHandler handler;
    EXPECT_EQ(handler.savedError(), nullptr);
    MessageBundle first("a", "first");
    MessageBundle second("b", "second");
    handler.error(&first);
    handler.error(&second);
    ASSERT_NE(handler.savedError(), nullptr);
    EXPECT_NE(handler.savedError(), &second) << "a copy is saved";
    EXPECT_STREQ(handler.savedError()->id(), "b");
    EXPECT_STREQ(handler.savedError()->text(), "second");
}

TEST(ErrorHandler, MakesABundleOfAText) {
    ErrorHandler handler;
    handler.error("only text");
    ASSERT_NE(handler.savedError(), nullptr);
    EXPECT_STREQ(handler.savedError()->id(), "");
    EXPECT_STREQ(handler.savedError()->text(), "only text");
    handler.error(static_cast<const char*>(nullptr));
    EXPECT_STREQ(handler.savedError()->text(), "");
}

TEST(ErrorHandler, IgnoresANullBundle) {
    ErrorHandler handler;
    handler.error("kept");
    handler.error(static_cast<MessageBundle*>(nullptr));
    handler.saveError(nullptr);
    ASSERT_NE(handler.savedError(), nullptr);
    EXPECT_STREQ(handler.savedError()->text(), "kept");
}

TEST(ErrorHandler, RemovesTheSavedError) {
    ErrorHandler handler;
    handler.error("x");
    handler.clearError();
    EXPECT_EQ(handler.savedError(), nullptr);
    handler.clearError();
}

struct Recorder : ErrorHandler {
    explicit Recorder(std::vector<std::string>& calls) : m_calls(calls) {}
    ~Recorder() override { m_calls.emplace_back("destructor"); }
    void error(MessageBundle*) override { m_calls.emplace_back("error(MessageBundle*)"); }
    void error(const char*) override { m_calls.emplace_back("error(const char*)"); }
    void clearError() override { m_calls.emplace_back("clearError"); }
    void saveError(MessageBundle*) override { m_calls.emplace_back("saveError"); }

    std::vector<std::string>& m_calls;
};

template <class Function>
Function slotOf(const void* object, int slot) {
    void** table = nullptr;
    std::memcpy(&table, object, sizeof(table));
    Function function;
    std::memcpy(&function, &table[slot], sizeof(function));
    return function;
}

// Callers that were built separately find each operation by its index in the table of virtual
// functions.
TEST(ErrorHandlerTable, HasItsOperationsInTheFixedOrder) {
    using Destructor = void (*)(ErrorHandler*);
    using TakesBundle = void (*)(ErrorHandler*, MessageBundle*);
    using TakesText = void (*)(ErrorHandler*, const char*);
    std::vector<std::string> calls;
    auto owner = std::make_unique<Recorder>(calls);
    ErrorHandler* const handler = owner.get();
    slotOf<TakesBundle>(handler, 2)(handler, nullptr);
    slotOf<TakesText>(handler, 3)(handler, nullptr);
    slotOf<Destructor>(handler, 4)(handler);
    slotOf<TakesBundle>(handler, 5)(handler, nullptr);
    const auto deleting = slotOf<Destructor>(handler, 1);
    deleting(owner.release());
    alignas(Recorder) unsigned char place[sizeof(Recorder)];
    ErrorHandler* const placed = new (place) Recorder(calls);
    slotOf<Destructor>(placed, 0)(placed); // must not try to free the place
    EXPECT_THAT(calls, ElementsAre("error(MessageBundle*)", "error(const char*)", "clearError",
                                   "saveError", "destructor", "destructor"));
}

struct Virtual : virtual ErrorHandler {
    using ErrorHandler::error;
    void error(MessageBundle* bundle) override { saveError(bundle); }
};

TEST(ErrorHandlerTable, IsSeparateInAClassThatDerivesVirtually) {
    Virtual object;
    const auto* base = static_cast<ErrorHandler*>(&object);
    EXPECT_NE(static_cast<const void*>(base), static_cast<const void*>(&object));
    object.error("through the base");
    EXPECT_STREQ(base->savedError()->text(), "through the base");
}

} // namespace
