#pragma once

#include "plugin/contract/PanelProvider.h"

namespace Quillane::Plugin::ItemData::ItemDataAssociationPanel {

/// Offers the association panel to the windows of products, suites and services.
class Plugin : public PanelProvider::Plugin {
 public:
  using PanelProvider::Plugin::Plugin;

  bool acceptWindow(PanelisedWindow* window) override;

  PanelProvider::Handler* getHandler(PanelisedWindow* window) override;
};

}  // namespace Quillane::Plugin::ItemData::ItemDataAssociationPanel
