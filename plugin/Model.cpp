// The module's tables in the company's database, and the one row that they always hold.
#include "plugin/Model.h"

#include "plugin/contract/Database.h"
#include "plugin/contract/Statement.h"

using namespace FX;

namespace Quillane::Plugin::ItemData::Model {

using Quillane::Model::Column;
using Quillane::Model::Schema;

namespace {

const FXString kCountQuantityVariableSql = "select count(1) from t_itemvariable where t_itemvariable_id=-1";
constexpr int kQuantityVariable = -1;

constexpr FXuchar kRequired = 0;
constexpr FXuchar kNullable = 1;
constexpr FXuchar kIndexed = 1;
const FXString kPrimaryKey = "";

}  // namespace

ItemVariable::ItemVariable(Schema* schema) : Table(schema, "t_itemvariable") {}

void ItemVariable::init() {
  addColumn("name", Column::TEXT);
  addColumn("type", Column::INTEGER);
  addColumn("process", Column::INTEGER);
  addColumn("mandatory", Column::INTEGER);
  addColumn("vvalue", Column::TEXT);
}

InvoiceItemData::InvoiceItemData(Schema* schema) : Table(schema, "t_invoiceitemdata") {}

void InvoiceItemData::init() {
  addReference("t_itemvariable_1", Column::INTEGER, kNullable, "t_itemvariable", kIndexed, kPrimaryKey,
               Column::FOLLOW_TARGET);
  addReference("t_invoiceitem_1", Column::INTEGER, kRequired, "t_invoiceitem", kIndexed, kPrimaryKey,
               Column::FOLLOW_TARGET);
  addColumn("row", Column::INTEGER);
  addColumn("value", Column::TEXT);
  // Every entry is loaded by these three. In this order the entries of a unit row stand side by side.
  addIndex("i_t_invoiceitemdata_entry", {"t_invoiceitem_1", "row", "t_itemvariable_1"});
}

BaseItemData::BaseItemData(Schema* schema, const FXString& tableName, const FXString& articleTableName)
    : Table(schema, tableName), articleTable(articleTableName) {}

void BaseItemData::init() {
  addReference(articleTable + "_1", Column::INTEGER, kRequired, articleTable, kIndexed, kPrimaryKey,
               Column::FOLLOW_TARGET);
  addReference("t_itemvariable_1", Column::INTEGER, kRequired, "t_itemvariable", kIndexed, kPrimaryKey,
               Column::FOLLOW_TARGET);
  addColumn("position", Column::INTEGER);
  addColumn("direction", Column::INTEGER);
}

ProductItemData::ProductItemData(Schema* schema) : BaseItemData(schema, "t_productitemdata", "t_product") {}

SuiteItemData::SuiteItemData(Schema* schema) : BaseItemData(schema, "t_suiteitemdata", "t_suite") {}

ServiceItemData::ServiceItemData(Schema* schema) : BaseItemData(schema, "t_serviceitemdata", "t_service") {}

void initDB(TarnwellDatabase* db) {
  Schema schema;
  // The schema owns the tables, which register themselves.
  new InvoiceItemData(&schema);
  new ItemVariable(&schema);
  new ProductItemData(&schema);
  new SuiteItemData(&schema);
  new ServiceItemData(&schema);
  schema.sync(db);

  if (db->queryScalar(kCountQuantityVariableSql, 1, -1) != 0) return;
  InsertStatement insert(db, "t_itemvariable");
  insert.setInt("t_itemvariable_id", kQuantityVariable);
  insert.setString("name", "Mennyiség");
  insert.setInt("type", kQuantityVariable);
  insert.setInt("process", 1);
  insert.setInt("mandatory", 1);
  insert.execute(nullptr, 1);
}

}  // namespace Quillane::Plugin::ItemData::Model
