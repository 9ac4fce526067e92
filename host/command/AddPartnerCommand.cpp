// A new partner.
#include "host/command/AddPartnerCommand.h"

#include <libintl.h>

#include "plugin/contract/Statement.h"

using namespace FX;

namespace Quillane::Commands {

const char* AddPartnerCommand::getDescription() const { return dgettext("quillane", "Új partner"); }

void AddPartnerCommand::declareOptions(OptionSet& options) {
  options.addRequiredOption("--name", "TEXT", name, dgettext("quillane", "a partner neve"));
  options.addOption("--address", "TEXT", address, dgettext("quillane", "a címe"));
  options.addOption("--taxnumber", "TEXT", taxNumber, dgettext("quillane", "az adószáma"));
}

Outcome AddPartnerCommand::readOptions() { return requireName(name); }

Outcome AddPartnerCommand::insert(TarnwellDatabase& database, int& id) {
  InsertStatement statement(&database, "t_partner");
  statement.setString("name", name);
  statement.setString("address", address.value_or(FXString()));
  statement.setString("taxnumber", taxNumber.value_or(FXString()));
  return insertWithKey(database, statement, "t_partner", id);
}

}  // namespace Quillane::Commands
