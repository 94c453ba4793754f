#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
#
# Usage: tools/check-package.sh data|lintian|hardening|paths|reproducible|purge...
#
# Each word is a check, and all that are given are made:
#
#   data          the entry in the menus, the page in software centres, the manuals, completions and
#                 icons, as a package would install them; builds no program
#   lintian       the packages that ./package has left, as Debian judges packages
#   hardening     that each program of the packages is protected as it can be, and that each source
#                 was compiled so
#   paths         that neither the programs nor what debuggers read of them names the folder that
#                 they were built in, as then no two of them are the same; takes seconds
#   reproducible  that building the packages again, in another folder, zone and language, makes the
#                 same ones
#   purge         that the packages can be installed on a bare Debian of this release, and leave
#                 nothing of theirs behind when they are purged; needs root
#
# `tools/setup.sh check` installs what the checks need.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
. tools/build.sh

say() { printf 'check-package: %s\n' "$*"; }
folder=$(mktemp -d "${TMPDIR:-/tmp}/quillbar-check.XXXXXX")
trap 'rm -rf "$folder"' EXIT
# Not those that hold the symbols for debuggers.
packages=(build/packages/quillbar_*.deb build/packages/quillbar-label_*.deb)

need_packages() {
    if [ ! -e "${packages[0]}" ]; then
        say 'there are no packages; make them with ./package'
        return 1
    fi
}

judge_manual() {
    local complaints
    complaints=$(mandoc -Tlint "$1" || true)
    if [ -n "$complaints" ]; then
        printf '%s\n' "$complaints"
        return 1
    fi
}

# Each icon is as large as its folder says. A PNG tells its width in bytes 16 to 19.
judge_icons() {
    local icon size width count=0
    for icon in "$1"/*/apps/*.png; do
        size=${icon#"$1/"}
        size=${size%%x*}
        width=$(od -An -tu1 -j16 -N4 "$icon" | awk '{ print $3 * 256 + $4 }')
        if [ "$width" != "$size" ]; then
            say "$icon is $width wide"
            return 1
        fi
        count=$((count + 1))
    done
    [ "$count" -ge 9 ] && ls "$1"/symbolic/apps/*-symbolic.svg >/dev/null
}

check_data() {
    local share=$folder/data/usr/share file accepted=() failures=0
    # From 1.0 on, AppStream wants the developer told in a form that Debian 12 does not know.
    if ! appstreamcli --version | grep -q ' 0\.'; then
        accepted=(
            '--override=developer-name-tag-deprecated=pedantic,developer-info-missing=pedantic')
    fi
    build package quillbar-manuals quillbar-icons >"$folder/data.log" || {
        tail -n 20 "$folder/data.log"
        return 1
    }
    DESTDIR=$folder/data cmake --install build/package --prefix /usr --component data \
        >"$folder/data.log"
    desktop-file-validate --warn-kde "$share"/applications/*.desktop || failures=1
    appstreamcli validate --strict --no-net "${accepted[@]}" "$share"/metainfo/*.xml || failures=1
    for file in "$share"/man/man1/*.1 "$share"/man/*/man1/*.1; do
        judge_manual "$file" || failures=1
    done
    for file in "$share"/bash-completion/completions/*; do
        bash -n "$file" || failures=1
    done
    for file in "$share"/zsh/vendor-completions/*; do
        zsh -n "$file" || failures=1
    done
    for file in "$share"/fish/vendor_completions.d/*; do
        fish --no-execute "$file" || failures=1
    done
    judge_icons "$share/icons/hicolor" || failures=1
    return $failures
}

check_lintian() {
    need_packages
    # Debian 12 and 13 know different versions of the policy; debian/control can name one alone. The
    # misspelt word is a message of the JSON library's headers, which Debian 12 alone complains of.
    lintian --allow-root --display-info --pedantic --tag-display-limit 0 \
        --fail-on error,warning,info,pedantic \
        --suppress-tags newer-standards-version,out-of-date-standards-version \
        --suppress-tags spelling-error-in-binary \
        build/packages/*.changes
}

# has NAME WHAT TEXT PATTERN: says so where the text has no such line.
has() {
    if ! grep -qE -- "$4" <<<"$3"; then
        say "$1 has no $2"
        return 1
    fi
}

judge_program() {
    local name=${1##*/} head dynamic symbols failures=0
    head=$(readelf -hlW "$1")
    dynamic=$(readelf -dW "$1")
    symbols=$(readelf --dyn-syms -W "$1")
    has "$name" 'position of its own choice (PIE)' "$dynamic" 'FLAGS_1.*PIE' || failures=1
    has "$name" 'read-only relocations' "$head" 'GNU_RELRO' || failures=1
    has "$name" 'immediate binding' "$dynamic" 'FLAGS_1.*NOW' || failures=1
    has "$name" 'stack protector' "$symbols" '__stack_chk_fail' || failures=1
    has "$name" 'function that guards its buffer' "$symbols" '__[a-z]+_chk(@|$)' || failures=1
    has "$name" 'stack that cannot be executed' "$head" 'GNU_STACK.* RW ' || failures=1
    if [ "$(dpkg --print-architecture)" = amd64 ]; then
        # A mark at each place that a pointer may lead to.
        if [ "$(objdump -d --no-show-raw-insn "$1" | grep -c endbr64)" -lt 500 ]; then
            say "$name has hardly a mark of control flow"
            failures=1
        fi
    fi
    return $failures
}

