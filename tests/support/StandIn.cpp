#include "support/StandIn.h"

#include "support/standin/Escapes.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <unistd.h>

namespace test {
namespace {

constexpr const char* BOOT_FOLDER = "PLATFORM_BOOT_DIR";

} // namespace

StandIn::Answer& StandIn::Answer::add(const Arguments& line) {
    m_standIn.append(line);
    return *this;
}

StandIn::StandIn() {
    char folder[] = "/tmp/standin.XXXXXX";
    if (!mkdtemp(folder))
        throw std::runtime_error("no folder for the stand-in");
    m_folder = folder;
    for (const char* name : {"wpa_cli", "pidin"})
        std::filesystem::create_symlink(STANDIN_PROGRAM, m_folder + "/" + name);
    if (const char* const outer = getenv(BOOT_FOLDER))
        m_outerFolder = outer;
    setenv(BOOT_FOLDER, folder, 1);
}

StandIn::~StandIn() {
    if (m_outerFolder.empty())
        unsetenv(BOOT_FOLDER);
    else
        setenv(BOOT_FOLDER, m_outerFolder.c_str(), 1);
    std::filesystem::remove_all(m_folder);
}

StandIn::Answer StandIn::on(const Arguments& arguments) {
    Arguments line{"when"};
    line.insert(line.end(), arguments.begin(), arguments.end());
    append(line);
    return Answer(*this);
}

std::vector<Arguments> StandIn::calls() const {
    std::vector<Arguments> calls;
    std::ifstream file(m_folder + "/calls");
    for (std::string line; std::getline(file, line);)
        calls.push_back(standin::fieldsOf(line));
    return calls;
}

void StandIn::reset() {
    std::filesystem::remove(m_folder + "/script");
    std::filesystem::remove(m_folder + "/calls");
}

void StandIn::append(const Arguments& line) const {
    std::ofstream(m_folder + "/script", std::ios::app) << standin::joined(line) << '\n';
}

} // namespace test
