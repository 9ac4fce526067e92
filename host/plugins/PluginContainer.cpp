// What a module is to the host: its description, its hook objects and the two messages about its settings.
#include "plugin/contract/PluginContainer.h"

using namespace FX;

namespace Quillane::Plugin {

FXDEFMAP(PluginContainer)
PluginContainerMap[] = {
    FXMAPFUNC(SEL_COMMAND, PluginContainer::ID_SETTINGS, PluginContainer::onSettings),
    FXMAPFUNC(SEL_UPDATE, PluginContainer::ID_SETTINGS, PluginContainer::onHasSettings),
};
static_assert(ARRAYNUMBER(PluginContainerMap) == 2);

FXIMPLEMENT(PluginContainer, FXObject, PluginContainerMap, ARRAYNUMBER(PluginContainerMap))

PluginContainer::PluginContainer(Tarnwell* owner, const FXString& moduleCodeName, const FXString& moduleName,
                                 const FXString& moduleVersion, const FXString& moduleDescription)
    : account(owner),
      codeName(moduleCodeName),
      name(moduleName),
      version(moduleVersion),
      description(moduleDescription) {}

PluginContainer::~PluginContainer() {
  for (FXint i = 0; i < modules.no(); ++i) delete modules[i];
}

FXIcon* PluginContainer::getIcon16() { return nullptr; }

FXIcon* PluginContainer::getIcon32() { return nullptr; }

FXIcon* PluginContainer::getIcon64() { return nullptr; }

int PluginContainer::init() { return 1; }

void PluginContainer::start() {}

long PluginContainer::onSettings(FXObject*, FXSelector, void*) { return 0; }

long PluginContainer::onHasSettings(FXObject*, FXSelector, void*) { return 0; }

}  // namespace Quillane::Plugin
