// The window of the modules, with the real module loaded as a file and without a display.
#include "host/desktop/PluginListWindow.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "plugin/contract/PluginContainer.h"
#include "tests/host/desktop/MainWindowFixture.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/TestCompany.h"

using namespace FX;
using testing::ElementsAre;
using testing::HasSubstr;
using TestSupport::ModalDriver;

namespace Quillane::Desktop {
namespace {

/// A module whose settings can be counted and refused.
class TestContainer : public Plugin::PluginContainer {
 public:
  TestContainer() : PluginContainer(&testAccount(), "CodeName", "Próba", "1", "") {}

  long onSettings(FXObject*, FXSelector, void*) override {
    ++runs;
    return result;
  }

  int runs = 0;
  long result = 1;
};

using PluginListWindowTest = MainWindowTest;

TEST_F(PluginListWindowTest, showsWhatEachModuleIs) {
  const PluginListWindow list(window.get(), company.getPlugins(), icons);
  ASSERT_EQ(list.getTexts().size(), 1u);
  const std::string text = list.getTexts().front()->getText().text();
  EXPECT_THAT(text, HasSubstr("Egyéb tételadatok, 2013.01.02\n"));
  EXPECT_THAT(text, HasSubstr("Lehetőséget biztosít arra"));
  EXPECT_THAT(text, HasSubstr("libQuillanePluginItemData.so"));
  const FXWindow* picture = list.getTexts().front()->getPrev();
  EXPECT_EQ(static_cast<const FXLabel*>(picture)->getIcon(),
            company.getPlugins().getLoaded().front().container->getIcon16());
}

TEST_F(PluginListWindowTest, hasAButtonToTheSettingsOfAModuleThatHasSome) {
  PluginListWindow list(window.get(), company.getPlugins(), icons);
  ASSERT_EQ(list.getSettingsButtons().size(), 1u);
  ASSERT_NE(list.getSettingsButtons().front(), nullptr);
  ModalDriver driver(TestSupport::cancel);
  list.handle(nullptr, FXSEL(SEL_COMMAND, PluginListWindow::ID_SETTINGS), nullptr);
  EXPECT_THAT(driver.titles, ElementsAre("Egyéb tételadatok – beállítások"));
}

TEST_F(PluginListWindowTest, saysWhenTheSettingsCouldNotBeSaved) {
  TestContainer container;
  EXPECT_FALSE(PluginListWindow::hasSettings(container)) << "as every module by default";
  ModalDriver driver(TestSupport::accept);
  PluginListWindow::runSettings(window.get(), container);
  EXPECT_TRUE(driver.titles.empty());
  container.result = 0;
  PluginListWindow::runSettings(window.get(), container);
  EXPECT_THAT(driver.titles, ElementsAre("Próba"));
  EXPECT_EQ(container.runs, 2);
}

TEST_F(PluginListWindowTest, isOpenedFromTheMenu) {
  ModalDriver driver(TestSupport::cancel);
  command(MainWindow::ID_PLUGINS);
  EXPECT_THAT(driver.titles, ElementsAre("Bővítmények"));
}

TEST_F(PluginListWindowTest, hasItsSettingsInTheMenuToo) {
  ModalDriver driver(TestSupport::cancel);
  command(MainWindow::ID_PLUGIN_SETTINGS);
  command(MainWindow::ID_PLUGIN_SETTINGS + 1);
  EXPECT_THAT(driver.titles, ElementsAre("Egyéb tételadatok – beállítások")) << "there is one module";
}

TEST_F(PluginListWindowTest, hasOneEntryInTheMenuWhenTheCompanyIsOpenedAnew) {
  const auto countEntries = [this] {
    int entries = 0;
    for (FXint i = 0; i < window->getPluginMenu()->numChildren(); ++i)
      if (auto* entry = dynamic_cast<FXMenuCommand*>(window->getPluginMenu()->childAtIndex(i)))
        if (entry->getText() == "Egyéb tételadatok beállításai...") ++entries;
    return entries;
  };
  EXPECT_EQ(countEntries(), 1);
  ASSERT_TRUE(window->openCompany(path("sample.db")));
  EXPECT_EQ(countEntries(), 1);
}

}  // namespace
}  // namespace Quillane::Desktop
