# What all journeys do: a display of their own, the program in it, and a person's mouse and keys. Sourced by scripts with
# the arguments PROGRAM SAMPLE.sql mouse|keys; such a script ends with 77 where something that it needs is missing.
# shellcheck shell=bash

program=$(realpath "$1")
readonly program sample=$2 way=$3
readonly hang_guard=120 # seconds

skip() { # WHY
    echo "skipped: $1"
    exit 77
}

for tool in Xvfb xdotool openbox sqlite3; do
    command -v "$tool" >/dev/null || skip "there is no $tool; scripts/install-dependencies test installs it"
done

exec 4>&2 # for what is told from within a condition
set -E
trap 'echo "${BASH_SOURCE[0]##*/}, line $LINENO: this has failed" >&4' ERR

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

give_up() { # WHY
    echo "$1; the windows are: $(titles)" >&4
    [ ! -e "$place/errors" ] || cat "$place/errors" >&4
    exit 1
}

# succeeds_within SECONDS COMMAND...: whether it does.
succeeds_within() {
    local end=$((SECONDS + $1))
    shift
    until "$@" >/dev/null 2>&1; do
        [ "$SECONDS" -lt "$end" ] || return 1
        sleep 0.05
    done
}

# wait_for WHAT COMMAND...: until the command succeeds.
wait_for() { succeeds_within "$hang_guard" "${@:2}" || give_up "this never came: $1"; }

does() { "$1_by_$way" "${@:2}"; } # WHAT ARGUMENT...

# What is done while the program still reads is lost, as a person's would be, and done again where no window came.
opens() { # TITLE WHAT TITLE_OF_THE_WINDOW_BEFORE
    ! is_active "$3" || does "$2" "$3"
    succeeds_within 5 is_active "$1"
}

titles() { xdotool search --onlyvisible --name . getwindowname %@ 2>/dev/null | tr '\n' ';' || true; }

# A star behind a title says that the project is modified.
window() { xdotool search --onlyvisible --name "^${1//[\[\]+*]/.}[*]?\$"; }
is_gone() { ! window "$1"; }
is_active() {
    local title
    title=$(xdotool getactivewindow getwindowname)
    [ "$title" = "$1" ] || [ "${title%\*}" = "$1" ]
}
has_title() { titles | tr ';' '\n' | grep -Fx -- "$1" >/dev/null; } # with its star
has_ended() { ! kill -0 "$running"; }
has_opened_database() { find "/proc/$running/fd" -lname "$place/work/*.db" | grep .; }
has_popup() { [ "$(xdotool search --onlyvisible --class veldrane | wc -l)" -gt 1 ]; }

# The keyboard and the mouse are with the window of this title.
at() { wait_for "the window \"$1\"" is_active "$1"; }

click() { # TITLE X Y [TIMES [BUTTON]]; from the right and the lower edge where negative
    local id x=$2 y=$3 WIDTH HEIGHT
    at "$1"
    id=$(xdotool getactivewindow)
    eval "$(xdotool getwindowgeometry --shell "$id" | grep -E '^(WIDTH|HEIGHT)=')"
    [ "$x" -ge 0 ] || x=$((WIDTH + x))
    [ "$y" -ge 0 ] || y=$((HEIGHT + y))
    xdotool mousemove --window "$id" "$x" "$y" click --repeat "${4:-1}" --delay 30 "${5:-1}"
}

keys() { # TITLE KEY...
    at "$1"
    xdotool key --delay 30 "${@:2}"
}

# A key is lost while the program still reads, as a person's would be; where the menu came late, it is closed and opened.
opens_menu() { # TITLE ITS_KEY
    ! has_popup || xdotool key Escape
    keys "$@"
    succeeds_within 5 has_popup
}
menu() { # TITLE THE_MENU'S_KEY KEY...
    wait_for "the menu" opens_menu "$1" "$2"
    xdotool key --delay 30 "${@:3}"
}

