#pragma once

#include "host/command/Command.h"

class InsertStatement;

namespace Quillane::Commands {

/// A command that adds one record, in one transaction, and writes the id that it got.
class AddCommand : public Command {
 public:
  Outcome run(CommandContext& context) override;

 protected:
  /// Reads the options before anything is opened for writing.
  virtual Outcome readOptions() = 0;

  /// Inserts the record, inside the transaction; gives its key.
  virtual Outcome insert(TarnwellDatabase& database, int& id) = 0;

  /// Executes statement, which inserts into table, with a new key.
  static Outcome insertWithKey(TarnwellDatabase& database, InsertStatement& statement, const char* table, int& id);

  /// The call is wrong when the name has nothing to read in it.
  static Outcome requireName(const FX::FXString& name);
};

}  // namespace Quillane::Commands
