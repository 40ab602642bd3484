# The supplicant's interface gets a name of 15 characters, the most that the system allows.
# shellcheck shell=bash

test_interface() {
    stop_supplicant
    rename_interface wlx0123456789ab
    write_supplicant_conf "$LAB_SUPPLICANT_CONF"
    start_supplicant
    run "adapters" 0 adapters
    shows wlx0123456789ab
}
