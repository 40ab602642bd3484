#include "Subject.h"

#include <ctime>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace bench {
namespace {

// The sum of the numbers in all lines that begin with the name and a colon.
double sumInFile(const std::filesystem::path& path, const std::string& name) {
    std::ifstream file(path);
    double sum = 0;
    for (std::string line; std::getline(file, line);) {
        if (line.compare(0, name.size() + 1, name + ":") == 0)
            sum += std::stod(line.substr(name.size() + 1));
    }
    return sum;
}

std::filesystem::path folderOf(pid_t process) {
    return "/proc/" + std::to_string(process);
}

} // namespace

Subject::Subject(const char* role, const char* program) : m_process(program, role) {
    m_process.awaitLine("ready");
}

void Subject::begin() {
    m_process.send("");
    m_process.awaitLine("begun");
}

double Subject::switches() const {
    double sum = 0;
    for (const auto& thread :
         std::filesystem::directory_iterator(folderOf(m_process.id()) / "task")) {
        sum += sumInFile(thread.path() / "status", "voluntary_ctxt_switches");
        sum += sumInFile(thread.path() / "status", "nonvoluntary_ctxt_switches");
    }
    return sum;
}

double Subject::processorTime() const {
    clockid_t clock{};
    timespec time{};
    if (clock_getcpuclockid(m_process.id(), &clock) != 0 || clock_gettime(clock, &time) != 0)
        throw std::runtime_error("the processor time of the other process is not known");
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

double Subject::memory(const std::string& name) const {
    return sumInFile(folderOf(m_process.id()) / "smaps_rollup", name) * 1024;
}

} // namespace bench
