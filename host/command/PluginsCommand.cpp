// Which modules work in the program.
#include "host/command/PluginsCommand.h"

#include <libintl.h>

using namespace FX;

namespace Quillane::Commands {

const char* PluginsCommand::getDescription() const { return dgettext("quillane", "A betöltött bővítmények listája"); }

Outcome PluginsCommand::run(CommandContext& context) {
  Output::Json records = Output::Json::array();
  for (const Host::PluginLoader::Loaded& module : context.company.getPlugins().getLoaded()) {
    const Plugin::PluginContainer& container = *module.container;
    records.push_back({{"codename", Output::toJson(container.getCodeName())},
                       {"name", Output::toJson(container.getName())},
                       {"version", Output::toJson(container.getVersion())},
                       {"description", Output::toJson(container.getDescription())},
                       {"file", Output::toJson(module.file)}});
  }
  context.output.writeRecords(records);
  return Outcome::success();
}

}  // namespace Quillane::Commands
