#pragma once

#include "platform/ErrorHandler.h"

#include "LoadedSettings.h"

#include <string>

class WifiNetwork;

namespace test {

/// The reports of loaded settings, without networks at first.
class ReportedSettings {
public:
    ReportedSettings();

    /// A load that found no adapter, and a client that answers nothing.
    void fail();

    /// What the supplicant answers from now on, to the question for its status alone.
    void answerStatus(const std::string& status, const std::string& processes = SUPPLICANT);

    /// A network with this SSID, in front of those that are there; its status is "enabled".
    WifiNetwork& add(const char* ssid);

    /// The document. Each one is read, and a full one is checked against the schema, where this build
    /// can.
    std::string xml(bool full);

    /// What the dump prints.
    std::string dump();

    /// Loads these lines of list_networks, whose status is brought up to date by the next report.
    void loadForRefresh(const std::string& networks);

    static const std::string SUPPLICANT; ///< a process table with the supplicant

    LoadedSettings loaded;
    WifiHostSettings* settings = nullptr;
    ErrorHandler errors;

private:
    int m_added = 0; ///< networks; also the id of the next one
};

/// Gives every field of a network, but for its security, a value of its own: "the <field>" for a text.
void fill(WifiNetwork& network);

/// A full document of settings without a current network, whose only network this is.
std::string documentOf(const std::string& network);

} // namespace test
