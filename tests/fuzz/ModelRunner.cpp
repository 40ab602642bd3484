#include "ModelRunner.h"

#include "ModelSupplicant.h"

#include "platform/FileDescriptor.h"
#include "platform/PlatformUtil.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fuzz {
namespace {

constexpr int OPTION_LENGTH = 2; // "-i"

void writeResult(const char* path, const std::string& output) {
    const platform::FileDescriptor file(
        open(path, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, S_IRUSR | S_IWUSR));
    static_cast<void>(!write(file.number(), output.data(), output.size()));
}

} // namespace

bool launchOnModel(const char* command, const char* interfaceArg, const char* arg1,
                   const char* arg2, const char* arg3, const char* resultFile) {
    ModelSupplicant::Command words{command};
    for (const char* const argument : {arg1, arg2, arg3}) {
        if (argument)
            words.emplace_back(argument);
    }
    const std::string iface = interfaceArg ? interfaceArg + OPTION_LENGTH : "";
    const ModelSupplicant::Answer answer = ModelSupplicant::instance().run(iface, words);
    writeResult(resultFile, answer.output);
    return answer.hasExited;
}

} // namespace fuzz

void PlatformUtil::sleep(int /*milliseconds*/) noexcept {}
