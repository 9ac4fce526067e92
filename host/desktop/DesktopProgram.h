#pragma once

#include <fx.h>

#include <cstdio>

#include "host/company/Company.h"
#include "host/company/SqlTrace.h"
#include "host/desktop/CompanyFile.h"
#include "host/desktop/MainWindow.h"
#include "plugin/contract/Tarnwell.h"

namespace Quillane::Desktop {

/// What the program was called with.
struct DesktopOptions {
  FX::FXString file;  // empty when none was named
  bool traceSql = false;
};

/// The program quillane: its options, its first company and its windows.
class DesktopProgram {
 public:
  /// Exit statuses, the same as those of the command line.
  enum ExitStatus { SUCCESS = 0, FAILURE = 1, WRONG_CALL = 2 };

  DesktopProgram() = default;

  /// Runs the program until its user leaves it, and returns its exit status.
  int run(int argc, const char* const* argv);

  /// Takes the command line apart. False when the program is over with that: help was asked for and stands on output,
  /// or the call was wrong, which errors says. exitStatus is set then.
  static bool readOptions(int argc, const char* const* argv, DesktopOptions& options, int& exitStatus,
                          FILE* output = stdout, FILE* errors = stderr);

  /// Gives all windows their language, their font and what shows their tips. Once for a program.
  static void setLook(Tarnwell& account);

  DesktopProgram(const DesktopProgram&) = delete;
  DesktopProgram& operator=(const DesktopProgram&) = delete;

 private:
  static bool openDisplay(Tarnwell& account);
  static bool openFirstCompany(MainWindow& window, const CompanyFile& companyFile, const DesktopOptions& options);
  static bool askForCompany(MainWindow& window);
};

}  // namespace Quillane::Desktop
