#pragma once

#include <fx.h>

#include <vector>

#include "host/command/CsvTable.h"

namespace Quillane::Commands {

/// A field that an article asks for: an item variable as it is assigned.
struct AssignedVariable {
  int id = 0;
  FX::FXString name;
  int type = 0;
  bool perUnit = false;
  FX::FXString parameter;  // of a list: its choices, parted by commas
};

/// One value to be stored for an item.
struct RecordedValue {
  int row = 0;  // 0 for what is recorded once for the item, the number of the unit row otherwise
  int variable = 0;
  FX::FXString value;
};

/// Turns a table that a person wrote into the values to be stored for an item.
///
/// Every assigned field gets a value in every row that it belongs to, an empty one where nothing was written: so the
/// check can ask for what is missing. A value that is exactly "0" is left out, as it is never stored.
class ItemDataSheet {
 public:
  static constexpr int QUANTITY_VARIABLE = -1;
  static constexpr int LIST_TYPE = 3;

  /// variables stand in the order in which the article asks for them, what is recorded once for the item first.
  /// namesOfQuantity are the names that the quantity column may have, at least one.
  ItemDataSheet(const std::vector<AssignedVariable>& assignedVariables,
                const std::vector<FX::FXString>& namesOfQuantity)
      : variables(assignedVariables), quantityNames(namesOfQuantity) {}

  /// Reads table. Returns false with a sentence for the user in error, which names the line, when it does not fit the
  /// fields; there are no values then.
  bool read(const CsvTable& table, FX::FXString& error);

  /// The values to be stored, in the order of storing.
  const std::vector<RecordedValue>& getValues() const { return values; }

  /// How many unit rows the table has.
  int getRowCount() const { return rowCount; }

 private:
  static constexpr int NOT_IN_TABLE = -1;

  bool hasUnitRows() const;
  bool isQuantityName(const FX::FXString& name) const;
  bool matchColumns(const CsvLine& header, FX::FXString& error);
  bool matchColumn(const CsvLine& header, int column, FX::FXString& error);
  bool checkLines(const CsvTable& table, FX::FXString& error) const;
  bool readItemFields(const CsvTable& table, FX::FXString& error);
  bool readUnitRow(const CsvLine& line, int row, FX::FXString& error);
  bool readField(size_t variable, const CsvLine* line, int row, FX::FXString& error);
  void addValue(int row, int variable, const FX::FXString& value);
  FX::FXString listFields() const;

  std::vector<AssignedVariable> variables;
  std::vector<FX::FXString> quantityNames;
  int quantityColumn = NOT_IN_TABLE;
  std::vector<int> columns;  // of each variable its column in the table
  std::vector<RecordedValue> values;
  int rowCount = 0;
};

}  // namespace Quillane::Commands
