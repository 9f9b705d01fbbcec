#!/usr/bin/env bash
# tst_package.sh <build folder> <version>: makes the Debian package from the
# build folder in a scratch folder, unpacks it into a scratch root and checks
# its name, control data, files, desktop entry, launcher and simulator.
set -euo pipefail
build=$1
version=$2
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
fail() {
    echo "FAIL: $*" >&2
    exit 1
}

if ! cpack --config "$build/CPackConfig.cmake" -G DEB -B "$scratch/out" >"$scratch/cpack.log" 2>&1; then
    cat "$scratch/cpack.log" >&2
    fail "cpack did not make the package"
fi
deb="$scratch/out/calvane_${version}_$(dpkg --print-architecture).deb"
[ -f "$deb" ] || fail "no $(basename "$deb") in: $(ls "$scratch/out")"

[ "$(dpkg-deb -f "$deb" Package)" = calvane ] || fail "package name"
[ "$(dpkg-deb -f "$deb" Version)" = "$version" ] || fail "version $(dpkg-deb -f "$deb" Version)"
depends=$(dpkg-deb -f "$deb" Depends)
for lib in libqt6widgets6 libqt6serialport6 libqt6core6 libc6 qt6-qpa-plugins; do
    [[ "$depends" == *"$lib"* ]] || fail "Depends lacks $lib: $depends"
done

root="$scratch/root"
dpkg-deb -x "$deb" "$root"
for f in usr/bin/calvane usr/bin/hartsim usr/lib/calvane/calvane; do
    [ -x "$root/$f" ] || fail "$f missing or not executable"
done
for f in usr/share/applications/calvane.desktop usr/share/icons/hicolor/scalable/apps/calvane.svg \
    usr/share/icons/hicolor/32x32/apps/calvane.png; do
    [ -s "$root/$f" ] || fail "$f missing"
done
for page in calvane hartsim; do
    gzip -dc "$root/usr/share/man/man1/$page.1.gz" | grep -q "^\.TH $page 1" ||
        fail "man page $page.1.gz"
done
unexpected=$(cd "$root" && find . -type f | grep -Ev '^\./usr/(bin|lib/calvane|share/(applications|icons|man|doc))/' || true)
[ -z "$unexpected" ] || fail "files outside the package's folders: $unexpected"

desktop="$root/usr/share/applications/calvane.desktop"
desktop-file-validate "$desktop" || fail "desktop-file-validate"
grep -qx 'Exec=calvane' "$desktop" || fail "Exec"
grep -qx 'Icon=calvane' "$desktop" || fail "Icon"
grep -Eq '^Categories=(.*;)?Engineering;' "$desktop" || fail "category Engineering"

help=$("$root/usr/bin/hartsim" --help) || fail "hartsim --help failed"
[[ "$help" == Usage:* ]] || fail "hartsim --help printed: ${help:0:80}"

# The launcher enters the data folder, made on first start, before the
# program starts: a stand-in program reports where it runs and its arguments.
printf '#!/bin/sh\necho "$PWD|$*"\n' >"$root/usr/lib/calvane/calvane"
mkdir "$scratch/elsewhere"
ran=$(cd "$scratch/elsewhere" && XDG_DATA_HOME="$scratch/data" "$root/usr/bin/calvane" -style fusion)
[ "$ran" = "$scratch/data/calvane|-style fusion" ] || fail "launcher ran: $ran"
ran=$(cd / && env -u XDG_DATA_HOME HOME="$scratch/home" "$root/usr/bin/calvane")
[ "$ran" = "$scratch/home/.local/share/calvane|" ] || fail "launcher without XDG_DATA_HOME ran: $ran"
echo "package $(basename "$deb") checked"
