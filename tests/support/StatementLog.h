#pragma once

#include <fx.h>

#include <string>
#include <vector>

#include "plugin/contract/Database.h"

/// Collects what is executed, each statement as a text to be compared: the SQL, and in a second line what was bound, in
/// the order of binding ("row='1', t_itemvariable_1=NULL").
class StatementLog : public StatementObserver {
 public:
  void statementExecuted(const FX::FXString& sql, const std::vector<Binding>& bindings) override;

  /// What was executed since the last call.
  std::vector<std::string> take();

 private:
  std::vector<std::string> statements;
};
