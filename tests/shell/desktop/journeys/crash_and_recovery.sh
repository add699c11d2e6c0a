#!/usr/bin/env bash
# A program that is killed, in a real window: what its last autosave held comes back at the next start, whether or not
# the person wants to open something else, and no other program takes it.
# usage: crash_and_recovery.sh PROGRAM SAMPLE.sql mouse|keys FAST_CLOCK.so
set -euo pipefail

# shellcheck source=steps.sh
. "$(dirname "$0")/steps.sh"

shop=$(titled Shop)
desk=$(titled Desk)
new=$(titled 'New Project')
readonly shop desk new fast_clock=$4
readonly detected='Recoverable File Detected' changes='Save Changes?' start='Start'

# The root of the tree is the project. A key is lost while the program still reads.
renames_project() {
    ! has_title "$desk*" || return 0
    xdotool key Escape
    does open_label
    xdotool type --delay 15 Desk
    xdotool key Return
    succeeds_within 5 has_title "$desk*"
}
open_label_by_mouse() {
    click "$shop" 300 68 1 3
    succeeds_within 5 has_popup
    xdotool mousemove_relative 40 32 click 1 # Rename
}
open_label_by_keys() { keys "$shop" Home F2; }

# The entries of copies in the settings.
has_entry() { grep -q '\.kzm=' "$place/settings.ini"; }
has_no_entry() { ! has_entry; }

keep_crash() {
    mkdir "$place/crash"
    cp -a "$place/state" "$place/settings.ini" "$place/crash"
}
bring_crash_back() {
    rm -r "$place/state"
    cp -a "$place/crash/." "$place"
}

# The buttons Yes, No, Cancel of a question.
answer_by_mouse() { # TITLE yes|no|cancel
    local -A places=([yes]=-224 [no]=-138 [cancel]=-52)
    click "$1" "${places[$2]}" -23
}
answer_by_keys() { # TITLE yes|no|cancel
    local -A names=([yes]=alt+y [no]=alt+n [cancel]=Escape)
    keys "$1" "${names[$2]}"
}

leave_start_by_mouse() { click "$start" -52 -23; }
leave_start_by_keys() { keys "$start" Escape; }

close_without_saving() { # TITLE
    does close "$1"
    does answer "$changes" no
    end_program
}

prepare
define_project Shop shop.db
cp "$place/work/Shop.kzm" "$place/Shop.kzm"
start_display

start_with_fast_clock "$fast_clock" Shop.kzm
wait_for "the tables of the data source" has_opened_database
wait_for "a project with changes" renames_project
wait_for "the autosave" has_copy_with Desk
kill_program
cmp "$place/Shop.kzm" "$place/work/Shop.kzm" >&2
keep_crash

start_program
wait_for "the project that was not saved" has_title "$desk*"
wait_for "a copy in place of the former one" has_copy_with Desk
kill_program
start_program
wait_for "the project again" has_title "$desk*"
wait_for "a copy in place of the former one" has_copy_with Desk
save_preview "$desk" recovered.txt
grep -q 'Project Has Been Recovered: True' "$place/work/recovered.txt"

first=$running
start_program # beside the other one
at "$start"
does leave_start
does close "$new"
end_program
running=$first
has_copy_with Desk

save_project_as "$desk" Rescued.kzm
wait_for "a project without changes" has_title "$desk"
does close "$desk"
end_program
"$program" preview "$place/work/Rescued.kzm" Root | grep '^Project Name: *Desk' >/dev/null
has_no_entry
start_program
at "$start" # and nothing to recover
does leave_start
does close "$new"
end_program

bring_crash_back
start_program Shop.kzm
does answer "$detected" cancel
end_program
has_entry
diff -r --exclude "*.lock" "$place/crash/state" "$place/state" >&2

start_program Shop.kzm
does answer "$detected" yes
wait_for "the project that was not saved" has_title "$desk*"
close_without_saving "$desk"
has_no_entry

bring_crash_back
start_program Shop.kzm
does answer "$detected" no
wait_for "the project that was named" has_title "$shop"
does close "$shop"
end_program
has_no_entry
cmp "$place/Shop.kzm" "$place/work/Shop.kzm" >&2
echo "done by $way"
