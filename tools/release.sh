#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
#
# Usage: tools/release.sh
#
# Makes a release of the last commit, as far as that needs no network: checks that everything tells
# of the same version and that the version is finished, builds and checks the packages, and leaves
# in build/release-VERSION the archive of the sources, the packages and their checksums. Then it
# tags the commit vVERSION. Whoever publishes pushes the tag and uploads the folder.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

say() { printf 'release: %s\n' "$*"; }
cannot() {
    say "$*"
    exit 1
}

version=$(sed -nE 's/^project\(.* VERSION ([0-9.]+) .*/\1/p' CMakeLists.txt)
tag=v$version
[ -z "$(git status --porcelain)" ] || cannot 'commit or put away what is changed first'
! git rev-parse -q --verify "refs/tags/$tag" >/dev/null ||
    cannot "there is a $tag already; raise the number in CMakeLists.txt and what follows it"
python3 -B tests/lint/VersionsLint.py . || cannot 'the versions differ'
grep -qE "^## $version \(" CHANGELOG.md ||
    cannot "CHANGELOG.md calls $version unreleased; give it its date, there and where the lint says"

# A folder of its own, which appears when all is done.
folder=build/release-$version
made=$folder.part
rm -rf "$folder" "$made"
mkdir -p "$made"
git archive --format=tar --prefix="quillbar-$version/" HEAD | xz -9 >"$made/quillbar-$version.tar.xz"
tools/setup.sh check
./package
tools/check-package.sh data lintian hardening paths reproducible purge
cp build/packages/quillbar{,-label}_"$version"_*.deb "$made/"
(cd "$made" && sha256sum -- * >SHA256SUMS)
mv "$made" "$folder"
git tag -a "$tag" -m "Quillbar $version"

say "tagged $tag; the files are in $folder:"
(cd "$folder" && ls -1) | sed 's/^/    /'
