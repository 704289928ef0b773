#!/bin/sh
# Installs Tessaly Bench [m] for the user who runs this, from the folder that it lies in, and removes it again.
#
#   ./install.sh                  the plug-in into ~/.vst3, the tools into ~/.local/bin, the key-point sets, man pages,
#                                 completion and manual below ~/.local/share (or XDG_DATA_HOME)
#   ./install.sh --uninstall      removes what was installed, and of the folders those that are empty then
#
# What was installed is listed in ~/.local/share/tessaly-bench/installed, beside a copy of this script. Sets of your own
# are never touched, nor is a set that you have changed: removing leaves it where it is.
set -eu

: "${HOME:?install.sh: HOME is not set}"
data=${XDG_DATA_HOME:-$HOME/.local/share}
own=$data/tessaly-bench
list=$own/installed

# Of the content alone: with a name, sha256sum marks lines whose name it has to escape.
sum_of() {
    sha256sum <"$1" | cut -d ' ' -f 1
}

uninstall() {
    [ -f "$list" ] || { echo "install.sh: nothing is installed: no $list" >&2; exit 1; }
    while read -r sum file; do
        if [ -f "$file" ] && [ "$(sum_of "$file")" != "$sum" ]; then
            echo "Changed since, and left: $file"
            continue
        fi
        rm -f "$file"
        folder=$(dirname "$file")
        while [ "$folder" != "$HOME" ] && [ "$folder" != / ] && rmdir "$folder" 2>/dev/null; do
            folder=$(dirname "$folder")
        done
    done <"$list"
    rm -f "$list" "$own/install.sh"
    rmdir "$own" 2>/dev/null || true
}

# target FILE: where a file of this folder goes; empty: nowhere
target() {
    case $1 in
    ./lib/vst3/*) printf '%s\n' "$HOME/.vst3/${1#./lib/vst3/}" ;;
    ./bin/*) printf '%s\n' "$HOME/.local/bin/${1#./bin/}" ;;
    ./share/metainfo/*) ;; # for the machine's software centre
    ./share/*) printf '%s\n' "$data/${1#./share/}" ;;
    esac
}

missing_libraries() {
    find "$HOME/.vst3/Tessaly Bench [m].vst3" "$HOME/.local/bin/strip-render" "$HOME/.local/bin/keypoints" -type f \
        \( -name '*.so' -o -perm -u+x \) -exec ldd {} + 2>/dev/null | sed -n 's/^[[:space:]]*\(.*\) => not found$/\1/p' |
        sort -u
}

case ${1:-} in
"") ;;
--uninstall)
    uninstall
    echo "Removed."
    exit 0
    ;;
--help | -h)
    sed -n '2,/^[^#]/s/^# \{0,1\}//p' "$0"
    exit 0
    ;;
*)
    echo "install.sh: no option $1; --help tells" >&2
    exit 2
    ;;
esac

cd "$(dirname "$0")"
[ -d lib/vst3 ] || { echo "install.sh: the plug-in is not beside this script; run it in the unpacked folder" >&2; exit 1; }
[ ! -f "$list" ] || uninstall # a file that the former version had and this one has not would stay
mkdir -p "$own"
new=$(mktemp)
trap 'rm -f "$new"' EXIT
find . -type f | LC_ALL=C sort >"$new"
while read -r file; do
    to=$(target "$file")
    [ -n "$to" ] || continue
    case $to in
    *.kpd)
        if [ -f "$to" ] && ! cmp -s "$file" "$to"; then
            echo "Yours, and kept: $to"
            continue
        fi
        ;;
    esac
    mkdir -p "$(dirname "$to")"
    rm -f "$to" # never written into: a host may have the plug-in open
    printf '%s  %s\n' "$(sum_of "$file")" "$to" >>"$list" # ahead, so that a copy that fails is not left behind
    cp "$file" "$to" || { rm -f "$to"; exit 1; }
done <"$new"
cp install.sh "$own/install.sh"

echo "The plug-in: $HOME/.vst3; let the host scan again."
echo "The tools:   $HOME/.local/bin (strip-render, keypoints)"
echo "The manual:  $data/doc/tessaly-bench/manual.md"
echo "To remove:   $own/install.sh --uninstall"
case :$PATH: in *":$HOME/.local/bin:"*) ;; *) echo "Put $HOME/.local/bin into PATH to call the tools by their names." ;; esac
missing=$(missing_libraries)
if [ -n "$missing" ]; then
    echo "This system lacks libraries that they need:" >&2
    echo "$missing" | sed 's/^/    /' >&2
    echo "On Debian and Ubuntu: apt install libcairo2 libebur128-1 libpangocairo-1.0-0 libpangoft2-1.0-0 libsndfile1" \
        "libxcb-cursor0 libxcb-keysyms1 libxcb-util1 libxcb-xfixes0 libxcb-xkb1 libxkbcommon-x11-0" >&2
fi
