#!/usr/bin/env bash
# A person's way in a real window, by X events: from a first start and a database file to a saved project, its preview and
# the generated code, and back to the project with a second start.
# usage: database_to_project.sh PROGRAM SAMPLE.sql mouse|keys
set -euo pipefail

# shellcheck source=steps.sh
. "$(dirname "$0")/steps.sh"

is_saved() { "$program" preview "$place/work/Shop.kzm" Customer; }

main=$(titled "New Project")
readonly main
readonly properties='Project Properties'
readonly logon='Open DataSource'
readonly file='Select DataSource File'

connect_by_mouse() {
    click Start 60 83 2 # New
    click "$properties" -137 -22 # OK
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

select_class_by_mouse() { click "$main" 360 104; }

connect_by_keys() {
    keys Start Return
    keys "$properties" Return
    keys "$logon" alt+v Home
    keys "$logon" alt+r alt+d
    type_text "$logon" "$place/work/shop.db"
    keys "$logon" Return
}

select_class_by_keys() { keys "$main" Home Down Down; }

prepare
start_display
start_program
does connect
does add_class "$main" 'Add Customers'
save_preview "$main" before.txt
save_project_as "$main" Shop.kzm
wait_for "the class in the project file" is_saved
generate_project "$main" Shop.kzm
does save_project "$main"
wait_for "a project without changes" has_title "$main"
does close "$main"
end_program
"$program" preview "$place/work/Shop.kzm" Customer >"$place/expected.txt"
tr -d '\r' <"$place/work/before.txt" | diff "$place/expected.txt" - >&2
start_program Shop.kzm
wait_for "the tables of the data source" has_opened_database
for try in 1 2 3 4 5; do # a click is lost while the program still reads, as a person's would be
    does select_class
    save_preview "$main" "after$try.txt"
    ! grep -q '^Class Name: Customer' "$place/work/after$try.txt" || break
done
does close "$main"
end_program
cmp "$place/work/before.txt" "$place/work/after$try.txt"
echo "done by $way"
