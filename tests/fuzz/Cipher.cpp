// The cipher: an enciphered text deciphers to the same text; a damaged text, and one that was never
// enciphered, is refused.

#include "Input.h"
#include "Require.h"

#include "platform/Crypt.h"

#include <cstdlib>
#include <cstring>
#include <memory>

using fuzz::Input;

namespace {

constexpr const char* KEY_FILE = "/tmp/fuzz-crypt.key"; // in the private world

struct Outcome {
    bool isDone;
    std::string text;
};

using Operation = int (*)(ErrorHandler*, const char*, char**) noexcept;

Outcome run(Operation operation, const std::string& text) {
    ErrorHandler errors;
    char* result = nullptr;
    const bool isDone = operation(&errors, text.c_str(), &result) == 0;
    const std::unique_ptr<char[]> owner(result);
    REQUIRE(isDone == (result != nullptr) && isDone == !errors.savedError());
    return {isDone, result ? result : ""};
}

void requireRefused(const std::string& text) {
    REQUIRE_FOR(!run(Crypt::decrypt, text).isDone, text);
}

// With the key file, or with the key of this process.
Operation anyCipher(Input& input) {
    return input.below(2) == 0 ? Crypt::encrypt : Crypt::encryptForThisProcess;
}

void roundTrip(Input& input) {
    const Operation encipher = anyCipher(input);
    const std::string plain = input.text();
    const Outcome sealed = run(encipher, plain);
    REQUIRE(sealed.isDone && sealed.text.find_first_of("\n\"' ") == std::string::npos);
    const Outcome opened = run(Crypt::decrypt, sealed.text);
    REQUIRE(opened.isDone && opened.text == plain);
}

// One change of an enciphered text: another byte, one more, one less, a piece less.
std::string damaged(std::string text, Input& input) {
    const std::size_t place = input.number() % text.size();
    const char byte = static_cast<char>(input.byte() | 1U); // never NUL, which would end the text
    switch (input.below(4)) {
    case 0:
        text[place] = byte;
        break;
    case 1:
        text.insert(place, 1, byte);
        break;
    case 2:
        text.erase(place, 1);
        break;
    default:
        text.erase(place, 1 + input.below(40));
    }
    return text;
}

void damage(Input& input) {
    const std::string sealed = run(anyCipher(input), "a secret of some length").text;
    const std::string text = damaged(sealed, input);
    if (text != sealed)
        requireRefused(text);
}

void anyText(Input& input) {
    requireRefused(input.text());
}

void anyBody(Input& input) {
    const char* const prefix = input.below(2) == 0 ? "crypt1:" : "process1:";
    requireRefused(prefix + input.text());
}

constexpr void (*PARTS[])(Input&) = {anyText, anyBody, damage, roundTrip};

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const int keyFile = setenv("PLATFORM_KEY_FILE", KEY_FILE, 1);
    REQUIRE(keyFile == 0);
    Input input(data, size);
    PARTS[input.below(sizeof(PARTS) / sizeof(PARTS[0]))](input);
    return 0;
}
