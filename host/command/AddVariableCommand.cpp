// A new field.
#include "host/command/AddVariableCommand.h"

#include <libintl.h>

#include "host/command/ItemDataSheet.h"
#include "host/command/Wording.h"
#include "plugin/contract/Statement.h"

using namespace FX;

namespace Quillane::Commands {

namespace {

constexpr const char* kTypeNames[] = {"text", "date", "list"};  // the types 1, 2 and 3

bool hasChoice(const FXString& choices) {
  FXString content = choices;
  content.substitute(',', ' ');
  return !content.trim().empty();
}

}  // namespace

const char* AddVariableCommand::getDescription() const {
  return dgettext("quillane", "Új mező, amelyet a tételekhez rögzíteni lehet");
}

void AddVariableCommand::declareOptions(OptionSet& options) {
  options.addRequiredOption("--name", "TEXT", name, dgettext("quillane", "a mező neve"));
  options.addRequiredOption("--type", "text|date|list", typeName,
                            dgettext("quillane", "a fajtája: szöveg, dátum vagy lista"));
  options.addFlag("--per-unit", perUnit, dgettext("quillane", "egységenként kell rögzíteni, nem tételenként"));
  options.addFlag("--mandatory", mandatory, dgettext("quillane", "kötelező kitölteni"));
  options.addOption("--choices", "\"A,B,...\"", choices, dgettext("quillane", "a lista választható értékei"));
}

Outcome AddVariableCommand::readOptions() {
  const Outcome outcome = requireName(name);
  if (!outcome.succeeded()) return outcome;
  for (size_t i = 0; i < ARRAYNUMBER(kTypeNames); ++i) {
    if (typeName == kTypeNames[i]) type = static_cast<int>(i) + 1;
  }
  if (type == 0) {
    return Outcome::wrongCall(
        FXStringFormat(dgettext("quillane", "--type: nincs ilyen fajta: „%s”. Lehet text, date vagy list."),
                       quoteText(typeName).text()));
  }
  if (type == ItemDataSheet::LIST_TYPE && !hasChoice(choices.value_or(FXString()))) {
    return Outcome::wrongCall(
        dgettext("quillane", "--choices: a lista választható értékeit meg kell adni, vesszővel elválasztva."));
  }
  if (type != ItemDataSheet::LIST_TYPE && choices) {
    return Outcome::wrongCall(
        dgettext("quillane", "--choices: csak lista fajtájú mezőnek vannak választható értékei."));
  }
  return outcome;
}

Outcome AddVariableCommand::insert(TarnwellDatabase& database, int& id) {
  InsertStatement statement(&database, "t_itemvariable");
  statement.setString("name", name);
  statement.setInt("type", type);
  statement.setInt("process", perUnit ? 1 : 0);
  statement.setInt("mandatory", mandatory ? 1 : 0);
  statement.setString("vvalue", choices.value_or(FXString()));
  return insertWithKey(database, statement, "t_itemvariable", id);
}

}  // namespace Quillane::Commands
