#pragma once

#include <fx.h>

#include <vector>

#include "host/command/CsvTable.h"
#include "host/command/ItemDataSheet.h"
#include "host/command/Outcome.h"

class TarnwellDatabase;

namespace Quillane::Commands {

/// Replaces what is recorded for an item by what stands in a table: all of it, or nothing.
class ItemDataRecorder {
 public:
  /// database is not owned.
  explicit ItemDataRecorder(TarnwellDatabase& companyDatabase) : database(companyDatabase) {}

  /// Records table for the item at place (1 is the first) of the document. The document's version grows, so that a copy
  /// of it that somebody has open is not saved over what was recorded.
  Outcome record(int documentId, int place, const CsvTable& table);

  /// How many unit rows, and how many values in all, the last call stored.
  int getRowCount() const { return rowCount; }
  int getValueCount() const { return valueCount; }

 private:
  struct Item {
    int id = 0;
    int articleKind = 0;
    int articleId = 0;
  };

  Outcome recordInTransaction(int documentId, int place, const CsvTable& table);
  Outcome findStatus(int documentId, int& status);
  Outcome findItem(int documentId, int place, Item& item);
  Outcome findVariables(const Item& item, int status, std::vector<AssignedVariable>& variables);
  Outcome findQuantityNames(std::vector<FX::FXString>& names);
  Outcome replaceValues(int documentId, const Item& item, const std::vector<RecordedValue>& values);
  Outcome failed() const;

  TarnwellDatabase& database;
  int rowCount = 0;
  int valueCount = 0;
};

}  // namespace Quillane::Commands
