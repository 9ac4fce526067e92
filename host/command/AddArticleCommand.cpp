// A new product, service or suite.
#include "host/command/AddArticleCommand.h"

#include <libintl.h>

#include "host/command/ArgumentText.h"
#include "plugin/contract/Statement.h"

using namespace FX;

namespace Quillane::Commands {

void AddArticleCommand::declareOptions(OptionSet& options) {
  options.addRequiredOption("--name", "TEXT", name, dgettext("quillane", "a megnevezése"));
  options.addOption("--unit", "TEXT", unit, dgettext("quillane", "a mennyiségi egysége; ha nincs megadva, db"));
  options.addOption("--price", "NUMBER", typedPrice, dgettext("quillane", "az egységára; ha nincs megadva, 0"));
}

Outcome AddArticleCommand::readOptions() {
  const Outcome outcome = requireName(name);
  return outcome.succeeded() && typedPrice ? readDecimal("--price", *typedPrice, price) : outcome;
}

Outcome AddArticleCommand::insert(TarnwellDatabase& database, int& id) {
  InsertStatement statement(&database, kind.table);
  statement.setString("name", name);
  statement.setString("unit", unit.value_or("db"));
  statement.setString("price", price);
  return insertWithKey(database, statement, kind.table, id);
}

}  // namespace Quillane::Commands
