# Programs that are built and run with what is installed; sourced by run.
# shellcheck shell=bash

build_by_cmake() {
    quietly cmake -G Ninja -S "$examples" -B "$work/cmake" -D CMAKE_CXX_COMPILER="$compiler" \
        -D CMAKE_PREFIX_PATH="$prefix"
    quietly cmake --build "$work/cmake"
    grep -q "^platwifi_DIR:PATH=$prefix/" "$work/cmake/CMakeCache.txt" ||
        fail "another package was found"
}

build_by_pkg_config() {
    local flags
    flags=$(PKG_CONFIG_PATH="$prefix/$libdir/pkgconfig" pkg-config --cflags --libs platwifi)
    # shellcheck disable=SC2086 # one word a flag
    quietly "$compiler" -std=c++17 "$examples/first.cpp" $flags -o "$work/first-by-pkg-config"
}

# As the linker of the compiler for C would: the library brings what it needs of C++.
build_in_c() {
    local flags
    flags=$(PKG_CONFIG_PATH="$prefix/$libdir/pkgconfig" pkg-config --cflags --libs platwifi)
    # shellcheck disable=SC2086 # one word a flag
    quietly "$compiler" -x c -std=c99 -Wall -Wextra -Wpedantic -Werror "$examples/first.c" -x none $flags \
        -o "$work/first-in-c"
}

build_by_javac() {
    quietly javac -Xlint:all -Werror -cp "$prefix/share/java/platwifi.jar" -d "$work/classes" \
        "$examples/First.java"
}

by_cmake() { "$work/cmake/first"; }
by_pkg_config() { LD_LIBRARY_PATH="$prefix/$libdir" "$work/first-by-pkg-config"; }
in_c() { LD_LIBRARY_PATH="$prefix/$libdir" "$work/first-in-c"; }
in_python() {
    LD_LIBRARY_PATH="$prefix/$libdir" python3 "$prefix/share/doc/platwifi/examples/networks.py"
}
by_javac() {
    java -Djava.library.path="$prefix/$libdir" -cp "$prefix/share/java/platwifi.jar:$work/classes" \
        First
}

# expect STATUS OUTPUT COMMAND...
expect() {
    local wanted_status=$1 wanted=$2 status=0 output
    shift 2
    output=$("$@" 2>"$work/log") || status=$?
    if [ "$status" != "$wanted_status" ] || [ "$output" != "$wanted" ]; then
        cat "$work/log" >&2
        printf 'wanted, with status %s:\n%s\ngot:\n%s\n' "$wanted_status" "$wanted" "$output" >&2
        fail "$* ended with status $status"
    fi
}

# A process that the lister shows as a supplicant; it ends with this script.
start_namesake() {
    coproc NAMESAKE { exec -a wpa_supplicant bash -c 'echo started; read -r'; }
    read -r <&"${NAMESAKE[0]}"
}

# No supplicant answers the client, but the process lister shows a process of its name.
expect_the_installed_boot_programs() {
    local none=$'\nfirst adapter: none'
    start_namesake
    expect 1 "supplicant runs: yes$none" by_cmake
    expect 1 "supplicant runs: yes$none" by_pkg_config
    expect 1 "supplicant runs: yes$none" by_javac
    mv "$prefix/$boot/pidin" "$work/pidin"
    expect 1 "supplicant runs: no$none" by_cmake
    mv "$work/pidin" "$prefix/$boot/pidin"
}

# expect_word_of_missing_programs RUN: one line, which names the program and the places.
expect_word_of_missing_programs() {
    local lines
    mv "$prefix/$boot" "$work/away"
    expect 1 $'supplicant runs: no\nfirst adapter: none' "$1"
    mapfile -t lines < <(grep '^platwifi: ' "$work/log")
    if [ ${#lines[@]} != 1 ] || [[ ${lines[0]} != *'cannot start '*"$prefix/$boot/"*install* ]]; then
        fail "$1 said without the boot directory: ${lines[*]}"
    fi
    mv "$work/away" "$prefix/$boot"
}

expect_an_adapter_of_the_stand_in() {
    export PLATFORM_BOOT_DIR=$work/boot
    mkdir "$PLATFORM_BOOT_DIR"
    ln -s "$standin" "$PLATFORM_BOOT_DIR/wpa_cli"
    ln -s "$standin" "$PLATFORM_BOOT_DIR/pidin"
    printf '%s\t%s\n' >"$PLATFORM_BOOT_DIR/script" \
        when interface print "Selected interface 'wlan0'\\nAvailable interfaces:\\nwlan0\\n" \
        when '*' print '\n'
    expect 0 $'supplicant runs: no\nfirst adapter: wlan0' by_cmake
    expect 0 $'supplicant runs: no\nfirst adapter: wlan0' by_pkg_config
    expect 0 $'supplicant runs: no\nfirst adapter: wlan0' by_javac
    expect 0 'first adapter: wlan0, libplatwifi 1.0.0' in_c
    expect 0 $'libplatwifi 1.0.0\nadapter wlan0: unknown' in_python
}
