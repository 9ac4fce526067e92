#pragma once

#include "plugin/contract/PanelProvider.h"

namespace Quillane {

class ProductDataWindow;
class ServiceDataWindow;
class SuiteDataWindow;

namespace Plugin::ItemData {

namespace UI {
class ItemDataAssociationPanel;
}

namespace ItemDataAssociationPanel {

class Plugin;

/// The association panel on one window of an article: makes it, and stores what was chosen in it. Window is one of
/// ProductDataWindow, SuiteDataWindow and ServiceDataWindow.
template <class Window>
class Handler : public PanelProvider::Handler {
 public:
  /// Both outlive the handler.
  Handler(Plugin* provider, Window* dataWindow);

  void createGUI(FX::FXComposite* parent) override;

  FX::FXString getPanelName() const override;

  /// Stores the assignments of both directions under the window's record, which the host has written before. Always
  /// returns 1: a failed statement fails the transaction by itself.
  long onOKButton(FX::FXObject* sender, FX::FXSelector selector, void* data) override;

 private:
  Window* window;                                 // not owned
  UI::ItemDataAssociationPanel* panel = nullptr;  // a child of the window; null until createGUI
};

extern template class Handler<ProductDataWindow>;
extern template class Handler<SuiteDataWindow>;
extern template class Handler<ServiceDataWindow>;

}  // namespace ItemDataAssociationPanel
}  // namespace Plugin::ItemData
}  // namespace Quillane
