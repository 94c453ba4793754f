#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
#
# Usage: tools/bare.sh 12|13 [--as root|user] [--one-way] [--only run|test|package]...
#
# Proves that the README's commands do everything on a bare Debian: makes a root of that release
# with nothing but its base, puts a clean clone of the last commit there, runs commands as a new
# user would, prints what each took and its first failure, and removes the root. With `--as user`,
# an ordinary user runs them who may use sudo.
#
#   run      ./run --demo -- --once
#   test     ./test
#   package  ./package, then tools/check-package.sh, which judges what that made, and
#            tools/try-package.sh, which installs it, uses it, and removes it
#
# Without --only it runs run and test. With --one-way, `./test` leaves out the other two ways, in
# which it runs the same tests with another locale and zone.
#
# Needs root and mmdebstrap. Ends with 1 when a command failed, with 75 when a package source did
# not answer in three tries, with 2 when it cannot be done here. The whole output is in build/bare/.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
. tools/build.sh

say() { printf 'bare: %s\n' "$*"; }
cannot() {
    say "$*"
    exit 2
}

release=${1:-}
case $release in
12) suite=bookworm ;;
13) suite=trixie ;;
*) cannot 'which Debian, 12 or 13? See the head of tools/bare.sh' ;;
esac
shift
as=root
commands=()
tests=(./test)
while [ $# -gt 0 ]; do
    case $1 in
    --as) as=${2:?} ;;
    --only)
        commands+=("${2:?}")
        case $2 in run | test | package) ;; *) cannot '--only takes run, test or package' ;; esac
        ;;
    --one-way)
        tests=(./test -- --label-exclude elsewhere)
        shift
        continue
        ;;
    *) cannot "unknown option: $1" ;;
    esac
    shift 2
done
[ ${#commands[@]} -gt 0 ] || commands=(run test)
case $as in root | user) ;; *) cannot "--as takes root or user" ;; esac
[ "$(id -u)" -eq 0 ] || cannot 'only root can make a root'
command -v mmdebstrap >/dev/null || cannot 'install mmdebstrap first'

root=$(mktemp -d "${TMPDIR:-/tmp}/quillbar-bare-$release.XXXXXX")
logs=build/bare
mkdir -p "$logs"
# The mounts live in a namespace that has ended by then, so nothing of the machine hangs below.
clean_up() {
    # Whoever stops a group of processes may signal twice; a root of gigabytes must not stay.
    trap '' INT TERM HUP
    rm -rf --one-file-system "$root"
}
trap clean_up EXIT

# retried COMMAND...: three tries for what depends on a package source.
retried() {
    local try
    for try in 1 2 3; do
        if "$@"; then
            return 0
        fi
        say "try $try of 3 failed: $*"
        [ "$try" -eq 3 ] || sleep 30
    done
    return 1
}

make_root() {
    rm -rf --one-file-system "${root:?}"/*
    local packages=()
    [ $as = root ] || packages=(--include=sudo)
    # What is thrown away need not survive a power cut, and nobody reads apt's descriptions there.
    mmdebstrap --quiet --variant=minbase --dpkgopt=force-unsafe-io \
        --aptopt='Acquire::Languages "none"' "${packages[@]}" "$suite" "$root" \
        "$(source_of_packages)" >"$logs/$release-root.log" 2>&1
}

started=$SECONDS
retried make_root || {
    say "no root of Debian $release could be made; the end of $logs/$release-root.log:"
    tail -n 5 "$logs/$release-root.log"
    exit 75
}
say "a root of Debian $release: $((SECONDS - started)) s"

home=/root
if [ $as = user ]; then
    home=/home/new
    chroot "$root" useradd --create-home --shell /bin/bash new
    printf 'new ALL=(ALL) NOPASSWD: ALL\n' >"$root/etc/sudoers.d/new"
fi
cp /etc/resolv.conf /etc/hosts "$root/etc/"
git clone -q --no-hardlinks --depth 1 "file://$PWD" "$root$home/quillbar"
[ $as = root ] || chroot "$root" chown -R new:new "$home/quillbar"

# Runs in a namespace of its own, where the machine's files but those below the root are out of
# sight. A root lacks what the kernel provides; without it tests fail that have no fault.
# shellcheck disable=SC2016
inside='
set -e
root=$1 as=$2 home=$3
shift 3
mount -t proc proc "$root/proc"
mount -t sysfs -o ro sysfs "$root/sys" 2>/dev/null || true
mount -t tmpfs -o mode=755 tmpfs "$root/dev"
for name in null zero full random urandom tty; do
    touch "$root/dev/$name"
    mount --bind "/dev/$name" "$root/dev/$name"
done
ln -s /proc/self/fd "$root/dev/fd"
ln -s fd/0 "$root/dev/stdin"
ln -s fd/1 "$root/dev/stdout"
ln -s fd/2 "$root/dev/stderr"
mkdir "$root/dev/pts" "$root/dev/shm"
mount -t devpts -o newinstance,ptmxmode=0666,mode=620,gid=5 devpts "$root/dev/pts"
ln -s pts/ptmx "$root/dev/ptmx"
mount -t tmpfs -o mode=1777 tmpfs "$root/dev/shm"
proxies=()
for name in http_proxy https_proxy no_proxy; do
    [ -z "${!name:-}" ] || proxies+=("$name=${!name}")
done
user=root
[ "$as" = root ] || user=new
exec chroot "$root" env -i PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin \
    HOME="$home" USER="$user" TERM="${TERM:-dumb}" "${proxies[@]}" \
    ${user:+setpriv --reuid="$user" --regid="$user" --init-groups} \
    bash -c "cd ~/quillbar && exec \"\$@\"" bash "$@"
'

as_a_new_user() {
    unshare --mount --pid --fork --kill-child bash -c "$inside" bash "$root" "$as" "$home" "$@" \
        </dev/null
}

# What a reader needs first of a failed command.
first_failure() {
    local words='\[  FAILED  \]|FAILED(:|$)|^(FAIL|ERROR): |error:|CMake Error|^E: '
    grep -m 1 -nE "$words|Errors while running" "$1" || tail -n 3 "$1"
}

status=0

# part NAME COMMAND...: runs a command in the root and tells how that went; its log bears the name.
part() {
    local log=$logs/$release-$as-$1.log started=$SECONDS code=0
    shift
    as_a_new_user "$@" >"$log" 2>&1 || code=$?
    say "Debian $release as $as: $*: exit $code, $((SECONDS - started)) s"
    if [ $code -eq 75 ]; then
        say 'a package source did not answer, which says nothing of this project'
        [ $status -ne 0 ] || status=75
        exit $status
    elif [ $code -ne 0 ]; then
        status=1
        say 'the first failure:'
        first_failure "$log"
        return 1
    fi
    tail -n 4 "$log" | sed 's/^/    /'
}

prove_packages() {
    part package ./package || return 1
    # What is wrong with a package does not hide how it is used, nor the other way round.
    part check bash -c \
        'tools/setup.sh check && tools/check-package.sh data lintian hardening paths' || true
    part try tools/try-package.sh --on-this-machine
}

for command in "${commands[@]}"; do
    case $command in
    run) part run ./run --demo -- --once || true ;;
    test) part test "${tests[@]}" || true ;;
    package) prove_packages || true ;;
    esac
done
exit $status
