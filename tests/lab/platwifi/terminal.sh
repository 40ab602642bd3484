# The output in a terminal, with SSIDs of several scripts. The screens are kept in LAB_OUT.
# shellcheck shell=bash
# shellcheck disable=SC2317 # wait_for and result call functions by name

european='Café Ёлка 咖啡馆'
other=$'مقهى 😀\001\377'
other_shown='مقهى 😀\x01\xff'

in_hex() { printf '%s' "$1" | od -An -v -tx1 | tr -d ' \n'; }

# rename SSID NAME: gives the access point with that SSID another one.
rename() {
    local interface
    interface=$(awk -F '\t' -v ssid="$1" '$1 == ssid { print $6 }' "$LAB_AP_TABLE")
    hostapd_cli -p /run/hostapd -i "$interface" set ssid2 "$(in_hex "$2")" >/dev/null
    hostapd_cli -p /run/hostapd -i "$interface" reload >/dev/null
}

# configure SSID: adds an open network through the client. Sets id.
configure() {
    id=$(client add_network)
    client_ok set_network "$id" ssid "$(in_hex "$1")"
    client_ok set_network "$id" key_mgmt NONE
    client_ok save_config
}

terminal() { tmux -u -L lab -f /tmp/tmux.conf "$@"; }

is_drawn() { terminal capture-pane -p | grep -qE '^\[status [0-9]+\]$'; }

without_blanks() { sed 's/ *$//; /^$/d'; }

# picture NAME WIDTH COMMAND...: runs the command in a terminal of that width, and keeps the screen.
picture() {
    picture=$LAB_OUT/$1-$2
    local width=$2
    shift 2
    terminal kill-session 2>/dev/null || true
    # shellcheck disable=SC2016 # the terminal's shell expands it
    terminal new-session -d -s lab -x "$width" -y 40 \
        sh -c '"$@"; echo "[status $?]"; tmux wait-for -S drawn; exec sleep 600' sh "$@"
    timeout 600 tmux -L lab wait-for drawn || true
    result "draws ${picture##*/}" wait_for is_drawn
    terminal capture-pane -p | without_blanks >"$picture.txt"
    terminal capture-pane -p -e | without_blanks >"$picture.ansi"
    sed 's/^/        |/' "$picture.txt"
    result "no line is wider than the terminal" is_narrow_enough
}

# The terminal breaks a wider line, and -J joins the lines that it has broken.
is_narrow_enough() { terminal capture-pane -p -J | without_blanks | cmp - "$picture.txt"; }

# places PATTERN: column and line of each match, as the terminal counts them. It takes a pattern without
# brackets as plain text.
places() {
    local place=(\; display -p '#{copy_cursor_x} #{copy_cursor_y}' \; send -X search-again) all=() i
    for ((i = 0; i < 12; ++i)); do all+=("${place[@]}"); done
    terminal copy-mode \; send -X top-line \; send -X start-of-line \; \
        send -X search-forward "$1" "${all[@]}" | sort -u
}

# are_aligned PATTERN COUNT: there are so many matches, all in the same column.
are_aligned() {
    local found
    found=$(places "$1")
    [ "$(wc -l <<<"$found")" = "$2" ] && [ "$(cut -d ' ' -f 1 <<<"$found" | uniq | wc -l)" = 1 ]
}

has_colours() { grep -q $'\033' "$1"; }
has_no_colours() { ! has_colours "$1"; }

# has_table PATTERN [COUNT]: the second column of COUNT lines, by default of all, begins with a match.
has_table() {
    local count=${2:-$(grep -vc '^\[status' "$picture.txt")}
    result "the second column begins at one cell in $count lines" are_aligned "$1" "$count"
    result "the heading stands out" has_colours "$picture.ansi"
}

# After one scan an access point may be missing.
has_heard_all() {
    client scan >/dev/null
    [ "$(client scan_results | grep -c '^02:')" = "$(wc -l <"$LAB_AP_TABLE")" ]
}

shows_the_name() { result "has the name of the network" grep -qF "$european" "$picture.txt"; }

draws_networks() {
    local id
    run "add a network of that name" 0 add "$european" key_mgmt=NONE
    shows "$european is added\."
    configure "$other"
    picture networks 50 "$PLATWIFI" networks
    has_table '(Status|connect|disabled)'
    picture show 50 "$PLATWIFI" show "$other_shown"
    has_table '(Value|مقهى|MANAGED|NONE)' 4
    client_ok remove_network "$id"
    client_ok save_config
}

draws_a_connection() {
    client_ok disconnect
    picture connect 50 "$PLATWIFI" connect "$european"
    result "is connected" grep -qF "Connected to $european after" "$picture.txt"
    picture status 80 "$PLATWIFI" status
    shows_the_name
}

draws_what_is_wrong() {
    picture doctor 50 "$PLATWIFI" doctor
    result "has colours" has_colours "$picture.ansi"
    picture doctor-NO_COLOR 80 env NO_COLOR=1 "$PLATWIFI" doctor
    result "has no colours" has_no_colours "$picture.ansi"
    result "nothing but a terminal gets colours" has_no_colours "$TRANSCRIPT"
}

test_terminal() {
    printf '%s\n' 'set -g status off' 'set -g mode-keys vi' >/tmp/tmux.conf
    rename lab-open "$european"
    rename lab-wpa1-tkip "$other"
    client_ok bss_flush 0
    wait_for has_heard_all
    picture scan 80 "$PLATWIFI" scan
    has_table '(BSSID|02:00:00)'
    shows_the_name
    result "has the bytes that cannot be printed" grep -qF "$other_shown" "$picture.txt"
    draws_networks
    draws_a_connection
    draws_what_is_wrong
    terminal kill-server
    forget_networks
}
