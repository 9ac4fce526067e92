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
  void run(const std::string& sql);

  BenchCompany(const BenchCompany&) = delete;
  BenchCompany& operator=(const BenchCompany&) = delete;

  static constexpr int kItemId = 1;

 private:
  std::string file;
  int unitRows;
  int unitVariables;
};

/// The module at work on one company: the hook for invoice items on an open connection.
class BenchModule {
 public:
  /// Opens the company's file; there is one such object at a time.
  explicit BenchModule(const BenchCompany& company);
  ~BenchModule();

  TarnwellDatabase* getDB() const;
  const Quillane::Plugin::EntityPlugin& getHook() const { return *hook; }

  /// A new object for the document, with its one item.
  std::unique_ptr<Quillane::Invoice> makeInvoice() const;

  BenchModule(const BenchModule&) = delete;
  BenchModule& operator=(const BenchModule&) = delete;

 private:
  std::unique_ptr<Quillane::Plugin::PluginContainer> container;
  const Quillane::Plugin::EntityPlugin* hook = nullptr;  // owned by the container
};

}  // namespace Bench
