#!/usr/bin/env bash
# The package holds what an installation of Tesselo needs, where Debian and
# the desktop look for it, and says so in its control fields; its metadata
# passes the desktop's validators and lintian finds no error.
# Usage: check_package.sh SOURCE_DIR BUILD_DIR PACKAGE_DIR VERSION
set -euo pipefail
source_dir=$1
build_dir=$2
package_dir=$3
version=$4
arch=$(dpkg --print-architecture)
deb="$package_dir/tesselo_${version}_${arch}.deb"
failures=0
fail() {
    echo "FAIL: $*" >&2
    failures=$((failures + 1))
}
[ -f "$deb" ] || { echo "no package $deb" >&2; exit 1; }

# The file list, exactly: every file the package brings, and nothing else.
expected=$(mktemp)
actual=$(mktemp)
trap 'rm -f "$expected" "$actual"' EXIT
{
    for program in tesselo tesselo-cli tesselo-remote-emu tesselo-simulator; do
        echo "/usr/bin/$program"
        echo "/usr/share/man/man1/$program.1.gz"
    done
    # The Data base folder: the repository's files, and the IR library the build makes.
    for f in "$source_dir/data/Data base"/*; do echo "/usr/share/tesselo/Data base/$(basename "$f")"; done
    for f in 5150LIb.bin Lib_KEY.ASM "F-QX5150 Brandlist.txt"; do echo "/usr/share/tesselo/Data base/$f"; done
    echo "/usr/share/tesselo/QM5100 Tessel3_E_EN_UG_v00.pdf"
    echo "/usr/lib/udev/rules.d/70-tesselo-remote.rules"
    echo "/usr/share/applications/tesselo.desktop"
    echo "/usr/share/applications/tesselo-simulator.desktop"
    echo "/usr/share/icons/hicolor/scalable/apps/tesselo.svg"
    for size in 16 22 24 32 48 64 128 256; do echo "/usr/share/icons/hicolor/${size}x${size}/apps/tesselo.png"; done
    echo "/usr/share/mime/packages/tesselo-kcf.xml"
    echo "/usr/share/metainfo/com.kelvaro.tesselo.metainfo.xml"
    echo "/usr/share/doc/tesselo/copyright"
    echo "/usr/share/doc/tesselo/changelog.gz"
} | sort >"$expected"
dpkg-deb --fsys-tarfile "$deb" | tar -t | grep -v '/$' | sed 's|^\./|/|' | sort >"$actual"
diff -u "$expected" "$actual" || fail "the package's files differ from the list above (- expected, + in the package)"

# Every file is root's, programs are executable, the rest is not.
while read -r mode owner _ _ _ name; do
    [ "$owner" = "root/root" ] || fail "$name belongs to $owner"
    case "$mode:$name" in
        d*) [ "$mode" = "drwxr-xr-x" ] || fail "$name has mode $mode" ;;
        *:./usr/bin/*) [ "$mode" = "-rwxr-xr-x" ] || fail "$name has mode $mode" ;;
        *) [ "$mode" = "-rw-r--r--" ] || fail "$name has mode $mode" ;;
    esac
done < <(dpkg-deb -c "$deb")

# The control fields.
field() { dpkg-deb -f "$deb" "$1"; }
[ "$(field Package)" = tesselo ] || fail "Package is $(field Package)"
[ "$(field Version)" = "$version" ] || fail "Version is $(field Version)"
[ "$(field Architecture)" = "$arch" ] || fail "Architecture is $(field Architecture)"
[ "$(field Section)" = electronics ] || fail "Section is $(field Section)"
[ "$(field Priority)" = optional ] || fail "Priority is $(field Priority)"
[[ "$(field Maintainer)" =~ ^[^\<]+\ \<[^@\>]+@[^\>]+\>$ ]] || fail "Maintainer is $(field Maintainer)"
[[ "$(field Homepage)" =~ ^https:// ]] || fail "Homepage is $(field Homepage)"
[[ "$(field Description)" == "editor of the QM4100 and QM5100 universal remote controls"* ]] ||
    fail "Description is $(field Description)"
[ "$(field Description | wc -l)" -gt 5 ] || fail "the Description has no long text"
# Depends comes from the programs' shared libraries.
depends=$(field Depends)
for library in libc6 libstdc++6 libqt6core6 libqt6gui6 libqt6widgets6 libqt6network6 libusb-1.0-0; do
    [[ ", $depends," == *", $library ("* ]] || fail "Depends lacks $library: $depends"
done
[[ "$(field Recommends)" == *xdg-utils* ]] || fail "Recommends lacks xdg-utils (Help opens the guide with xdg-open)"
# The maintainer scripts reload udev's rules and the MIME and desktop databases.
control=$(mktemp -d)
dpkg-deb -e "$deb" "$control"
for script in postinst postrm; do
    [ -x "$control/$script" ] || fail "no executable $script"
    for command in "udevadm control --reload-rules" update-mime-database update-desktop-database; do
        grep -q "$command" "$control/$script" || fail "$script does not run $command"
    done
    sh -n "$control/$script" || fail "$script is no valid shell script"
done
grep -q "udevadm trigger" "$control/postinst" || fail "postinst does not apply the rule to a remote plugged in"
rm -rf "$control"

# The desktop's metadata and the manual pages, as the package holds them.
root=$(mktemp -d)
dpkg -x "$deb" "$root"
metainfo="$root/usr/share/metainfo/com.kelvaro.tesselo.metainfo.xml"
appstreamcli validate --no-net "$metainfo" || fail "appstreamcli validate"
# Its screenshots are pictures that the window tests took in build/screenshots.
shots=$(grep -o '<image>[^<]*</image>' "$metainfo" | sed 's|</image>||; s|.*/||')
[ -n "$shots" ] || fail "the metainfo shows no screenshot"
for shot in $shots; do
    [ -f "$build_dir/screenshots/$shot" ] || fail "the metainfo's screenshot $shot is not in $build_dir/screenshots"
done
grep -q '<content_rating type="oars-1.1"' "$metainfo" || fail "the metainfo has no content rating"
for provided in tesselo tesselo-simulator tesselo-cli tesselo-remote-emu; do
    grep -q "<binary>$provided</binary>" "$metainfo" || fail "the metainfo does not provide $provided"
done
grep -q '<mediatype>application/x-tesselo-kcf</mediatype>' "$metainfo" || fail "the metainfo does not provide the .kcf type"
for f in "$root"/usr/share/applications/*.desktop; do desktop-file-validate "$f" || fail "desktop-file-validate $f"; done
for page in "$root"/usr/share/man/man1/*.1.gz; do
    warnings=$(LC_ALL=C.UTF-8 MANWIDTH=80 man --warnings -l "$page" 2>&1 >/dev/null)
    [ -z "$warnings" ] || fail "man --warnings $(basename "$page"): $warnings"
    LC_ALL=C.UTF-8 MANWIDTH=80 man -l "$page" 2>/dev/null | grep -q '^NAME' || fail "$(basename "$page") has no NAME"
done
rm -rf "$root"

# lintian, with no error (its warnings and notes are shown).
if ! report=$(lintian --fail-on error "$deb" 2>&1); then fail "lintian reports errors"; fi
echo "$report" | grep -v "running with root privileges" || true

if [ "$failures" -gt 0 ]; then
    echo "$failures failures" >&2
    exit 1
fi
echo "the package is whole"
