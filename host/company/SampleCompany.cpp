// Fills a new company with the sample of data/sample-company.sql, which is compiled in: so it is there wherever the
// program is installed.
#include "host/company/SampleCompany.h"

#include <libintl.h>

#include "host/document/Transaction.h"
#include "plugin/contract/Database.h"
#include "plugin/contract/Statement.h"

using namespace FX;

namespace Quillane::Host {

extern const char* const kSampleCompanyScript;

namespace {

constexpr char kEnteredRecordsSql[] =
    "select (select count(*) from t_invoice)+(select count(*) from t_product)+(select count(*) from t_service)"
    "+(select count(*) from t_suite)+(select count(*) from t_partner)"
    "+(select count(*) from t_itemvariable where t_itemvariable_id>0)";

constexpr FXint kUnknown = -1;

bool isEmpty(TarnwellDatabase& database, FXString& reason) {
  const int entered = database.queryScalar(kEnteredRecordsSql, 1, kUnknown);
  if (entered == kUnknown) reason = database.getLastError();
  if (entered > 0) {
    reason = dgettext("quillane",
                      "A mintacég csak üres cégfájlba kerülhet, ebben pedig már vannak adatok. Adjon meg egy új "
                      "fájlt.");
  }
  return entered == 0;
}

}  // namespace

bool SampleCompany::fill(TarnwellDatabase& database, FXString& error) {
  return Transaction::run(database, error, [&database](FXString& reason) {
    if (!isEmpty(database, reason)) return false;
    for (const FXString& sql : getStatements())
      if (!Statement(&database, sql).execute(nullptr, 1)) return false;
    return true;
  });
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

}  // namespace Quillane::Host
