#include "plugin/contract/PanelProvider.h"

#include <gtest/gtest.h>

#include "plugin/contract/PluginContainer.h"
#include "tests/support/TestCompany.h"

using namespace FX;

namespace Quillane::Plugin::PanelProvider {
namespace {

class ContainerWithIcon : public PluginContainer {
 public:
  ContainerWithIcon() : PluginContainer(&testAccount(), "CodeName", "Név", "1", "") {}
  FXIcon* getIcon16() override { return &icon; }

  FXIcon icon{&testAccount(), nullptr, 0, 0, 1, 1};
};

class TestPlugin : public Plugin {
 public:
  using Plugin::Plugin;
  bool acceptWindow(PanelisedWindow*) override { return true; }
  Handler* getHandler(PanelisedWindow*) override { return nullptr; }
};

class TestHandler : public Handler {
 public:
  using Handler::Handler;
  void createGUI(FXComposite*) override {}
  FXString getPanelName() const override { return "Lap"; }
  long onOKButton(FXObject*, FXSelector, void*) override { return 1; }
};

class PanelProvider : public testing::Test {
 protected:
  ContainerWithIcon container;
  TestPlugin plugin{&container};
  TestHandler handler{&plugin};
};

TEST_F(PanelProvider, panelHasTheIconAndTheCodeNameOfItsModule) {
  EXPECT_EQ(handler.getIcon16(), &container.icon);
  EXPECT_EQ(handler.getCodeName(), "CodeName");
}

TEST_F(PanelProvider, panelStandsWhereItWasMadeByDefault) { EXPECT_EQ(handler.getPanel(), nullptr); }

TEST_F(PanelProvider, givingTheWindowUpDoesNothingByDefault) {
  EXPECT_EQ(handler.onCancelButton(nullptr, FXSEL(SEL_COMMAND, 1), nullptr), 0);
  handler.onFocus();
  EXPECT_EQ(handler.getPlugin(), &plugin);
}

TEST_F(PanelProvider, isAHookForTheToolkitToo) {
  EXPECT_TRUE(plugin.isMemberOf(&PluginModule::metaClass));
  EXPECT_FALSE(handler.isMemberOf(&PluginModule::metaClass));
  EXPECT_EQ(plugin.init(), 0);
}

}  // namespace
}  // namespace Quillane::Plugin::PanelProvider
