# Another process that uses the settings hears of what the command line saves.
# shellcheck shell=bash
# shellcheck disable=SC2317 # wait_for calls functions by name

# peer_has SSID: a line each way.
peer_has() {
    local answer
    echo "has $1 0" >&"${OTHER[1]}"
    read -r answer <&"${OTHER[0]}" && [ "$answer" = yes ]
}

peer_lacks() { ! peer_has "$1"; }

test_others() {
    coproc OTHER { exec "$PEER"; }
    local pid=$OTHER_PID
    result "another process does not have lab-open" peer_lacks lab-open
    run "add an open network" 0 add lab-open key_mgmt=NONE
    result "the other process comes to have it" wait_for 10 peer_has lab-open
    run "remove" 0 remove lab-open
    shows 'lab-open is removed\.'
    result "the other process comes to lose it" wait_for 10 peer_lacks lab-open
    result "the shared block keeps its name" [ -e /dev/shm/wifi_shmem ]
    kill "$pid"
    wait "$pid" 2>/dev/null || true
    rm -f /dev/shm/wifi_shmem
}
