#!/usr/bin/env bash
# Tests the check of the folders' order on small trees made for it. Usage: check-folders-test.sh CHECK
set -euo pipefail
check="$1"
tree="$(mktemp -d)"
trap 'rm -rf "$tree"' EXIT

failed=0
# expect RESULT FILE INCLUDE: what the check must say of one file with this one include.
expect() {
  rm -rf "${tree:?}"/*
  mkdir -p "$tree/$(dirname "$2")"
  printf '#pragma once\n\n#include "%s"\n' "$3" >"$tree/$2"
  local result=accepted report
  report="$("$check" "$tree")" || result=refused
  if [ "$result" != "$1" ]; then
    echo "$2 including $3 was $result, not $1"
    failed=1
  elif [ "$result" = refused ] && [[ "$report" != "$2:3: $3 "* ]]; then
    echo "$2 including $3 was reported as: $report"
    failed=1
  fi
}

expect accepted plugin/Hook.cpp itemdata/List.h
expect accepted plugin/Hook.cpp plugin/contract/Host.h
expect accepted plugin/Hook.cpp icons/icons.h
expect accepted itemdata/List.cpp itemdata/Entry.h
expect accepted itemdata/List.cpp fxext/FXDateInput.h
expect accepted plugin/contract/Host.h fxext/FXDecimal.h
expect accepted host/document/Invoice.cpp host/database/Rows.h
expect accepted host/command/main.cpp host/document/Store.h
expect accepted host/command/main.cpp host/command/Output.h
expect accepted fxext/FXDateInput.cpp fxext/FXDecimal.h

expect refused fxext/FXDateInput.cpp itemdata/Entry.h
expect refused itemdata/List.cpp plugin/Hook.h
expect refused itemdata/List.cpp ui/Dialog.h
expect refused itemdata/List.cpp icons/icons.h
expect refused itemdata/List.cpp host/document/Store.h
expect refused plugin/Hook.cpp host/document/Store.h
expect refused plugin/contract/Host.h plugin/Hook.h
expect refused plugin/contract/Host.h fxext/FXDateInput.h
expect refused host/document/Store.cpp itemdata/List.h
expect refused host/document/Store.cpp plugin/Hook.h
expect refused host/document/Store.cpp fxext/FXDateInput.h
expect refused host/document/Store.cpp host/command/Output.h
expect refused host/command/main.cpp host/desktop/Window.h
expect refused itemdata/List.cpp Entry.h
expect refused itemdata/List.cpp ../itemdata/Entry.h

exit $failed
