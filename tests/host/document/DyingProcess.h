#pragma once

#include <fx.h>

#include <string>
#include <vector>

#include "plugin/contract/Database.h"

namespace Quillane::Host {

/// Kills its process when a statement with this number (1 is the first) is about to run.
class DyingObserver : public StatementObserver {
 public:
  explicit DyingObserver(int lastStatement) : remaining(lastStatement) {}

  void statementExecuted(const FX::FXString& sql, const std::vector<Binding>& bindings) override;

 private:
  int remaining;
};

/// From now on this process kills itself when SQLite is about to change a file for the time with this number: before
/// it writes, truncates, syncs or deletes. Only for files that are opened afterwards.
void dieAtFileChange(int number);

}  // namespace Quillane::Host
