#pragma once

#include <fx.h>

#include "host/command/OptionSet.h"
#include "host/command/Outcome.h"
#include "host/command/Output.h"
#include "host/company/Company.h"

namespace Quillane::Commands {

/// What a command works with.
struct CommandContext {
  Host::Company& company;
  FX::FXString companyFile;  // as the caller named it; empty when he named none
  Output& output;
};

/// One command of the program: what it is called, what it can be called with, and what it does.
class Command {
 public:
  /// What has to be open before the command runs.
  enum CompanyUse {
    OPEN_COMPANY,         ///< The company file is open.
    COMPANY_WITH_MODULE,  ///< The same, and the item data module is at work.
    COMPANY_IF_ANY,       ///< The company file, or without one an empty company that nobody keeps.
    OPENS_ITSELF,         ///< Nothing is open; a company file is named.
  };

  virtual ~Command() = default;

  virtual const char* getName() const = 0;

  /// For the help, in the user's language.
  virtual const char* getDescription() const = 0;

  /// Declares the command's arguments and options; their values are members of the command.
  virtual void declareOptions(OptionSet& options) = 0;

  virtual CompanyUse getCompanyUse() const { return OPEN_COMPANY; }

  /// Runs the command, once, after its options were parsed.
  virtual Outcome run(CommandContext& context) = 0;

  Command(const Command&) = delete;
  Command& operator=(const Command&) = delete;

 protected:
  Command() = default;
};

}  // namespace Quillane::Commands
