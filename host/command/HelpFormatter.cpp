// The form of the help.
#include "host/command/HelpFormatter.h"

#include <libintl.h>

#include <algorithm>

namespace Quillane::Commands {

namespace {

/// How many characters text has, not bytes.
size_t countCharacters(const std::string& text) {
  return std::count_if(text.begin(), text.end(), [](char byte) { return (byte & 0xC0) != 0x80; });
}

}  // namespace

HelpFormatter::HelpFormatter() {
  label("Usage", dgettext("quillane", "Használat"));
  label("OPTIONS", dgettext("quillane", "kapcsolók"));
  label("Positionals", dgettext("quillane", "Argumentumok"));
  label("SUBCOMMAND", dgettext("quillane", "PARANCS"));
  label("REQUIRED", dgettext("quillane", "(kötelező)"));
}

std::string HelpFormatter::make_option(const CLI::Option* option, bool isPositional) const {
  std::string line = "  " + make_option_name(option, isPositional) + make_option_opts(option);
  const size_t width = countCharacters(line);
  if (width < column_width_) {
    line.append(column_width_ - width, ' ');
  } else {
    line += "\n" + std::string(column_width_, ' ');
  }
  return line + make_option_desc(option) + "\n";
}

}  // namespace Quillane::Commands
