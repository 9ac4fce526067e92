#pragma once

#include <fx.h>

#include <vector>

class TarnwellDatabase;

namespace Quillane::Host {

/// The sample: a small Hungarian company to look around in.
class SampleCompany {
 public:
  /// Fills an empty company with the sample, whole or not at all. Refused, with a sentence in error, when anything was
  /// entered already.
  static bool fill(TarnwellDatabase& database, FX::FXString& error);

  /// The statements that fill it.
  static std::vector<FX::FXString> getStatements();

  /// Takes a script apart: each statement ends with a semicolon at the end of a line.
  static std::vector<FX::FXString> splitScript(const FX::FXString& script);
};

}  // namespace Quillane::Host
