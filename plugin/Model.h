#pragma once

#include "plugin/contract/Schema.h"

class TarnwellDatabase;

namespace Quillane::Plugin::ItemData::Model {

/// t_itemvariable: one item variable, a field that the user defined, or the built-in quantity (key -1).
class ItemVariable : public Quillane::Model::Table {
 public:
  explicit ItemVariable(Quillane::Model::Schema* schema);
  void init() override;
};

/// t_invoiceitemdata: one recorded value.
class InvoiceItemData : public Quillane::Model::Table {
 public:
  explicit InvoiceItemData(Quillane::Model::Schema* schema);
  void init() override;
};

/// The assignment of item variables to the articles of one kind.
class BaseItemData : public Quillane::Model::Table {
 public:
  BaseItemData(Quillane::Model::Schema* schema, const FX::FXString& tableName, const FX::FXString& articleTableName);
  void init() override;

 private:
  FX::FXString articleTable;
};

/// t_productitemdata
class ProductItemData : public BaseItemData {
 public:
  explicit ProductItemData(Quillane::Model::Schema* schema);
};

/// t_suiteitemdata
class SuiteItemData : public BaseItemData {
 public:
  explicit SuiteItemData(Quillane::Model::Schema* schema);
};

/// t_serviceitemdata
class ServiceItemData : public BaseItemData {
 public:
  explicit ServiceItemData(Quillane::Model::Schema* schema);
};

/// Brings the module's five tables up to date in db and sees to it that the quantity variable is there. What the
/// database refuses is left to its own error reporting.
void initDB(TarnwellDatabase* db);

}  // namespace Quillane::Plugin::ItemData::Model
