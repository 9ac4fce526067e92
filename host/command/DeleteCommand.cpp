// A document deleted.
#include "host/command/DeleteCommand.h"

#include <libintl.h>

#include "host/command/ArgumentText.h"

using namespace FX;

namespace Quillane::Commands {

const char* DeleteCommand::getDescription() const {
  return dgettext("quillane", "Törli, ami nincs lezárva, és amiből más bizonylat nem készült");
}

void DeleteCommand::declareOptions(OptionSet& options) {
  options.addArgument("ID", id, dgettext("quillane", "a bizonylat azonosítója"));
}

Outcome DeleteCommand::run(CommandContext& context) {
  int documentId = 0;
  const Outcome readable = readNumber("ID", id, documentId);
  if (!readable.succeeded()) return readable;

  FXString error;
  Host::DocumentCheck check;
  if (!context.company.getDocumentLife(check).remove(documentId, error)) return Outcome::refused(error);
  context.output.writeRecord({{"id", documentId}});
  return Outcome::success();
}

}  // namespace Quillane::Commands
