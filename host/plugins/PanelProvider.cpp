// The defaults of panels that modules offer.
#include "plugin/contract/PanelProvider.h"

#include "plugin/contract/PluginContainer.h"

using namespace FX;

namespace Quillane::Plugin::PanelProvider {

FXIMPLEMENT_ABSTRACT(Plugin, PluginModule, nullptr, 0)
FXIMPLEMENT_ABSTRACT(Handler, FXObject, nullptr, 0)

FXIcon* Handler::getIcon16() const { return plugin->getContainer()->getIcon16(); }

FXComposite* Handler::getPanel() const { return nullptr; }

long Handler::onCancelButton(FXObject*, FXSelector, void*) { return 0; }

FXString Handler::getCodeName() const { return plugin->getContainer()->getCodeName(); }

void Handler::onFocus() {}

}  // namespace Quillane::Plugin::PanelProvider
