#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
#
# Usage: tools/try-package.sh --on-this-machine
#
# Does with the packages of build/packages what a person does over the years: uses the application
# and the label on a desktop with a simulated exchange, upgrades them from a version before
# meanwhile, and removes them. Fails when the user loses something, or when something is left behind
# that is not the user's. It installs and removes packages, so run it on a machine that may be
# thrown away, as tools/bare.sh does.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
. tools/build.sh

say() { printf 'try: %s\n' "$*"; }
if [ "${1:-}" != --on-this-machine ]; then
    say 'this installs and removes packages; see the head of tools/try-package.sh'
    exit 2
fi
as_root=()
[ "$(id -u)" -eq 0 ] || as_root=(sudo)
apt=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q -y -o Dpkg::Use-Pty=0)

folder=$(mktemp -d "${TMPDIR:-/tmp}/try.XXXXXX")
simulator=
clean_up() {
    [ -z "$simulator" ] || kill "$simulator" 2>/dev/null || true
    rm -rf "$folder"
}
trap clean_up EXIT

version=$(dpkg-parsechangelog --show-field Version)
architecture=$(dpkg --print-architecture)
names=(quillbar quillbar-label)
packages=()
for name in "${names[@]}"; do
    packages+=("./build/packages/${name}_${version}_$architecture.deb")
done

# make_older NAME: the package with a number below its own, to be upgraded from.
make_older() {
    dpkg-deb -R "./build/packages/$1_${version}_$architecture.deb" "$folder/$1"
    sed -i "s/^Version: .*/&~before/" "$folder/$1/DEBIAN/control"
    dpkg-deb --root-owner-group -b "$folder/$1" "$folder/$1.deb" >/dev/null
    rm -rf "${folder:?}/$1"
}

# What bears the name, but for the checkout, the packages, and what the user has.
traces() {
    "${as_root[@]}" find / -xdev \( -path "$PWD" -o -path /proc -o -path /sys -o -path /tmp \
        -o -path /var/cache/apt -o -path "$HOME" \) -prune -o -iname '*quillbar*' -print | sort
}

start_simulator() {
    mkfifo "$folder/says"
    "build/$preset/bin/quillbar-simulator" --ca-file "$folder/authority.pem" >"$folder/says" &
    simulator=$!
    exec 3<"$folder/says"
    local key value
    while read -r -t 60 -u 3 key value; do
        case $key in
        ca-file) export QUILLBAR_CA_FILE=$value ;;
        rest) export QUILLBAR_REST_ENDPOINTS=$value ;;
        stream) export QUILLBAR_STREAM_ENDPOINTS=$value ;;
        market-caps) export QUILLBAR_MARKETCAP_ENDPOINT=$value ;;
        icons) export QUILLBAR_ICON_ENDPOINT=$value ;;
        ready) return 0 ;;
        esac
    done
    say 'the simulator did not start'
    return 1
}

mapfile -t needed < <(sed -nE '/^Depends:/,/^Restrictions:/s/^ ([a-z0-9-]+),$/\1/p' \
    debian/tests/control | grep -v '^quillbar')
# Most times ./package has asked a minute ago what there is.
install_needed() { "${apt[@]}" install --no-install-recommends "${needed[@]}"; }
{ install_needed || { "${apt[@]}" update && install_needed; }; } >"$folder/apt.log" 2>&1 || {
    tail -n 5 "$folder/apt.log"
    exit 75
}
# Where ./test was, the simulator is compiled already.
preset=release
[ ! -e build/dev/build.ninja ] || preset=dev
build "$preset" quillbar-simulator >"$folder/build.log" 2>&1 || {
    tail -n 20 "$folder/build.log"
    exit 1
}
traces >"$folder/before"

say 'using a version before, and upgrading it meanwhile'
for name in "${names[@]}"; do
    make_older "$name"
done
"${apt[@]}" install "$folder"/*.deb
start_simulator
tools/try-upgrade.py "${apt[@]}" install "${packages[@]}"
for name in "${names[@]}"; do
    [ "$(dpkg-query -W -f '${Version}' "$name")" = "$version" ]
done

say 'the label without an exchange, then everything with one'
debian/tests/label
# What the user has lies in the home folder; removing the packages leaves it.
mkdir -p "$HOME/.local/share/Quillbar"
printf '{}' >"$HOME/.local/share/Quillbar/kept-by-try-package"
debian/tests/desktop

say 'removing and purging'
"${apt[@]}" remove "${names[@]}"
"${as_root[@]}" dpkg --purge "${names[@]}"
traces >"$folder/after"
if ! diff "$folder/before" "$folder/after"; then
    say 'the packages left the above behind'
    exit 1
fi
[ -e "$HOME/.local/share/Quillbar/kept-by-try-package" ] || {
    say 'removing the packages removed what is the user'"'"'s'
    exit 1
}
rm "$HOME/.local/share/Quillbar/kept-by-try-package"
say 'all is well'
