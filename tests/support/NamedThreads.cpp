// For a platform that gives threads no names: gives them theirs, by which tests find the refresh thread.

#include "platform/PlatformUtil.h"

#include <dlfcn.h>
#include <memory>
#include <pthread.h>
#include <string>

namespace {

using Create = int (*)(PlatformUtil::ThreadEntry, void*, const char*) noexcept;

constexpr const char* CREATE = "_ZN12PlatformUtil12createThreadEPFPvS0_ES0_PKc";
constexpr std::size_t MOST_CHARACTERS = 15;

struct Start {
    PlatformUtil::ThreadEntry entry;
    void* argument;
    std::string name;
};

void* runNamed(void* parameter) {
    const std::unique_ptr<Start> start(static_cast<Start*>(parameter));
    pthread_setname_np(pthread_self(), start->name.c_str());
    return start->entry(start->argument);
}

} // namespace

int PlatformUtil::createThread(ThreadEntry entry, void* argument, const char* name) noexcept {
    static const auto create = reinterpret_cast<Create>(dlsym(RTLD_NEXT, CREATE));
    if (!entry || !name)
        return create(entry, argument, name);
    auto start = std::make_unique<Start>(
        Start{entry, argument, std::string(name).substr(0, MOST_CHARACTERS)});
    const int id = create(runNamed, start.get(), name);
    if (id != -1)
        static_cast<void>(start.release()); // runNamed() deletes it
    return id;
}
