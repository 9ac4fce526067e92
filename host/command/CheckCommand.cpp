// What the modules find wrong with a document.
#include "host/command/CheckCommand.h"

#include <libintl.h>

using namespace FX;

namespace Quillane::Commands {

const char* CheckCommand::getDescription() const {
  return dgettext("quillane", "Egy bizonylat ellenőrzése; hiba esetén a kilépési kód 1");
}

Outcome CheckCommand::runOn(Host::Document& document, CommandContext& context) {
  Host::DocumentCheck check;
  context.company.getPlugins().addHooksTo(check);
  check.run(document, Host::DocumentCheck::kKeyPrefix);

  Output::Json records = Output::Json::array();
  const ListOfMessage& messages = check.getMessages();
  for (FXint i = 0; i < messages.no(); ++i) {
    const Message& message = *messages[i];
    records.push_back({{"key", Output::toJson(message.getKey())},
                       {"severity", message.getSeverity() == Message::ERROR ? "error" : "notice"},
                       {"text", Output::toJson(message.getText())},
                       {"location", Output::toJson(message.getLocation())}});
  }
  context.output.writeRecords(records);
  // The messages themselves say what is wrong.
  return check.countErrors() == 0 ? Outcome::success() : Outcome::refused(FXString());
}

}  // namespace Quillane::Commands
