// Lists of the company's records.
#include "host/command/ListCommand.h"

#include <libintl.h>

#include "host/command/JsonRows.h"
#include "plugin/contract/Statement.h"

using namespace FX;

namespace Quillane::Commands {

namespace {

// Other types are the module's own business, like the quantity of a row.
constexpr char kVariablesSql[] =
    "select t_itemvariable_id, name, type, process, mandatory, vvalue from t_itemvariable "
    "where type between 1 and 99 order by t_itemvariable_id";

constexpr char kArticlesSql[] =
    "select 'product', t_product_id, name, unit, price, 1 as kind from t_product union all "
    "select 'service', t_service_id, name, unit, price, 2 from t_service union all "
    "select 'suite', t_suite_id, name, unit, price, 3 from t_suite order by 6, 2";

constexpr char kInvoicesSql[] =
    "select t_invoice_id, nullif(number, ''), nullif(partnernumber, ''), t_invoicestatus_1, t_invoicestatus.name, "
    "nullif(issuedate, ''), t_partner.name, version from t_invoice left join t_invoicestatus on "
    "t_invoicestatus_1=t_invoicestatus_id "
    "left join t_partner on t_partner_1=t_partner_id order by t_invoice_id";

}  // namespace

Outcome ListCommand::run(CommandContext& context) {
  JsonRows rows;
  Statement statement(&context.company.getDatabase(), sql);
  if (!statement.execute(&rows, 0)) return Outcome::refused(context.company.getDatabase().getLastError());

  Output::Json records = Output::Json::array();
  for (int row = 0; row < rows.getNumRows(); ++row) {
    Output::Json record;
    for (size_t i = 0; i < columns.size(); ++i) {
      const int column = static_cast<int>(i);
      record[columns[i].name] =
          columns[i].kind == Column::INTEGER ? rows.getIntegerJson(row, column) : rows.getTextJson(row, column);
    }
    records.push_back(record);
  }
  context.output.writeRecords(records);
  return Outcome::success();
}

std::unique_ptr<Command> ListCommand::makeVariables() {
  return std::make_unique<ListCommand>("variables", dgettext("quillane", "Az egyéb tételadatok mezőinek listája"),
                                       kVariablesSql,
                                       std::vector<Column>{{"id", Column::INTEGER},
                                                           {"name", Column::TEXT},
                                                           {"type", Column::INTEGER},
                                                           {"process", Column::INTEGER},
                                                           {"mandatory", Column::INTEGER},
                                                           {"vvalue", Column::TEXT}});
}

std::unique_ptr<Command> ListCommand::makeArticles() {
  return std::make_unique<ListCommand>(
      "articles", dgettext("quillane", "A termékek, szolgáltatások és csomagok listája"), kArticlesSql,
      std::vector<Column>{{"kind", Column::TEXT},
                          {"id", Column::INTEGER},
                          {"name", Column::TEXT},
                          {"unit", Column::TEXT},
                          {"price", Column::TEXT}});
}

std::unique_ptr<Command> ListCommand::makeInvoices() {
  return std::make_unique<ListCommand>("invoices", dgettext("quillane", "A bizonylatok listája"), kInvoicesSql,
                                       std::vector<Column>{{"id", Column::INTEGER},
                                                           {"number", Column::TEXT},
                                                           {"partnernumber", Column::TEXT},
                                                           {"status", Column::INTEGER},
                                                           {"statusname", Column::TEXT},
                                                           {"issuedate", Column::TEXT},
                                                           {"partner", Column::TEXT},
                                                           {"version", Column::INTEGER}});
}

}  // namespace Quillane::Commands
