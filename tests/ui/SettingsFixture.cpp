// The settings dialog over a company in memory, its table as lines, and whoever answers its questions.
#include "tests/ui/SettingsFixture.h"

#include "plugin/Model.h"
#include "plugin/contract/DBTable.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/StatementLog.h"
#include "tests/ui/DialogFixture.h"

using namespace FX;

namespace Quillane::Plugin::ItemData {

namespace {

// What a message box says: its one label that has a text and is no button.
std::string textOf(const FXWindow& box) {
  std::string text;
  for (const FXLabel* label : widgetsIn<FXLabel>(box)) {
    if (!dynamic_cast<const FXButton*>(label)) text += label->getText().text();
  }
  return text;
}

}  // namespace

SettingsTest::SettingsTest() { Model::initDB(company.getDB()); }

void SettingsTest::fillVariables() const {
  company.fill("t_itemvariable", {{"t_itemvariable_id", "name", "type", "process", "mandatory", "vvalue"},
                                  {"5", "Gyári szám", "1", "1", "1", "NULL"},
                                  {"7", "Szín", "3", "0", "0", "piros,kék"},
                                  {"12", "Lejárat", "2", "0", "1", ""}});
}

void SettingsTest::assign(const std::string& article, int variable, int count) const {
  const std::string table = "t_" + article;
  const std::string numbers = " from (with recursive n(i) as (select 1 union all select i + 1 from n where i < " +
                              std::to_string(count) + ") select i from n)";
  company.run("insert into " + table + " (name) select 'Cikk'" + numbers);
  company.run("insert into " + table + "itemdata (" + table + "_1, t_itemvariable_1, position, direction) select " +
              table + "_id, " + std::to_string(variable) + ", 1, 100 from " + table);
}

void SettingsTest::record(int variable, int count) const {
  company.run("insert or ignore into t_invoice (t_invoice_id) values (1)");
  company.run("insert or ignore into t_invoiceitem (t_invoiceitem_id, t_invoice_1) values (10, 1)");
  for (int row = 1; row <= count; ++row) {
    company.run("insert into t_invoiceitemdata (t_itemvariable_1, t_invoiceitem_1, row, value) values (" +
                std::to_string(variable) + ", 10, " + std::to_string(row) + ", 'érték')");
  }
}

void SettingsTest::open() {
  panel = std::make_unique<ItemDataSettingsPanel>(&container, &testAccount());
  panel->setWidth(600);
  panel->setHeight(400);
  panel->create();
}

std::vector<std::string> SettingsTest::rows() const {
  std::vector<std::string> lines;
  for (FXint row = 0; row < table().getNumRows(); ++row) {
    std::string line = table().getRowText(row).text();
    line += std::string(": ") + table().getItemText(row, NAME).text();
    line += std::string("|") + table().getItemText(row, TYPE).text();
    for (const FXint column : {PER_UNIT, MANDATORY}) line += table().isChecked(row, column) ? "|x" : "|-";
    line += std::string("|") + table().getItemText(row, PARAMETER).text();
    lines.push_back(line);
  }
  return lines;
}

void SettingsTest::addRow(const char* name, const char* type, const char* parameter) const {
  table().handle(nullptr, FXSEL(SEL_COMMAND, DBTable::ID_ADD_ROW), nullptr);
  const FXint row = table().getNumRows() - 1;
  table().setItemText(row, NAME, name);
  table().setValueKey(row, TYPE, type);
  table().setItemText(row, PARAMETER, parameter);
}

long SettingsTest::command(FXuint id) const { return panel->handle(nullptr, FXSEL(SEL_COMMAND, id), nullptr); }

std::vector<Question> SettingsTest::answer(FXuint command, const std::function<void()>& action) {
  std::vector<Question> questions;
  const TestSupport::ModalDriver driver([&](FXDialogBox& box) {
    questions.push_back(
        {box.getTitle().text(), textOf(box), static_cast<int>(widgetsIn<FXButton>(box).size()), box.getOwner()});
    box.handle(nullptr, FXSEL(SEL_COMMAND, command), nullptr);
  });
  action();
  return questions;
}

std::vector<std::string> SettingsTest::watch(const std::function<void()>& action) const {
  StatementLog log;
  company.getDB()->setObserver(&log);
  action();
  company.getDB()->setObserver(nullptr);
  return log.take();
}

Grid SettingsTest::stored() const {
  return company.query(
      "select t_itemvariable_id, name, type, process, mandatory, vvalue from t_itemvariable where type <> -1 or type "
      "is null order by 1");
}

}  // namespace Quillane::Plugin::ItemData
