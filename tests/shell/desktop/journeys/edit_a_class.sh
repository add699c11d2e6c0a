#!/usr/bin/env bash
# A person's way through the editor of a class in a real window, on a PostgreSQL database: a field with another name and
# a lookup, a method with arguments, built-in members, a stored procedure, the relationship taken off and joined by hand,
# and the collection; then the code of all of it.
# usage: edit_a_class.sh PROGRAM SAMPLE.sql mouse|keys
set -euo pipefail

# shellcheck source=steps.sh
. "$(dirname "$0")/steps.sh"
# shellcheck source=postgresql.sh
. "$(dirname "$0")/postgresql.sh"

main=$(titled Shop)
readonly main
readonly method='Add New Method' argument='Add Argument'
readonly methods='Add Built-In Methods' events='Add Built-In Events'

define_shop() {
    "$program" define "$place/work/Shop.kzm" --table customers --table orders=customers --set ProjectName=Shop \
        --set VBProjectName=Shop --set MTSEnabled=False --connection \
        "PROVIDER=MSDASQL;Driver=PostgreSQL Unicode;Server=$server;Port=5432;Database=$database;UID=veldrane;" >/dev/null
}

# The class stands at the end of its branch.
open_editor_by_mouse() { click "$1" 395 140 2; }
open_editor_by_keys() { keys "$1" Home Down Down Down Down ctrl+e; }
open_editor() { wait_for "the editor of the class" opens "$1" open_editor "$main"; } # ITS TITLE

delete_by_mouse() { click "$1" -138 -23; } # TITLE OF THE QUESTION
delete_by_keys() { keys "$1" Left Return; } # Cancel is offered

# A lookup brings a field in under a name of its own.
add_lookup_by_mouse() {
    click "$field" 116 24 # the tab Lookup
    click "$field" 200 58 3 5 # the third table, by the wheel
    click "$field" 33 188 # its first field
    click "$field" 275 188 2
    type_text "$field" CarrierName
    click "$field" 65 143 # out of the name
    click "$field" -137 -22
}
add_lookup_by_keys() {
    keys "$field" ctrl+Tab alt+b Down Down Down
    keys "$field" alt+f Down space F2 ctrl+a
    type_text "$field" CarrierName
    keys "$field" Return alt+j Return
}

# With two arguments, the second of them optional.
add_method_by_mouse() {
    click "$editor" 279 24 # the tab Methods
    click "$editor" 438 86 # New Method
    type_text "$method" Ship
    click "$method" 311 156 # New
    type_text "$argument" aDate
    click "$argument" 208 47 7 4 # the type, by the wheel
    click "$argument" 126 74 # ByVal
    click "$argument" -137 -23
    click "$method" 311 156
    type_text "$argument" aNote
    click "$argument" 126 126 # Optional
    click "$argument" -137 -23
    click "$method" -138 -22
}
add_method_by_keys() {
    keys "$editor" alt+m alt+h Insert
    type_text "$method" Ship
    keys "$method" alt+a Insert
    type_text "$argument" aDate
    keys "$argument" alt+t
    type_text "$argument" Date
    keys "$argument" alt+b Return
    keys "$method" Insert
    type_text "$argument" aNote
    keys "$argument" alt+o Return
    keys "$method" alt+n Return
}

# The first one that the class lacks.
add_built_in_method_by_mouse() {
    click "$editor" 458 131
    click "$methods" 22 193
    click "$methods" -137 -22
}
add_built_in_method_by_keys() {
    keys "$editor" ctrl+b
    keys "$methods" space Return
}

# The first one is deleted before.
add_built_in_event_by_mouse() {
    click "$editor" 349 24 # the tab Events
    click "$editor" 85 101
    click "$editor" 478 154 # Delete Event
    does delete 'Confirm Delete Event'
    click "$editor" 478 131 # Built-in Events
    click "$events" 21 67
    click "$events" -137 -22
}
add_built_in_event_by_keys() {
    keys "$editor" alt+e alt+t Home Delete
    does delete 'Confirm Delete Event'
    keys "$editor" ctrl+b
    keys "$events" space Return
}

