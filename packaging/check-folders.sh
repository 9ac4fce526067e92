#!/usr/bin/env bash
# Keeps the folders' order: fails and names the line when a file includes from a folder that it must not know.
# Quoted includes are written from the repository's root. Usage: packaging/check-folders.sh [ROOT]
set -euo pipefail
cd "${1:-"$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.."}"

files=$(find fxext icons itemdata ui plugin host -name '*.h' -o -name '*.cpp' 2>/dev/null | sort) || true
[ -n "$files" ] || { echo "no source files found in $PWD" >&2; exit 1; }

# Of fxext/ the host and the contract know the value types only.
# shellcheck disable=SC2086 # no file name of ours has blanks
awk '
  function folder(path) {
    if (path ~ /^plugin\/contract\//) return "contract"
    if (path ~ /^host\/(command|desktop)\//) return "program"
    if (path ~ /^fxext\/(FXDecimal|FXPair|FXStringIterator)\.h$/) return "values"
    sub(/\/.*/, "", path)
    return path
  }
  function directory(path) { sub(/\/[^\/]*$/, "", path); return path }
  BEGIN {
    may["fxext"] = " fxext values "
    may["values"] = " values "
    may["icons"] = " icons "
    may["contract"] = " contract values "
    may["itemdata"] = " itemdata contract fxext values "
    may["ui"] = " ui itemdata contract fxext values icons "
    may["plugin"] = " plugin ui itemdata contract fxext values icons "
    may["host"] = " host contract values "
    may["program"] = " host contract values "
  }
  /^[ \t]*#[ \t]*include[ \t]*"/ {
    split($0, parts, "\"")
    from = folder(FILENAME)
    to = folder(parts[2])
    if (!(to in may)) problem = "is not written from the root of the repository"
    else if (directory(FILENAME) == directory(parts[2])) problem = ""
    else if (index(may[from], " " to " ")) problem = ""
    else problem = "is not for this folder"
    if (problem != "") { print FILENAME ":" FNR ": " parts[2] " " problem; failed = 1 }
  }
  END { exit failed }
' $files
