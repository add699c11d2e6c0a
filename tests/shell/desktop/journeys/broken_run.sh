#!/usr/bin/env bash
# A run of the wizard in a real window that does not come to its end: cancelled between two files, and killed at several
# moments. Whatever was there or was written is whole, and the next run makes up for all of it.
# usage: broken_run.sh PROGRAM SAMPLE.sql mouse|keys
set -euo pipefail

# shellcheck source=steps.sh
. "$(dirname "$0")/steps.sh"

main=$(titled Parts)
readonly main
readonly target=$place/work/out classes=60
total=0 # files of a run

make_parts() {
    local number
    for number in $(seq "$classes"); do
        echo "CREATE TABLE Part$number (PartID INTEGER PRIMARY KEY, Name VARCHAR(60), Price INTEGER);"
    done | sqlite3 "$place/work/parts.db"
    define_project Parts parts.db --set OutputPath="$target"
    mkdir "$target" "$place/new" "$place/old"
    "$program" generate "$place/work/Parts.kzm" "$place/new"
    local file name
    for file in "$place/new"/*; do
        name=${file##*/}
        echo "' old" | cat "$file" - >"$place/old/$name"
        ln "$place/old/$name" "$place/old/$name.BAK"
        ln "$file" "$place/new/$name.BAK" # of a run behind a broken one
        total=$((total + 1))
    done
    printf '\n[GenerateCodeSettings]\nPrompt=False\nOverwrite=True\n' >>"$place/settings.ini"
}

put_old_files() {
    rm -rf "$target"
    cp -r "$place/old" "$target"
    rm "$target"/*.BAK
    touch "$place/before"
}

start_run() {
    wait_for "the wizard" opens_wizard "$main"
    for _ in folder options run; do
        does go_on
    done
}

# Files are written beside their targets, and renamed at the end of the run. Both are looked for without a process of
# its own, so that the moment is not missed; where it is, the next one is taken.
shopt -s nullglob
count_staged() {
    local files=("$target"/.veldrane-*)
    staged=${#files[@]}
}
is_renaming() { [ "$target/Parts.vbp" -nt "$place/before" ]; }
watch_until() { # COMMAND...
    local end=$((SECONDS + hang_guard))
    until "$@" || is_renaming; do
        [ "$SECONDS" -lt "$end" ] || give_up "no file was written"
    done
}
has_staged() { # COUNT
    count_staged
    [ "$staged" -ge "$1" ]
}

# The names of the target's files that are as in this folder.
same_as() {
    { diff -rqs "$1" "$target" || true; } | sed -n 's|^Files .* and .*/\(.*\) are identical$|\1|p' | sort
}
count_new() { same_as "$place/new" | grep -vc '\.BAK$' || true; }
is_done() { [ "$(count_new)" -eq "$total" ]; }
has_none_staged() { count_staged && [ "$staged" -eq 0 ]; }

# Each file and each backup is the old or the new one.
check_files() {
    diff <(sort -u <(same_as "$place/old") <(same_as "$place/new")) <(find "$target" -name '[!.]*' -type f -printf '%f\n' | sort) >&2
}

# The program is held until the person has cancelled. False if all files were there before that.
cancels_run() {
    put_old_files
    start_run
    watch_until has_staged 5
    kill -STOP "$running"
    local late=0
    ! is_renaming || late=1
    does close_wizard
    kill -CONT "$running"
    wait_for "the end of the wizard" closes_wizard
    return "$late"
}

kill_run() { # MOMENT...
    put_old_files
    start_program Parts.kzm
    wait_for "the project" has_opened_database
    start_run
    watch_until "$@"
    kill_program
    check_files
}

finish_run() {
    start_program Parts.kzm
    wait_for "the project" has_opened_database
    start_run
    wait_for "all files" is_done
    wait_for "the end of the wizard" closes_wizard
}
prepare
make_parts
start_display

start_program Parts.kzm
wait_for "the project" has_opened_database
wait_for "a cancelled run" cancels_run
check_files
has_none_staged
written=$(count_new)
echo "cancelled after $written files"
[ "$written" -gt 0 ] && [ "$written" -lt "$total" ]
does close "$main"
end_program

for count in 1 80; do
    kill_run has_staged "$count"
    echo "killed with $(count_new) new files"
done
kill_run is_renaming
echo "killed with $(count_new) new files"

finish_run
check_files
has_none_staged
does close "$main"
end_program
echo "done by $way"
