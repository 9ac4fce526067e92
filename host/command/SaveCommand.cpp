// Saves a document as it is: what modules do on saving happens.
#include "host/command/SaveCommand.h"

#include <libintl.h>

using namespace FX;

namespace Quillane::Commands {

const char* SaveCommand::getDescription() const {
  return dgettext("quillane", "Betölt egy bizonylatot a bővítményekkel együtt, és elmenti");
}

Outcome SaveCommand::runOn(Host::Document& document, CommandContext& context) {
  FXString error;
  if (!context.company.getDocuments().save(document, error)) return Outcome::refused(error);
  context.output.writeRecord({{"id", document.getId()}});
  return Outcome::success();
}

}  // namespace Quillane::Commands
