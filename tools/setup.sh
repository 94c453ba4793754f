#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
#
# Usage: tools/setup.sh run|test|pictures|package|check|ci
#
# Installs the packages of tools/packages.txt that a purpose needs and this Debian 12 or 13 lacks.
# Asks for root only when something is missing. On another system it prints the packages and fails.
# Ends with 75 when the packages could not be fetched, after three tries. Talks on stderr alone.
set -euo pipefail

list=$(dirname "$(readlink -f "$0")")/packages.txt
os_release=${QUILLBAR_OS_RELEASE:-/etc/os-release}
pause=${QUILLBAR_SETUP_PAUSE:-20}

say() { printf 'setup: %s\n' "$*" >&2; }

# packages PURPOSE RELEASE
packages() {
    local purposes
    case $1 in
    run) purposes='run' ;;
    test) purposes='run test' ;;
    pictures) purposes='run test pictures' ;;
    package) purposes='run package' ;;
    check) purposes='run package check' ;;
    ci) purposes='run test package check ci' ;;
    *)
        say 'tell what for: run, test, pictures, package, check or ci'
        exit 2
        ;;
    esac
    awk -v purposes=" $purposes " -v release="$2" '
        !/^#/ && NF && index(purposes, " " $1 " ") &&
            ($2 == "any" || $2 == release) && !seen[$3]++ { print $3 }
    ' "$list"
}

# The number of this Debian's release, or nothing on another system.
debian_release() {
    [ -r "$os_release" ] || return 0
    # shellcheck disable=SC1090
    (. "$os_release" && [ "${ID:-}" = debian ] && printf '%s' "${VERSION_ID:-}")
}

missing_of() {
    local installed
    installed=$(dpkg-query -W -f='${db:Status-Status} ${Package}\n' "$@" 2>/dev/null |
        awk '$1 == "installed" { print $2 }' || true)
    printf '%s\n' "$@" | grep -vxF -f <(printf '%s\n' "$installed") || true
}

purpose=${1:-}
release=$(debian_release || true)
case $release in
12 | 13) ;;
*)
    wanted=$(packages "$purpose" 13)
    say 'this is neither Debian 12 nor 13, so nothing was installed. Quillbar is built with these'
    say "packages (Debian 13's names):"
    # shellcheck disable=SC2086
    printf '  %s\n' $wanted >&2
    say 'Once you have their equivalents, with clang 16 or newer and Qt 6.4 or newer, go on with'
    say '  ./run --no-setup    or    ./test --no-setup'
    exit 1
    ;;
esac

wanted=$(packages "$purpose" "$release")
mapfile -t wanted <<<"$wanted"
mapfile -t missing < <(missing_of "${wanted[@]}")
if [ ${#missing[@]} -eq 0 ]; then
    exit 0
fi

as_root=()
if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
        say "these packages are missing, and there is no sudo to install them with. As root, run:"
        say "  apt-get install --no-install-recommends ${missing[*]}"
        exit 1
    fi
    as_root=(sudo)
fi

apt=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q
    -o DPkg::Lock::Timeout=300 -o Dpkg::Use-Pty=0)

# Fetches everything before anything is installed, so that a package source that does not answer is
# told apart from a package that cannot be installed.
fetch() {
    # A source that cannot be reached is no reason to stop: the fetching says what it lacks.
    "${apt[@]}" update >&2 || say 'not every package source answered; going on with those that did'
    "${apt[@]}" install -y --download-only --no-install-recommends "${missing[@]}" >&2
}

say "installing ${#missing[@]} missing packages with apt-get: ${missing[*]}"
for try in 1 2 3; do
    if fetch; then
        break
    fi
    if [ "$try" -eq 3 ]; then
        say 'the packages could not be fetched; see above for the source that did not answer'
        exit 75
    fi
    say "the packages could not be fetched; trying again in $pause seconds"
    sleep "$pause"
done
"${apt[@]}" install -y --no-install-recommends "${missing[@]}" >&2
say 'done'
