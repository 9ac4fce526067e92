// The assignment of an item variable to an article: how it is read and stored.
#include "ui/ItemDataVariable.h"

#include <cstdlib>
#include <cstring>
#include <memory>

#include "plugin/contract/Statement.h"

using namespace FX;

namespace Quillane::Plugin::ItemData::UI {

namespace {

// The pieces of the two queries; the assignment table stands behind the first and the second, the key column behind the
// third. On purpose: a blank and a semicolon tell the texts apart, and types that the settings do not show are read
// too.
constexpr const char* kSqlBegin = "select iv.t_itemvariable_id, ";
constexpr const char* kIncomingSqlColumns =
    "_id, coalesce(sid.t_itemvariable_1,0) tick, coalesce(sid.position,0), %direction , %productid , iv.name, "
    "iv.mandatory, iv.type, iv.process from t_itemvariable iv left join ";
constexpr const char* kOutgoingSqlColumns =
    "_id, coalesce(sid.t_itemvariable_1,0) tick, coalesce(sid.position, 0), %direction , %productid , iv.name, "
    "iv.mandatory, iv.type, iv.process from t_itemvariable iv left join ";
constexpr const char* kSqlJoin = " sid on sid.t_itemvariable_1=iv.t_itemvariable_id and ";
constexpr const char* kIncomingSqlEnd =
    "=%productid and sid.direction=%direction where iv.type>0 order by sid.position";
constexpr const char* kOutgoingSqlEnd =
    "=%productid and sid.direction=%direction where iv.type>0 order by sid.position;";

// NULL counts as 0.
int toInt(const char* text) { return text ? std::atoi(text) : 0; }

// Makes the statement that stores the assignment.
std::unique_ptr<Statement> newStatement(const ItemDataVariable& variable, TarnwellDatabase* db, const FXString& table,
                                        const FXString& keyColumn, unsigned int position) {
  std::unique_ptr<Statement> statement;
  if (variable.assignId) {
    statement = std::make_unique<UpdateStatement>(db, table, table + "_id = %assignId");
    statement->setInt("assignId", variable.assignId);
    statement->setInt("position", static_cast<int>(position));
    return statement;
  }
  statement = std::make_unique<InsertStatement>(db, table);
  statement->setInt(keyColumn, variable.productid);
  statement->setInt("t_itemvariable_1", variable.itemvariable);
  statement->setInt("position", static_cast<int>(position));
  statement->setInt("direction", variable.direction);
  return statement;
}

}  // namespace

FXString ItemDataVariable::getIncomingSql(const FXString& table, const FXString& keyColumn) {
  return kSqlBegin + table + kIncomingSqlColumns + table + kSqlJoin + keyColumn + kIncomingSqlEnd;
}

FXString ItemDataVariable::getOutgoingSql(const FXString& table, const FXString& keyColumn) {
  return kSqlBegin + table + kOutgoingSqlColumns + table + kSqlJoin + keyColumn + kOutgoingSqlEnd;
}

void ItemDataVariable::takeColumn(int column, const char* text) {
  switch (column) {
    case 0:
      itemvariable = toInt(text);
      break;
    case 1:
      assignId = toInt(text);
      break;
    case 2:
      assigned = text && std::strcmp(text, "0") != 0;
      break;
    case 3:
      position = toInt(text);
      break;
    case 4:
      direction = toInt(text);
      break;
    case 5:
      productid = toInt(text);
      break;
    case 6:
      name = text ? text : "";
      break;
    case 7:
      mandatory = toInt(text);
      break;
    case 8:
      type = toInt(text);
      break;
    default:
      break;
  }
}

void ItemDataVariable::saveAssigned(TarnwellDatabase* db, const FXString& table, const FXString& keyColumn,
                                    unsigned int newPosition) const {
  if (assignId && position == static_cast<int>(newPosition)) return;
  // On purpose: the variable does not learn what was stored, so that it can be stored again when the host's transaction
  // comes to nothing.
  newStatement(*this, db, table, keyColumn, newPosition)->execute(nullptr, 1);
}

void ItemDataVariable::saveNotAssigned(TarnwellDatabase* db, const FXString& table) const {
  if (!assignId) return;
  DeleteStatement statement(db, table);
  statement.setInt(table + "_id", assignId);
  statement.execute(nullptr, 1);
}

}  // namespace Quillane::Plugin::ItemData::UI
