#pragma once

#include <memory>
#include <vector>

#include "host/command/Command.h"

namespace Quillane::Commands {

/// A command that lists what one query finds.
class ListCommand : public Command {
 public:
  /// How a column of the query is called, and whether it is a whole number.
  struct Column {
    enum Kind { TEXT, INTEGER };

    const char* name;
    Kind kind;
  };

  ListCommand(const char* commandName, const char* commandDescription, const char* query,
              const std::vector<Column>& queryColumns)
      : name(commandName), description(commandDescription), sql(query), columns(queryColumns) {}

  const char* getName() const override { return name; }
  const char* getDescription() const override { return description; }
  void declareOptions(OptionSet&) override {}
  Outcome run(CommandContext& context) override;

  /// The fields that articles can ask for.
  static std::unique_ptr<Command> makeVariables();
  /// Products, services and suites.
  static std::unique_ptr<Command> makeArticles();
  /// The documents.
  static std::unique_ptr<Command> makeInvoices();

 private:
  const char* name;
  const char* description;
  const char* sql;
  std::vector<Column> columns;
};

}  // namespace Quillane::Commands
