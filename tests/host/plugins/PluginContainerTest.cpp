#include "plugin/contract/PluginContainer.h"

#include <gtest/gtest.h>

#include "plugin/contract/PluginModule.h"
#include "tests/support/TestCompany.h"

using namespace FX;

namespace Quillane::Plugin {
namespace {

class CountedHook : public InvoiceCheckPlugin {
 public:
  CountedHook(PluginContainer* owner, int& counter) : InvoiceCheckPlugin(owner), living(counter) { ++living; }
  ~CountedHook() override { --living; }
  int checkInvoice(FXWindow*, Invoice*, ListOfMessage&, FXString) override { return 1; }

 private:
  int& living;
};

class TestContainer : public PluginContainer {
 public:
  TestContainer() : PluginContainer(&testAccount(), "Code", "Név", "1.2", "Leírás") {}

  void add(FXObject* hook) { modules.append(hook); }
};

class ContainerWithSettings : public TestContainer {
 public:
  long onSettings(FXObject* sender, FXSelector selector, void* data) override {
    lastSender = sender;
    lastSelector = selector;
    lastData = data;
    return 5;
  }

  long onHasSettings(FXObject*, FXSelector, void*) override { return 1; }

  FXObject* lastSender = nullptr;
  FXSelector lastSelector = 0;
  void* lastData = nullptr;
};

TEST(PluginContainer, describesItsModule) {
  const TestContainer container;
  EXPECT_EQ(container.getAccount(), &testAccount());
  EXPECT_EQ(container.getCodeName(), "Code");
  EXPECT_EQ(container.getName(), "Név");
  EXPECT_EQ(container.getVersion(), "1.2");
  EXPECT_EQ(container.getDescription(), "Leírás");
  EXPECT_EQ(container.getModules().no(), 0);
}

TEST(PluginContainer, hasNeitherIconsNorSettingsByDefault) {
  TestContainer container;
  EXPECT_EQ(container.getIcon16(), nullptr);
  EXPECT_EQ(container.getIcon32(), nullptr);
  EXPECT_EQ(container.getIcon64(), nullptr);
  EXPECT_EQ(container.onHasSettings(nullptr, 0, nullptr), 0);
  EXPECT_EQ(container.onSettings(nullptr, 0, nullptr), 0);
  EXPECT_EQ(container.init(), 1);
  container.start();
}

TEST(PluginContainer, hearsOfItsSettingsByMessages) {
  ContainerWithSettings container;
  FXObject sender;
  int data = 0;
  const FXSelector command = FXSEL(SEL_COMMAND, PluginContainer::ID_SETTINGS);
  EXPECT_EQ(container.handle(&sender, command, &data), 5);
  EXPECT_EQ(container.lastSender, &sender);
  EXPECT_EQ(container.lastSelector, command);
  EXPECT_EQ(container.lastData, &data);
  EXPECT_EQ(container.handle(&sender, FXSEL(SEL_UPDATE, PluginContainer::ID_SETTINGS), nullptr), 1);
  EXPECT_EQ(container.handle(&sender, FXSEL(SEL_CHANGED, PluginContainer::ID_SETTINGS), nullptr), 0);
  EXPECT_EQ(container.handle(&sender, FXSEL(SEL_COMMAND, PluginContainer::ID_LAST), nullptr), 0);
}

TEST(PluginContainer, deletesItsHooks) {
  int living = 0;
  {
    TestContainer container;
    auto* hook = new CountedHook(&container, living);
    container.add(hook);
    container.add(new CountedHook(&container, living));
    EXPECT_EQ(container.getModules().no(), 2);
    EXPECT_EQ(container.getModules()[0], hook);
    EXPECT_EQ(hook->getContainer(), &container);
  }
  EXPECT_EQ(living, 0);
}

}  // namespace
}  // namespace Quillane::Plugin
