// Loads the document that a command works on.
#include "host/command/DocumentCommand.h"

#include <libintl.h>

#include "host/command/ArgumentText.h"

using namespace FX;

namespace Quillane::Commands {

void DocumentCommand::declareOptions(OptionSet& options) {
  options.addArgument("ID", id, dgettext("quillane", "a bizonylat azonosítója"));
}

Outcome DocumentCommand::run(CommandContext& context) {
  int documentId = 0;
  const Outcome readable = readNumber("ID", id, documentId);
  if (!readable.succeeded()) return readable;

  FXString error;
  const std::unique_ptr<Host::Document> document = context.company.getDocuments().load(documentId, error);
  if (!document) return Outcome::refused(error);
  return runOn(*document, context);
}

}  // namespace Quillane::Commands
