#!/usr/bin/env bash
# The checks of form: formatting, order of the folders, translations, white space, executable bits. Changes nothing.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.."

failed=0
complain() {
  echo "$1" >&2
  failed=1
}

# Ours: everything but what git and the build keep for themselves.
mapfile -t files < <(find . \( -path ./.git -o -path ./build \) -prune -o -type f -print | sort)
mapfile -t sources < <(printf '%s\n' "${files[@]}" | grep -E '\.(h|cpp)$')
[ ${#sources[@]} -gt 0 ] || complain "no source files found"

clang-format --dry-run -Werror "${sources[@]}" || complain "clang-format -i puts these in form."

packaging/check-folders.sh || complain "Folders include only what ARCHITECTURE.md allows them."

packaging/update-catalogues.sh --check || complain "The texts and their translations do not match."

for file in "${files[@]}"; do
  if [ "$(head -c 2 "$file" | tr -d '\0')" = '#!' ]; then
    [ -x "$file" ] || complain "$file is a program, but not executable."
  else
    [ ! -x "$file" ] || complain "$file is executable, but no program."
  fi
done

mapfile -t texts < <(grep -lI '' "${files[@]}")
if grep -nE '[[:blank:]]+$' "${texts[@]}"; then complain "These lines end with blanks."; fi
if grep -n $'\r' "${texts[@]}"; then complain "These lines end with a carriage return."; fi
for file in "${texts[@]}"; do
  [ -z "$(tail -c 1 "$file")" ] || complain "$file does not end with a line end."
done

exit $failed