type_text() { # TITLE TEXT
    at "$1"
    xdotool type --delay 15 "$2"
}

# Where other displays come and go meanwhile, one may not be reached.
start_display() { wait_for "a display with a window manager" display_answers; }
display_answers() {
    rm -f "$place/display"
    Xvfb -displayfd 3 -screen 0 1280x900x24 -dpi 96 -nolisten tcp 3>"$place/display" >/dev/null 2>&1 &
    started+=($!)
    succeeds_within 10 has_number || return 1
    export DISPLAY=:$display
    openbox >/dev/null 2>&1 &
    started+=($!)
    succeeds_within 10 xdotool get_num_desktops
}
has_number() { read -r display <"$place/display"; }

start_program() { # WORD...
    (cd "$place/work" && exec "$program" /NOSPLASH "$@" 2>"$place/errors") &
    running=$!
    started+=("$running")
}

# Its timers run 30 times as fast: the autosave, which comes after five minutes, and how long a data source may take.
start_with_fast_clock() { # FAST_CLOCK.so WORD...
    LD_PRELOAD=$(realpath "$1") ASAN_OPTIONS=$ASAN_OPTIONS:verify_asan_link_order=0 start_program "${@:2}"
}

# What is not saved has a copy with this text, and that has an entry in the settings, without which it is not found. It is
# named by the process that made it; there is no other.
readonly copies=$place/state/veldrane/recovery
has_copy_with() { # TEXT
    [ "$(grep -o '^[0-9]*-[0-9a-f]*\.kzm=' "$place/settings.ini" | cut -d- -f1)" = "$running" ] &&
        grep -q -- "$1" "$copies/$running"-*.kzm
}

kill_program() {
    kill -KILL "$running"
    wait "$running" 2>/dev/null || true
}

end_program() {
    wait_for "the end of the program" has_ended
    wait "$running"
}

# A person who never started the program: no settings, and one driver that is offered.
prepare() {
    mkdir "$place/work" "$place/home"
    sqlite3 "$place/work/shop.db" <"$sample"
    printf '[SQLite3]\nDriver=libsqlite3odbc.so\n' >"$place/odbcinst.ini"
    export HOME="$place/home" XDG_STATE_HOME="$place/state" XDG_CONFIG_HOME="$place/config" XDG_RUNTIME_DIR="$place/home"
    export VELDRANE_SETTINGS="$place/settings.ini" ODBCSYSINI="$place" QT_QPA_PLATFORM=xcb LC_ALL=C.UTF-8
    export ASAN_OPTIONS="detect_leaks=0${ASAN_OPTIONS:+:$ASAN_OPTIONS}" # of the libraries for fonts
}

# A project of all tables of a database in the folder, without a window.
define_project() { # NAME DATABASE [OPTION...]
    "$program" define "$place/work/$1.kzm" --all --collections --set ProjectName="$1" --set VBProjectName="$1" \
        --connection "PROVIDER=MSDASQL;Driver=SQLite3;Database=$place/work/$2;" "${@:3}" >/dev/null 2>&1
}

titled() { echo "Veldrane Professional Edition +Forms - [$1]"; }

# Of the main window, by its title.
save_project_by_mouse() { click "$1" 95 38; } # the tool Save
save_project_by_keys() { keys "$1" ctrl+s; }

save_project_as() { # TITLE NAME
    wait_for "the question for a name" opens 'Save Project As' save_project "$1"
    does enter_file 'Save Project As' "$2"
}

close_by_mouse() { # TITLE
    at "$1"
    xdotool mousemove --window "$(xdotool getactivewindow)" 1170 -11 click 1 # in the title bar
}
close_by_keys() { keys "$1" ctrl+q; }

enter_file_by_mouse() { # TITLE NAME
    type_text "$1" "$2"
    click "$1" -52 -54
}
enter_file_by_keys() { # TITLE NAME
    type_text "$1" "$2"
    keys "$1" Return
}

