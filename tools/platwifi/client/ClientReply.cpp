#include "client/ClientReply.h"

#include "Paths.h"
#include "platform/FileDescriptor.h"
#include "supplicant/WifiUtil.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <unistd.h>

namespace cli {
namespace {

using platwifi::paths::CLIENT;
using platwifi::paths::PROCESS_LISTER;

/// A file for a reply, removed with the object.
class ReplyFile {
public:
    ReplyFile() : m_file(mkstemp(m_path)) {}
    ~ReplyFile() {
        if (m_file.isOpen())
            unlink(m_path);
    }
    ReplyFile(const ReplyFile&) = delete;
    ReplyFile& operator=(const ReplyFile&) = delete;

    const char* path() const { return m_file.isOpen() ? m_path : nullptr; }

    std::string text() const {
        std::ifstream file(m_path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }

private:
    char m_path[32] = "/tmp/platwifi_doctor_XXXXXX";
    platform::FileDescriptor m_file;
};

} // namespace

std::string processList() {
    const ReplyFile file;
    WifiUtil().launchProcess(PROCESS_LISTER, "arg", nullptr, nullptr, nullptr, nullptr,
                             file.path());
    return file.text();
}

std::string clientVersion() {
    const ReplyFile file;
    WifiUtil().launchProcess(CLIENT, "--version", nullptr, nullptr, nullptr, nullptr, file.path());
    const std::string text = file.text();
    return text.substr(0, text.find('\n'));
}

std::string clientReply(const std::string& iface, const char* command, const char* argument) {
    const ReplyFile file;
    WifiUtil().launchProcess(CLIENT, command, ("-i" + iface).c_str(), argument, nullptr, nullptr,
                             file.path());
    std::string text = file.text();
    text.erase(text.find_last_not_of(" \n") + 1);
    return text;
}

} // namespace cli
