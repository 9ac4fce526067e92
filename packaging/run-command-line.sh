#!/usr/bin/env bash
# What ./run --command-line does: builds the programs, makes a sample company in a temporary folder, takes one invoice
# through its item data and a delivery note through its invoices, with the command lines that a person would type.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.."
source packaging/prepare.sh

install_packages build
echo "Building (a minute or two the first time; the output goes to build/release.log) ..."
build_quietly release

programs="$PWD/build/release/host/command"
folder="$(mktemp -d "${TMPDIR:-/tmp}/quillane.XXXXXX")"
cd "$folder"
export PATH="$programs:$PATH"
export QUILLANE_DB="$folder/company.db"

tell() { printf '\n%s\n' "$*"; }

# call COMMAND...: shows the command line and what it prints; gives its exit status on.
call() {
  printf '  $ %s\n' "$*"
  "$@" 2>&1 | sed 's/^/    /'
}

give_up() {
  printf '\n%s\n' "$1" >&2
  exit 1
}

# status_of ID: the code of a document's status.
status_of() { quillanectl show "$1" | awk -F '\t' '$1 == "document" { print $4 }'; }

# quantities_of ID: the quantities of a document's items and of their unit rows.
quantities_of() {
  quillanectl show "$1" |
    awk -F '\t' '$1 == "item" { print $2, $5 } $1 == "value" && $4 == "Mennyiség" { print $2, $3, $6 }'
}

tell "A new company file, filled with a small Hungarian company:"
call quillanectl init --sample

# The drafts are searched for one whose goods lack a serial number, so that the keys of the sample do not matter here.
draft='' goods='' service=''
for document in $(quillanectl invoices | awk -F '\t' '$4 == 101 { print $1 }'); do
  items="$(quillanectl show "$document")"
  goods="$(awk -F '\t' '$1 == "value" && $4 == "Gyári szám" && $6 == "" { print $2; exit }' <<<"$items")"
  service="$(awk -F '\t' '$1 == "value" && $4 == "Szerződésszám" && $6 == "" { print $2; exit }' <<<"$items")"
  if [ -n "$goods" ] && [ -n "$service" ]; then
    draft="$document"
    break
  fi
done
[ -n "$draft" ] || give_up "The sample company has no draft that lacks a serial number and a contract number."

tell "Draft $draft is not complete. The check names every field that is missing and ends with exit status 1:"
if call quillanectl check "$draft"; then give_up "The check found nothing, although values are missing."; fi

cat >goods.csv <<'CSV'
Szállítás módja,Mennyiség,Gyári szám,Lejárat
futár,1,PO6-118203,2030.01.31
,1,PO6-118204,2030.01.31
CSV
tell "Item $goods gets its data from a table: how it is delivered is recorded once, serial number and expiry per unit."
call cat goods.csv
call quillanectl record "$draft" "$goods" goods.csv

cat >service.csv <<'CSV'
Szerződésszám
K-2025/17
CSV
tell "Item $service lacks its contract number:"
call cat service.csv
call quillanectl record "$draft" "$service" service.csv

tell "Now only a value is left that may be missing. It is mentioned, but the exit status is 0:"
call quillanectl check "$draft" || give_up "The check still finds errors."

tell "The draft is loaded and saved through the module, as a program with windows does it, and read back:"
call quillanectl save "$draft"
call quillanectl show "$draft"
quillanectl show "$draft" | grep -q "Gyári szám.*PO6-118204" || give_up "The recorded serial number was not read back."

tell "What is printed below each item, and the document as XML:"
call quillanectl text "$draft"
call quillanectl xml "$draft"

tell "Who got the device with this serial number?"
call quillanectl find PO6-118204

# The delivery note is searched for by a device on it.
note=''
for document in $(quillanectl find PO6-118302 | cut -f 1); do
  if [ "$(status_of "$document")" = 451 ]; then note="$document"; fi
done
[ -n "$note" ] || give_up "The sample company has no closed delivery note with the device PO6-118302."

tell "Delivery note $note is closed (status 451), and an earlier invoice took a part of it. What was delivered:"
call quillanectl show "$note"

tell "An invoice of it begins as a draft (101) with what is still open, row by row. Used-up rows have no quantity:"
call quillanectl derive "$note" 101
invoice="$(quillanectl invoices | cut -f 1 | sort -n | tail -n 1)"
call quillanectl show "$invoice"
open="$(quantities_of "$invoice")"
[ "$open" != "$(quantities_of "$note")" ] || give_up "The draft has everything, although a part was invoiced before."

tell "Its check finds nothing, so it can be closed (151) and gets its number, the second field:"
call quillanectl check "$invoice" || give_up "The check finds errors on the derived draft."
call quillanectl status "$invoice" 151

tell "Now nothing is left of the delivery note. Another invoice is refused, with exit status 1:"
if call quillanectl derive "$note" 101; then give_up "An invoice was made, although nothing was open."; fi

tell "The invoice was a mistake: a document that cancels it (152) gives the delivery note its quantity back."
call quillanectl derive "$invoice" 152
call quillanectl derive "$note" 101
again="$(quillanectl invoices | cut -f 1 | sort -n | tail -n 1)"
call quillanectl show "$again"
[ "$(quantities_of "$again")" = "$open" ] || give_up "The cancelled quantity did not come back."

cat <<END

That was: a company file made, item data recorded on a draft from two small tables, checked, saved, read back, printed
and exported; then a delivery note invoiced, the invoice closed and cancelled, and invoiced again. The company stays in
$folder. To go on with it:

  export PATH="$programs:\$PATH"
  export QUILLANE_DB="$QUILLANE_DB"
  quillanectl invoices                 all documents
  quillanectl variables                the fields that articles can ask for
  quillanectl --json show $draft            a document for other programs
  quillanectl status $draft 151             closes a draft, which gets its number
  quillanectl derive $note 101            an invoice of what is open of a document; 152 cancels a closed one
  quillanectl delete $again                what is not closed can go
  quillanectl --trace-sql check $draft      the SQL behind a command
  quillanectl add variable --help      a field of your own
  quillanectl --help                   everything else
END
