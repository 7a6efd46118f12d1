#!/usr/bin/env bash
# The package unpacked into a scratch root, as an unprivileged install: its
# programs find their data in the installed places, with no path of the
# build tree. tesselo-cli new, with a fresh home, copies the installed
# "Data base" folder into ~/.local/share/tesselo and reads its IR library
# from there; the editor, started there, also copies the user guide.
# Usage: installed_programs.sh BUILD_DIR SOURCE_DIR PACKAGE_DIR VERSION
set -euo pipefail
build=$1
source_dir=$2
package_dir=$3
version=$4
deb="$package_dir/tesselo_${version}_$(dpkg --print-architecture).deb"
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
root="$scratch/root"
home="$scratch/home"
mkdir -p "$root" "$home"
dpkg -x "$deb" "$root"
failures=0
fail() {
    echo "FAIL: $*" >&2
    failures=$((failures + 1))
}

# No program carries a path of the build tree or of the sources.
for program in "$root"/usr/bin/*; do
    if grep -q -F -e "$build" -e "$source_dir" "$program"; then fail "$(basename "$program") names $build or $source_dir"; fi
done

# A user's environment: a fresh home, nothing of Tesselo's variables, the
# build tree out of reach.
run() { env -i PATH=/usr/bin:/bin HOME="$home" LANG=C.UTF-8 "$@"; }
data="$home/.local/share/tesselo"
run "$root/usr/bin/tesselo-cli" new "$home/first.kcf" || fail "tesselo-cli new"
[ -f "$home/first.kcf" ] || fail "tesselo-cli new wrote no file"
diff -r "$root/usr/share/tesselo/Data base" "$data/Data base" || fail "the home folder's Data base is no copy of the installed one"
ls "$data"/logfile_*.txt >/dev/null 2>&1 || fail "no log in $data"
brands=$(run "$root/usr/bin/tesselo-cli" library brands tv) || fail "tesselo-cli library brands tv"
[ "$brands" = $'RC-5\nRC-6' ] || fail "the library's TV brands are: $brands"
run "$root/usr/bin/tesselo-cli" --version | grep -qx "tesselo-cli $version" || fail "tesselo-cli --version"

# The editor: its frame comes up and ends, the guide copied beside the Data base.
rm -rf "$data"
run QT_QPA_PLATFORM=offscreen TESSELO_QUIT_WHEN_READY=1 XDG_RUNTIME_DIR="$scratch" "$root/usr/bin/tesselo" 2>/dev/null ||
    fail "the installed editor did not start"
diff -r "$root/usr/share/tesselo/Data base" "$data/Data base" || fail "the editor's home folder has no Data base copy"
cmp "$root/usr/share/tesselo/QM5100 Tessel3_E_EN_UG_v00.pdf" "$data/QM5100 Tessel3_E_EN_UG_v00.pdf" ||
    fail "the editor's home folder has no copy of the user guide"

if [ "$failures" -gt 0 ]; then
    echo "$failures failures" >&2
    exit 1
fi
echo "the installed programs find their data"
