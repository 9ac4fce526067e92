#include "plugin/contract/PluginModule.h"

#include <gtest/gtest.h>

#include "plugin/contract/Entity.h"

using namespace FX;

namespace Quillane::Plugin {
namespace {

class TestHook : public EntityPlugin {
 public:
  TestHook() : EntityPlugin(nullptr, 1, 2, 3, 4, 5) {}
  int load(Entity*) const override { return 0; }
  int save(Entity*) const override { return 0; }
  bool canHandle(const FXMetaClass&) const override { return true; }
  int toXml(Entity*, XMLBuilder::Element*) const override { return 1; }
  FXString toString(Entity*) const override { return ""; }
};

TEST(EntityPlugin, knowsItsWeights) {
  const TestHook hook;
  EXPECT_EQ(hook.getLoadWeight(), 1);
  EXPECT_EQ(hook.getSaveWeight(), 2);
  EXPECT_EQ(hook.getDeleteWeight(), 3);
  EXPECT_EQ(hook.getXmlWeight(), 4);
  EXPECT_EQ(hook.getStringWeight(), 5);
}

TEST(EntityPlugin, neitherDeletesNorReadsByDefault) {
  TestHook hook;
  Entity entity;
  FXDict parsers;
  EXPECT_EQ(hook.init(), 0);
  EXPECT_EQ(hook.del(&entity), 0);
  EXPECT_EQ(hook.getParser(&Entity::metaClass, parsers), nullptr);
  EXPECT_EQ(hook.getContainer(), nullptr);
}

TEST(EntityPlugin, isAPluginModuleForTheToolkitToo) {
  EXPECT_TRUE(EntityPlugin::metaClass.isSubClassOf(&PluginModule::metaClass));
  EXPECT_TRUE(InvoiceCheckPlugin::metaClass.isSubClassOf(&PluginModule::metaClass));
}

class TestMenu : public InvoiceItemMenuPlugin {
 public:
  TestMenu() : InvoiceItemMenuPlugin(nullptr, 3, "Mutasd...\t\t") {}

  long onCmdMenuItem(FXObject* sender, FXSelector, void*) override {
    pickedBy = sender;
    return 1;
  }

  FXObject* pickedBy = nullptr;
};

/// A menu command as far as the hook knows it.
class RecordingEntry : public FXObject {
 public:
  long handle(FXObject* sender, FXSelector selector, void*) override {
    lastSender = sender;
    lastSelector = selector;
    return 1;
  }

  FXObject* lastSender = nullptr;
  FXSelector lastSelector = 0;
};

TEST(InvoiceItemMenuPlugin, knowsItsPlaceAndItsText) {
  const TestMenu menu;
  EXPECT_EQ(menu.getPosition(), 3);
  EXPECT_EQ(menu.getMenuText(), "Mutasd...\t\t");
}

TEST(InvoiceItemMenuPlugin, hearsOfItsEntryBeingPicked) {
  TestMenu menu;
  RecordingEntry entry;
  EXPECT_EQ(menu.handle(&entry, FXSEL(SEL_COMMAND, InvoiceItemMenuPlugin::ID_MENU_ITEM), nullptr), 1);
  EXPECT_EQ(menu.pickedBy, &entry);
}

TEST(InvoiceItemMenuPlugin, enablesItsEntryByDefault) {
  TestMenu menu;
  RecordingEntry entry;
  EXPECT_EQ(menu.handle(&entry, FXSEL(SEL_UPDATE, InvoiceItemMenuPlugin::ID_MENU_ITEM), nullptr), 1);
  EXPECT_EQ(entry.lastSender, &menu);
  EXPECT_EQ(entry.lastSelector, FXSEL(SEL_COMMAND, FXWindow::ID_ENABLE));
}

}  // namespace
}  // namespace Quillane::Plugin
