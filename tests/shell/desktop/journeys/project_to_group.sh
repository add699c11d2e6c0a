#!/usr/bin/env bash
# A person's way from an open project to the generated project group and back: the wizard with a folder of its own, the
# link to the group, a second run over files that were changed by hand, and, after a second start, one that is given up.
# usage: project_to_group.sh PROGRAM SAMPLE.sql mouse|keys
set -euo pipefail

# shellcheck source=steps.sh
. "$(dirname "$0")/steps.sh"

main=$(titled Shop)
readonly main
readonly conflict='File Exists'

choose_prompt_by_mouse() { click "$wizard" 111 50; }
choose_prompt_by_keys() { keys "$wizard" alt+p; }
choose_backup_by_mouse() { click "$wizard" 111 102; }
choose_backup_by_keys() { keys "$wizard" alt+o; }

# The link comes with the result, a moment after the last file.
opens_group() {
    does click_link
    succeeds_within 5 test -s "$place/opened"
}
click_link_by_mouse() { click "$wizard" 200 -57; }
click_link_by_keys() { keys "$wizard" alt+o; }

# The answers to one question, whose window then goes.
settle() { # ANSWER...
    local id answer
    at "$conflict"
    id=$(xdotool getactivewindow)
    for answer; do
        does "$answer"
    done
    wait_for "the end of a question" has_no_window "$id"
}
has_no_window() { ! xdotool getwindowname "$1"; }

confirm_by_mouse() { click "$conflict" -138 -23; }
confirm_by_keys() { keys "$conflict" Return; }
leave_by_mouse() { click "$conflict" 19 159; }
leave_by_keys() { keys "$conflict" alt+l; }
give_up_run_by_mouse() { click "$conflict" -52 -23; }
give_up_run_by_keys() { keys "$conflict" Escape; }

# The differences make the window larger, and the options move up.
look_at_differences_by_mouse() {
    click "$conflict" 67 -23
    wait_for "the differences" is_wide
    click "$conflict" 93 185 # side by side
    click "$conflict" -64 185 # the next one
    click "$conflict" 19 132 # a backup
}
look_at_differences_by_keys() {
    keys "$conflict" alt+s
    wait_for "the differences" is_wide
    keys "$conflict" alt+i F7 alt+b
}
is_wide() {
    local WIDTH
    eval "$(xdotool getactivewindow getwindowgeometry --shell | grep ^WIDTH=)"
    [ "$WIDTH" -ge 860 ]
}

# What the desktop would open.
take_over_links() {
    mkdir "$place/bin"
    printf '#!/bin/sh\necho "$@" >>"%s/opened"\n' "$place" >"$place/bin/xdg-open"
    chmod +x "$place/bin/xdg-open"
    PATH=$place/bin:$PATH
}

change_by_hand() { # FILE...
    local file
    for file; do
        printf "' mine\r\n" | cat "$place/expected/$file" - >"$generated/$file"
    done
}

prepare
define_project Shop shop.db
mkdir "$place/expected"
"$program" generate "$place/work/Shop.kzm" "$place/expected"
take_over_links
start_display

start_program Shop.kzm
wait_for "the tables of the data source" has_opened_database
choose_new_folder "$main"
does choose_backup
does go_on
wait_for "the files" has_files_of "$place/expected"
wait_for "the group, opened" opens_group
[ "$(sort -u "$place/opened")" = "$generated/TestShop.vbg" ]
wait_for "the end of the wizard" closes_wizard
diff -r "$place/expected" "$generated" >&2
wait_for "a project with changes" has_title "$main*" # its folder
does save_project "$main"
wait_for "a project without changes" has_title "$main"
grep -q "^OutputPath.*$generated" "$place/work/Shop.kzm"

find "$generated" -type f ! -name Shop.vbp ! -name Customer.cls ! -name Order.cls -delete
change_by_hand Customer.cls Order.cls
cp -r "$generated" "$place/before"
wait_for "the wizard" opens_wizard "$main"
does go_on
does go_on
does choose_prompt
does go_on
settle confirm # Shop.vbp, which is the same; the answer that is set makes a backup
settle look_at_differences confirm
settle leave confirm
cp "$place/before/Customer.cls" "$place/expected/Customer.cls.BAK"
cp "$place/before/Shop.vbp" "$place/expected/Shop.vbp.BAK"
cp "$place/before/Order.cls" "$place/expected/Order.cls"
wait_for "the files" has_files_of "$place/expected"
wait_for "the end of the wizard" closes_wizard
diff -r "$place/expected" "$generated" >&2
wait_for "a project without changes" has_title "$main"
does close "$main"
end_program

start_program Shop.kzm
wait_for "the tables of the data source" has_opened_database
wait_for "the wizard" opens_wizard "$main"
does go_on
does go_on
does go_on
settle give_up_run
wait_for "the end of the wizard" closes_wizard
diff -r "$place/expected" "$generated" >&2
does close "$main"
end_program
echo "done by $way"
