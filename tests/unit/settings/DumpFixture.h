#pragma once

#include "ReportedSettings.h"
#include "SettingsState.h"
#include "model/WifiNetwork.h"

#include <gtest/gtest.h>

#include <string>

namespace test {

const std::string HEADER = "Network Database: \n";
const std::string IDLE = "Current WPA_STATUS        : IDLE\n";

// Of a network that has nothing but an SSID.
const std::string BLANK = "\tNetwork SSID    : home\n"
                          "\tNetwork BSSID   : \n"
                          "\tChannel         : 0\n"
                          "\tStrength        : 0\n"
                          "\tSSID Broadcast  : no\n"
                          "\tPriority        : 0\n"
                          "\tNetwork Mode    : UNKNOWN\n"
                          "\tProtocol        : UNKNOWN\n"
                          "\tKeyManagement   : UNKNOWN\n"
                          "\tPairwise        : UNKNOWN\n"
                          "\tGroup           : UNKNOWN\n"
                          "\tEAP Modes       : UNKNOWN\n"
                          "\tAUTH_ALG        : UNKNOWN\n"
                          "\tPre Shared Key  : \n"
                          "\tEAP Identity                  : \n"
                          "\tEAP Anonymous Identity        : \n"
                          "\tEAP Password                  : \n"
                          "\tOuter Private Key Password    : \n"
                          "\tOuter CA Certificate File     : \n"
                          "\tOuter CA Certificate Path     : \n"
                          "\tOuter Client Certificate      : \n"
                          "\tOuter Private Key File        : \n"
                          "\tPhase 1                       : \n"
                          "\tPhase 2                       : \n"
                          "\tInner Private Key Password    : \n"
                          "\tInner CA Certificate File     : \n"
                          "\tInner CA Certificate Path     : \n"
                          "\tInner Client Certificate      : \n"
                          "\tInner Private Key File        : \n"
                          "\n";

// The lines of such a network with one piece replaced.
inline std::string with(const std::string& line, const std::string& other) {
    std::string lines = BLANK;
    const std::size_t at = lines.find(line);
    EXPECT_NE(at, std::string::npos) << line;
    return lines.replace(at, line.size(), other);
}

class Dump : public testing::Test {
protected:
    Dump() { reported.settings->*memberOf(SupplicantState{}) = WPA_STATE_IDLE; }

    ReportedSettings reported;
};

} // namespace test
