#pragma once

#include <fx.h>

#include <vector>

#include "plugin/contract/Database.h"

namespace Quillane::Host {

/// Keeps the rows of a result. NULL is the empty text and 0.
class ResultRows : public DataBaseValueLoader {
 public:
  bool processValue(int column, const char* name, const char* value) override;

  const FX::FXString& getText(int row, int column) const { return values[row][column]; }

  /// What is no integer counts as far as it is one, else as 0; what an int cannot hold, as the nearest that it can.
  int getInt(int row, int column) const;

 private:
  std::vector<std::vector<FX::FXString>> values;
};

}  // namespace Quillane::Host
