#!/usr/bin/env bash
# Takes the pictures of all windows: the real program, on a display and with settings of its own, in
# a light and a dark palette, at scale 1 and 2. The palette is chosen through qt6ct, as a user would
# choose it.
#   docs/screenshots/take.sh [PROGRAM [FOLDER]]      default: build/release/bin/orvik, this folder
# A picture is NAME[-dark][@2x].png. POINTS is the size of the letters (10); pictures to be looked at
# only, of larger letters or of one round (ROUNDS="1-light 2-dark"), go into a folder of their own.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../.." && pwd)
program=$(realpath "${1:-$root/build/release/bin/orvik}")
folder=$(realpath "${2:-$here}")
points=${POINTS:-10}

for tool in Xvfb openbox xdotool import convert; do
    command -v "$tool" >/dev/null || { echo "$tool is missing: run ./setup.sh --tests" >&2; exit 1; }
done
[ -x "$program" ] || { echo "$program is not built" >&2; exit 1; }
palette_of() { echo "/usr/share/qt6ct/colors/$1.conf"; }
[ -r "$(palette_of darker)" ] || { echo "qt6ct is missing: run ./setup.sh --tests" >&2; exit 1; }

work=$(mktemp -d)
# Its name is in pictures.
folder_of_books=/tmp/books
[ ! -e "$folder_of_books" ] || { echo "$folder_of_books is there already" >&2; exit 1; }
server=
manager=
orvik=
books='^Orvik - friends.ldif, '
cleanup() {
    for process in $orvik $manager $server; do
        kill "$process" 2>/dev/null || true
    done
    rm -rf "$work" "$folder_of_books"
}
trap cleanup EXIT

fail() {
    echo "in vain: $1" >&2
    import -window root "$work/../orvik-failed.png" 2>/dev/null || true
    cat "$work/log" >&2
    exit 1
}

# window TITLE: sets found to the window whose title matches, once it is shown.
window() {
    for _ in $(seq 100); do
        found=$(xdotool search --onlyvisible --name "$1" 2>/dev/null | tail -n 1) || true
        [ -z "$found" ] || return 0
        sleep 0.1
    done
    fail "window $1"
}

gone() {
    for _ in $(seq 50); do
        xdotool search --onlyvisible --name "$1" >/dev/null 2>&1 || return 0
        sleep 0.1
    done
    fail "closing of $1"
}

# press TITLE KEY...: gives a window the focus and types.
press() {
    window "$1"
    shift
    xdotool windowactivate --sync "$found"
    sleep 0.2
    for key in "$@"; do
        xdotool key "$key"
        sleep 0.2
    done
}

# size TITLE WIDTH HEIGHT, for scale 1
size() {
    window "$1"
    xdotool windowsize "$found" $(($2 * scale)) $(($3 * scale))
    sleep 0.3
}

# take TITLE NAME: the picture of a window, with few colours to keep it small.
take() {
    window "$1"
    xdotool windowactivate --sync "$found" mousemove 1990 1590
    sleep 0.6
    import -window "$found" "$work/picture.png"
    convert "$work/picture.png" -strip +dither -colors 200 -define png:compression-level=9 \
        "PNG8:$folder/$2$dark$large.png"
}

start() {
    QT_SCALE_FACTOR=$scale QT_QPA_PLATFORMTHEME=qt6ct XDG_CONFIG_HOME="$work/config" \
        XDG_CACHE_HOME="$work/cache" XDG_STATE_HOME="$work/state" XDG_DATA_HOME="$work/data" \
        "$program" "$@" >>"$work/log" 2>&1 &
    orvik=$!
}

end() {
    kill "$orvik"
    wait "$orvik" 2>/dev/null || true
    orvik=
}

# settings AUTO SOURCE
settings() {
    cat >"$work/config/orvik/orvik.conf" <<SETTINGS
[Settings]
textSep=5
Open=2
Extract=False
Sep=,
Auto=$1
info=1
StartUp=0
aClose=0
aOpenName=$2
aSaveName=/home/ada/found.ldif
[Settings\\AutoSteps]
1=2
2=4
3=1
4=0
SETTINGS
}

