// The command line, as a whole process.

#include "BareCommand.h"
#include "Contest.h"
#include "Measurements.h"

namespace bench {

Rows measureStatus() {
    const Timings times = compete({{[] { runBare(PLATWIFI_PROGRAM, {"status"}); }},
                                   {[] { runBare(HOST_CLIENT, {"status"}); }}},
                                  {15, 0.1});
    return {
        timeRow("`platwifi status`, the whole process", "`wpa_cli status` of the host", times[0],
                times[1], "What the answer in words costs a user of the command line.",
                "status-host"),
    };
}

} // namespace bench
