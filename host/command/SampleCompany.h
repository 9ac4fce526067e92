#pragma once

#include <vector>

#include "host/command/Outcome.h"

class TarnwellDatabase;

namespace Quillane::Commands {

/// The sample: a small Hungarian company to look around in.
class SampleCompany {
 public:
  /// Fills an empty company with the sample, whole or not at all. Refused when anything was entered already.
  static Outcome fill(TarnwellDatabase& database);

  /// The statements that fill it.
  static std::vector<FX::FXString> getStatements();

  /// Takes a script apart: each statement ends with a semicolon at the end of a line.
  static std::vector<FX::FXString> splitScript(const FX::FXString& script);
};

}  // namespace Quillane::Commands
