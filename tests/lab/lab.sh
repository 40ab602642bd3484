# Functions for the jobs of the lab, which source "$SOURCE_DIR/tests/lab/lab.sh".
# shellcheck shell=bash

# shellcheck source=tests/lab/credentials.sh
. "$SOURCE_DIR/tests/lab/credentials.sh"

# The supplicant's files: the configuration it may rewrite, its log, its process number.
export LAB_SUPPLICANT_CONF=/run/lab/wpa_supplicant.conf
export LAB_SUPPLICANT_LOG=$LAB_OUT/supplicant.log
LAB_SUPPLICANT_PID=/var/run/wpa_supplicant.pid

# The supplicant's interface.
export LAB_INTERFACE=${LAB_INTERFACE:-wlan0}

# require_file FILE: ends the job where a file of a build is missing.
require_file() {
    if [ ! -e "$1" ]; then
        local preset=${1#"$SOURCE_DIR/build/"}
        echo "${0##*/}: $1 is not there; build it: cmake --build --preset ${preset%%/*}" >&2
        exit 1
    fi
}

# Files that grow while there is progress. A job adds the files that its own programs write.
LAB_WATCHED=("$LAB_SUPPLICANT_LOG")
LAB_LONGEST_SILENCE=120

progress() { stat -c %s "${LAB_WATCHED[@]}" 2>/dev/null | tr '\n' ' ' || true; }

# Nothing is ever written here. To wait for it starts no process, as each costs the emulator much.
exec {lab_nothing}<> <(:)

# pause SECONDS
pause() { read -r -t "$1" -u "$lab_nothing" || true; }

# wait_for COMMAND...: waits until the command succeeds. Fails if no watched file has grown for two minutes,
# so the speed of the machine does not matter. It asks less often later.
wait_for() {
    local seen now start=$SECONDS end=$((SECONDS + LAB_LONGEST_SILENCE)) pauses=(0.05 0.05 0.1 0.1 0.2)
    seen=$(progress)
    until "$@"; do
        if [ "$SECONDS" -gt "$end" ]; then
            now=$(progress)
            if [ "$now" = "$seen" ]; then return 1; fi
            echo "        waits for $((SECONDS - start)) s: $*" >&2
            seen=$now end=$((SECONDS + LAB_LONGEST_SILENCE))
        fi
        pause "${pauses[0]:-0.4}"
        pauses=("${pauses[@]:1}")
    done
}

client() { wpa_cli "-i$LAB_INTERFACE" "$@"; }

# client_ok COMMAND...: the exit status of the client is 0 even if the supplicant refuses.
client_ok() { [ "$(client "$@")" = OK ]; }

supplicant_state() { client status 2>/dev/null | sed -n 's/^wpa_state=//p'; }

# in_state STATE: STATE may be a pattern such as INACTIVE|DISCONNECTED.
in_state() { [[ $(supplicant_state) =~ ^($1)$ ]]; }

# wait_state STATE
wait_state() { wait_for in_state "$1"; }

# A list of the frequencies in use makes a full scan ten times shorter.
frequencies() { cut -f 3 "$LAB_AP_TABLE" | sort -u | tr '\n' ' '; }

write_supplicant_conf() {
    cat >"$1" <<END
ctrl_interface=/run/wpa_supplicant
update_config=1
p2p_disabled=1
freq_list=$(frequencies)
END
}

supplicant_answers() { [ "$(client ping 2>/dev/null)" = PONG ]; }

# start_supplicant [CONF]: on LAB_INTERFACE, by default with LAB_SUPPLICANT_CONF.
start_supplicant() {
    local conf=${1:-$LAB_SUPPLICANT_CONF}
    wpa_supplicant -B -t -Dnl80211 "-i$LAB_INTERFACE" -c "$conf" -P "$LAB_SUPPLICANT_PID" \
        -f "$LAB_SUPPLICANT_LOG" >/dev/null && wait_for supplicant_answers
}

supplicant_gone() { [ ! -e "$LAB_SUPPLICANT_PID" ] && ! kill -0 "$1" 2>/dev/null; }

stop_supplicant() {
    local pid
    pid=$(cat "$LAB_SUPPLICANT_PID") && kill "$pid" && wait_for supplicant_gone "$pid"
}

# rename_interface NAME: of the supplicant, which must not run meanwhile.
rename_interface() {
    ip link set "$LAB_INTERFACE" down && ip link set "$LAB_INTERFACE" name "$1" && LAB_INTERFACE=$1
}
