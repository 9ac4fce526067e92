// Which windows get an association panel.
#include "ui/ItemDataAssociationPanelPlugin.h"

#include "plugin/contract/Forms.h"
#include "ui/ItemDataAssociationPanelHandler.h"

using namespace FX;

namespace Quillane::Plugin::ItemData::ItemDataAssociationPanel {

namespace {

// The window as one of this class; null when it is of another.
template <class Window>
Window* as(PanelisedWindow* window) {
  return window && window->isMemberOf(&Window::metaClass) ? static_cast<Window*>(window) : nullptr;
}

}  // namespace

bool Plugin::acceptWindow(PanelisedWindow* window) {
  return as<ProductDataWindow>(window) || as<SuiteDataWindow>(window) || as<ServiceDataWindow>(window);
}

PanelProvider::Handler* Plugin::getHandler(PanelisedWindow* window) {
  if (auto* product = as<ProductDataWindow>(window)) return new Handler<ProductDataWindow>(this, product);
  if (auto* suite = as<SuiteDataWindow>(window)) return new Handler<SuiteDataWindow>(this, suite);
  if (auto* service = as<ServiceDataWindow>(window)) return new Handler<ServiceDataWindow>(this, service);
  return nullptr;
}

}  // namespace Quillane::Plugin::ItemData::ItemDataAssociationPanel
