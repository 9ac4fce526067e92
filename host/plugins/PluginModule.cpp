// The defaults of the hook objects.
#include "plugin/contract/PluginModule.h"

using namespace FX;

namespace Quillane::Plugin {

FXIMPLEMENT_ABSTRACT(PluginModule, FXObject, nullptr, 0)
FXIMPLEMENT_ABSTRACT(EntityPlugin, PluginModule, nullptr, 0)
FXIMPLEMENT_ABSTRACT(InvoiceCheckPlugin, PluginModule, nullptr, 0)

int PluginModule::init() { return 0; }

int EntityPlugin::del(Entity*) const { return 0; }

void* EntityPlugin::getParser(const FXMetaClass*, FXDict&) const { return nullptr; }

int EntityPlugin::getXmlWeight() const { return xmlWeight; }

int EntityPlugin::getStringWeight() const { return stringWeight; }

}  // namespace Quillane::Plugin
