#!/usr/bin/env bash
# A person's way in a real window, by X events: from a database file to a saved project and its preview, and back to it
# with a second start.
# usage: journey.sh PROGRAM SAMPLE.sql mouse|keys   (exit code 77: something that it needs is missing)
set -euo pipefail

program=$(realpath "$1")
readonly program sample=$2 way=$3
readonly hang_guard=60 # seconds

for tool in Xvfb xdotool openbox sqlite3; do
    if ! command -v "$tool" >/dev/null; then
        echo "skipped: there is no $tool; scripts/install-dependencies test installs it"
        exit 77
    fi
done

place=$(mktemp -d)
readonly place
started=()
leave() {
    local pid
    for pid in "${started[@]}"; do
        kill "$pid" 2>/dev/null || true
    done
    wait
    rm -rf "$place"
}
trap leave EXIT

# wait_for WHAT COMMAND...: until the command succeeds.
wait_for() {
    local what=$1 end=$((SECONDS + hang_guard))
    shift
    until "$@" >/dev/null 2>&1; do
        if [ "$SECONDS" -ge "$end" ]; then
            echo "this never came: $what; the windows are: $(titles)" >&2
            cat "$place/errors" >&2
            exit 1
        fi
        sleep 0.05
    done
}

titles() { xdotool search --onlyvisible --name . getwindowname %@ 2>/dev/null | tr '\n' ';' || true; }
# A star behind a title says that the project is modified.
window() { xdotool search --onlyvisible --name "^$1[*]?\$"; }
is_gone() { ! window "$1"; }
is_active() {
    local title
    title=$(xdotool getactivewindow getwindowname)
    [ "${title%\*}" = "$1" ]
}
has_ended() { ! kill -0 "$running"; }
has_opened_database() { find "/proc/$running/fd" -lname "$place/work/shop.db" | grep -q .; }
is_saved() { "$program" preview "$place/work/Shop.kzm" Customer; }
has_popup() { [ "$(xdotool search --onlyvisible --class veldrane | wc -l)" -gt 1 ]; }

# The keyboard and the mouse are with the window of this title.
at() { wait_for "the window \"$1\"" is_active "$1"; }

click() { # TITLE X Y [TIMES]; from the right and the lower edge where negative
    local id x=$2 y=$3 WIDTH HEIGHT
    at "$1"
    id=$(xdotool getactivewindow)
    eval "$(xdotool getwindowgeometry --shell "$id" | grep -E '^(WIDTH|HEIGHT)=')"
    [ "$x" -ge 0 ] || x=$((WIDTH + x))
    [ "$y" -ge 0 ] || y=$((HEIGHT + y))
    xdotool mousemove --window "$id" "$x" "$y" click --repeat "${4:-1}" --delay 30 1
}

keys() { # TITLE KEY...
    at "$1"
    xdotool key --delay 30 "${@:2}"
}

# A key is lost while the program still reads, as a person's would be; where the menu came late, it is closed and opened.
opens_menu() { # ITS KEY
    local end=$((SECONDS + 5))
    ! has_popup || xdotool key Escape
    keys "$main" "$1"
    until has_popup; do
        [ "$SECONDS" -lt "$end" ] || return 1
        sleep 0.05
    done
}
menu() { # THE MENU'S KEY, KEYS IN IT...
    wait_for "the menu" opens_menu "$1"
    xdotool key --delay 30 "${@:2}"
}

type_text() { # TITLE TEXT
    at "$1"
    xdotool type --delay 15 "$2"
}

start_display() {
    Xvfb -displayfd 3 -screen 0 1280x900x24 -dpi 96 -nolisten tcp 3>"$place/display" >/dev/null 2>&1 &
    started+=($!)
    wait_for "a display" test -s "$place/display"
    DISPLAY=:$(cat "$place/display")
    export DISPLAY
    openbox >/dev/null 2>&1 &
    started+=($!)
    wait_for "a window manager" xdotool get_num_desktops
}

start_program() {
    (cd "$place/work" && exec "$program" /NOSPLASH "$@" 2>"$place/errors") &
    running=$!
    started+=("$running")
}

end_program() {
    wait_for "the end of the program" has_ended
    wait "$running"
}

# Where the window and its panes are, and the one driver that is offered.
prepare() {
    mkdir "$place/work" "$place/home"
    sqlite3 "$place/work/shop.db" <"$sample"
    printf '[SQLite3]\nDriver=libsqlite3odbc.so\n' >"$place/odbcinst.ini"
    printf '[Window]\nLeft=10\nTop=40\nWidth=1180\nHeight=760\n' >"$place/settings.ini"
    export HOME="$place/home" XDG_STATE_HOME="$place/state" XDG_CONFIG_HOME="$place/config" XDG_RUNTIME_DIR="$place/home"
    export VELDRANE_SETTINGS="$place/settings.ini" ODBCSYSINI="$place" QT_QPA_PLATFORM=xcb LC_ALL=C.UTF-8
    export ASAN_OPTIONS="detect_leaks=0${ASAN_OPTIONS:+:$ASAN_OPTIONS}" # of the libraries for fonts
}

