#pragma once

#include "host/ScanResult.h"

#include <string>
#include <vector>

namespace cli {

/// A way to sort the access points in range.
struct ScanOrder {
    const char* name;
    bool (*isBefore)(const ScanResult& one, const ScanResult& other);
};

/// All of them, the default first.
const std::vector<ScanOrder>& scanOrders();

/// Sorts by the order with this name; those that are equal in it, strongest first. An unknown name changes
/// nothing.
void sortBy(const std::string& name, std::vector<ScanResult>& results);

} // namespace cli
