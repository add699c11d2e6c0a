#!/usr/bin/env bash
# A person's way in a real window with a PostgreSQL database: a new project, the class of a table, a field with another
# name and a stored procedure, both taken back and made again; then the program is killed, and what was not saved is
# recovered, saved and generated.
# usage: undo_and_recovery.sh PROGRAM SAMPLE.sql mouse|keys FAST_CLOCK.so
set -euo pipefail

# shellcheck source=steps.sh
. "$(dirname "$0")/steps.sh"
# shellcheck source=postgresql.sh
. "$(dirname "$0")/postgresql.sh"

main=$(titled Shop)
readonly main fast_clock=$4
readonly properties='Project Properties' logon='Open DataSource'

# How long a data source may take is measured by the fast clock, too.
be_patient() { printf '[Platform]\nConnectTimeout=1800\nStatementTimeout=1800\n' >"$place/settings.ini"; }

make_project_by_mouse() {
    click Start 60 83 2 # New
    type_text "$properties" Shop # the name is selected
    click "$properties" -137 -22 # OK
}
make_project_by_keys() {
    keys Start Return
    type_text "$properties" Shop
    keys "$properties" Return
}

connect_by_mouse() {
    local y=125
    click "$logon" 60 53 # the page ODBC
    click "$logon" 33 "$y" # a driver
    click "$logon" 330 "$y" 1 5 # the second one, by the wheel
    for text in "$server" "$database" veldrane; do
        y=$((y + 28))
        click "$logon" 330 "$y"
        type_text "$logon" "$text"
    done
    click "$logon" -137 -22 # OK
}
connect_by_keys() {
    keys "$logon" alt+v Home
    keys "$logon" alt+r Tab P
    for text in "$server" "$database" veldrane; do
        keys "$logon" Tab
        type_text "$logon" "$text"
    done
    keys "$logon" Return
}

open_editor_by_mouse() { click "$1" 360 104 2; }
open_editor_by_keys() { keys "$1" ctrl+e; }

leave_list_by_mouse() { :; }
leave_list_by_keys() { keys "$editor" alt+c; }

edit_class() {
    wait_for "the editor of the class" opens "$editor" open_editor "$main"
    does name_field Carrier
    does press_ok "$field"
    does add_procedure FetchSince
    does leave_list
    does press_ok "$editor"
}

undo_by_mouse() { click "$main" 135 38; } # the tools
redo_by_mouse() { click "$main" 168 38; }
undo_by_keys() { keys "$main" ctrl+z; }
redo_by_keys() { keys "$main" ctrl+shift+z; }

prepare
be_patient
make_postgresql_database
start_display

start_with_fast_clock "$fast_clock"
does make_project
does connect
does add_class "$main" 'Add orders'
save_project_as "$main" Shop.kzm
wait_for "a project without changes" has_title "$main"
cp "$place/work/Shop.kzm" "$place/Shop.kzm"
save_preview "$main" before.txt

edit_class
wait_for "a project with changes" has_title "$main*"
save_preview "$main" edited.txt
does undo
wait_for "the project as it was saved" has_title "$main"
save_preview "$main" undone.txt
does redo
wait_for "the project with changes again" has_title "$main*"
save_preview "$main" redone.txt
cmp "$place/work/before.txt" "$place/work/undone.txt" >&2
cmp "$place/work/edited.txt" "$place/work/redone.txt" >&2
has_code "$place/work/edited.txt" 'Public Property Get Carrier() as Long'

wait_for "the autosave" has_copy_with FetchSince
kill_program
cmp "$place/Shop.kzm" "$place/work/Shop.kzm" >&2

start_program
wait_for "the project that was not saved" has_title "$main*"
save_project_as "$main" Rescued.kzm
wait_for "a project without changes" has_title "$main"
generate_project "$main" Rescued.kzm
does save_project "$main"
wait_for "a project without changes" has_title "$main"
does close "$main"
end_program
has_code "$generated/order.cls" 'Public Property Get Carrier() as Long'
has_code "$generated/order.cls" 'Public Function FetchSince('
cmp "$place/Shop.kzm" "$place/work/Shop.kzm" >&2
echo "done by $way"