readonly main='Veldrane Professional Edition +Forms - [New Project]'
readonly logon='Open DataSource'
readonly file='Select DataSource File'
readonly save_project='Save Project As' save_preview='Save Preview'
readonly questions=('Add Delete Method to Class' 'Choose Retrieval Method')

connect_by_mouse() {
    click Start 60 83 2 # New
    click "$logon" 60 53 # the page ODBC
    click "$logon" 33 125 # a driver, and there is one
    click "$logon" 453 182 # Browse
    at "$file"
    wait_for "the file in the list" choose_first_file
    click "$logon" -137 -22 # OK
}

# The list is filled while the dialog is already there.
choose_first_file() {
    is_gone "$file" || { click "$file" 150 71 2 && is_gone "$file"; }
}

# Takes the row Customers. What is dragged shows as a window under the pointer; none comes where the list was still
# empty, as it is until the database has been read.
take_customers() {
    local step end=$((SECONDS + 5))
    xdotool mousemove --window "$1" 56 168 mousedown 1
    for step in "70 150" "110 130" "290 100"; do
        # shellcheck disable=SC2086 # two numbers
        xdotool mousemove --window "$1" $step
    done
    until has_popup; do
        [ "$SECONDS" -lt "$end" ] || { xdotool mouseup 1 && return 1; }
        sleep 0.05
    done
}

# Onto the first group of the tree.
drag_customers() {
    local id
    id=$(xdotool search --onlyvisible --name "^${main//[\[\]+]/.}[*]?\$" | head -1)
    wait_for "the picture of the drag" take_customers "$id"
    xdotool mousemove --window "$id" 370 88 mousemove --window "$id" 378 86 mouseup 1
}

add_class_by_mouse() {
    at "$main"
    drag_customers
    click "${questions[0]}" -52 -23 # No
    click "${questions[1]}" -52 -23
}

save_by_mouse() {
    click "$main" 95 38 # the tool Save
    type_text "$save_project" Shop.kzm
    click "$save_project" -52 -54
}

close_by_mouse() {
    at "$main"
    xdotool mousemove 1180 29 click 1 # in the title bar
}

select_class_by_mouse() { click "$main" 360 104; }

save_preview_by_mouse() { # NAME
    click "$main" 20 9 # the menu File
    wait_for "the menu" has_popup
    click "$main" 88 121
    type_text "$save_preview" "$1"
    click "$save_preview" -52 -54
}

connect_by_keys() {
    keys Start Return
    keys "$logon" alt+v Home
    keys "$logon" alt+r alt+d
    type_text "$logon" "$place/work/shop.db"
    keys "$logon" Return
}

# The menu offers the first group of the tree first.
add_class_by_keys() {
    keys "$main" Tab Tab Home Down Down
    menu alt+p a Return
    keys "${questions[0]}" alt+n
    keys "${questions[1]}" alt+n
}

save_by_keys() {
    keys "$main" ctrl+s
    type_text "$save_project" Shop.kzm
    keys "$save_project" Return
}

close_by_keys() { keys "$main" ctrl+q; }

select_class_by_keys() { keys "$main" Home Down Down; }

save_preview_by_keys() { # NAME
    menu alt+f v
    type_text "$save_preview" "$1"
    keys "$save_preview" Return
}

# The preview of the class that is selected, as a file.
save_preview() { # NAME
    "save_preview_by_$way" "$1"
    wait_for "the preview in a file" test -s "$place/work/$1"
}

prepare
start_display
start_program
"connect_by_$way"
"add_class_by_$way"
save_preview before.txt
"save_by_$way"
wait_for "the class in the project file" is_saved
"close_by_$way"
end_program
"$program" preview "$place/work/Shop.kzm" Customer >"$place/expected.txt"
tr -d '\r' <"$place/work/before.txt" | diff "$place/expected.txt" - >&2
start_program Shop.kzm
wait_for "the tables of the data source" has_opened_database
for try in 1 2 3 4 5; do # a click is lost while the program still reads, as a person's would be
    "select_class_by_$way"
    save_preview "after$try.txt"
    ! grep -q '^Class Name: Customer' "$place/work/after$try.txt" || break
done
"close_by_$way"
end_program
cmp "$place/work/before.txt" "$place/work/after$try.txt"
echo "done by $way"
