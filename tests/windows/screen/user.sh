# What a user does before a screen and what is to be seen there then. To be sourced by a script that scripts/run-windows
# runs on a screen. Places are pixels from the panel's top left.
#
# What is to be seen is waited for, half a minute at most: machines differ in speed. Needs $pictures, a folder: what is
# shown comes into it, and what this system's own tools/panel shows of the same input lies in its folder "native".

patience=30 # seconds

fail() {
    echo "$1" >&2
    import -window root "$pictures/failed.png"
    exit 1
}

# wait_until COMMAND...: again and again until it succeeds.
wait_until() {
    local end=$((SECONDS + patience))
    until "$@"; do
        [ "$SECONDS" -lt "$end" ] || return 1
        sleep 0.1
    done
}

# start TITLE PROGRAM.exe [ARGUMENT...]: a Windows program, and waits for its window.
start() {
    local title=$1
    shift
    wine "$@" &
    program=$!
    wait_until find_window "$title" || fail "no window \"$title\""
}
find_window() {
    local place
    place=$(xdotool search --onlyvisible --name "^$1\$" getwindowgeometry --shell 2>/dev/null) || return 1
    eval "$(grep -E '^(X|Y)=' <<<"$place")"
}

# finish: the program ends by Alt+F4, with status 0.
finish() {
    xdotool key --delay 100 alt+F4
    wait_until ended || fail "the program does not end"
    wait "$program" || fail "the program ended with $?"
}
ended() { ! kill -0 "$program" 2>/dev/null; }

pointer_x=0
pointer_y=0
# point X Y: in steps, as a hand does.
point() {
    local i from_x=$pointer_x from_y=$pointer_y
    pointer_x=$1 pointer_y=$2
    for i in 1 2 3 4 5 6 7 8; do
        xdotool mousemove $((X + from_x + (pointer_x - from_x) * i / 8)) $((Y + from_y + (pointer_y - from_y) * i / 8))
        sleep 0.02
    done
    sleep 0.1
}
press() { xdotool mousedown "${1:-1}" && sleep 0.2; }
release() { xdotool mouseup "${1:-1}" && sleep 0.1; }
click() { point "$1" "$2" && press "${3:-1}" && release "${3:-1}"; }
double_click() { point "$1" "$2" && xdotool click --repeat 2 --delay 90 1; }
wheel() { xdotool click --repeat "$1" --delay 120 "$2"; } # 4: away from the user, 5: towards
keys() { xdotool key --delay 100 "$@"; }

# picture NAME WIDTH HEIGHT [LEFT TOP]: of the screen, from the panel's place on.
picture() { import -window root -crop "$2x$3+$((X + ${4:-0}))+$((Y + ${5:-0}))" +repage "$pictures/$1.png"; }

# until_shown NAME SCALE AREA...: the panel looks as tools/panel draws it, outside of the areas: "LEFT,TOP RIGHT,BOTTOM".
until_shown() {
    name=$1 scale=$2
    shift 2
    masks=()
    for area in "$@"; do
        masks+=(-draw "scale $scale,$scale rectangle $area")
    done
    wait_until is_shown || fail "$name: $differ pixels differ"
    echo "$name: as it should look"
}
is_shown() {
    picture "$name" $((560 * scale)) $((315 * scale))
    differ=$(convert "$pictures/$name.png" "$pictures/native/$name.png" -alpha off -fill black "${masks[@]}" \
        -fuzz 1.5% -metric AE -compare -format '%[distortion]' info:)
    [ "$differ" = 0 ]
}

# until_changed NAME WIDTH HEIGHT LEFT TOP: the area looks another way than in the picture of that name.
until_changed() {
    local before
    before=$(identify -format '%#' "$pictures/$1.png")
    changed() { picture "$1-then" "${@:2}" && [ "$(identify -format '%#' "$pictures/$1-then.png")" != "$before" ]; }
    wait_until changed "$@" || fail "$1: nothing has changed"
}
until_same() {
    local before
    before=$(identify -format '%#' "$pictures/$1.png")
    same() { picture "$1-again" "${@:2}" && [ "$(identify -format '%#' "$pictures/$1-again.png")" = "$before" ]; }
    wait_until same "$@" || fail "$1: it does not look as before"
}
