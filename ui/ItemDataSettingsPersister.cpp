// Writes item variables: a new one is inserted with its key and its name and then updated like any other.
#include "ui/ItemDataSettingsPersister.h"

#include "plugin/contract/Database.h"
#include "plugin/contract/Statement.h"

using namespace FX;

namespace Quillane::Plugin::ItemData {

namespace {

const FXString kTable = "t_itemvariable";
const FXString kKey = "t_itemvariable_id";
const FXString kByKey = "t_itemvariable_id=%t_itemvariable_id";

constexpr const char* kColumns[] = {"name", "type", "process", "mandatory", "vvalue"};
constexpr int kColumnCount = ARRAYNUMBER(kColumns);

// Every statement counts in the transaction that the table saves its rows in.
constexpr FXuchar kCounts = 1;

}  // namespace

ItemDataSettingsPersister::ItemDataSettingsPersister(TarnwellDatabase* database)
    : update(std::make_unique<UpdateStatement>(database, kTable, kByKey)),
      insert(std::make_unique<InsertStatement>(database, kTable)),
      remove(std::make_unique<DeleteStatement>(database, kTable)),
      db(database) {}

ItemDataSettingsPersister::~ItemDataSettingsPersister() = default;

bool ItemDataSettingsPersister::updateItem(int id, std::map<FXString, FXString> values) {
  update->setInt(kKey, id);
  update->setString("name", values["name"]);
  update->setInt("type", values["type"]);
  update->setInt("process", values["process"]);
  update->setInt("mandatory", values["mandatory"]);
  update->setString("vvalue", values["vvalue"]);
  return update->execute(nullptr, kCounts);
}

bool ItemDataSettingsPersister::deleteItem(int id) {
  remove->setInt(kKey, id);
  return remove->execute(nullptr, kCounts);
}

// On purpose: the insert's result is not looked at; the update of a row that is not there fails.
bool ItemDataSettingsPersister::insertItem(std::map<FXString, FXString> values) {
  const int id = db->nextKey(kTable);
  insert->setInt(kKey, id);
  insert->setString("name", values["name"]);
  insert->execute(nullptr, kCounts);
  return updateItem(id, values);
}

FXString ItemDataSettingsPersister::getColName(int column) {
  if (column < 1 || column > kColumnCount) return FXString::null;
  return kColumns[column - 1];
}

}  // namespace Quillane::Plugin::ItemData
