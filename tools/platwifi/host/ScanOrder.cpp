#include "host/ScanOrder.h"

#include <algorithm>

namespace cli {
namespace {

using R = ScanResult;

// clang-format off
const std::vector<ScanOrder> ORDERS = {
    {"signal", [](const R& one, const R& other) { return one.signal > other.signal; }},
    {"ssid", [](const R& one, const R& other) { return one.ssid < other.ssid; }},
    {"channel", [](const R& one, const R& other) { return one.frequency < other.frequency; }}, // a band has one range
    {"security", [](const R& one, const R& other) { return securityOf(one.flags) < securityOf(other.flags); }},
};
// clang-format on

} // namespace

const std::vector<ScanOrder>& scanOrders() {
    return ORDERS;
}

void sortBy(const std::string& name, std::vector<ScanResult>& results) {
    std::stable_sort(results.begin(), results.end(), ORDERS.front().isBefore);
    for (const ScanOrder& order : ORDERS) {
        if (name == order.name)
            std::stable_sort(results.begin(), results.end(), order.isBefore);
    }
}

} // namespace cli
