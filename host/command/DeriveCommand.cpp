// A document made from another one.
#include "host/command/DeriveCommand.h"

#include <libintl.h>

#include "host/command/ArgumentText.h"

using namespace FX;

namespace Quillane::Commands {

const char* DeriveCommand::getDescription() const {
  return dgettext("quillane", "Új bizonylat egy meglévőből; kiírja az azonosítóját");
}

void DeriveCommand::declareOptions(OptionSet& options) {
  options.addArgument("ID", id, dgettext("quillane", "annak a bizonylatnak az azonosítója, amelyből az új készül"));
  options.addArgument("STATUS", statusText,
                      dgettext("quillane",
                               "az új állapota: piszkozaté a nyitott mennyiségekhez (101, 201, 401), vagy sztornóé "
                               "(152, 252, 452)"));
}

Outcome DeriveCommand::run(CommandContext& context) {
  int sourceId = 0;
  int status = 0;
  Outcome outcome = readNumber("ID", id, sourceId);
  if (outcome.succeeded()) outcome = readNumber("STATUS", statusText, status);
  if (!outcome.succeeded()) return outcome;

  FXString error;
  Host::DocumentCheck check;
  const int madeId = context.company.getDocumentLife(check).derive(sourceId, status, error);
  if (madeId == 0) return Outcome::refused(error);
  context.output.writeRecord({{"id", madeId}});
  return outcome;
}

}  // namespace Quillane::Commands