open_save_preview_by_mouse() {
    click "$1" 20 9 # the menu File
    wait_for "the menu" has_popup
    click "$1" 88 121
}
open_save_preview_by_keys() { menu "$1" alt+f v; }

# The preview of the node that is selected, as a file.
save_preview() { # TITLE NAME
    does open_save_preview "$1"
    does enter_file 'Save Preview' "$2"
    wait_for "the preview in a file" test -s "$place/work/$2"
}

# Takes the second table. What is dragged shows as a window under the pointer; none comes where the list was still
# empty, as it is until the database has been read.
take_table() { # WINDOW
    local step
    xdotool mousemove --window "$1" 56 168 mousedown 1
    for step in "70 150" "110 130" "290 100"; do
        # shellcheck disable=SC2086 # two numbers
        xdotool mousemove --window "$1" $step
    done
    succeeds_within 5 has_popup || { xdotool mouseup 1 && return 1; }
}

# Onto the first group of the tree.
drag_table() { # TITLE OF THE MAIN WINDOW
    local id
    id=$(window "$1" | head -1)
    wait_for "the picture of the drag" take_table "$id"
    xdotool mousemove --window "$id" 370 88 mousemove --window "$id" 378 86 mouseup 1
}

add_class_by_mouse() { # TITLE OF THE MAIN WINDOW, ITS EDITOR'S
    at "$1"
    drag_table "$1"
    click 'Add Delete Method to Class' -52 -23 # No
    click 'Choose Retrieval Method' -52 -23
    click "$2" -137 -22 # OK
}

# The menu offers the first group of the tree first.
add_class_by_keys() { # TITLE OF THE MAIN WINDOW, ITS EDITOR'S
    keys "$1" Tab Tab Home Down Down
    menu "$1" alt+p a Return
    keys 'Add Delete Method to Class' alt+n
    keys 'Choose Retrieval Method' alt+n
    keys "$2" Return
}

readonly wizard='Generate Code'

opens_wizard() { opens "$wizard" open_wizard "$1"; } # TITLE OF THE MAIN WINDOW
open_wizard_by_mouse() { click "$1" 419 38; } # the tool Generate
open_wizard_by_keys() { keys "$1" F9; }

go_on_by_mouse() { click "$wizard" -138 -21; }
go_on_by_keys() { keys "$wizard" Return; }

# The button closes it after the run, and cancels it before.
closes_wizard() {
    is_gone "$wizard" || does close_wizard
    succeeds_within 5 is_gone "$wizard"
}
close_wizard_by_mouse() { click "$wizard" -52 -21; }
close_wizard_by_keys() { keys "$wizard" Escape; }

readonly generated=$place/home/Generated # in the folder that the wizard begins with
has_files_of() { diff <(ls "$1") <(ls "$generated"); }

make_folder_by_mouse() {
    click "$wizard" -55 -58 # the button New Folder
    type_text 'New Folder' Generated
    click 'New Folder' -138 -22
}
make_folder_by_keys() { # in the menu of the folder tree
    keys "$wizard" Tab Menu
    wait_for "the menu of the folders" has_popup
    xdotool key --delay 30 Down Return
    type_text 'New Folder' Generated
    keys 'New Folder' Return
}

# Up to the page of options.
choose_new_folder() { # TITLE OF THE MAIN WINDOW
    wait_for "the wizard" opens_wizard "$1"
    does go_on
    does make_folder
    wait_for "the new folder" test -d "$generated"
    does go_on
}

# The wizard writes into a new folder what the command line writes into another.
generate_project() { # TITLE OF THE MAIN WINDOW, ITS FILE
    mkdir "$place/expected"
    "$program" generate "$place/work/$2" "$place/expected"
    choose_new_folder "$1"
    does go_on
    wait_for "the files" has_files_of "$place/expected"
    wait_for "the end of the wizard" closes_wizard
    diff -r "$place/expected" "$generated" >&2
    wait_for "a project with changes" has_title "$1*" # its folder
}
