# The jar with native files, as a Maven repository has it; sourced by run.
# shellcheck shell=bash

repository=$work/repository
maven=$work/maven
found=$'supplicant runs: yes\nfirst adapter: none'

install_maven_repository() {
    quietly cmake --install "$build" --prefix "$repository" --component maven
    rm "$build/install_manifest_maven.txt"
    version=$(PKG_CONFIG_PATH=$prefix/$libdir/pkgconfig pkg-config --modversion platwifi)
    artifact=com/quorvel/platwifi/platwifi/$version/platwifi-$version
    one_jar=$repository/$artifact.jar
}

expect_artifacts() {
    local artifacts
    artifacts=$(cd "$repository" && find . -type f -printf '%P\n' | LC_ALL=C sort)
    [ "$artifacts" = "$(printf "$artifact%s\\n" -javadoc.jar -sources.jar .jar .pom)" ] ||
        fail "the Maven repository has other files: $artifacts"
    expect_entry -sources com/quorvel/platwifi/BWifiPlatformService.java
    expect_entry -javadoc com.quorvel.platwifi/com/quorvel/platwifi/BWifiPlatformService.html
    if TZ=UTC jar tvf "$one_jar" | grep -v ' Jan 01 00:00:00 UTC 2000 '; then
        fail "$one_jar depends on the time of its build (see above)"
    fi
    if grep -iq '<licen[cs]e' "$repository/$artifact.pom"; then fail "the POM names a licence"; fi
}

# expect_entry SUFFIX FILE
expect_entry() {
    jar tf "$repository/$artifact$1.jar" | grep -xqF "$2" || fail "$artifact$1.jar lacks $2"
}

# Each needs nothing but the C library and its neighbours, and has no name of a function of its own.
expect_native_files_of_their_own() {
    local file
    mkdir "$work/natives"
    (cd "$work/natives" && jar xf "$one_jar" META-INF/native)
    expect_no_path_into_the_checkout "$work/natives"
    while read -r file; do
        if readelf -d "$file" | grep NEEDED |
            grep -vE '\[(libc\.so\.6|ld[-0-9a-z]*\.so\.[0-9]+|libplatwifi\.so\.[0-9]+|libplatform\.so|libzam\.so)\]'; then
            fail "$file needs a library that a small system does not have (see above)"
        fi
        if foreign_paths "$file"; then fail "$file looks for libraries elsewhere (see above)"; fi
        if readelf -S "$file" | grep -F .symtab; then fail "$file is not stripped"; fi
    done < <(find "$work/natives" -type f ! -name index)
}

add_natives() {
    cmake -D FOLDERS="$1" -D JAR_FOLDER="$work/two" -D READELF=readelf -P "$checkout/java/bundle/AddNatives.cmake"
}

# The files of a build for another machine, which its libraries' headers tell.
expect_two_architectures() {
    local other=$work/other
    cp -r "$build/natives" "$other"
    printf '\x28\0' | dd of="$other/lib/libplatwifi.so.$version" bs=1 seek=18 conv=notrunc status=none
    quietly add_natives "$build/natives:$other"
    [ "$(find "$work/two/META-INF/native" -name index | wc -l)" = 2 ] ||
        fail "the files for two architectures have not two indexes"
    grep -q ' lib/platwifi/libplatform.so$' "$work/two/META-INF/native/linux-armhf/index" ||
        fail "the index for another architecture lacks a file"
    if add_natives "$other:$other" 2>"$work/log" || ! grep -q 'is for linux-armhf, and so is' "$work/log"; then
        fail "two folders for one architecture are taken"
    fi
}

# With the plugins that Debian has, and no network.
build_by_maven() {
    cp -r "$here/maven" "$maven"
    mkdir -p "$maven/src/main/java"
    cp "$examples/First.java" "$maven/src/main/java"
    REPOSITORY=$repository quietly mvn --batch-mode --offline -f "$maven/pom.xml" -s "$maven/settings.xml" \
        -Daether.offline.protocols=file -Dmaven.repo.local="$work/maven-local" \
        -Dplatwifi.version="$version" compile
    resolved=$work/maven-local/$artifact.jar
}

# Nothing of this shell reaches the program: no variable, no property but the place for its files.
alone() { env -i "$(command -v java)" -Dplatwifi.cache="$work/cache" "$@"; }

by_maven() { alone -cp "$resolved:$maven/target/classes" First; }
by_one_jar() { alone -cp "$one_jar:$work/classes" First; }
as_module() {
    alone -p "$one_jar" --add-modules com.quorvel.platwifi -cp "$work/classes" First
}

# The process lister of the jar finds the namesake; its client finds no supplicant.
expect_the_unpacked_boot_programs() {
    local lister
    expect 1 "$found" by_one_jar
    expect 1 "$found" as_module
    lister=$(find "$work/cache" -path "*/$boot/pidin")
    [ -x "$lister" ] || fail "no process lister was unpacked"
    if [ -s "$work/log" ]; then fail "the program printed: $(cat "$work/log")"; fi
}

# The permission to load native code as docs/installing.md gives it, where Java refuses all else.
expect_permissions() {
    local java denied=(--illegal-native-access=deny -Dplatwifi.cache="$work/cache")
    java=$("$here/../jvm/jdks" | while read -r one; do
        if [ "$("$here/../jvm/jdks" --version "$one")" -ge 24 ]; then echo "$one"; fi
    done | tail -n 1)
    if [ -z "$java" ]; then
        echo "skipped: no Java 24 or later, which can refuse to load native code"
        return
    fi
    printf '%s: %s\n' Main-Class First Class-Path "file:$one_jar" Enable-Native-Access ALL-UNNAMED >"$work/manifest"
    jar cfm "$work/first.jar" "$work/manifest" -C "$work/classes" First.class

    expect 1 "$found" env -i "$java" "${denied[@]}" -jar "$work/first.jar"
    expect 1 "$found" env -i "$java" "${denied[@]}" --enable-native-access=ALL-UNNAMED \
        -cp "$one_jar:$work/classes" First
    expect 1 "$found" env -i "$java" "${denied[@]}" --enable-native-access=com.quorvel.platwifi \
        -p "$one_jar" --add-modules com.quorvel.platwifi -cp "$work/classes" First
    expect 1 "" env -i "$java" "${denied[@]}" -cp "$one_jar:$work/classes" First
    grep -q IllegalCallerException "$work/log" || fail "native code was loaded without permission"
}

expect_module() {
    local module
    module=$(java -p "$one_jar" --describe-module com.quorvel.platwifi)
    [[ $module == *'exports com.quorvel.platwifi'* ]] || fail "another module: $module"
}
