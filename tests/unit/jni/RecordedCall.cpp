// Takes the place of the platform's Java strings, cipher and mutex operations in the program it is linked
// into, and stands in front of its error handler for Java.

#include "RecordedCall.h"

#include "TextCopy.h"
#include "platform/Crypt.h"
#include "platform/JNIString.h"
#include "platform/JavaExceptionHandler.h"

#include <gtest/gtest.h>

#include <array>
#include <pthread.h>
#include <utility>

namespace {

thread_local bool isRecorded = false;

// In the order in which lockSettings() takes them.
std::array<const PlatformMutex*, 2> mutexes{};
constexpr std::array<const char*, 2> NAMES = {"list", "state"};

std::size_t taken = 0; // while their order is found out
bool isLearning = false;

std::string recorded;
std::string actionStep;
std::function<void()> pendingAction;

void noteMutex(const char* sign, const PlatformMutex* mutex) {
    if (!isRecorded)
        return;
    if (isLearning && taken++ < mutexes.size())
        mutexes[taken - 1] = mutex;
    for (std::size_t i = 0; i < mutexes.size() && !isLearning; ++i) {
        if (mutexes[i] == mutex)
            test::RecordedCall::note(std::string(sign) + NAMES[i]);
    }
}

int copyText(const char* step, const char* text, char** result) {
    test::RecordedCall::note(step);
    *result = platwifi::copyOf(text);
    return 0;
}

} // namespace

namespace test {

RecordedCall::RecordedCall(WifiHostSettings& settings) {
    taken = 0;
    isRecorded = isLearning = true;
    settings.lockSettings();
    isRecorded = isLearning = false;
    settings.unlockSettings();
    EXPECT_EQ(taken, mutexes.size());
}

RecordedCall::~RecordedCall() {
    mutexes = {};
    pendingAction = nullptr;
}

void RecordedCall::at(const std::string& step, std::function<void()> action) {
    actionStep = step;
    pendingAction = std::move(action);
}

void RecordedCall::note(const std::string& step) {
    if (!isRecorded)
        return;
    if (pendingAction && step == actionStep)
        std::exchange(pendingAction, nullptr)();
    recorded += (recorded.empty() ? "" : " ") + step;
}

std::string RecordedCall::stepsOf(const std::function<void()>& call) {
    struct Recording {
        Recording() {
            recorded.clear();
            isRecorded = true;
        }
        ~Recording() { isRecorded = false; }
        Recording(const Recording&) = delete;
        Recording& operator=(const Recording&) = delete;
    };
    const Recording recording;
    call();
    return recorded;
}

const std::string& RecordedCall::steps() {
    return recorded;
}

// The linker puts these in the place of the handler's constructor and destructor.
void* makeHandler(void* self, JNIEnv* env) __asm__("__wrap__ZN20JavaExceptionHandlerC1EP7JNIEnv_");
void* realMakeHandler(void* self,
                      JNIEnv* env) __asm__("__real__ZN20JavaExceptionHandlerC1EP7JNIEnv_");
void* deleteHandler(void* self) __asm__("__wrap__ZN20JavaExceptionHandlerD1Ev");
void* realDeleteHandler(void* self) __asm__("__real__ZN20JavaExceptionHandlerD1Ev");

void* makeHandler(void* self, JNIEnv* env) {
    RecordedCall::note("+errors");
    return realMakeHandler(self, env);
}

void* deleteHandler(void* self) {
    RecordedCall::note("-errors");
    return realDeleteHandler(self);
}

} // namespace test

void platform::StringArgument::take(JNIEnv* environment, jstring string) {
    const JNIString text(environment, string);
    test::RecordedCall::note(std::string("+") + text.text());
    m_text = platwifi::copyOf(text.text());
}

void platform::StringArgument::release() noexcept {
    test::RecordedCall::note(std::string("-") + m_text);
    delete[] m_text;
}

int Crypt::encrypt(ErrorHandler* /*errors*/, const char* plain, char** result) noexcept {
    return copyText("encipher", plain, result);
}

int Crypt::decrypt(ErrorHandler* /*errors*/, const char* enciphered, char** result) noexcept {
    return copyText("decipher", enciphered, result);
}

int PlatformUtil::lockMutex(PlatformMutex* mutex) noexcept {
    const int result = pthread_mutex_lock(mutex);
    noteMutex("+", mutex);
    return result;
}

int PlatformUtil::unlockMutex(PlatformMutex* mutex) noexcept {
    noteMutex("-", mutex);
    return pthread_mutex_unlock(mutex);
}
