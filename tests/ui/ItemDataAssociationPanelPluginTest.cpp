// Which windows of the host are offered an association panel.
#include "ui/ItemDataAssociationPanelPlugin.h"

#include <gtest/gtest.h>

#include <memory>

#include "plugin/contract/Forms.h"
#include "tests/ui/AssociationFixture.h"
#include "ui/ItemDataAssociationPanelHandler.h"

using namespace FX;

namespace Quillane::Plugin::ItemData {

/// A product's window of another module's making.
class SpecialProductWindow : public ProductDataWindow {
  FXDECLARE(SpecialProductWindow)
 public:
  using ProductDataWindow::ProductDataWindow;

 protected:
  SpecialProductWindow() = default;
};
FXIMPLEMENT(SpecialProductWindow, ProductDataWindow, nullptr, 0)

/// A window of something that is no article.
class PartnerDataWindow : public PanelisedWindow {
  FXDECLARE(PartnerDataWindow)
 public:
  using PanelisedWindow::PanelisedWindow;

 protected:
  PartnerDataWindow() = default;
};
FXIMPLEMENT(PartnerDataWindow, PanelisedWindow, nullptr, 0)

namespace {

using ItemDataAssociationPanel::Handler;

class PluginOfPanelTest : public AssociationTest {
 protected:
  template <class Handled, class Window>
  void expectPanel() {
    const auto window = makeWindow<Window>(1);
    EXPECT_TRUE(provider.acceptWindow(window.get()));
    const std::unique_ptr<PanelProvider::Handler> handler(provider.getHandler(window.get()));
    ASSERT_NE(handler, nullptr);
    EXPECT_NE(dynamic_cast<Handler<Handled>*>(handler.get()), nullptr);
    EXPECT_EQ(handler->getPlugin(), &provider);
    const std::unique_ptr<PanelProvider::Handler> second(provider.getHandler(window.get()));
    EXPECT_NE(second, handler) << "one for each call";
  }
};

TEST_F(PluginOfPanelTest, hasAPanelForProducts) { expectPanel<ProductDataWindow, ProductDataWindow>(); }

TEST_F(PluginOfPanelTest, hasAPanelForSuites) { expectPanel<SuiteDataWindow, SuiteDataWindow>(); }

TEST_F(PluginOfPanelTest, hasAPanelForServices) { expectPanel<ServiceDataWindow, ServiceDataWindow>(); }

TEST_F(PluginOfPanelTest, knowsAWindowByItsClassAtRunTime) { expectPanel<ProductDataWindow, SpecialProductWindow>(); }

TEST_F(PluginOfPanelTest, hasNoPanelForOtherWindows) {
  const auto window = std::make_unique<PartnerDataWindow>(owner.get(), *db(), "Partner");
  EXPECT_FALSE(provider.acceptWindow(window.get()));
  EXPECT_EQ(provider.getHandler(window.get()), nullptr);
}

TEST_F(PluginOfPanelTest, hasNoPanelWithoutAWindow) {
  EXPECT_FALSE(provider.acceptWindow(nullptr));
  EXPECT_EQ(provider.getHandler(nullptr), nullptr);
}

TEST_F(PluginOfPanelTest, belongsToItsContainer) {
  EXPECT_EQ(provider.getContainer(), &container);
  EXPECT_EQ(provider.init(), 0);
  EXPECT_EQ(provider.getMetaClass(), &PanelProvider::Plugin::metaClass);
}

}  // namespace
}  // namespace Quillane::Plugin::ItemData
