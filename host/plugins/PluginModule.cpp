// The defaults of the hook objects.
#include "plugin/contract/PluginModule.h"

using namespace FX;

namespace Quillane::Plugin {

FXDEFMAP(InvoiceItemMenuPlugin)
InvoiceItemMenuPluginMap[] = {
    FXMAPFUNC(SEL_COMMAND, InvoiceItemMenuPlugin::ID_MENU_ITEM, InvoiceItemMenuPlugin::onCmdMenuItem),
    FXMAPFUNC(SEL_UPDATE, InvoiceItemMenuPlugin::ID_MENU_ITEM, InvoiceItemMenuPlugin::onUpdMenuItem),
};
static_assert(ARRAYNUMBER(InvoiceItemMenuPluginMap) == 2);

FXIMPLEMENT_ABSTRACT(PluginModule, FXObject, nullptr, 0)
FXIMPLEMENT_ABSTRACT(EntityPlugin, PluginModule, nullptr, 0)
FXIMPLEMENT_ABSTRACT(InvoiceCheckPlugin, PluginModule, nullptr, 0)
FXIMPLEMENT_ABSTRACT(InvoiceItemMenuPlugin, PluginModule, InvoiceItemMenuPluginMap,
                     ARRAYNUMBER(InvoiceItemMenuPluginMap))

int PluginModule::init() { return 0; }

int EntityPlugin::del(Entity*) const { return 0; }

void* EntityPlugin::getParser(const FXMetaClass*, FXDict&) const { return nullptr; }

int EntityPlugin::getXmlWeight() const { return xmlWeight; }

int EntityPlugin::getStringWeight() const { return stringWeight; }

long InvoiceItemMenuPlugin::onUpdMenuItem(FXObject* sender, FXSelector, void*) {
  sender->handle(this, FXSEL(SEL_COMMAND, FXWindow::ID_ENABLE), nullptr);
  return 1;
}

}  // namespace Quillane::Plugin
