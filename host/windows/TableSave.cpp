// Writes the changes of a table in one transaction, and finds out which of them it was that failed.
#include "host/windows/TableSave.h"

#include <libintl.h>

#include "host/database/Connection.h"
#include "plugin/contract/DBTable.h"
#include "plugin/contract/Database.h"

using namespace FX;

namespace Quillane {

namespace {

bool write(DBTablePersister& persister, const TableChange& change) {
  switch (change.kind) {
    case TableChange::DELETED:
      return persister.deleteItem(change.key);
    case TableChange::CHANGED:
      return persister.updateItem(change.key, change.values);
    case TableChange::INSERTED:
      break;
  }
  return persister.insertItem(change.values);
}

}  // namespace

bool saveChanges(TarnwellDatabase& database, DBTablePersister& persister, const std::vector<TableChange>& changes,
                 SaveFailure& failure) {
  failure.problem = dgettext("quillane", "A táblázat változásai nem menthetők.");
  if (!database.begin()) {
    failure.reason = database.getLastError();
    return false;
  }
  Database::Connection& connection = database.getConnection();
  const unsigned long failuresBefore = connection.getFailureCount();
  for (const TableChange& change : changes) {
    const bool failedEarlier = connection.getFailureCount() != failuresBefore;
    const bool written = write(persister, change);
    const bool failed = connection.getFailureCount() != failuresBefore;
    // A statement can fail without the persister's saying so; the transaction then cannot be committed.
    if (!failedEarlier && (failed || !written)) failure.problem = change.problem;
    if (written) continue;
    connection.fail(failed ? database.getLastError() : dgettext("quillane", "A sor írása nem sikerült."));
    break;
  }
  if (database.commit()) return true;
  failure.reason = database.getLastError();
  return false;
}

}  // namespace Quillane
