// What adding a record of any kind has in common.
#include "host/command/AddCommand.h"

#include <libintl.h>

#include "plugin/contract/Statement.h"

using namespace FX;

namespace Quillane::Commands {

Outcome AddCommand::run(CommandContext& context) {
  Outcome outcome = readOptions();
  if (!outcome.succeeded()) return outcome;

  TarnwellDatabase& database = context.company.getDatabase();
  if (!database.begin()) return Outcome::refused(database.getLastError());
  int id = 0;
  outcome = insert(database, id);
  if (!outcome.succeeded()) {
    database.rollback();
    return outcome;
  }
  if (!database.commit()) return Outcome::refused(database.getLastError());
  context.output.writeRecord({{"id", id}});
  return outcome;
}

Outcome AddCommand::insertWithKey(TarnwellDatabase& database, InsertStatement& statement, const char* table, int& id) {
  id = database.nextKey(table);
  if (id <= 0) return Outcome::refused(database.getLastError());
  statement.setInt(FXString(table) + "_id", id);
  return statement.execute(nullptr, 1) ? Outcome::success() : Outcome::refused(database.getLastError());
}

Outcome AddCommand::requireName(const FXString& name) {
  FXString content = name;
  if (!content.trim().empty()) return Outcome::success();
  return Outcome::wrongCall(dgettext("quillane", "--name: a név nem lehet üres."));
}

}  // namespace Quillane::Commands
