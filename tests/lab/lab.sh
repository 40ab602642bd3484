# What a job of the virtual radio lab can source: "$SOURCE_DIR/tests/lab/lab.sh".
# shellcheck shell=bash

# shellcheck source=tests/lab/credentials.sh
. "$SOURCE_DIR/tests/lab/credentials.sh"

# The supplicant's files: the configuration it may rewrite, its log, its process number.
export LAB_SUPPLICANT_CONF=/run/lab/wpa_supplicant.conf
export LAB_SUPPLICANT_LOG=$LAB_OUT/supplicant.log
LAB_SUPPLICANT_PID=/var/run/wpa_supplicant.pid

# wait_for SECONDS COMMAND...: until the command succeeds; fails when it never did.
wait_for() {
    local end=$((SECONDS + $1))
    shift
    until "$@"; do
        if [ "$SECONDS" -gt "$end" ]; then return 1; fi
        sleep 0.05
    done
}

client() { wpa_cli -iwlan0 "$@"; }

# client_ok COMMAND...: the client ends well even where the supplicant refused.
client_ok() { [ "$(client "$@")" = OK ]; }

supplicant_state() { client status 2>/dev/null | sed -n 's/^wpa_state=//p'; }

# in_state STATE: STATE may be a pattern such as INACTIVE|DISCONNECTED.
in_state() { [[ $(supplicant_state) =~ ^($1)$ ]]; }

# wait_state STATE [SECONDS]
wait_state() { wait_for "${2:-20}" in_state "$1"; }

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

# start_supplicant [CONF]: on wlan0; LAB_SUPPLICANT_CONF, the usual one, stands ready for that.
start_supplicant() {
    local conf=${1:-$LAB_SUPPLICANT_CONF}
    wpa_supplicant -B -t -Dnl80211 -iwlan0 -c "$conf" -P "$LAB_SUPPLICANT_PID" \
        -f "$LAB_SUPPLICANT_LOG" >/dev/null && wait_for 20 supplicant_answers
}

supplicant_gone() { [ ! -e "$LAB_SUPPLICANT_PID" ] && ! kill -0 "$1" 2>/dev/null; }

stop_supplicant() {
    local pid
    pid=$(cat "$LAB_SUPPLICANT_PID") && kill "$pid" && wait_for 20 supplicant_gone "$pid"
}
