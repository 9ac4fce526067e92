// Reads a document and its recorded values in one query, so that what is shown existed at one moment.
#include "host/command/ShowCommand.h"

#include <libintl.h>

#include "host/command/ArgumentText.h"
#include "host/command/JsonRows.h"
#include "plugin/contract/Statement.h"

using namespace FX;

namespace Quillane::Commands {

namespace {

constexpr char kDocumentSql[] =
    "select i.t_invoice_id, nullif(i.number, ''), i.t_invoicestatus_1, ii.t_invoiceitem_id, ii.name, ii.quantity, "
    "ii.unit, "
    "d.t_invoiceitemdata_id, d.row, v.name, v.type, d.value from t_invoice i "
    "left join t_invoiceitem ii on ii.t_invoice_1=i.t_invoice_id "
    "left join t_invoiceitemdata d on d.t_invoiceitem_1=ii.t_invoiceitem_id "
    "left join t_itemvariable v on v.t_itemvariable_id=d.t_itemvariable_1 "
    "where i.t_invoice_id=%t_invoice_id order by ii.position, ii.t_invoiceitem_id, d.row, d.t_invoiceitemdata_id";

enum Column {
  DOCUMENT_ID,
  NUMBER,
  STATUS,
  ITEM_ID,
  ITEM_NAME,
  QUANTITY,
  UNIT,
  VALUE_ID,
  ROW,
  VARIABLE_NAME,
  VARIABLE_TYPE,
  VALUE
};

Output::Json makeItem(const JsonRows& rows, int row, size_t place) {
  return {{"n", place},
          {"id", rows.getIntegerJson(row, ITEM_ID)},
          {"name", rows.getTextJson(row, ITEM_NAME)},
          {"quantity", rows.getTextJson(row, QUANTITY)},
          {"unit", rows.getTextJson(row, UNIT)},
          {"values", Output::Json::array()}};
}

Output::Json makeValue(const JsonRows& rows, int row) {
  return {{"row", rows.getIntegerJson(row, ROW)},
          {"name", rows.getTextJson(row, VARIABLE_NAME)},
          {"type", rows.getIntegerJson(row, VARIABLE_TYPE)},
          {"value", rows.getTextJson(row, VALUE)}};
}

Output::Json makeDocument(const JsonRows& rows) {
  Output::Json document = {{"id", rows.getIntegerJson(0, DOCUMENT_ID)},
                           {"number", rows.getTextJson(0, NUMBER)},
                           {"status", rows.getIntegerJson(0, STATUS)},
                           {"items", Output::Json::array()}};
  Output::Json& items = document["items"];
  int itemId = 0;
  for (int row = 0; row < rows.getNumRows(); ++row) {
    const int id = rows.getInt(row, ITEM_ID);
    if (id == 0) continue;  // a document without items
    if (id != itemId) items.push_back(makeItem(rows, row, items.size() + 1));
    itemId = id;
    if (rows.getInt(row, VALUE_ID) != 0) items.back()["values"].push_back(makeValue(rows, row));
  }
  return document;
}

/// Plain: what a line is stands in its first field, then its fields as the JSON has them; a value's line begins with
/// the place of its item.
void writePlain(Output& output, const Output::Json& document) {
  output.writeRecord({"document", document["id"], document["number"], document["status"]});
  for (const Output::Json& item : document["items"]) {
    output.writeRecord({"item", item["n"], item["id"], item["name"], item["quantity"], item["unit"]});
    for (const Output::Json& value : item["values"]) {
      output.writeRecord({"value", item["n"], value["row"], value["name"], value["type"], value["value"]});
    }
  }
}

}  // namespace

const char* ShowCommand::getDescription() const {
  return dgettext("quillane", "Egy bizonylat a tételeivel és a hozzájuk rögzített adatokkal");
}

void ShowCommand::declareOptions(OptionSet& options) {
  options.addArgument("ID", id, dgettext("quillane", "a bizonylat azonosítója"));
}

Outcome ShowCommand::run(CommandContext& context) {
  int documentId = 0;
  const Outcome readable = readNumber("ID", id, documentId);
  if (!readable.succeeded()) return readable;

  TarnwellDatabase& database = context.company.getDatabase();
  JsonRows rows;
  Statement statement(&database, kDocumentSql);
  statement.setInt("t_invoice_id", documentId);
  if (!statement.execute(&rows, 0)) return Outcome::refused(database.getLastError());
  if (rows.getNumRows() == 0) {
    return Outcome::refused(FXStringFormat(
        dgettext("quillane", "Nincs #%d azonosítójú bizonylat. A bizonylatok listája: quillanectl invoices"),
        documentId));
  }

  const Output::Json document = makeDocument(rows);
  if (context.output.isJson()) {
    context.output.writeJson(document);
  } else {
    writePlain(context.output, document);
  }
  return Outcome::success();
}

}  // namespace Quillane::Commands
