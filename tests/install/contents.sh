# What is installed, and whether it needs anything that is not; sourced by run.
# shellcheck shell=bash

expect_listed_files() {
    local version
    version=$(PKG_CONFIG_PATH=$prefix/$libdir/pkgconfig pkg-config --modversion platwifi)
    (cd "$prefix" && find . ! -type d) | sed 's|^\./||' | LC_ALL=C sort >"$work/installed"
    sed -e '/^#/d' -e '/^$/d' -e "s|^LIBDIR/|$libdir/|" -e "s|VERSION$|$version|" "$here/files.txt" |
        LC_ALL=C sort >"$work/listed"
    diff -u "$work/listed" "$work/installed" ||
        fail "other files are installed than $here/files.txt lists (+ not listed, - not installed)"
}

# A component is installed alone by a package, so that each file must be of one component.
expect_components() {
    local component
    for component in runtime development tools java; do
        quietly cmake --install "$build" --prefix "$work/parts/$component" --component "$component"
        rm "$build/install_manifest_$component.txt"
    done
    (cd "$work/parts" && find . ! -type d) | cut -d / -f 3- | LC_ALL=C sort >"$work/of-components"
    diff -u "$work/installed" "$work/of-components" ||
        fail "a file is of no component (-), or of several (+)"
}

# expect_no_path_into_the_checkout FOLDER
expect_no_path_into_the_checkout() {
    if grep -rF -e "$checkout" -e "$build" "$1"; then
        fail "a file names the checkout (see above)"
    fi
}

programs_and_libraries() { find "$prefix" -type f \( -name '*.so*' -o -perm -u+x \); }

foreign_paths() { readelf -d "$1" | grep -E 'R(UN)?PATH' | grep -vE "\\[[$]ORIGIN(/[^:]*)?(:[$]ORIGIN(/[^:]*)?)*\\]"; }
foreign_libraries() { ldd "$1" | grep -E 'lib(plat|zam)|not found' | grep -vF "=> $prefix/"; }

# Wherever the prefix is, libraries and programs find each other by paths from one to the other.
expect_own_libraries() {
    local file
    for file in $(programs_and_libraries); do
        if foreign_paths "$file" || foreign_libraries "$file"; then
            fail "$file looks for libraries outside of its prefix (see above)"
        fi
    done
}

# Each alone, and with a JDK only where the header itself names the Java native interface.
expect_headers_of_their_own() {
    local includes=$prefix/include/platwifi header folder flags jni_flags=()
    for folder in ${jni_folders//;/ }; do jni_flags+=(-isystem "$folder"); done
    for header in $(cd "$includes" && find . -name '*.h' -printf '%P\n'); do
        flags=(-I"$includes")
        if grep -q '#include <jni.h>' "$includes/$header"; then flags+=("${jni_flags[@]}"); fi
        "$compiler" -std=c++17 -Wall -Wextra -Wpedantic -Werror -fsyntax-only "${flags[@]}" \
            -x c++ - <<<"#include \"$header\"" || fail "the header $header cannot be used alone"
    done
}
