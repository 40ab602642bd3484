#include "ModelRunner.h"

#include "ModelSupplicant.h"

#include "platform/FileDescriptor.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fuzz {
namespace {

constexpr char INTERFACE_OPTION[] = "-i";
constexpr std::size_t OPTION_LENGTH = sizeof(INTERFACE_OPTION) - 1;

void writeResult(const char* path, const std::string& output) {
    const platform::FileDescriptor file(
        open(path, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, S_IRUSR | S_IWUSR));
    static_cast<void>(!write(file.number(), output.data(), output.size()));
}

} // namespace

bool runOnModel(const platwifi::ArgumentList& arguments, const char* resultFile) {
    ModelSupplicant::Command words;
    for (const char* const* argument = arguments.get() + 1; *argument; ++argument)
        words.emplace_back(*argument);
    std::string iface;
    if (!words.empty() && words[0].compare(0, OPTION_LENGTH, INTERFACE_OPTION) == 0) {
        iface = words[0].substr(OPTION_LENGTH);
        words.erase(words.begin());
    }
    const ModelSupplicant::Answer answer = ModelSupplicant::instance().run(iface, words);
    writeResult(resultFile, answer.output);
    return answer.hasExited;
}

} // namespace fuzz
