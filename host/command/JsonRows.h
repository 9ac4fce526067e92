#pragma once

#include <vector>

#include "host/command/Output.h"
#include "host/document/ResultRows.h"

namespace Quillane::Commands {

/// Keeps the rows of a result, for commands that write them: here NULL is known as such.
class JsonRows : public Host::ResultRows {
 public:
  bool processValue(int column, const char* name, const char* value) override;

  /// The value as a JSON text, or null for NULL.
  Output::Json getTextJson(int row, int column) const;

  /// The value as a JSON integer, or null for NULL.
  Output::Json getIntegerJson(int row, int column) const;

 private:
  std::vector<std::vector<bool>> nulls;
};

}  // namespace Quillane::Commands
