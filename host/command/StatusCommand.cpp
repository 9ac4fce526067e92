// A document moved to another status.
#include "host/command/StatusCommand.h"

#include <libintl.h>

#include "host/command/ArgumentText.h"

using namespace FX;

namespace Quillane::Commands {

const char* StatusCommand::getDescription() const {
  return dgettext("quillane", "Egy bizonylat továbbléptetése; a lezárt bizonylat számot kap");
}

void StatusCommand::declareOptions(OptionSet& options) {
  DocumentCommand::declareOptions(options);
  options.addArgument("STATUS", statusText,
                      dgettext("quillane",
                               "az új állapota: lezárás 101-ből 151, 201-ből 251, 401-ből 451; díjbekérőből piszkozat "
                               "102-ből 101, 202-ből 201"));
}

Outcome StatusCommand::run(CommandContext& context) {
  const Outcome readable = readNumber("STATUS", statusText, status);
  return readable.succeeded() ? DocumentCommand::run(context) : readable;
}

Outcome StatusCommand::runOn(Host::Document& document, CommandContext& context) {
  FXString error;
  Host::DocumentCheck check;
  if (!context.company.getDocumentLife(check).changeStatus(document, status, error)) return Outcome::refused(error);
  const FXString& number = document.getNumber();
  context.output.writeRecord({{"id", document.getId()},
                              {"number", number.empty() ? Output::Json() : Output::toJson(number)},
                              {"status", document.getStatus()}});
  return Outcome::success();
}

}  // namespace Quillane::Commands
