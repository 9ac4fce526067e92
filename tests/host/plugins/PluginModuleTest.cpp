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

}  // namespace
}  // namespace Quillane::Plugin
