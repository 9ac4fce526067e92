// Records item data from a table.
//
//  1. Everything is looked up and written in one transaction, which takes the write lock at its beginning: what the
//     table is matched with is what is there when it is stored.
//  2. The rows are those that the module itself would store: the fields of the item in row 0, then in each unit row the
//     quantity and the fields of the unit.
#include "host/command/ItemDataRecorder.h"

#include <libintl.h>

#include "host/document/ResultRows.h"
#include "plugin/contract/Database.h"
#include "plugin/contract/Invoice.h"
#include "plugin/contract/Statement.h"

using namespace FX;

namespace Quillane::Commands {

namespace {

using Host::ResultRows;

constexpr char kStatusSql[] =
    "select t_invoicestatus_1, closed from t_invoice left join t_invoicestatus "
    "on t_invoicestatus_1=t_invoicestatus_id where t_invoice_id=%t_invoice_id";

constexpr char kItemsSql[] =
    "select t_invoiceitem_id, articlekind, articleid from t_invoiceitem where t_invoice_1=%t_invoice_1 "
    "order by position, t_invoiceitem_id";

// Types that no field kind takes have no place in the item's data.
constexpr char kProductVariablesSql[] =
    "select t_itemvariable_id, name, type, process, vvalue from t_productitemdata join t_itemvariable "
    "on t_itemvariable_1=t_itemvariable_id where direction=%direction and t_product_1=%id and type between 1 and 3 "
    "order by process, position";
constexpr char kServiceVariablesSql[] =
    "select t_itemvariable_id, name, type, process, vvalue from t_serviceitemdata join t_itemvariable "
    "on t_itemvariable_1=t_itemvariable_id where direction=%direction and t_service_1=%id and type between 1 and 3 "
    "order by process, position";
constexpr char kSuiteVariablesSql[] =
    "select t_itemvariable_id, name, type, process, vvalue from t_suiteitemdata join t_itemvariable "
    "on t_itemvariable_1=t_itemvariable_id where direction=%direction and t_suite_1=%id and type between 1 and 3 "
    "order by process, position";

constexpr char kQuantityNameSql[] = "select name from t_itemvariable where t_itemvariable_id=%t_itemvariable_id";

constexpr char kNextVersionSql[] = "update t_invoice set version=ifnull(version, 0)+1 where t_invoice_id=%t_invoice_id";

/// The query for the fields of an article of this kind; null when there is no such kind.
const char* variablesSql(int articleKind) {
  switch (articleKind) {
    case InvoiceItem::ARTICLE_PRODUCT:
      return kProductVariablesSql;
    case InvoiceItem::ARTICLE_SERVICE:
      return kServiceVariablesSql;
    case InvoiceItem::ARTICLE_SUITE:
      return kSuiteVariablesSql;
    default:
      return nullptr;
  }
}

/// The direction whose fields a document of this status asks for, as the module has it.
int directionOf(int status) {
  if (status == 801 || status == 401 || status == 451) return 100;
  if (status == 252 || status == 202) return 200;
  return status / 100 * 100;
}

bool isAssigned(const std::vector<AssignedVariable>& variables, int id) {
  for (const AssignedVariable& variable : variables) {
    if (variable.id == id) return true;
  }
  return false;
}

}  // namespace

Outcome ItemDataRecorder::record(int documentId, int place, const CsvTable& table) {
  rowCount = 0;
  valueCount = 0;
  if (!database.begin()) return failed();
  const Outcome outcome = recordInTransaction(documentId, place, table);
  if (!outcome.succeeded()) {
    database.rollback();
    return outcome;
  }
  return database.commit() ? outcome : failed();
}

Outcome ItemDataRecorder::recordInTransaction(int documentId, int place, const CsvTable& table) {
  int status = 0;
  Outcome outcome = findStatus(documentId, status);
  Item item;
  if (outcome.succeeded()) outcome = findItem(documentId, place, item);
  std::vector<AssignedVariable> variables;
  if (outcome.succeeded()) outcome = findVariables(item, status, variables);
  std::vector<FXString> quantityNames;
  if (outcome.succeeded()) outcome = findQuantityNames(quantityNames);
  if (!outcome.succeeded()) return outcome;

  if (variables.empty()) {
    return Outcome::refused(
        FXStringFormat(dgettext("quillane",
                                "A #%d bizonylat %d. tételéhez nem tartozik egyéb tételadat. A mezőket a termékhez, "
                                "szolgáltatáshoz vagy csomaghoz kell hozzárendelni: quillanectl add assignment"),
                       documentId, place));
  }
  FXString error;
  ItemDataSheet sheet(variables, quantityNames);
  if (!sheet.read(table, error)) return Outcome::refused(error);
  outcome = replaceValues(documentId, item, sheet.getValues());
  if (!outcome.succeeded()) return outcome;
  rowCount = sheet.getRowCount();
  valueCount = static_cast<int>(sheet.getValues().size());
  return outcome;
}

Outcome ItemDataRecorder::findStatus(int documentId, int& status) {
  ResultRows rows;
  Statement statement(&database, kStatusSql);
  statement.setInt("t_invoice_id", documentId);
  if (!statement.execute(&rows, 1)) return failed();
  if (rows.getNumRows() == 0) {
    return Outcome::refused(FXStringFormat(
        dgettext("quillane", "Nincs #%d azonosítójú bizonylat. A bizonylatok listája: quillanectl invoices"),
        documentId));
  }
  if (rows.getInt(0, 1) != 0) {
    return Outcome::refused(
        FXStringFormat(dgettext("quillane", "A #%d bizonylat le van zárva, az adatai nem módosíthatók."), documentId));
  }
  status = rows.getInt(0, 0);
  return Outcome::success();
}

Outcome ItemDataRecorder::findItem(int documentId, int place, Item& item) {
  ResultRows rows;
  Statement statement(&database, kItemsSql);
  statement.setInt("t_invoice_1", documentId);
  if (!statement.execute(&rows, 1)) return failed();
  if (place > rows.getNumRows()) {
    return Outcome::refused(FXStringFormat(dgettext("quillane", "A #%d bizonylatnak nincs %d. tétele, %d tétele van."),
                                           documentId, place, rows.getNumRows()));
  }
  item = {rows.getInt(place - 1, 0), rows.getInt(place - 1, 1), rows.getInt(place - 1, 2)};
  return Outcome::success();
}

Outcome ItemDataRecorder::findVariables(const Item& item, int status, std::vector<AssignedVariable>& variables) {
  const char* sql = variablesSql(item.articleKind);
  if (!sql) return Outcome::success();
  ResultRows rows;
  Statement statement(&database, sql);
  statement.setInt("direction", directionOf(status));
  statement.setInt("id", item.articleId);
  if (!statement.execute(&rows, 1)) return failed();
  for (int row = 0; row < rows.getNumRows(); ++row) {
    const int id = rows.getInt(row, 0);
    if (isAssigned(variables, id)) continue;
    variables.push_back(
        {id, rows.getText(row, 1), rows.getInt(row, 2), rows.getInt(row, 3) != 0, rows.getText(row, 4)});
  }
  return Outcome::success();
}

Outcome ItemDataRecorder::findQuantityNames(std::vector<FXString>& names) {
  ResultRows rows;
  Statement statement(&database, kQuantityNameSql);
  statement.setInt("t_itemvariable_id", ItemDataSheet::QUANTITY_VARIABLE);
  if (!statement.execute(&rows, 1)) return failed();
  names = {"Mennyiség"};
  // The stored name can be another one: what people see in lists is accepted as well.
  for (int row = 0; row < rows.getNumRows(); ++row) names.push_back(rows.getText(row, 0));
  return Outcome::success();
}

Outcome ItemDataRecorder::replaceValues(int documentId, const Item& item, const std::vector<RecordedValue>& values) {
  DeleteStatement remove(&database, "t_invoiceitemdata");
  remove.setInt("t_invoiceitem_1", item.id);
  if (!remove.execute(nullptr, 1)) return failed();

  InsertStatement insert(&database, "t_invoiceitemdata");
  for (const RecordedValue& value : values) {
    insert.setInt("t_itemvariable_1", value.variable);
    insert.setInt("t_invoiceitem_1", item.id);
    insert.setString("value", value.value);
    insert.setInt("row", value.row);
    if (!insert.execute(nullptr, 1)) return failed();
  }

  Statement next(&database, kNextVersionSql);
  next.setInt("t_invoice_id", documentId);
  return next.execute(nullptr, 1) ? Outcome::success() : failed();
}

Outcome ItemDataRecorder::failed() const { return Outcome::refused(database.getLastError()); }

}  // namespace Quillane::Commands
