#!/usr/bin/env bash
# A person's way through the editor of a class in a real window, on a PostgreSQL database: a field with another name and
# a lookup, a method with arguments, built-in members, a stored procedure, the relationship taken off and joined by hand,
# and the collection; then the code of all of it.
# usage: edit_a_class.sh PROGRAM SAMPLE.sql keys
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

# A key is lost while the program still reads the data source. The class stands at the end of its branch.
opens_editor() {
    if is_active "$main"; then
        keys "$main" Home Down Down Down Down ctrl+e
    fi
    succeeds_within 5 is_active "$1"
}
open_editor() { wait_for "the editor of the class" opens_editor "$1"; } # ITS TITLE

# Another name, and a lookup that brings a field in under a name of its own.
edit_field() {
    does name_field Carrier
    keys "$field" ctrl+Tab alt+b Down Down Down
    keys "$field" alt+f Down space F2 ctrl+a
    type_text "$field" CarrierName
    keys "$field" Return alt+j Return
}

# With two arguments, the second of them optional.
add_method() {
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
add_built_in_members() {
    keys "$editor" ctrl+b
    keys "$methods" space Return
    keys "$editor" alt+e alt+t Home Delete
    keys 'Confirm Delete Event' Left Return # Cancel is offered
    keys "$editor" ctrl+b
    keys "$events" space Return
}

# Takes the join off, and makes it again of its two fields.
join_by_hand() {
    keys "$editor" alt+r alt+j Home Delete
    keys 'Confirm Delete Relationship' Left Return
    keys "$editor" alt+a Home alt+t Home Down alt+d
}

name_collection() {
    keys "$editor" alt+o alt+n ctrl+a
    type_text "$editor" AllOrders
}

# A name that no class may have keeps the editor open until it is mended.
rename_class() {
    keys "$editor" alt+c alt+n ctrl+a
    type_text "$editor" 'Sales order'
    keys "$editor" Return
    keys 'Invalid Class Name' Return
    keys "$editor" ctrl+a
    type_text "$editor" Purchase
    keys "$editor" Return
}

# What is changed and not wanted is gone with a word.
change_and_cancel() {
    keys 'Edit Purchase' alt+n ctrl+a
    type_text 'Edit Purchase' Nothing
    keys 'Edit Purchase' Escape
    keys 'Discard Changes?' alt+y
    at "$main"
}

prepare
make_postgresql_database
define_shop
start_display
start_program Shop.kzm
open_editor "$editor"
edit_field
add_method
add_built_in_members
does add_procedure FetchSince
join_by_hand
name_collection
rename_class
wait_for "the mark of a change" has_title "$main*"
save_project_by_keys "$main"
wait_for "the class in the project file" "$program" preview "$place/work/Shop.kzm" Purchase
close_by_keys "$main"
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
keys 'Edit Purchase' Escape
save_preview "$main" before.txt
open_editor 'Edit Purchase'
change_and_cancel
save_preview "$main" after.txt
close_by_keys "$main"
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
