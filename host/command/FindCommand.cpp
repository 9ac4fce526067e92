// Looks a recorded value up: on which document, and for which item, was this serial number recorded?
#include "host/command/FindCommand.h"

#include <libintl.h>

#include "host/command/JsonRows.h"
#include "plugin/contract/Statement.h"

using namespace FX;

namespace Quillane::Commands {

namespace {

constexpr char kSelection[] =
    "with places as (select t_invoiceitem_id as id, "
    "row_number() over (partition by t_invoice_1 order by position, t_invoiceitem_id) as n from t_invoiceitem) "
    "select i.t_invoice_id, nullif(i.number, ''), p.n, d.row, v.name, d.value from t_invoiceitemdata d "
    "join t_invoiceitem ii on ii.t_invoiceitem_id=d.t_invoiceitem_1 join places p on p.id=ii.t_invoiceitem_id "
    "join t_invoice i on i.t_invoice_id=ii.t_invoice_1 "
    "left join t_itemvariable v on v.t_itemvariable_id=d.t_itemvariable_1 ";

constexpr char kOrder[] = " order by i.t_invoice_id, p.n, d.row, d.t_invoiceitemdata_id";

const FXString kWholeSql = FXString(kSelection) + "where d.value=%text" + kOrder;
const FXString kPartSql = FXString(kSelection) + "where instr(d.value, %text)>0" + kOrder;

enum Column { DOCUMENT_ID, NUMBER, PLACE, ROW, VARIABLE_NAME, VALUE };

}  // namespace

const char* FindCommand::getDescription() const {
  return dgettext("quillane", "A bizonylatok és tételek, amelyekhez ezt az értéket rögzítették");
}

void FindCommand::declareOptions(OptionSet& options) {
  options.addArgument("TEXT", text, dgettext("quillane", "a keresett érték"));
  options.addFlag("--contains", contains, dgettext("quillane", "az érték része is elég"));
}

Outcome FindCommand::run(CommandContext& context) {
  TarnwellDatabase& database = context.company.getDatabase();
  JsonRows rows;
  Statement statement(&database, contains ? kPartSql : kWholeSql);
  statement.setString("text", text);
  if (!statement.execute(&rows, 0)) return Outcome::refused(database.getLastError());

  Output::Json records = Output::Json::array();
  for (int row = 0; row < rows.getNumRows(); ++row) {
    records.push_back({{"id", rows.getIntegerJson(row, DOCUMENT_ID)},
                       {"number", rows.getTextJson(row, NUMBER)},
                       {"n", rows.getIntegerJson(row, PLACE)},
                       {"row", rows.getIntegerJson(row, ROW)},
                       {"name", rows.getTextJson(row, VARIABLE_NAME)},
                       {"value", rows.getTextJson(row, VALUE)}});
  }
  context.output.writeRecords(records);
  return Outcome::success();
}

}  // namespace Quillane::Commands
