# shellcheck shell=bash
# Functions for the Windows scripts. Sourced after setup.sh, from the project's root; never run.
WINDOWS_BUILD=$PWD/build/windows
WINDOWS_STAGE=$WINDOWS_BUILD/stage
WINDOWS_PYTHON=$WINDOWS_BUILD/python
WINDOWS_PYTHON_SOURCE=$WINDOWS_BUILD/python-source
WINDOWS_TEST_TIMEOUT=${WINDOWS_TEST_TIMEOUT:-300}
export WINEPREFIX=$WINDOWS_BUILD/wine

windows_packages() {
    need_packages cmake ninja-build clang-19 lld-19 llvm-19 libc++-19-dev libwine-dev wine64 rapidjson-dev \
        libc6-dev dpkg-dev python3 debian-archive-keyring ca-certificates
}

# The upstream sources of Python 2.7, from the source package of the previous Debian release. Debian's own
# changes are for Linux and are left out. apt checks the signatures; its lists stay in the build folder.
windows_python_source() {
    [ -f "$WINDOWS_PYTHON_SOURCE/Include/Python.h" ] && return 0
    local work=$WINDOWS_BUILD/python-download mirror
    echo "Fetching the sources of Python 2.7"
    mirror=$(debian_mirror) || exit 1
    rm -rf "$work" "$WINDOWS_PYTHON_SOURCE"
    mkdir -p "$work/lists/partial" "$work/cache"
    printf 'deb-src [signed-by=/usr/share/keyrings/debian-archive-keyring.gpg] %s bullseye main\n' "$mirror" \
        >"$work/sources.list"
    local apt=(apt-get -qq -o Dir::Etc::SourceList="$work/sources.list" -o Dir::Etc::SourceParts=-
        -o Dir::State::Lists="$work/lists" -o Dir::Cache="$work/cache" -o APT::Sandbox::User="$(id -un)")
    "${apt[@]}" update
    (cd "$work" && "${apt[@]}" source --download-only python2.7)
    mkdir "$work/unpacked"
    tar xzf "$work"/python2.7_*.orig.tar.gz -C "$work/unpacked" --strip-components=1
    mv "$work/unpacked" "$WINDOWS_PYTHON_SOURCE"
    rm -rf "$work"
}

# python27.dll, python27.lib and python.exe, once for the state of windows/python and of the compiler.
windows_python() {
    local state
    windows_python_source
    state=$(cat windows/python/build windows/python/*.c windows/python/headers/* windows/startup/stack_probe.c \
        <(clang-19 --version) | sha256sum)
    [ -f "$WINDOWS_PYTHON/built" ] && [ "$(cat "$WINDOWS_PYTHON/built")" = "$state" ] && return 0
    echo "Building Python 2.7 for Windows"
    rm -rf "$WINDOWS_PYTHON"
    windows/python/build "$WINDOWS_PYTHON_SOURCE" "$WINDOWS_PYTHON"
    printf '%s\n' "$state" >"$WINDOWS_PYTHON/built"
}

# One warm Wine session: without it every program would wait for Wine's services to start. The prefix is
# made on first use. windows_session_end stops the server of this prefix and no other.
windows_session() {
    if [ ! -f "$WINEPREFIX/system.reg" ]; then
        echo "Making a Wine prefix"
        scripts/lib/windows-run.sh wineboot -i >/dev/null 2>&1 </dev/null || true
        /usr/lib/wine/wineserver -w
        [ -f "$WINEPREFIX/system.reg" ] || die "Wine could not make its prefix in $WINEPREFIX."
    fi
    # A server that another run left behind serves as well.
    /usr/lib/wine/wineserver -p >/dev/null 2>&1 </dev/null || true
    scripts/lib/windows-run.sh cmd /c exit >/dev/null 2>&1 </dev/null || die "Wine does not run a program."
}

windows_session_end() {
    /usr/lib/wine/wineserver -k || true
}

# The C++ tests that stand on tests/support/check.h; the build knows how to run a Windows program.
windows_unit_tests() {
    WINEPATH="Z:$WINDOWS_STAGE/bin" ctest --test-dir "$WINDOWS_BUILD" --verbose --no-tests=error \
        --timeout "$WINDOWS_TEST_TIMEOUT"
}

# The script suite. The variables have to stand before the process starts: the module's C run-time is not
# the interpreter's, and neither sees what the other changes.
windows_script_tests() {
    WINEPATH="Z:$WINDOWS_STAGE/bin" PYTHONHOME="Z:$WINDOWS_PYTHON_SOURCE" \
        KELMO_FOR_MAYA2020_MAIN="Z:$WINDOWS_STAGE" \
        scripts/lib/windows-run.sh "$WINDOWS_PYTHON/python.exe" tests/script/run.py --build "Z:$WINDOWS_BUILD" "$@"
}

# usage: windows_compare_with_linux OUTPUT   of windows_script_tests --verbose
# The tests that passed here must be those that the same runner finds on Linux: none more, none less.
windows_compare_with_linux() {
    local lists=$WINDOWS_BUILD/lists
    mkdir -p "$lists"
    scripts/setup || return
    scripts/lib/build release pluginmodifier offlinehost stage/python/kelmo/__init__.py || return
    /usr/bin/python2.7 -B tests/script/run.py --build build/release --list >"$lists/linux.unsorted" || return
    LC_ALL=C sort "$lists/linux.unsorted" >"$lists/linux"
    # The interpreter ends its lines as Windows does.
    tr -d '\r' <"$1" | awk '$1 == "ok" { print $NF }' | LC_ALL=C sort >"$lists/windows"
    printf 'script tests: %d on Linux, %d passed on Windows\n' "$(wc -l <"$lists/linux")" "$(wc -l <"$lists/windows")"
    if [ -s "$lists/linux" ] && diff "$lists/linux" "$lists/windows"; then
        echo "1 passed, 0 failed"
    else
        echo "0 passed, 1 failed"
        return 1
    fi
}
