// The command line, as a whole process.

#include "BareCommand.h"
#include "Contest.h"
#include "Measurements.h"

#include <filesystem>

namespace fs = std::filesystem;

namespace bench {
namespace {

/// A copy of the program beside it, as an installation makes one: the kernel needs longer to map the pages of a file
/// that the linker wrote piece by piece.
class InstalledProgram {
public:
    InstalledProgram() : m_path(PLATWIFI_PROGRAM ".installed") {
        fs::copy_file(PLATWIFI_PROGRAM, m_path, fs::copy_options::overwrite_existing);
    }
    ~InstalledProgram() { fs::remove(m_path); }
    InstalledProgram(const InstalledProgram&) = delete;
    InstalledProgram& operator=(const InstalledProgram&) = delete;

    const std::string& path() const { return m_path; }

private:
    std::string m_path;
};

} // namespace

Rows measureStatus() {
    const InstalledProgram program;
    const Timings times = compete({{[&program] { runBare(program.path(), {"status"}); }},
                                   {[] { runBare(HOST_CLIENT, {"status"}); }}},
                                  {15, 0.1});
    return {
        timeRow("`platwifi status`, the whole process", "`wpa_cli status` of the host", times[0],
                times[1], "What the answer in words costs a user of the command line.",
                "status-host"),
    };
}

} // namespace bench
