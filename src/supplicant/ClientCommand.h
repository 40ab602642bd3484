#pragma once

#include "platform/PlatformUtil.h"
#include "supplicant/Arguments.h"
#include "supplicant/ResultFile.h"

namespace platwifi {

/// One command of the client: its word, and the path of its result file without the thread's id.
struct ClientCommand {
    const char* word;
    const char* resultPrefix;
};

namespace command {

constexpr ClientCommand INTERFACE{"interface", "/tmp/wpa_cli_interface_result_"};
constexpr ClientCommand LIST_NETWORKS{"list_networks", "/tmp/wpa_cli_list_result_"};
constexpr ClientCommand SCAN_RESULTS{"scan_results", "/tmp/wpa_cli_scan_results_result_"};
constexpr ClientCommand STATUS{"status", "/tmp/wpa_cli_status_result_"};
constexpr ClientCommand SCAN{"scan", "/tmp/wpa_cli_scan_result_"};
constexpr ClientCommand ADD_NETWORK{"add_network", "/tmp/wpa_cli_add_result_"};
constexpr ClientCommand SET_NETWORK{"set_network", "/tmp/wpa_cli_set_network_result_"};
constexpr ClientCommand ENABLE_NETWORK{"enable_network", "/tmp/wpa_cli_enable_result_"};
constexpr ClientCommand GET_NETWORK{"get_network", "/tmp/wpa_cli_get_network_result_"};
// An abbreviation that the client accepts.
constexpr ClientCommand SELECT{"select", "/tmp/wpa_cli_connect_result_"};
constexpr ClientCommand DISCONNECT{"disconnect", "/tmp/wpa_cli_disconnect_result_"};
constexpr ClientCommand REMOVE_NETWORK{"remove_network", "/tmp/wpa_cli_remove_result_"};
constexpr ClientCommand SAVE_CONFIG{"save_config", "/tmp/wpa_cli_save_result_"};
constexpr ClientCommand RECONFIGURE{"reconfigure", "/tmp/wpa_cli_reconfigure_result_"};
constexpr ClientCommand REASSOCIATE{"reassociate", "/tmp/wpa_cli_reassociate_result_"};

/// For a command whose word the caller chooses.
constexpr const char* CUSTOM_RESULT_PREFIX = "/tmp/wpa_custom_result_";

/// For the process lister.
constexpr const char* PROCESS_TABLE_PREFIX = "/tmp/process_table_result_";

/// The path of every result file without the thread's id.
constexpr const char* RESULT_PREFIXES[] = {
    INTERFACE.resultPrefix,   LIST_NETWORKS.resultPrefix,  SCAN_RESULTS.resultPrefix,
    STATUS.resultPrefix,      SCAN.resultPrefix,           ADD_NETWORK.resultPrefix,
    SET_NETWORK.resultPrefix, ENABLE_NETWORK.resultPrefix, GET_NETWORK.resultPrefix,
    SELECT.resultPrefix,      DISCONNECT.resultPrefix,     REMOVE_NETWORK.resultPrefix,
    SAVE_CONFIG.resultPrefix, RECONFIGURE.resultPrefix,    REASSOCIATE.resultPrefix,
    CUSTOM_RESULT_PREFIX,     PROCESS_TABLE_PREFIX,
};

} // namespace command

/// Runs a command for one interface, with the command's own arguments. False also for an option
/// that names no interface.
/// @param launchMutex  see runChild()
bool runClient(PlatformMutex& launchMutex, const ClientCommand& command,
               const InterfaceOption& option, const ResultFile& result,
               const ArgumentList& arguments = {});

/// Runs a command that concerns no interface.
bool runClient(PlatformMutex& launchMutex, const ClientCommand& command, const ResultFile& result);

/// Runs the process lister. It ignores the interface, so an empty name is accepted.
bool listProcesses(PlatformMutex& launchMutex, const InterfaceOption& option,
                   const ResultFile& result);

} // namespace platwifi
