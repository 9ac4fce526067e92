#include "tests/host/windows/DBTableFixture.h"

#include "plugin/contract/Statement.h"

using namespace FX;

namespace Quillane {

namespace {

constexpr const char* kColumns[] = {"", "name", "kind", "stocked", "note"};
static_assert(ARRAYNUMBER(kColumns) == PART_COLUMN_COUNT + 1, "the key and every column");

std::string describe(const std::map<FXString, FXString>& values) {
  std::string text;
  for (const auto& [name, value] : values)
    text += (text.empty() ? "" : ", ") + std::string(name.text()) + "=" + value.text();
  return text;
}

void bindValues(Statement& statement, std::map<FXString, FXString>& values) {
  statement.setString("name", values["name"]);
  statement.setInt("kind", values["kind"]);
  statement.setInt("stocked", values["stocked"]);
  statement.setString("note", values["note"]);
}

}  // namespace

bool PartPersister::updateItem(int id, std::map<FXString, FXString> values) {
  note("update " + std::to_string(id) + ": " + describe(values));
  if (refused == values["name"].text()) return false;
  UpdateStatement update(testAccount().getDB(), "t_part", "t_part_id=%t_part_id");
  update.setInt("t_part_id", id);
  bindValues(update, values);
  return update.execute(nullptr, 1) || !tellsFailures;
}

bool PartPersister::deleteItem(int id) {
  note("delete " + std::to_string(id));
  DeleteStatement remove(testAccount().getDB(), "t_part");
  remove.setInt("t_part_id", id);
  return remove.execute(nullptr, 1) || !tellsFailures;
}

bool PartPersister::insertItem(std::map<FXString, FXString> values) {
  note("insert " + describe(values));
  if (refused == values["name"].text()) return false;
  InsertStatement insert(testAccount().getDB(), "t_part");
  insert.setInt("t_part_id", testAccount().getDB()->nextKey("t_part"));
  bindValues(insert, values);
  return insert.execute(nullptr, 1) || !tellsFailures;
}

FXString PartPersister::getColName(int column) {
  return 0 <= column && column <= PART_COLUMN_COUNT ? kColumns[column] : "";
}

std::vector<std::string> PartPersister::takeCalls() { return std::move(calls); }

void PartPersister::note(const std::string& call) {
  insideTransaction = insideTransaction && testAccount().getDB()->isInTransaction();
  calls.push_back(call);
}

long PartOwner::handle(FXObject* sender, FXSelector selector, void*) {
  switch (selector) {
    case FXSEL(SEL_UPDATE, DBTable::ID_DELETE_ROWS):
      ++asked;
      sender->handle(this, FXSEL(SEL_COMMAND, allows ? FXWindow::ID_ENABLE : FXWindow::ID_DISABLE), nullptr);
      return allows ? 1 : -1;
    case FXSEL(SEL_COMMAND, DBTable::ID_DELETE_ROWS): {
      ++told;
      const FXint first = table->getSelStartRow();
      const FXint last = table->getSelEndRow();
      for (FXint row = first; row <= last; ++row)
        if (!table->isNewRow(row)) table->getDeletedKeys().push_back(FXIntVal(table->getRowText(row)));
      table->removeRows(first, last - first + 1, FALSE);
      return 0;
    }
    default:
      if (FXSELTYPE(selector) == SEL_REPLACED) ++replaced;
      return 0;
  }
}

PartTest::PartTest() {
  company.run(
      "create table t_part (t_part_id integer primary key, name text not null unique, kind integer, stocked integer,"
      " note text)");
  company.fill("t_part", {{"t_part_id", "name", "kind", "stocked", "note"},
                          {"1", "Csavar", "1", "1", "M6"},
                          {"2", "Anya", "2", "0", ""},
                          {"5", "Alátét", "3", "NULL", "NULL"}});
}

void PartTest::load(DBTable& table) const {
  table.setTableSize(0, PART_COLUMN_COUNT, FALSE);
  table.setColumnValues(KIND, "1\tvas\n2\tréz\n3\tműanyag", true);
  table.setColumnType(STOCKED, DBTable::COLUMN_CHECK);
  Statement(company.getDB(), "select t_part_id, name, kind, stocked, note from t_part order by t_part_id")
      .execute(table.getRowLoader(), 1);
}

std::vector<std::string> PartTest::rows(const DBTable& table) {
  Lines lines;
  for (FXint row = 0; row < table.getNumRows(); ++row) {
    std::string line = std::string(table.getRowText(row).text()) + ":";
    for (FXint column = 0; column < table.getNumColumns(); ++column) {
      line += column == 0 ? " " : "|";
      if (table.getColumnType(column) == DBTable::COLUMN_CHECK)
        line += table.isChecked(row, column) ? "x" : "-";
      else
        line += table.getItemText(row, column).text();
    }
    lines.push_back(line);
  }
  return lines;
}

std::vector<std::string> PartTest::stored() const {
  Lines lines;
  for (const auto& row : company.query("select t_part_id, name, kind, stocked, note from t_part order by t_part_id"))
    lines.push_back(row[0] + ": " + row[1] + "|" + row[2] + "|" + row[3] + "|" + row[4]);
  return lines;
}

}  // namespace Quillane
