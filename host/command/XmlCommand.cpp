// The document for other programs.
#include "host/command/XmlCommand.h"

#include <libintl.h>

#include "host/xml/DocumentXml.h"

using namespace FX;

namespace Quillane::Commands {

const char* XmlCommand::getDescription() const { return dgettext("quillane", "Egy bizonylat XML formában"); }

Outcome XmlCommand::runOn(Host::Document& document, CommandContext& context) {
  context.output.writeText(Host::documentToXml(document, context.company.getHooks()));
  return Outcome::success();
}

}  // namespace Quillane::Commands
