// The item data as they are printed.
#include "host/command/TextCommand.h"

#include <libintl.h>

using namespace FX;

namespace Quillane::Commands {

const char* TextCommand::getDescription() const {
  return dgettext("quillane", "A tételek adatai úgy, ahogy a nyomtatott bizonylatra kerülnek");
}

Outcome TextCommand::runOn(Host::Document& document, CommandContext& context) {
  Output::Json records = Output::Json::array();
  for (int i = 0; i < document.getItems().no(); ++i) {
    const FXString text = context.company.getHooks().toString(document.getItem(i));
    records.push_back({{"n", i + 1}, {"text", Output::toJson(text)}});
  }
  context.output.writeRecords(records);
  return Outcome::success();
}

}  // namespace Quillane::Commands
