// The statuses that documents can have, as the company has them.
#include "host/document/StatusCatalogue.h"

#include <libintl.h>

#include <algorithm>

#include "host/document/ResultRows.h"
#include "plugin/contract/Database.h"
#include "plugin/contract/Statement.h"

using namespace FX;

namespace Quillane::Host {

namespace {

constexpr char kStatusesSql[] =
    "select t_invoicestatus_id, name, closed, direction from t_invoicestatus order by t_invoicestatus_id";

}  // namespace

bool StatusCatalogue::read(TarnwellDatabase& database, std::vector<Status>& statuses, FXString& error) {
  ResultRows rows;
  Statement query(&database, kStatusesSql);
  if (!query.execute(&rows, 0)) {
    error = database.getLastError();
    return false;
  }
  statuses.clear();
  for (int row = 0; row < rows.getNumRows(); ++row)
    statuses.push_back({rows.getInt(row, 0), translateStatusName(rows.getText(row, 1)), rows.getInt(row, 2) != 0,
                        rows.getInt(row, 3)});
  return true;
}

const Status* StatusCatalogue::find(const std::vector<Status>& statuses, int code) {
  const auto found =
      std::find_if(statuses.begin(), statuses.end(), [code](const Status& status) { return status.code == code; });
  return found == statuses.end() ? nullptr : &*found;
}

FXString StatusCatalogue::translateStatusName(const FXString& stored) {
  return stored.empty() ? stored : FXString(dgettext("quillane", stored.text()));
}

}  // namespace Quillane::Host