# Takes the join off, and makes it again of its two fields.
join_by_hand_by_mouse() {
    click "$editor" 431 24 # the tab Relationship
    click "$editor" 154 414
    click "$editor" 448 423 # Delete Relationship
    does delete 'Confirm Delete Relationship'
    click "$editor" 80 121
    click "$editor" 343 139
    click "$editor" 280 344 # Add Relationship
}
join_by_hand_by_keys() {
    keys "$editor" alt+r alt+j Home Delete
    does delete 'Confirm Delete Relationship'
    keys "$editor" alt+a Home alt+t Home Down alt+d
}

name_collection_by_mouse() {
    click "$editor" 111 24 # the tab Collections
    click "$editor" 335 82 2
    type_text "$editor" AllOrders
}
name_collection_by_keys() {
    keys "$editor" alt+o alt+n ctrl+a
    type_text "$editor" AllOrders
}

name_class_by_mouse() { # TITLE NAME
    click "$1" 38 24 # the tab Class
    click "$1" 321 57 3
    type_text "$1" "$2"
}
name_class_by_keys() { # TITLE NAME
    keys "$1" alt+c alt+n ctrl+a
    type_text "$1" "$2"
}

# A name that no class may have keeps the editor open until it is mended.
rename_class() {
    does name_class "$editor" 'Sales order'
    does press_ok "$editor"
    does dismiss 'Invalid Class Name'
    does name_class "$editor" Purchase
    does press_ok "$editor"
}
dismiss_by_mouse() { click "$1" -52 -23; } # TITLE
dismiss_by_keys() { keys "$1" Return; }

cancel_by_mouse() { click "$1" -52 -22; } # TITLE
cancel_by_keys() { keys "$1" Escape; }
discard_by_mouse() { click 'Discard Changes?' -138 -23; }
discard_by_keys() { keys 'Discard Changes?' alt+y; }

prepare
make_postgresql_database
define_shop
start_display
start_program Shop.kzm
open_editor "$editor"
does name_field Carrier
does add_lookup
does add_method
does add_built_in_method
does add_procedure FetchSince
does add_built_in_event
does join_by_hand
does name_collection
rename_class
wait_for "the mark of a change" has_title "$main*"
does save_project "$main"
wait_for "the class in the project file" "$program" preview "$place/work/Shop.kzm" Purchase
does close "$main"
end_program
cp "$place/work/Shop.kzm" "$place/saved.kzm"
for saved in 'Class Purchase' 'Property Carrier' 'Method Ship' 'Argument aNote' 'Method RetrieveList' 'Method FetchSince' \
    'Relationship customers:customerid=orders:customerid'; do
    has_code "$place/saved.kzm" "Begin $saved"
done
[ "$(grep -c '^Begin Relationship ' "$place/saved.kzm")" -eq 1 ]
grep '^Begin Event ' "$place/saved.kzm" | tail -1 | grep RecordAdded >/dev/null # it was deleted before

start_program Shop.kzm
open_editor 'Edit Purchase'
does cancel 'Edit Purchase'
save_preview "$main" before.txt
open_editor 'Edit Purchase'
does name_class 'Edit Purchase' Nothing
does cancel 'Edit Purchase'
does discard # with a word, as something was changed
save_preview "$main" after.txt
does close "$main"
end_program
cmp "$place/saved.kzm" "$place/work/Shop.kzm"
"$program" preview "$place/work/Shop.kzm" Purchase >"$place/expected.txt"
for file in before after; do
    tr -d '\r' <"$place/work/$file.txt" | diff "$place/expected.txt" - >&2
done

mkdir "$place/out"
"$program" generate "$place/work/Shop.kzm" "$place/out" >/dev/null
has_code "$place/out/Purchase.cls" 'Public Property Get Carrier() as Long'
has_code "$place/out/Purchase.cls" 'Public Property Get CarrierName() as String'
has_code "$place/out/Purchase.cls" 'Public Sub Ship(ByVal aDate as Date, Optional ByRef aNote as Variant)'
has_code "$place/out/Purchase.cls" 'Public Function RetrieveList('
has_code "$place/out/Purchase.cls" 'Public Event RecordAdded('
has_code "$place/out/Purchase.cls" 'Public Function FetchSince('
has_code "$place/out/AllOrders.cls" 'Public Function RetrieveRelated(ByVal customerid as Long'
echo "done by $way"
