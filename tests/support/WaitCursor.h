#pragma once

#include <fx.h>

#include <vector>

#include "plugin/contract/Database.h"

namespace TestSupport {

/// How many of the application's wait cursors have begun and not ended. Always 0 without a display.
FX::FXuint getWaitCount(const FX::FXApp& application);

/// Notes for each statement that is executed how many wait cursors there are at that moment.
class WaitCursorLog : public StatementObserver {
 public:
  /// The application has to outlive the log.
  explicit WaitCursorLog(const FX::FXApp& observed) : application(observed) {}

  void statementExecuted(const FX::FXString& sql, const std::vector<Binding>& bindings) override;

  std::vector<FX::FXuint> counts;

 private:
  const FX::FXApp& application;
};

}  // namespace TestSupport
