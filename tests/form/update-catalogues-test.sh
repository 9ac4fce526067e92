#!/usr/bin/env bash
# Tests the care of the message catalogues on a small tree made for it. Usage: update-catalogues-test.sh UPDATE
set -euo pipefail
update="$1"
tree="$(mktemp -d)"
trap 'rm -rf "$tree"' EXIT
export LC_ALL=C.UTF-8

failed=0
complain() {
  echo "$1" >&2
  failed=1
}

# translate CATALOGUE TEXT TRANSLATION: fills in a translation that is missing.
translate() {
  text="$2" translation="$3" perl -0pi -e \
    's/(msgid "\Q$ENV{text}\E"\nmsgstr )""\n/$1"$ENV{translation}"\n/ or die "$ENV{text} is not to translate\n"' \
    "$tree/po/$1"
}

# has CATALOGUE TEXT: whether the text stands in the catalogue.
has() { grep -qF "msgid \"$2\"" "$tree/po/$1"; }

# expect_refusal WORD: the check has to fail and say this word.
expect_refusal() {
  local report
  if report="$("$update" --check "$tree" 2>&1)"; then
    complain "The check found nothing, though it should name: $1"
  elif [[ "$report" != *"$1"* ]]; then
    complain "The check does not name $1 but says: $report"
  fi
}

expect_acceptance() {
  local report
  report="$("$update" --check "$tree" 2>&1)" || complain "The check refuses what is complete: $report"
}

mkdir -p "$tree"/{host/desktop,itemdata,plugin,po/quillane,po/QuillanePluginItemData,po/quillane-toolkit}
cat >"$tree/host/desktop/Window.cpp" <<'CODE'
#define N_(text) text
const char* names[] = {N_("Szám")};
FXString text = FXStringFormat(dgettext("quillane", "%d tétel"), count);
const char* other = dgettext("QuillanePluginItemData", "Modul");
const char* bare = "Jelöletlen betű: ő";
CODE
cat >"$tree/itemdata/List.cpp" <<'CODE'
const char* message = gettext("Üzenet");
CODE
cat >"$tree/plugin/Container.cpp" <<'CODE'
const char* name = dgettext(kDomain, N_("Név"));
const char* lines = dgettext(
    "QuillanePluginItemData",
    "Leírás");
CODE
echo 'tr("&Yes")' >"$tree/po/quillane-toolkit/texts.txt"

expect_refusal "po/quillane/en.po is missing"
"$update" "$tree" >/dev/null

# Each text is in the catalogues of its domain, and only there.
for text in "Szám" "%d tétel" "Üzenet"; do
  has quillane/de.po "$text" || complain "$text is not in the host's catalogue."
  ! has QuillanePluginItemData/de.po "$text" || complain "$text is in the module's catalogue."
done
for text in "Modul" "Név" "Leírás"; do
  has QuillanePluginItemData/en.po "$text" || complain "$text is not in the module's catalogue."
  ! has quillane/en.po "$text" || complain "$text is in the host's catalogue."
done
has quillane-toolkit/hu.po "&Yes" || complain "The toolkit's text is not in its catalogue."

# Texts that come in are not translated yet.
expect_refusal "Üzenet"
for language in en de; do
  for text in "Szám" "Üzenet"; do translate "quillane/$language.po" "$text" "$language"; done
  for text in "Modul" "Név" "Leírás"; do translate "QuillanePluginItemData/$language.po" "$text" "$language"; done
done
for language in hu de; do translate "quillane-toolkit/$language.po" "&Yes" "$language"; done
translate quillane/en.po "%d tétel" "%d items"

# A translation must have the directives of its text.
cp -r "$tree/po" "$tree/po.before"
translate quillane/de.po "%d tétel" "%s Positionen"
expect_refusal "has translations that do not fit"
rm -rf "$tree/po"
mv "$tree/po.before" "$tree/po"
expect_refusal "%d tétel"
translate quillane/de.po "%d tétel" "%d Positionen"
expect_acceptance

# A fuzzy translation is none.
sed -i '/^msgid "Szám"/i #, fuzzy' "$tree/po/quillane/en.po"
expect_refusal "Szám"
sed -i '/^#, fuzzy$/d' "$tree/po/quillane/en.po"
expect_acceptance

# Nothing changes when there is nothing to do; what stands where makes no difference; what is gone goes.
before="$(cat "$tree"/po/*/*.po)"
sed -i '1i // One line more.' "$tree/host/desktop/Window.cpp"
"$update" "$tree"
[ "$(cat "$tree"/po/*/*.po)" = "$before" ] || complain "The catalogues changed without a reason."
: >"$tree/itemdata/List.cpp"
"$update" "$tree"
! has quillane/de.po "Üzenet" || complain "A text that is gone stays in the catalogue."
has quillane/de.po "Szám" || complain "A text that is there goes from the catalogue."

[[ "$("$update" --unmarked "$tree")" == *"Jelöletlen betű"* ]] || complain "A literal without a mark is not named."
[[ "$("$update" --unmarked "$tree")" != *"Szám"* ]] || complain "A literal with a mark is named."

exit $failed
