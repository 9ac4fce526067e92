// The host's own tables and the statuses that documents can have.
//
// References to statuses, partners and other documents may be cleared, so that deleting one of those never deletes a
// document; only the items of a deleted document go with it.
#include "host/document/CompanyModel.h"

#include <libintl.h>

#include <set>
#include <vector>

#include "host/document/ResultRows.h"
#include "plugin/contract/Database.h"
#include "plugin/contract/Statement.h"

using namespace FX;

// Marks a text for the catalogues where it stands; it is translated where it is shown.
#define N_(text) text

namespace Quillane::Host {

namespace {

using Model::Column;
using Model::Schema;
using Model::Table;

constexpr FXuchar kRequired = 0;
constexpr FXuchar kMayBeNull = 1;

void addReferenceTo(Table& table, const FXString& target, FXuchar nullable) {
  constexpr FXuchar indexed = 1;
  table.addReference(target + "_1", Column::INTEGER, nullable, target, indexed, "", Column::FOLLOW_TARGET);
}

class StatusTable : public Table {
 public:
  explicit StatusTable(Schema* schema) : Table(schema, "t_invoicestatus") {}

  void init() override {
    addColumn("name", Column::TEXT);
    addColumn("direction", Column::INTEGER);
    addColumn("closed", Column::INTEGER);
  }
};

class PartnerTable : public Table {
 public:
  explicit PartnerTable(Schema* schema) : Table(schema, "t_partner") {}

  void init() override {
    addColumn("name", Column::TEXT);
    addColumn("address", Column::TEXT);
    addColumn("taxnumber", Column::TEXT);
  }
};

class ArticleTable : public Table {
 public:
  ArticleTable(Schema* schema, const FXString& table) : Table(schema, table) {}

  void init() override {
    addColumn("name", Column::TEXT);
    addColumn("unit", Column::TEXT);
    addColumn("price", Column::TEXT);
  }
};

class DocumentTable : public Table {
 public:
  explicit DocumentTable(Schema* schema) : Table(schema, "t_invoice") {}

  void init() override {
    addColumn("number", Column::TEXT);
    addColumn("partnernumber", Column::TEXT);
    addReferenceTo(*this, "t_invoicestatus", kMayBeNull);
    addColumn("statusgate", Column::INTEGER);
    addColumn("issuedate", Column::TEXT);
    addReferenceTo(*this, "t_partner", kMayBeNull);
    addReferenceTo(*this, "t_invoice", kMayBeNull);
    addColumn("version", Column::INTEGER);
  }
};

class ItemTable : public Table {
 public:
  explicit ItemTable(Schema* schema) : Table(schema, "t_invoiceitem") {}

  void init() override {
    addReferenceTo(*this, "t_invoice", kRequired);
    addColumn("position", Column::INTEGER);
    addColumn("articlekind", Column::INTEGER);
    addColumn("articleid", Column::INTEGER);
    addColumn("name", Column::TEXT);
    addColumn("unit", Column::TEXT);
    addColumn("quantity", Column::TEXT);
    addColumn("price", Column::TEXT);
    addColumn("originmode", Column::INTEGER);
    addReferenceTo(*this, "t_invoiceitem", kMayBeNull);
  }
};

struct Status {
  int code;
  const char* name;
  int direction;
  bool closed;
};

// The names are data once they are stored; they are translated where they are shown.
constexpr Status kStatuses[] = {
    {101, N_("Kimenő számla (piszkozat)"), 100, false}, {102, N_("Kimenő díjbekérő"), 100, false},
    {151, N_("Kimenő számla (lezárt)"), 100, true},     {152, N_("Kimenő számla (sztornó)"), 100, true},
    {201, N_("Bejövő számla (piszkozat)"), 200, false}, {202, N_("Bejövő díjbekérő"), 200, false},
    {251, N_("Bejövő számla (lezárt)"), 200, true},     {252, N_("Bejövő számla (sztornó)"), 200, true},
    {401, N_("Szállítólevél (piszkozat)"), 100, false}, {451, N_("Szállítólevél (lezárt)"), 100, true},
    {452, N_("Szállítólevél (sztornó)"), 100, true},    {801, N_("Megrendelés"), 100, false},
};

bool findMissingStatuses(TarnwellDatabase& database, std::vector<Status>& missing) {
  ResultRows rows;
  Statement query(&database, "select t_invoicestatus_id from t_invoicestatus");
  if (!query.execute(&rows, 1)) return false;
  std::set<int> known;
  for (int row = 0; row < rows.getNumRows(); ++row) known.insert(rows.getInt(row, 0));
  for (const Status& status : kStatuses)
    if (!known.count(status.code)) missing.push_back(status);
  return true;
}

bool insertStatus(TarnwellDatabase& database, const Status& status) {
  InsertStatement insert(&database, "t_invoicestatus");
  insert.setInt("t_invoicestatus_id", status.code);
  insert.setString("name", status.name);
  insert.setInt("direction", status.direction);
  insert.setInt("closed", status.closed ? 1 : 0);
  return insert.execute(nullptr, 1);
}

/// Takes the write lock only when there is something to write: a company that is up to date can be opened while
/// another program writes.
bool addMissingStatuses(TarnwellDatabase& database) {
  std::vector<Status> missing;
  if (!findMissingStatuses(database, missing)) return false;
  if (missing.empty()) return true;
  const bool own = !database.isInTransaction();
  if (own && !database.begin()) return false;
  for (const Status& status : missing)
    if (!insertStatus(database, status)) break;  // the transaction fails by it
  return !own || database.commit();
}

}  // namespace

CompanyModel::CompanyModel() {
  new StatusTable(this);
  new PartnerTable(this);
  for (const char* table : {"t_product", "t_service", "t_suite"}) new ArticleTable(this, table);
  new DocumentTable(this);
  new ItemTable(this);
}

bool syncCompany(TarnwellDatabase& database, FXString& error) {
  CompanyModel model;
  if (model.sync(&database) && addMissingStatuses(database)) return true;
  error = FXStringFormat(dgettext("quillane", "A cég adatbázisa nem hozható naprakész állapotba: %s"),
                         database.getLastError().text());
  return false;
}

}  // namespace Quillane::Host
