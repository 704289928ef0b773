# shellcheck shell=bash
# For scripts that try a program as a shell sees it; their first argument is the program. A script may set in `options`
# what comes behind the words of each run, and ends with [ "$failures" = 0 ].
set -u
program=$1
top=$(mktemp -d)
trap 'rm -rf "$top"' EXIT
: >"$top/err"
options=()
failures=0

wrong() {
    failures=$((failures + 1))
    echo "WRONG: $*" && sed 's/^/    /' "$top/err"
}
begin() { # a case, in an empty folder
    echo "$1"
    rm -rf "$top/work" && mkdir "$top/work" && cd "$top/work" || exit 1
}
expect() { # STATUS WORDS...: runs the program
    local wanted=$1 got
    shift
    "$program" "$@" "${options[@]}" </dev/null >"$top/out" 2>"$top/err"
    got=$?
    [ "$got" = "$wanted" ] || wrong "status $got for $*"
}
says() { grep -qF -- "$1" "$top/err" || wrong "does not say: $1"; }
tells() { grep -qF -- "$1" "$top/out" || wrong "does not tell: $1, but: $(cat "$top/out")"; }
silent() { [ ! -s "$top/err" ] || wrong "complains"; }
same() { cmp -s "$1" "$2" || wrong "$1 is not $2"; }
absent() { [ ! -e "$1" ] || wrong "$1 is there"; }
count() { find . -mindepth 1 -maxdepth 1 | wc -l; }