check_hardening() {
    local package program flag compiled failures=0
    need_packages
    for package in "${packages[@]}"; do
        dpkg-deb -x "$package" "$folder/programs"
    done
    for program in "$folder"/programs/usr/bin/*; do
        judge_program "$program" || failures=1
    done
    # Of some protections a program does not tell; the record of the building does.
    compiled=$(grep -E '^\[[0-9]+/[0-9]+\] .*clang\+\+.* -c ' build/packages/build.log)
    local flags=(-D_FORTIFY_SOURCE=3 -fstack-protector-strong -fstack-clash-protection
        -Werror=format-security)
    [ "$(dpkg --print-architecture)" != amd64 ] || flags+=(-fcf-protection)
    for flag in "${flags[@]}"; do
        if [ "$(grep -cF -- " $flag " <<<"$compiled")" -ne "$(wc -l <<<"$compiled")" ]; then
            say "not each source was compiled with $flag"
            failures=1
        fi
    done
    if grep -qE 'warning: .*(unused|unsupported)' build/packages/build.log; then
        say 'the compiler did not understand a flag; see build/packages/build.log'
        failures=1
    fi
    return $failures
}

check_paths() {
    local built package program failures=0
    need_packages
    built=$(sed -nE '/ -ffile-prefix-map=/{s/.* -ffile-prefix-map=([^ ]+)=\. .*/\1/p;q}' \
        build/packages/build.log)
    if [ -z "$built" ]; then
        say 'build/packages/build.log does not tell where it was built'
        return 1
    fi
    for package in "${packages[@]}" build/packages/*-dbgsym_*.deb; do
        dpkg-deb -x "$package" "$folder/with-symbols"
    done
    while read -r program; do
        objcopy --decompress-debug-sections "$program" "$folder/plain"
        strings "$folder/plain" >"$folder/texts"
        if grep -F -m 3 -- "$built" "$folder/texts"; then
            say "${program#"$folder/with-symbols/"} names the folder that it was built in"
            failures=1
        fi
    done < <(find "$folder/with-symbols" \( -path '*/bin/*' -o -name '*.debug' \) -type f)
    return $failures
}

check_reproducible() {
    need_packages
    local sources=$folder/a-folder-of-another-name/quillbar package made failures=0
    localedef -i de_DE -f UTF-8 "$folder/de_DE.UTF-8" >/dev/null
    copy_sources "$sources"
    (
        umask 027
        export TZ=America/Santiago LOCPATH=$folder LC_ALL=de_DE.UTF-8 HOME=/nonexistent
        build_packages "$sources"
    ) >"$folder/build.log" 2>&1 || {
        tail -n 20 "$folder/build.log"
        return 1
    }
    for package in "${packages[@]}"; do
        made=$folder/a-folder-of-another-name/${package##*/}
        if ! cmp "$package" "$made"; then
            diffoscope --max-report-size 20000 "$package" "$made" || true
            failures=1
        fi
    done
    return $failures
}

check_purge() {
    need_packages
    local base=$folder/base.tar.gz source suite as_root=()
    [ "$(id -u)" -eq 0 ] || as_root=(sudo)
    source=$(source_of_packages)
    suite=$(. /etc/os-release && printf '%s' "$VERSION_CODENAME")
    "${as_root[@]}" mmdebstrap --quiet --variant=minbase "$suite" "$base" "$source"
    "${as_root[@]}" piuparts --basetgz "$base" --distribution "$suite" --mirror "$source main" --no-eatmydata \
        "${packages[@]}" >"$folder/purge.log" 2>&1 || {
        grep -E 'ERROR|FAIL' "$folder/purge.log" || tail -n 20 "$folder/purge.log"
        return 1
    }
}

[ $# -gt 0 ] || set -- none
for check in "$@"; do
    case $check in
    data | lintian | hardening | paths | reproducible | purge) ;;
    *)
        say 'tell what to check; see the head of tools/check-package.sh'
        exit 2
        ;;
    esac
done
status=0
set +e
for check in "$@"; do
    # In a shell of its own, where the first error ends the check.
    (set -e; "check_$check")
    if [ $? -eq 0 ]; then
        say "$check: ok"
    else
        say "$check: FAILED"
        status=1
    fi
done
exit $status
