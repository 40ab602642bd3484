# Functions of the job platwifi: they run the command line and check its output.
# shellcheck shell=bash
# shellcheck disable=SC2317 # result calls functions by name

PLATWIFI=$BUILD_DIR/bin/platwifi
JSON=$BUILD_DIR/tests/lab_json
PEER=$BUILD_DIR/tests/settings_peer
export PLATFORM_KEY_FILE=/tmp/keys/crypt.key

# The output of the last run, a file for each stream; and that of all runs.
OUT=/tmp/out
ERR=/tmp/err
TRANSCRIPT=/tmp/transcript
failures=0
CONNECT_TIMEOUT=3600 # seconds; no attempt takes so long, even on a slow machine
LAB_WATCHED+=("$OUT" "$ERR")

require_programs() {
    local program
    for program in "$PLATWIFI" "$JSON" "$PEER"; do require_file "$program"; done
}

supplicant_says() { client status 2>/dev/null | grep -E '^(wpa_state|ssid|id)=' | tr '\n' ' '; }

# result TITLE COMMAND...: prints and counts the result of a check.
result() {
    local title=$1
    shift
    if "$@"; then
        echo "ok      $title"
    else
        echo "FAILED  $title: $(supplicant_says)"
        failures=$((failures + 1))
    fi
}

# run TITLE STATUS ARG...: runs the program with the standard input of this function.
run() {
    local title=$1 wanted=$2 status=0
    shift 2
    "$PLATWIFI" "$@" >"$OUT" 2>"$ERR" || status=$?
    note "$*"
    result "$title: status $wanted" [ "$status" = "$wanted" ]
}

# note COMMAND: copies the output of the last run to the output of the job.
note() {
    local lines more
    mapfile -t lines <"$OUT"
    mapfile -t more <"$ERR"
    lines=("\$ platwifi $1" "${lines[@]}" "${more[@]}")
    printf '%s\n' "${lines[@]}" >>"$TRANSCRIPT"
    printf '        %s\n' "${lines[@]}"
}

shows() { result "shows: $1" grep -qxE -- "$1" "$OUT"; }

# lacks FILE TEXT
lacks() { ! grep -qF -- "$2" "$1"; }

# The message of a failure is one line that begins with the program's name.
complains_in_one_line() { [ "$(wc -l <"$ERR")" = 1 ] && grep -qxE -- "platwifi: $1" "$ERR"; }
complains() { result "says in one line: $1" complains_in_one_line "$1"; }

# json_has POINTER VALUE POINTER VALUE...
json_has() {
    local pointers=() values=() got
    while [ $# -gt 0 ]; do
        pointers+=("$1") values+=("$2")
        shift 2
    done
    got=$("$JSON" "${pointers[@]}" <"$OUT" 2>&1 | tr '\n' ' ') || true
    if [ "$got" != "${values[*]} " ]; then echo "        got $got"; fi
    result "JSON: ${values[*]}" [ "$got" = "${values[*]} " ]
}

file_lines() { sed 's/^\s*//' "$LAB_SUPPLICANT_CONF"; }
file_has() { result "the file holds $1" grep -qxF -- "$1" <(file_lines); }
file_networks() { file_lines | sed -n 's/^ssid=//p' | tr '\n' ' '; }
file_holds() { result "networks in the file: ${1:-none}" [ "$(file_networks)" = "$1" ]; }

connected_to() {
    local status
    status=$(client status)
    [[ $status == *$'\n'"ssid=$1"$'\n'* && $status == *wpa_state=COMPLETED* ]]
}

# connects SSID: the program and the supplicant report the connection.
connects() {
    run "connect" 0 connect --timeout $CONNECT_TIMEOUT "$1"
    shows "Connecting to $1: .*COMPLETED"
    shows "Connected to $1 after [0-9]+\.[0-9] s\."
    result "the supplicant is on $1" connected_to "$1"
}

# gives_up SSID STATUS MESSAGE: the program reports the cause before the timeout.
gives_up() {
    run "connect" "$2" connect --timeout $CONNECT_TIMEOUT "$1"
    complains "$1 is not connected: $3.*"
    forget_refusal
}

# After a refusal the supplicant avoids the access point for some time.
forget_refusal() {
    client_ok disconnect
    wait_state 'INACTIVE|DISCONNECTED'
    client_ok bssid_ignore clear
}

# forget_networks: through the client; the program would load the networks before each removal.
forget_networks() {
    client_ok remove_network all
    client_ok save_config
    wait_state 'INACTIVE|DISCONNECTED'
}

hides_secrets() {
    local secret
    for secret in "$LAB_PASSPHRASE" "$LAB_PASSWORD" "$LAB_WEP_KEY"; do
        result "nothing that was printed holds the secret of ${#secret} characters" \
            lacks "$TRANSCRIPT" "$secret"
    done
    cp "$TRANSCRIPT" "$LAB_OUT/transcript"
}
