#include "support/KeyWorld.h"

#include "platform/Crypt.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace test {
namespace {

using Operation = int (*)(ErrorHandler*, const char*, char**) noexcept;

Outcome outcomeOf(Operation operation, const std::string& text) {
    ErrorHandler errors;
    char* result = nullptr;
    Outcome outcome;
    outcome.status = operation(&errors, text.c_str(), &result);
    const std::unique_ptr<char[]> owner(result);
    if (result)
        outcome.text = result;
    if (errors.savedError()) {
        outcome.errorId = errors.savedError()->id();
        outcome.message = errors.savedError()->text();
    }
    return outcome;
}

} // namespace

Outcome encrypted(const std::string& plain) {
    return outcomeOf(Crypt::encrypt, plain);
}

Outcome encryptedForThisProcess(const std::string& plain) {
    return outcomeOf(Crypt::encryptForThisProcess, plain);
}

Outcome decrypted(const std::string& enciphered) {
    return outcomeOf(Crypt::decrypt, enciphered);
}

const std::string KeyWorld::FOLDER = "/tmp/keys/of the/device";
const std::string KeyWorld::KEY_FILE = FOLDER + "/crypt.key";

void KeyWorld::SetUp() {
    std::filesystem::remove_all("/tmp/keys");
    setenv("PLATFORM_KEY_FILE", KEY_FILE.c_str(), 1);
    const Outcome damaged = decrypted("damaged");
    if (damaged.errorId == "crypt.no-cipher")
        GTEST_SKIP() << damaged.message;
}

void KeyWorld::TearDown() {
    unsetenv("PLATFORM_KEY_FILE");
}

void KeyWorld::putKey(const std::string& bytes) {
    std::filesystem::create_directories(FOLDER);
    std::ofstream(KEY_FILE, std::ios::binary) << bytes;
    setKeyMode(0600);
}

void KeyWorld::removeKey() {
    unlink(KEY_FILE.c_str());
}

void KeyWorld::setKeyMode(mode_t mode) {
    EXPECT_EQ(chmod(KEY_FILE.c_str(), mode), 0);
}

} // namespace test
