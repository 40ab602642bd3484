#pragma once

namespace test {

/// For as long as this object lives there is no instance of WifiUtil, in a program that is linked with
/// this.
class MissingWifiUtil {
public:
    MissingWifiUtil();
    ~MissingWifiUtil();

    MissingWifiUtil(const MissingWifiUtil&) = delete;
    MissingWifiUtil& operator=(const MissingWifiUtil&) = delete;
};

} // namespace test
