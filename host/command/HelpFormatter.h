#pragma once

#include <CLI/CLI.hpp>

namespace Quillane::Commands {

/// Sets the help in the user's language, and in columns that hold also where letters take more than one byte.
class HelpFormatter : public CLI::Formatter {
 public:
  HelpFormatter();

  std::string make_option(const CLI::Option* option, bool isPositional) const override;
};

}  // namespace Quillane::Commands
