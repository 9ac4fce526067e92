#!/usr/bin/env bash
# What ./run does without a display: a person works with the desktop on a virtual one. Real key presses open a draft of
# the sample company, record a serial number in the dialog of its first item, check the document, repair what is missing
# and save. Pictures, the XML and the printable text stay in a folder that is named at the end. Whether the typed values
# were stored is asked of quillanectl; the exit status says it.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.."

program="$PWD/build/release/host/desktop/quillane"
control="$PWD/build/release/host/command/quillanectl"

if [ "${1:-}" != --on-this-display ]; then
  source packaging/prepare.sh
  install_packages build run
  echo "Building (some minutes the first time; the output goes to build/release.log) ..."
  build_quietly release
  folder="$(mktemp -d "${TMPDIR:-/tmp}/quillane.XXXXXX")"
  echo "There is no display to show it on, so a script works with the desktop on a virtual one, in pictures:"
  exec xvfb-run -a -s "-screen 0 1280x960x24" packaging/run-virtual-display.sh --on-this-display "$folder"
fi

folder="$2"
cd "$folder"
export QUILLANE_DB="$folder/company.db"
# The windows are known by their titles, so their language is fixed; settings of this user stay as they are.
export HOME="$folder" LANGUAGE=hu LC_ALL=C.UTF-8

readonly known_serial=PO6-118203 typed_serial=PO6-118204 typed_contract=K-2025/17
# Titles as regular expressions without accents, which xdotool does not take.
readonly main_title='^company.db .*Quillane$'
readonly seconds=30

give_up() {
  import -window root "$folder/failed.png" || true
  printf '\n%s\nWhat the screen shows: %s\n' "$1" "$folder/failed.png" >&2
  exit 1
}

# until_true COMMAND...: tries until it succeeds; fails when it does not for too long.
until_true() {
  local end=$((SECONDS + seconds))
  until "$@" >/dev/null 2>&1; do
    [ $SECONDS -lt $end ] || return 1
    sleep 0.1
  done
}

# wait_for TITLE: waits until a window with this in its title is there and has the keyboard.
wait_for() {
  local window
  until_true xdotool search --onlyvisible --name "$1" || give_up "No window came whose title has: $1"
  window="$(xdotool search --onlyvisible --name "$1" | tail -n 1)"
  until_true timeout 5 xdotool windowactivate --sync "$window" || give_up "This window does not take the keyboard: $1"
}

is_gone() { ! xdotool search --onlyvisible --name "$1"; }

# wait_until_gone TITLE: waits until no window has this in its title.
wait_until_gone() { until_true is_gone "$1" || give_up "This window stays: $1"; }

press() { xdotool key --clearmodifiers --delay 60 "$@"; }
type_text() { xdotool type --delay 30 -- "$1"; }

# take_picture NAME WHAT: the screen as NAME.png once it keeps still; WHAT says what it shows.
take_picture() {
  local before='' now=''
  for _ in 1 2 3 4 5 6 7 8 9 10; do
    import -window root "$1.png"
    now="$(import -window root rgb:- | md5sum)"
    [ "$now" != "$before" ] || break
    before="$now"
    sleep 0.15
  done
  printf '  %-16s %s\n' "$1.png" "$2"
}

document_has() { "$control" show "$draft" | grep -qF "$1"; }

"$control" init --sample >/dev/null
draft="$("$control" find "$known_serial" | cut -f 1 | sort -u)"
[[ "$draft" =~ ^[0-9]+$ ]] || give_up "The sample company has no single document with the serial number $known_serial."
if document_has "$typed_serial"; then give_up "The sample company has the serial number $typed_serial already."; fi

openbox --sm-disable >openbox.log 2>&1 &
manager=$!
until_true xdotool get_desktop || give_up "The window manager does not start."
"$program" --db "$QUILLANE_DB" >quillane.log 2>&1 &
desktop=$!
trap 'kill $desktop $manager 2>/dev/null || true' EXIT

wait_for "$main_title"
press ctrl+f
type_text "$known_serial"
take_picture 1-search "the documents in which the serial number $known_serial was found"
press Return

title="#$draft .*Quillane\$"
wait_for "$title"
take_picture 2-document "draft $draft, whose check found what is missing"

# The first item: how it is delivered is chosen by its first letters; the serial number goes into the second row.
press ctrl+1
wait_for '^Porral .*teladatai$'
type_text fut
press Tab Tab Down Right
type_text "$typed_serial"
press Return Up Right
type_text 2030.01.31
press Return
take_picture 3-item-data "the serial number $typed_serial recorded in the dialog of the first item"
press alt+o
wait_until_gone 'teladatai$'

# F5 checks; F8 goes to the first problem that is left and opens what repairs it.
press F5
take_picture 4-check "the check, with what is still missing"
press F8
wait_for '^Rendszeres .*teladatai$'
type_text "$typed_contract"
take_picture 5-repair "the missing contract number, repaired from its message"
press alt+o
wait_until_gone 'teladatai$'

press ctrl+s
until_true document_has "$typed_serial" || give_up "The typed serial number was not stored."
take_picture 6-saved "the document, checked and saved"

press ctrl+w
wait_until_gone "$title"
wait_for "$main_title"
press ctrl+q
until_true is_gone "$main_title" || give_up "The desktop does not end."
wait $desktop || give_up "The desktop ended with an error: $(cat quillane.log)"

# What the windows stored, as the command line sees it: the values, a check without errors, the text and the XML.
document_has "$typed_contract" || give_up "The typed contract number was not stored."
"$control" check "$draft" >check.txt || give_up "The check still finds errors: $(cat check.txt)"
"$control" text "$draft" >text.txt
"$control" xml "$draft" >invoice.xml
grep -qF "$typed_serial" text.txt || give_up "The printable text lacks the typed serial number."
grep -qF "$typed_serial" invoice.xml || give_up "The XML lacks the typed serial number."
printf '  %-16s %s\n' invoice.xml "the document as XML" text.txt "what is printed below each item:"
sed 's/^/      /' text.txt

cat <<END

quillanectl finds what was typed in the windows; this is who got the device with that serial number:
$("$control" find "$typed_serial" | sed 's/^/      /')

The pictures, the XML, the text and the company file are in
  $folder
END
