// The rows of a result on their way to the output.
#include "host/command/JsonRows.h"

namespace Quillane::Commands {

bool JsonRows::processValue(int column, const char* name, const char* value) {
  if (column == 0) nulls.emplace_back();
  nulls.back().push_back(!value);
  return ResultRows::processValue(column, name, value);
}

Output::Json JsonRows::getTextJson(int row, int column) const {
  return nulls[row][column] ? Output::Json() : Output::toJson(getText(row, column));
}

Output::Json JsonRows::getIntegerJson(int row, int column) const {
  return nulls[row][column] ? Output::Json() : Output::Json(getInt(row, column));
}

}  // namespace Quillane::Commands
