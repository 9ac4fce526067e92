#pragma once

#include <memory>
#include <string>

#include "plugin/contract/Database.h"
#include "plugin/contract/Invoice.h"
#include "plugin/contract/PluginContainer.h"
#include "plugin/contract/PluginModule.h"

namespace Bench {

/// A company in a file of its own with one draft that has one item, whose article asks for text values per unit row.
class BenchCompany {
 public:
  /// Makes the file in the folder for temporary files.
  BenchCompany(const std::string& name, int unitRows, int unitVariables);
  /// Deletes the file.
  ~BenchCompany();

  const std::string& getFile() const { return file; }
  int getItemId() const { return kItemId; }
  int getUnitRows() const { return unitRows; }

  /// Records a value for every variable and the quantity 1 in every unit row.
  void record();

  /// Removes all recorded values.
  void clear();

  /// Runs one statement; ends the process with the reason when it fails.
  void run(const std::string& sql) const;

  /// The text that record gives to a variable in a unit row.
  static std::string textOf(int row, int variable);

  BenchCompany(const BenchCompany&) = delete;
  BenchCompany& operator=(const BenchCompany&) = delete;

  static constexpr int kItemId = 1;

 private:
  std::string file;
  int unitRows;
  int unitVariables;
};

/// The module at work on one company: the hook for invoice items on an open connection. The disk is not waited for:
/// what it takes differs from one moment to the next, and is nobody's merit.
class BenchModule {
 public:
  /// Opens the company's file; there is one such object at a time.
  explicit BenchModule(const BenchCompany& company);
  ~BenchModule();

  /// Goes on with another company. Documents of the earlier one may only be destroyed.
  void open(const BenchCompany& company) const;

  /// Runs the hook for loading on the item, as the host does it: everything is read from one state of the database.
  void load(Quillane::InvoiceItem& item) const;

  /// Runs the hook for saving on the item in a transaction of its own; ends the process when it fails.
  void save(Quillane::InvoiceItem& item) const;

  TarnwellDatabase* getDB() const;
  const Quillane::Plugin::EntityPlugin& getHook() const { return *hook; }

  /// Adds unit rows with the values that record gives to the item data of a loaded item.
  static void addRows(const Quillane::InvoiceItem& item, int count);

  /// A new object for the document, with its one item.
  std::unique_ptr<Quillane::Invoice> makeInvoice() const;

  BenchModule(const BenchModule&) = delete;
  BenchModule& operator=(const BenchModule&) = delete;

 private:
  std::unique_ptr<Quillane::Plugin::PluginContainer> container;
  const Quillane::Plugin::EntityPlugin* hook = nullptr;  // owned by the container
};

}  // namespace Bench
