#include "jni/ServiceFunctions.h"

#include <iostream>

int main() {
    std::cout << "supplicant runs: " << (isWifiEnabled(nullptr, "wlan0") ? "yes" : "no") << '\n';
    char* adapter = nullptr;
    const bool found = getWifiAdapter(nullptr, &adapter) != 0;
    std::cout << "first adapter: " << (found ? adapter : "none") << '\n';
    delete[] adapter;
    stopWifiService(nullptr);
    return found ? 0 : 1;
}
