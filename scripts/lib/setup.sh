# shellcheck shell=bash
# Functions for the scripts of this folder: what is missing on the machine is installed, and said first.
# Sourced, never run. Works as root and through sudo, on Debian 12.

die() {
    printf '%s\n' "$*" >&2
    exit 1
}

as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        die "This needs root: run it as root, or install sudo. The command was: $*"
    fi
}

is_installed() {
    [ "$(dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

# need_packages PACKAGE...   installs those that are missing
need_packages() {
    local package missing=()
    for package in "$@"; do
        is_installed "$package" || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    printf 'Installing %d packages with apt-get: %s\n' ${#missing[@]} "${missing[*]}"
    as_root apt-get -qq update
    as_root env DEBIAN_FRONTEND=noninteractive apt-get -qq install --yes --no-install-recommends "${missing[@]}" \
        >/tmp/pluginmodifier-apt.$$ 2>&1 || {
        cat /tmp/pluginmodifier-apt.$$ >&2
        rm -f /tmp/pluginmodifier-apt.$$
        die "apt-get could not install them."
    }
    rm -f /tmp/pluginmodifier-apt.$$
}

# The address from which this machine takes Debian itself; whatever form its package sources have.
# shellcheck disable=SC2016 # apt-get fills in the names behind the dollars
debian_mirror() {
    local mirror
    mirror=$(apt-get indextargets --format '$(REPO_URI)|$(RELEASE)|$(ORIGIN)' 'Created-By: Packages' |
        awk -F'|' '$2 == "bookworm" { print $1; exit }')
    [ -n "$mirror" ] || {
        as_root apt-get -qq update
        mirror=$(apt-get indextargets --format '$(REPO_URI)|$(RELEASE)' 'Created-By: Packages' |
            awk -F'|' '$2 == "bookworm" { print $1; exit }')
    }
    [ -n "$mirror" ] || die "No Debian 12 (bookworm) package source is configured on this machine."
    printf '%s\n' "${mirror%/}/"
}

# Python 2.7 left Debian with its version 12. It comes from version 11 by way of the same mirror, pinned so low
# that nothing else is ever taken from there.
need_python2() {
    local list=/etc/apt/sources.list.d/pluginmodifier-python2.list pin=/etc/apt/preferences.d/pluginmodifier-python2
    is_installed python2.7-dev && is_installed python2.7-dbg && return 0
    local mirror
    mirror=$(debian_mirror) || exit 1
    printf 'Adding the previous Debian release as a package source for Python 2.7, pinned low: %s\n' "$list"
    printf 'deb [signed-by=/usr/share/keyrings/debian-archive-keyring.gpg] %s bullseye main\n' "$mirror" |
        as_root tee "$list" >/dev/null
    printf 'Package: *\nPin: release n=bullseye\nPin-Priority: 100\n' | as_root tee "$pin" >/dev/null
    as_root apt-get -qq update
    need_packages python2.7-dev python2.7-dbg
}
