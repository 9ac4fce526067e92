// A table of parts: records with a column of each type, and a persister that writes them.
#pragma once

#include <fx.h>
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "plugin/contract/DBTable.h"
#include "tests/support/TestCompany.h"

namespace Quillane {

enum PartColumn { NAME, KIND, STOCKED, NOTE, PART_COLUMN_COUNT };

/// Writes t_part, and writes down what it was called for: "update 2: kind=1, name=Anya, note=, stocked=0".
class PartPersister : public DBTablePersister {
 public:
  bool updateItem(int id, std::map<FX::FXString, FX::FXString> values) override;
  bool deleteItem(int id) override;
  bool insertItem(std::map<FX::FXString, FX::FXString> values) override;
  FX::FXString getColName(int column) override;

  std::vector<std::string> takeCalls();

  bool insideTransaction = true;  // whether every call was made inside one
  bool tellsFailures = true;      // else it returns true whatever its statement did
  std::string refused;            // a name that it does not write, without a statement that fails

 private:
  void note(const std::string& call);

  std::vector<std::string> calls;
};

/// Takes part in deleting as the owner of a table does: answers for the state of the command, and removes the rows.
class PartOwner : public FX::FXObject {
 public:
  long handle(FX::FXObject* sender, FX::FXSelector selector, void* data) override;

  DBTable* table = nullptr;
  bool allows = true;
  int asked = 0;     // how often for the command's state
  int told = 0;      // how often to delete
  int replaced = 0;  // how often that cells changed
};

/// Parts 1 "Csavar", 2 "Anya" and 5 "Alátét"; the kinds have the keys 1 "vas", 2 "réz" and 3 "műanyag".
class PartTest {
 protected:
  PartTest();

  /// Gives the table its columns and loads the parts.
  void load(DBTable& table) const;

  /// The rows as lines: "2: Anya|réz|x|", x for a checked box, - for one that is not.
  static std::vector<std::string> rows(const DBTable& table);

  /// What the database has, in the same manner but with what is stored: "2: Anya|2|1|NULL".
  std::vector<std::string> stored() const;

  TestCompany company;
  PartPersister persister;
};

using Lines = std::vector<std::string>;

}  // namespace Quillane
