// Fills a new company with the sample of data/sample-company.sql, which is compiled in: so it is there wherever the
// program is installed.
#include "host/command/SampleCompany.h"

#include <libintl.h>

#include "plugin/contract/Database.h"
#include "plugin/contract/Statement.h"

using namespace FX;

namespace Quillane::Commands {

extern const char* const kSampleCompanyScript;

namespace {

constexpr char kEnteredRecordsSql[] =
    "select (select count(*) from t_invoice)+(select count(*) from t_product)+(select count(*) from t_service)"
    "+(select count(*) from t_suite)+(select count(*) from t_partner)"
    "+(select count(*) from t_itemvariable where t_itemvariable_id>0)";

constexpr FXint kUnknown = -1;

}  // namespace

Outcome SampleCompany::fill(TarnwellDatabase& database) {
  if (!database.begin()) return Outcome::refused(database.getLastError());
  const int entered = database.queryScalar(kEnteredRecordsSql, 1, kUnknown);
  if (entered != 0) {
    const FXString reason = database.getLastError();
    database.rollback();
    if (entered == kUnknown) return Outcome::refused(reason);
    return Outcome::refused(dgettext("quillane",
                                     "A mintacég csak üres cégfájlba kerülhet, ebben pedig már vannak "
                                     "adatok. Adjon meg egy új fájlt."));
  }
  for (const FXString& sql : getStatements()) {
    Statement statement(&database, sql);
    if (!statement.execute(nullptr, 1)) break;  // the transaction fails by it
  }
  return database.commit() ? Outcome::success() : Outcome::refused(database.getLastError());
}

std::vector<FXString> SampleCompany::getStatements() { return splitScript(kSampleCompanyScript); }

std::vector<FXString> SampleCompany::splitScript(const FXString& script) {
  std::vector<FXString> statements;
  FXint begin = 0;
  for (FXint end = script.find(";\n", begin); end >= 0; end = script.find(";\n", begin)) {
    FXString statement = script.mid(begin, end - begin);
    statements.push_back(statement.trim());
    begin = end + 2;
  }
  return statements;
}

}  // namespace Quillane::Commands
