# Another process with the settings reloads them after a save of the command line.
# shellcheck shell=bash
# shellcheck disable=SC2317 # wait_for calls functions by name

block=/dev/shm/wifi_shmem

# peer_has SSID: asks the other process, by one line each way.
peer_has() {
    local answer
    echo "has $1 0" >&"${OTHER[1]}"
    read -r answer <&"${OTHER[0]}" && [ "$answer" = yes ]
}

peer_lacks() { ! peer_has "$1"; }

test_others() {
    result "no shared memory is left by the runs before" [ ! -e $block ]
    coproc OTHER { exec "$PEER"; }
    local pid=$OTHER_PID inode
    result "another process does not have lab-open" peer_lacks lab-open
    inode=$(stat -c %i $block)
    run "add an open network" 0 add lab-open key_mgmt=NONE
    result "the other process comes to have it" wait_for peer_has lab-open
    run "remove" 0 remove lab-open
    shows 'lab-open is removed\.'
    result "the other process comes to lose it" wait_for peer_lacks lab-open
    result "the shared memory keeps its name" [ "$(stat -c %i $block)" = "$inode" ]
    kill "$pid"
    wait "$pid" 2>/dev/null || true
    rm -f $block # the process was killed, and could not remove it
}
