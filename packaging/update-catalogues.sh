#!/usr/bin/env bash
# Brings the message catalogues in po/ in line with the texts in the code: new texts come in untranslated, texts that are
# gone go. What is left to translate is listed at the end; write it into the .po files.
# Usage: packaging/update-catalogues.sh [--check | --unmarked] [ROOT]
#   --check     changes nothing; fails and says why when a text lacks a translation, or when one does not fit its text
#   --unmarked  changes nothing; lists literals with accented letters that no catalogue would have
set -euo pipefail
mode=--update
if [[ "${1:-}" = --* ]]; then
  mode="$1"
  shift
fi
cd "${1:-"$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.."}"
# The catalogues are UTF-8; what the tools say is English for everybody.
export LC_ALL=C.UTF-8
unset LANGUAGE

work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT

mapfile -t sources < <(find fxext itemdata ui plugin host -name '*.h' -o -name '*.cpp' 2>/dev/null | sort)
[ ${#sources[@]} -gt 0 ] || { echo "no source files found in $PWD" >&2; exit 1; }

# extract OPTION... -- FILE...: the texts in the files, to standard output. Of where they stand only the file is kept,
# and no date: else every change of the code would change the catalogues.
extract() {
  xgettext --language=C++ --from-code=UTF-8 --add-location=file --package-name=quillane --output=- "$@" |
    sed '/^"POT-Creation-Date:/d'
}

# Which catalogue a text belongs in:
#   dgettext("DOMAIN", "...")  the one that it names
#   dgettext(kDomain, "...")   its folder's, which is the module's for plugin/ and ui/, else quillane
#   N_("...")                  likewise
#   gettext("...")             quillane, the programs' default
# To tell the domains apart, a call that names one becomes a call of a function of that domain here.
for file in "${sources[@]}"; do
  case "$file" in
    plugin/* | ui/*) own=text_of_QuillanePluginItemData ;;
    *) own=text_of_quillane ;;
  esac
  mkdir -p "$work/code/$(dirname "$file")"
  own=$own perl -0pe 's/\bdgettext\((\s*)"(\w+)"\s*,/text_of_$2($1/g; s/\bdgettext\((\s*)k\w+\s*,/$ENV{own}($1/g;
    s/^#define N_.*$//mg; s/\bN_\(/$ENV{own}(/g' "$file" >"$work/code/$file"
done

(
  cd "$work/code"
  extract --keyword --keyword=gettext --keyword=text_of_quillane "${sources[@]}" >"$work/quillane.pot"
  extract --keyword --keyword=text_of_QuillanePluginItemData "${sources[@]}" >"$work/QuillanePluginItemData.pot"
)
# The toolkit's texts stand in a list, since its source is not here.
extract --keyword --keyword=tr po/quillane-toolkit/texts.txt >"$work/quillane-toolkit.pot"

if [ "$mode" = --unmarked ]; then
  # What xgettext would remark is about literals that are no texts.
  (cd "$work/code" && extract --extract-all "${sources[@]}" >"$work/all.pot" 2>/dev/null)
  msgcat --use-first "$work/quillane.pot" "$work/QuillanePluginItemData.pot" >"$work/known.pot"
  msgcomm --unique "$work/all.pot" "$work/known.pot" 2>/dev/null |
    LC_ALL=C awk -v RS= -v ORS='\n\n' '/(^|\n)(msgid )?"[^\n]*[\303-\305]/'
  exit
fi

failed=0
complain() {
  echo "$1" >&2
  failed=1
}

# Hungarian is what the code is written in, English what the toolkit is.
catalogues=(po/quillane/{en,de}.po po/QuillanePluginItemData/{en,de}.po po/quillane-toolkit/{hu,de}.po)

if [ "$mode" = --check ]; then
  for catalogue in "${catalogues[@]}"; do
    domain="$(basename "$(dirname "$catalogue")")"
    [ -s "$catalogue" ] || { complain "$catalogue is missing."; continue; }
    msgmerge --quiet --no-fuzzy-matching "$catalogue" "$work/$domain.pot" >"$work/merged.po"
    for state in --untranslated --only-fuzzy; do
      missing="$(msgattrib "$state" --no-obsolete --add-location=file "$work/merged.po" | sed '1,/^$/d')"
      [ -z "$missing" ] ||
        complain "$catalogue lacks translations. packaging/update-catalogues.sh puts these texts in:"$'\n'"$missing"
    done
    msgfmt --check-format --check-domain --output-file=/dev/null "$catalogue" ||
      complain "$catalogue has translations that do not fit."
  done
  exit $failed
fi

# begin_catalogue LANGUAGE: a catalogue without texts.
begin_catalogue() {
  printf 'msgid ""\nmsgstr ""\n'
  printf '"%s\\n"\n' 'Project-Id-Version: quillane' "Language: $1" 'MIME-Version: 1.0' \
    'Content-Type: text/plain; charset=UTF-8' 'Content-Transfer-Encoding: 8bit'
}

for catalogue in "${catalogues[@]}"; do
  domain="$(basename "$(dirname "$catalogue")")"
  language="$(basename "$catalogue" .po)"
  if [ ! -s "$catalogue" ]; then begin_catalogue "$language" >"$catalogue"; fi
  msgmerge --quiet --no-fuzzy-matching --add-location=file "$catalogue" "$work/$domain.pot" |
    msgattrib --no-obsolete --add-location=file |
    sed '/^"POT-Creation-Date:/d; /^"PO-Revision-Date:/d' >"$work/merged.po"
  cmp -s "$work/merged.po" "$catalogue" || cp "$work/merged.po" "$catalogue"
  todo="$(msgattrib --untranslated --no-obsolete "$catalogue" | grep -c '^msgid' || true)"
  if [ "$todo" -gt 0 ]; then echo "$catalogue: $((todo - 1)) to translate"; fi
done
