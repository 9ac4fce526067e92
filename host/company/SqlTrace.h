#pragma once

#include <cstdio>

#include "plugin/contract/Database.h"

namespace Quillane::Host {

/// Writes every statement as one JSON object on a line of its own: {"sql": "...", "params": {"name": "value" or null}}.
class SqlTrace : public StatementObserver {
 public:
  /// Writes to stream, which stays the caller's.
  explicit SqlTrace(FILE* stream) : file(stream) {}

  void statementExecuted(const FX::FXString& sql, const std::vector<Binding>& bindings) override;

 private:
  FILE* file;  // not owned
};

}  // namespace Quillane::Host
