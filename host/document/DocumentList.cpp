// The documents of the company as lists show them, and the search for them.
//
// Each is one statement, however many documents there are.
#include "host/document/DocumentList.h"

#include "host/document/DocumentRules.h"
#include "host/document/NumberText.h"
#include "host/document/ResultRows.h"
#include "host/document/StatusCatalogue.h"
#include "plugin/contract/Database.h"
#include "plugin/contract/Statement.h"

using namespace FX;

namespace Quillane::Host {

namespace {

constexpr char kRowsSql[] =
    "select i.t_invoice_id, i.number, p.name, i.issuedate, i.t_invoicestatus_1, s.name, item.quantity, item.price "
    "from t_invoice i left join t_invoicestatus s on s.t_invoicestatus_id=i.t_invoicestatus_1 "
    "left join t_partner p on p.t_partner_id=i.t_partner_1 "
    "left join t_invoiceitem item on item.t_invoice_1=i.t_invoice_id order by i.t_invoice_id";
enum Column { ID, NUMBER, PARTNER, DATE, STATUS, STATUS_NAME, QUANTITY, PRICE };

constexpr char kAllSql[] = "select t_invoice_id from t_invoice";
constexpr char kFoundSql[] =
    "select i.t_invoice_id from t_invoice i left join t_partner p on p.t_partner_id=i.t_partner_1 "
    "where instr(fold_case(i.number), fold_case(%text))>0 or instr(fold_case(i.partnernumber), fold_case(%text))>0 "
    "or instr(fold_case(p.name), fold_case(%text))>0 "
    "union select item.t_invoice_1 from t_invoiceitem item "
    "left join t_product product on item.articlekind=1 and product.t_product_id=item.articleid "
    "left join t_service service on item.articlekind=2 and service.t_service_id=item.articleid "
    "left join t_suite suite on item.articlekind=3 and suite.t_suite_id=item.articleid "
    "where instr(fold_case(item.name), fold_case(%text))>0 "
    "or instr(fold_case(coalesce(product.name, service.name, suite.name)), fold_case(%text))>0 "
    "union select item.t_invoice_1 from t_invoiceitemdata d "
    "join t_invoiceitem item on item.t_invoiceitem_id=d.t_invoiceitem_1 "
    "where instr(fold_case(d.value), fold_case(%text))>0";

int signOf(int status) { return DocumentRules::findFamilyOfCancelling(status) ? -1 : 1; }

/// Puts the rows of a document's items together.
class RowReader {
 public:
  RowReader(const ResultRows& result, std::vector<DocumentRow>& documents) : rows(result), list(documents) {}

  void read() {
    for (int row = 0; row < rows.getNumRows(); ++row) {
      if (list.empty() || list.back().id != rows.getInt(row, ID)) begin(row);
      sum.add(rows.getText(row, QUANTITY), rows.getText(row, PRICE));
    }
    finish();
  }

 private:
  void begin(int row) {
    finish();
    sum = ValueSum();
    DocumentRow document;
    document.id = rows.getInt(row, ID);
    document.number = rows.getText(row, NUMBER);
    document.partner = rows.getText(row, PARTNER);
    document.date = rows.getText(row, DATE);
    document.status = rows.getInt(row, STATUS);
    document.statusName = StatusCatalogue::translateStatusName(rows.getText(row, STATUS_NAME));
    list.push_back(document);
  }

  void finish() {
    if (!list.empty()) list.back().sum = sum.getText(signOf(list.back().status));
  }

  const ResultRows& rows;
  std::vector<DocumentRow>& list;
  ValueSum sum;
};

}  // namespace

bool DocumentList::read(TarnwellDatabase& database, std::vector<DocumentRow>& rows, FXString& error) {
  ResultRows result;
  Statement query(&database, kRowsSql);
  if (!query.execute(&result, 0)) {
    error = database.getLastError();
    return false;
  }
  rows.clear();
  RowReader(result, rows).read();
  return true;
}

bool DocumentList::find(TarnwellDatabase& database, const FXString& text, std::set<int>& ids, FXString& error) {
  FXString wanted = text;
  wanted.trim();
  ResultRows result;
  Statement query(&database, wanted.empty() ? kAllSql : kFoundSql);
  query.setString("text", wanted);
  if (!query.execute(&result, 0)) {
    error = database.getLastError();
    return false;
  }
  ids.clear();
  for (int row = 0; row < result.getNumRows(); ++row) ids.insert(result.getInt(row, 0));
  return true;
}

}  // namespace Quillane::Host
