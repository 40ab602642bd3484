#pragma once

/// The fixed paths and names that the library shares with other programs of the system. The service
/// was written for a device with these paths; they stay the same everywhere.
namespace platwifi::paths {

/// The supplicant's client and the process lister. The platform library knows where a program under
/// /proc/boot really is (platform/BootProgram.h).
constexpr const char* CLIENT = "/proc/boot/wpa_cli";
constexpr const char* PROCESS_LISTER = "/proc/boot/pidin";

/// The supplicant's process id file.
constexpr const char* PID_FILE = "/var/run/wpa_supplicant.pid";

/// The folder in which the client looks for control sockets unless an option names another one.
constexpr const char* CONTROL_FOLDER = "/run/wpa_supplicant";

/// The client's own end of its control connection. A printf format with the client's process id.
constexpr char CLIENT_SOCKET_FORMAT[] = "/tmp/wpa_ctrl_%d-1";

/// The folder of the result files.
constexpr const char* RESULT_FOLDER = "/tmp";

/// The shared block: its name as a shared memory object, and as a file.
constexpr const char* BLOCK_NAME = "/wifi_shmem";
constexpr const char* BLOCK_PATH = "/dev/shm/wifi_shmem";

} // namespace platwifi::paths
