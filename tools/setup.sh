#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
#
# Usage: tools/setup.sh run|test|ci
#
# Installs the packages of tools/packages.txt that a purpose needs and this Debian 12 lacks. Asks
# for root only when something is missing. On another system it prints the packages and fails.
# Talks on stderr alone.
set -euo pipefail

list=$(dirname "$(readlink -f "$0")")/packages.txt
os_release=${QUILLBAR_OS_RELEASE:-/etc/os-release}

say() { printf 'setup: %s\n' "$*" >&2; }

packages() {
    local purposes
    case ${1:-} in
    run) purposes='run' ;;
    test) purposes='run test' ;;
    ci) purposes='run test ci' ;;
    *)
        say 'tell what for: run, test or ci'
        exit 2
        ;;
    esac
    awk -v purposes=" $purposes " '!/^#/ && NF && index(purposes, " " $1 " ") { print $2 }' "$list"
}

is_debian_12() {
    [ -r "$os_release" ] || return 1
    # shellcheck disable=SC1090
    (. "$os_release" && [ "${ID:-}" = debian ] && [ "${VERSION_ID:-}" = 12 ])
}

missing_of() {
    local installed
    installed=$(dpkg-query -W -f='${db:Status-Status} ${Package}\n' "$@" 2>/dev/null |
        awk '$1 == "installed" { print $2 }' || true)
    printf '%s\n' "$@" | grep -vxF -f <(printf '%s\n' "$installed") || true
}

wanted=$(packages "$@")
mapfile -t wanted <<<"$wanted"

if ! is_debian_12; then
    say 'this is not Debian 12, so nothing was installed. Quillbar is built with these packages:'
    printf '  %s\n' "${wanted[@]}" >&2
    exit 1
fi

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

say "installing ${#missing[@]} missing packages with apt-get: ${missing[*]}"
apt=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q
    -o DPkg::Lock::Timeout=300 -o Dpkg::Use-Pty=0)
# A source that cannot be reached is no reason to stop: the installation says what it lacks.
"${apt[@]}" update >&2 || say 'not every package source answered; going on with those that did'
"${apt[@]}" install -y --no-install-recommends "${missing[@]}" >&2
say 'done'
