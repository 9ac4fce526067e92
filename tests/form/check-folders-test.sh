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
expect accepted plugin/Hook.cpp ui/Dialog.h
expect accepted ui/Dialog.cpp itemdata/List.h
expect accepted ui/Dialog.cpp icons/icons.h
expect accepted itemdata/List.cpp itemdata/Entry.h
expect accepted itemdata/List.cpp fxext/FXDateInput.h
expect accepted plugin/contract/Host.h fxext/FXDecimal.h
expect accepted host/document/Invoice.cpp host/database/Rows.h
expect accepted host/command/main.cpp host/document/Store.h
expect accepted host/command/main.cpp host/command/Output.h
expect accepted host/windows/Forms.cpp plugin/contract/Forms.h
expect accepted host/windows/Forms.cpp fxext/FXDecimal.h
expect accepted host/windows/IconSet.cpp host/windows/icons/icons.h
expect accepted host/company/Company.cpp host/plugins/Loader.h
expect accepted host/desktop/Window.cpp host/company/Company.h
expect accepted host/desktop/Window.cpp host/windows/IconSet.h
expect accepted host/desktop/Window.cpp plugin/contract/Forms.h
expect accepted fxext/FXDateInput.cpp fxext/FXDecimal.h

expect refused fxext/FXDateInput.cpp itemdata/Entry.h
expect refused itemdata/List.cpp plugin/Hook.h
expect refused itemdata/List.cpp ui/Dialog.h
expect refused itemdata/List.cpp icons/icons.h
expect refused itemdata/List.cpp host/document/Store.h
expect refused plugin/Hook.cpp host/document/Store.h
expect refused plugin/Hook.cpp host/windows/IconSet.h
expect refused ui/Dialog.cpp plugin/Hook.h
expect refused ui/Dialog.cpp host/windows/IconSet.h
expect refused plugin/contract/Host.h plugin/Hook.h
expect refused plugin/contract/Host.h fxext/FXDateInput.h
expect refused host/document/Store.cpp itemdata/List.h
expect refused host/document/Store.cpp plugin/Hook.h
expect refused host/document/Store.cpp fxext/FXDateInput.h
expect refused host/document/Store.cpp host/command/Output.h
expect refused host/windows/Forms.cpp host/desktop/Window.h
expect refused host/windows/Forms.cpp ui/Dialog.h
expect refused host/windows/Forms.cpp fxext/FXDateInput.h
expect refused host/company/Company.cpp host/command/Outcome.h
expect refused host/company/Company.cpp host/desktop/Window.h
expect refused host/desktop/Window.cpp host/command/Outcome.h
expect refused host/desktop/Window.cpp ui/Dialog.h
expect refused host/desktop/Window.cpp fxext/FXDateInput.h
expect refused host/command/main.cpp host/desktop/Window.h
expect refused itemdata/List.cpp Entry.h
expect refused itemdata/List.cpp ../itemdata/Entry.h

exit $failed