one_round() {
    mkdir -p "$work/config/qt6ct" "$work/config/orvik"
    cat >"$work/config/qt6ct/qt6ct.conf" <<SETTINGS
[Appearance]
style=Fusion
custom_palette=$([ "$palette" = light ] && echo false || echo true)
color_scheme_path=$(palette_of darker)
icon_theme=none
[Fonts]
general="DejaVu Sans,$points,-1,5,50,0,0,0,0,0"
fixed="DejaVu Sans Mono,$points,-1,5,50,0,0,0,0,0"
[Interface]
cursor_flash_time=0
SETTINGS
    settings False /home/ada/letters.txt
    start "$work/friends.ldif"
    size '^Orvik - ' 480 360
    take '^Orvik - ' main-window
    press '^Orvik - ' F2
    take '^Orvik - ' edit-mode
    press '^Orvik - ' F2 alt+v d
    press '^Orvik$' Return
    press '^Orvik$' Return
    take '^Orvik - ' told
    press '^Orvik - ' ctrl+z F1
    size 'Orvik Help$' 900 560
    take 'Orvik Help$' help
    press 'Orvik Help$' alt+F4
    gone 'Orvik Help$'
    press '^Orvik - ' alt+h h
    size 'Orvik Help$' 520 460
    take 'Orvik Help$' help-page
    press 'Orvik Help$' Escape
    gone 'Orvik Help$'
    press '^Orvik - ' alt+h a
    take '^About Orvik$' about
    press '^About Orvik$' Escape
    gone '^About Orvik$'
    press '^Orvik - ' alt+h f
    take '^Future Plans$' future-plans
    press '^Future Plans$' Escape
    gone '^Future Plans$'
    press '^Orvik - ' alt+f l
    take '^Generate List' select-addresses
    press '^Generate List' Escape
    gone '^Generate List'
    press '^Orvik - ' alt+e f
    take '^Orvik Preferences$' preferences-formats
    press '^Orvik Preferences$' ctrl+Tab
    take '^Orvik Preferences$' preferences-pim
    press '^Orvik Preferences$' alt+s
    take '^PIM Separator$' pim-separator
    press '^PIM Separator$' Escape
    gone '^PIM Separator$'
    press '^Orvik Preferences$' ctrl+Tab alt+u
    take '^Orvik Preferences$' preferences-automation
    press '^Orvik Preferences$' Escape
    gone '^Orvik Preferences$'
    press '^Orvik - ' alt+f p
    take '^Netscape to PIM$' pim-export
    end

    start
    size '^Orvik$' 480 360
    take '^Orvik$' empty-window
    end

    start "$work/friends.old"
    take '^User input required$' chooser
    end

    start --book
    size '^Orvik - Address book$' 760 480
    take '^Orvik - Address book$' book-welcome
    end

    start --book "$folder_of_books/friends.ldif" "$folder_of_books/outlook.csv" \
        "$folder_of_books/netscape3.htm"
    size "$books" 980 560
    press "$books" ctrl+1
    take "$books" book-person
    press "$books" ctrl+2 Down Down
    take "$books" book-problems
    press "$books" ctrl+3 alt+d
    sleep 2
    press "$books" Tab Tab Tab Tab Down
    take "$books" book-duplicates
    press "$books" ctrl+s
    size '^Move to another program$' 700 440
    press '^Move to another program$' Down
    sleep 1
    take '^Move to another program$' book-move
    press '^Move to another program$' Escape
    gone '^Move to another program$'
    end

    # A question about a long file keeps the automation at its first step.
    settings True "$work/letters.txt"
    start
    window '^Warning: long file$'
    xdotool windowmove "$found" 1000 1000
    take '^Orvik Automated$' automation
    end
}

cp "$root/samples/netscape4.ldif" "$work/friends.ldif"
cp "$root/samples/netscape4.ldif" "$work/friends.old"
mkdir "$folder_of_books"
cp "$work/friends.ldif" "$root/samples/outlook.csv" "$root/samples/netscape3.htm" "$folder_of_books"
head -c 50000 /dev/zero | tr '\0' x >"$work/letters.txt"
: >"$work/log"
mkfifo "$work/display"
Xvfb -displayfd 3 -screen 0 2000x1600x24 -dpi 96 3<>"$work/display" >>"$work/log" 2>&1 &
server=$!
read -r -t 10 number <"$work/display" || fail "display"
export DISPLAY=":$number"
unset WAYLAND_DISPLAY QT_QPA_PLATFORM
openbox >>"$work/log" 2>&1 &
manager=$!

for round in ${ROUNDS:-1-light 1-dark 2-light 2-dark}; do
    scale=${round%-*}
    palette=${round#*-}
    large=$([ "$scale" = 1 ] || echo @2x)
    dark=$([ "$palette" = light ] || echo -dark)
    one_round
    echo "scale $scale, $palette: done"
done
