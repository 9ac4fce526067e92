// The company's partners.
#include "host/document/PartnerStore.h"

#include <libintl.h>

#include "host/document/ResultRows.h"
#include "host/document/Transaction.h"
#include "plugin/contract/Database.h"
#include "plugin/contract/Statement.h"

using namespace FX;

namespace Quillane::Host {

namespace {

constexpr char kTable[] = "t_partner";
constexpr char kKey[] = "t_partner_id";
constexpr char kByKey[] = "t_partner_id=%t_partner_id";
constexpr char kListSql[] =
    "select t_partner_id, name, address, taxnumber from t_partner order by fold_case(name), t_partner_id";
constexpr char kLoadSql[] = "select t_partner_id, name, address, taxnumber from t_partner where t_partner_id=%id";

Partner toPartner(const ResultRows& rows, int row) {
  return {rows.getInt(row, 0), rows.getText(row, 1), rows.getText(row, 2), rows.getText(row, 3)};
}

void bindTexts(Statement& statement, const Partner& partner) {
  statement.setString("name", partner.name);
  statement.setString("address", partner.address);
  statement.setString("taxnumber", partner.taxNumber);
}

bool insert(TarnwellDatabase& database, Partner& partner) {
  partner.id = database.nextKey(kTable);
  if (partner.id <= 0) return false;
  InsertStatement statement(&database, kTable);
  statement.setInt(kKey, partner.id);
  bindTexts(statement, partner);
  return statement.execute(nullptr, 1);
}

bool update(TarnwellDatabase& database, const Partner& partner) {
  UpdateStatement statement(&database, kTable, kByKey);
  statement.setInt(kKey, partner.id);
  bindTexts(statement, partner);
  return statement.execute(nullptr, 1);
}

}  // namespace

bool PartnerStore::list(std::vector<Partner>& partners, FXString& error) const {
  ResultRows rows;
  Statement query(&database, kListSql);
  if (!query.execute(&rows, 0)) {
    error = database.getLastError();
    return false;
  }
  partners.clear();
  for (int row = 0; row < rows.getNumRows(); ++row) partners.push_back(toPartner(rows, row));
  return true;
}

bool PartnerStore::load(int id, Partner& partner, FXString& error) const {
  ResultRows rows;
  Statement query(&database, kLoadSql);
  query.setInt("id", id);
  if (!query.execute(&rows, 0)) {
    error = database.getLastError();
    return false;
  }
  if (rows.getNumRows() == 0) {
    error = FXStringFormat(dgettext("quillane", "Nincs #%d azonosítójú partner."), id);
    return false;
  }
  partner = toPartner(rows, 0);
  return true;
}

bool PartnerStore::save(Partner& partner, FXString& error) const {
  Partner saved = partner;
  for (FXString* text : {&saved.name, &saved.address, &saved.taxNumber}) text->trim();
  if (saved.name.empty()) {
    error = dgettext("quillane", "Adja meg a partner nevét.");
    return false;
  }
  const auto write = [&](FXString&) { return saved.id > 0 ? update(database, saved) : insert(database, saved); };
  FXString reason;
  if (!Transaction::run(database, reason, write)) {
    error = FXStringFormat(dgettext("quillane", "A(z) „%s” partner adatai nem tárolhatók. %s"), saved.name.text(),
                           reason.text());
    return false;
  }
  partner = saved;
  return true;
}

}  // namespace Quillane::Host
