// The container: its texts and icon, what its init registers, what its end leaves behind, and the entry point.
#include "plugin/ItemDataContainer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "icons/icons.h"
#include "itemdata/ItemDataComboEntry.h"
#include "itemdata/ItemDataDateEntry.h"
#include "itemdata/ItemDataPluginList.h"
#include "itemdata/ItemDataStringEntry.h"
#include "plugin/InvoiceCheck.h"
#include "plugin/InvoiceItemMenu.h"
#include "plugin/InvoiceItemPlugin.h"
#include "plugin/contract/DBTable.h"
#include "tests/plugin/PluginTest.h"
#include "tests/plugin/TextCatalogue.h"
#include "tests/support/ModalDriver.h"
#include "ui/ItemDataAssociationPanelPlugin.h"
#include "ui/ItemDataSettingsPanel.h"

using namespace FX;
using testing::ElementsAre;

namespace Quillane::Plugin::ItemData {
namespace {

const char* const kDescription =
    "Lehetőséget biztosít arra, hogy bizonyos áruk számlázásakor egyéb (saját) adatot is nyomtassunk a számlára.\n";

const char* const kModuleTablesSql =
    "select name from sqlite_master where type='table' and (name like '%itemdata' or name='t_itemvariable') order by 1";

class ItemDataContainerTest : public PluginTest {};

TEST_F(ItemDataContainerTest, tellsItsTexts) {
  const ItemDataContainer container(&testAccount());
  EXPECT_EQ(container.getCodeName(), "QuillanePluginItemData");
  EXPECT_EQ(container.getName(), "Egyéb tételadatok");
  EXPECT_EQ(container.getVersion(), "2013.01.02");
  EXPECT_EQ(container.getDescription(), kDescription);
  EXPECT_EQ(container.getAccount(), &testAccount());
}

TEST_F(ItemDataContainerTest, translatesNameAndDescriptionAndNothingElse) {
  const TextCatalogue catalogue("QuillanePluginItemData", {{"Egyéb tételadatok", "Other item data"},
                                                           {kDescription, "Prints data of your own.\n"},
                                                           {"QuillanePluginItemData", "a translated code name"},
                                                           {"2013.01.02", "a translated version"}});
  const ItemDataContainer container(&testAccount());
  EXPECT_EQ(container.getName(), "Other item data");
  EXPECT_EQ(container.getDescription(), "Prints data of your own.\n");
  EXPECT_EQ(container.getCodeName(), "QuillanePluginItemData");
  EXPECT_EQ(container.getVersion(), "2013.01.02");
}

TEST_F(ItemDataContainerTest, hasAnIconOfSixteenPixels) {
  ItemDataContainer container(&testAccount());
  FXIcon* icon = container.getIcon16();
  ASSERT_NE(icon, nullptr);
  EXPECT_EQ(icon->getWidth(), 16);
  EXPECT_EQ(icon->getHeight(), 16);
  EXPECT_EQ(icon->getTransparentColor(), 0xFFC0C0C0);
  EXPECT_EQ(icon->getApp(), &testAccount());
  EXPECT_EQ(container.getIcon16(), icon) << "made once";
}

TEST_F(ItemDataContainerTest, showsItsOwnPicture) {
  ItemDataContainer container(&testAccount());
  const FXGIFIcon expected(&testAccount(), icon_itemdata, FXRGB(192, 192, 192), 0, 1, 1);
  const FXIcon& icon = *container.getIcon16();
  ASSERT_EQ(icon.getWidth() * icon.getHeight(), expected.getWidth() * expected.getHeight());
  ASSERT_NE(icon.getData(), nullptr);
  EXPECT_TRUE(
      std::equal(expected.getData(), expected.getData() + expected.getWidth() * expected.getHeight(), icon.getData()));
  EXPECT_EQ(icon.getOptions(), expected.getOptions());
}

TEST_F(ItemDataContainerTest, hasNoLargerIcons) {
  ItemDataContainer container(&testAccount());
  EXPECT_EQ(container.getIcon32(), nullptr);
  EXPECT_EQ(container.getIcon64(), nullptr);
}

TEST_F(ItemDataContainerTest, registersNothingBeforeInit) {
  const ItemDataContainer container(&testAccount());
  EXPECT_EQ(container.getModules().no(), 0);
  EXPECT_EQ(plugins.no(), 0);
}

TEST_F(ItemDataContainerTest, initReturnsOne) { EXPECT_EQ(ItemDataContainer(&testAccount()).init(), 1); }

TEST_F(ItemDataContainerTest, initRegistersItsHooksInOrder) {
  ItemDataContainer container(&testAccount());
  container.init();

  const FXObjectList& modules = container.getModules();
  ASSERT_EQ(modules.no(), 4);
  EXPECT_NE(dynamic_cast<ItemDataAssociationPanel::Plugin*>(modules[0]), nullptr);
  EXPECT_NE(dynamic_cast<InvoiceCheck*>(modules[1]), nullptr);
  EXPECT_NE(dynamic_cast<InvoiceItemMenu*>(modules[2]), nullptr);
  EXPECT_NE(dynamic_cast<InvoiceItemPlugin*>(modules[3]), nullptr);
  for (FXint i = 0; i < modules.no(); ++i) {
    auto* hook = dynamic_cast<PluginModule*>(modules[i]);
    ASSERT_NE(hook, nullptr);
    EXPECT_EQ(hook->getContainer(), &container);
    EXPECT_EQ(hook->init(), 0);
  }
}

TEST_F(ItemDataContainerTest, initGivesTheMenuEntryItsPlaceAndItsText) {
  ItemDataContainer container(&testAccount());
  container.init();

  auto* hook = dynamic_cast<InvoiceItemMenuPlugin*>(container.getModules()[2]);
  ASSERT_NE(hook, nullptr);
  EXPECT_EQ(hook->getPosition(), 0);
  EXPECT_EQ(hook->getMenuText(), "Egyéb tételadatok...\t\t");
}

TEST_F(ItemDataContainerTest, initTranslatesTheTextOfTheMenuEntry) {
  const TextCatalogue catalogue("QuillanePluginItemData", {{"Egyéb tételadatok...\t\t", "Other item data...\t\t"}});
  ItemDataContainer container(&testAccount());
  container.init();
  auto* hook = dynamic_cast<InvoiceItemMenuPlugin*>(container.getModules()[2]);
  ASSERT_NE(hook, nullptr);
  EXPECT_EQ(hook->getMenuText(), "Other item data...\t\t");
}

TEST_F(ItemDataContainerTest, initGivesTheEntityHookItsWeights) {
  ItemDataContainer container(&testAccount());
  container.init();

  auto* hook = dynamic_cast<EntityPlugin*>(container.getModules()[3]);
  ASSERT_NE(hook, nullptr);
  EXPECT_THAT((std::vector<int>{hook->getLoadWeight(), hook->getSaveWeight(), hook->getDeleteWeight(),
                                hook->getXmlWeight(), hook->getStringWeight()}),
              ElementsAre(103, 103, 0, 103, 103));
}

TEST_F(ItemDataContainerTest, initRegistersOnePrototypeOfEachKindInOrder) {
  ItemDataContainer container(&testAccount());
  container.init();

  ASSERT_EQ(plugins.no(), 3);
  EXPECT_NE(dynamic_cast<ItemDataStringEntry*>(plugins[0]), nullptr);
  EXPECT_NE(dynamic_cast<ItemDataDateEntry*>(plugins[1]), nullptr);
  EXPECT_NE(dynamic_cast<ItemDataComboEntry*>(plugins[2]), nullptr);
  for (FXint i = 0; i < plugins.no(); ++i) {
    EXPECT_EQ(plugins[i]->getOwner(), nullptr);
    EXPECT_EQ(plugins[i]->value, "");
    EXPECT_EQ(plugins[i]->pk, 0);
    EXPECT_EQ(plugins[i]->mandatory, 1);
  }
}

TEST_F(ItemDataContainerTest, initBringsTheTablesUpToDate) {
  ItemDataContainer container(&testAccount());
  container.init();
  EXPECT_EQ(company.query("select t_itemvariable_id, name from t_itemvariable"), (Grid{{"-1", "Mennyiség"}}));
  EXPECT_EQ(company.query(kModuleTablesSql), (Grid{{"t_invoiceitemdata"},
                                                   {"t_itemvariable"},
                                                   {"t_productitemdata"},
                                                   {"t_serviceitemdata"},
                                                   {"t_suiteitemdata"}}));
}

TEST_F(ItemDataContainerTest, keepsInitSuccessfulWhenTheDatabaseRefuses) {
  company.run("pragma query_only=1");
  ItemDataContainer container(&testAccount());
  EXPECT_EQ(container.init(), 1);
  EXPECT_EQ(container.getModules().no(), 4);
  EXPECT_EQ(plugins.no(), 3);
  company.run("pragma query_only=0");
  EXPECT_EQ(company.query(kModuleTablesSql), Grid{});
}

TEST_F(ItemDataContainerTest, keepsRegisteringAnewOnEveryInit) {
  ItemDataContainer container(&testAccount());
  container.init();
  container.init();
  EXPECT_EQ(container.getModules().no(), 8);
  EXPECT_EQ(plugins.no(), 6);
}

TEST_F(ItemDataContainerTest, keepsThePointersToItsPrototypesWhenItIsDeleted) {
  auto container = std::make_unique<ItemDataContainer>(&testAccount());
  container->init();
  const std::vector<ItemDataEntry*> prototypes{plugins[0], plugins[1], plugins[2]};

  container.reset();

  ASSERT_EQ(plugins.no(), 3);
  EXPECT_EQ((std::vector<ItemDataEntry*>{plugins[0], plugins[1], plugins[2]}), prototypes);
}

/// A prototype that tells of its end.
class TellingPrototype : public ItemDataStringEntry {
 public:
  TellingPrototype(std::vector<int>& deletedNumbers, int ownNumber) : deleted(deletedNumbers), number(ownNumber) {}
  ~TellingPrototype() override { deleted.push_back(number); }

 private:
  std::vector<int>& deleted;
  int number;
};

TEST_F(ItemDataContainerTest, deletesThePrototypesFromTheLastToTheFirst) {
  std::vector<int> deleted;
  auto container = std::make_unique<ItemDataContainer>(&testAccount());
  for (int number = 1; number <= 3; ++number) plugins.append(new TellingPrototype(deleted, number));
  EXPECT_THAT(deleted, ElementsAre());

  container.reset();

  EXPECT_THAT(deleted, ElementsAre(3, 2, 1));
}

// ---- the settings

/// A company with the variable 5 and the container that the host asks for its settings.
class ItemDataContainerSettings : public ItemDataContainerTest {
 protected:
  ItemDataContainerSettings() {
    container.init();
    company.run("insert into t_itemvariable values (5, 'Lejárat', 2, 0, 1, '')");
  }

  /// Asks for the settings, has the user do something in them, and returns the result.
  long askForSettings(const TestSupport::ModalDriver::Answer& user) {
    const TestSupport::ModalDriver driver(user);
    return container.onSettings(nullptr, 0, nullptr);
  }

  /// Changes the name of the first variable.
  static void rename(FXDialogBox& dialog) {
    auto* settings = dynamic_cast<ItemDataSettingsPanel*>(&dialog);
    ASSERT_NE(settings, nullptr);
    settings->getTable()->setItemText(0, 0, "Szavatosság");
  }

  Grid names() const { return company.query("select name from t_itemvariable where t_itemvariable_id=5"); }

  ItemDataContainer container{&testAccount()};
};

TEST_F(ItemDataContainerSettings, areThere) { EXPECT_EQ(container.onHasSettings(nullptr, 0, nullptr), 1); }

TEST_F(ItemDataContainerSettings, areWrittenWhenTheyAreAccepted) {
  EXPECT_EQ(askForSettings([](FXDialogBox& dialog) {
              rename(dialog);
              TestSupport::accept(dialog);
            }),
            1);
  EXPECT_EQ(names(), (Grid{{"Szavatosság"}}));
}

TEST_F(ItemDataContainerSettings, areForgottenWhenTheyAreCancelled) {
  EXPECT_EQ(askForSettings([](FXDialogBox& dialog) {
              rename(dialog);
              TestSupport::cancel(dialog);
            }),
            1);
  EXPECT_EQ(names(), (Grid{{"Lejárat"}}));
}

TEST_F(ItemDataContainerSettings, canBeAcceptedWithoutAChange) {
  long result = 0;
  EXPECT_THAT(watch([&] { result = askForSettings(TestSupport::accept); }), testing::SizeIs(1)) << "the loading only";
  EXPECT_EQ(result, 1);
  EXPECT_EQ(names(), (Grid{{"Lejárat"}}));
}

TEST_F(ItemDataContainerSettings, keepsAnsweringOneWhenTheDatabaseRefuses) {
  company.run("create trigger refuse before update on t_itemvariable begin select raise(abort, 'no'); end");
  int refusals = 0;
  EXPECT_EQ(askForSettings([&refusals](FXDialogBox& dialog) {
              if (dynamic_cast<ItemDataSettingsPanel*>(&dialog)) {
                rename(dialog);
                TestSupport::accept(dialog);
              } else {
                ++refusals;
                TestSupport::cancel(dialog);
              }
            }),
            1);
  EXPECT_EQ(refusals, 1) << "the user is told";
  EXPECT_EQ(names(), (Grid{{"Lejárat"}}));
}

TEST_F(ItemDataContainerSettings, comeUpInTheSizeThatTheyNeed) {
  askForSettings([](FXDialogBox& dialog) {
    EXPECT_EQ(dialog.getWidth(), 600);
    EXPECT_EQ(dialog.getHeight(), 400);
    EXPECT_THAT(dialog.getTitle().text(), testing::HasSubstr("Egyéb tételadatok"));
    TestSupport::cancel(dialog);
  });
}

TEST_F(ItemDataContainerSettings, areGoneAfterwards) {
  const FXint windowsBefore = testAccount().getRootWindow()->numChildren();
  askForSettings(TestSupport::cancel);
  askForSettings(TestSupport::accept);
  EXPECT_EQ(testAccount().getRootWindow()->numChildren(), windowsBefore);
}

// ---- the entry point

TEST_F(ItemDataContainerTest, isWhatTheEntryPointMakes) {
  const std::unique_ptr<PluginContainer> first(get_plugin(&testAccount()));
  const std::unique_ptr<PluginContainer> second(get_plugin(&testAccount()));
  ASSERT_NE(dynamic_cast<ItemDataContainer*>(first.get()), nullptr);
  EXPECT_EQ(first->getAccount(), &testAccount());
  EXPECT_EQ(first->getModules().no(), 0) << "init is the host's call";
  EXPECT_NE(first, second);
}

TEST_F(ItemDataContainerTest, usesTheMetaClassOfItsBase) {
  const ItemDataContainer container(&testAccount());
  EXPECT_EQ(container.getMetaClass(), &PluginContainer::metaClass);
  EXPECT_EQ(FXMetaClass::getMetaClassFromName("ItemDataContainer"), nullptr);
  EXPECT_EQ(FXMetaClass::getMetaClassFromName("InvoiceCheck"), nullptr);
  EXPECT_EQ(FXMetaClass::getMetaClassFromName("InvoiceItemMenu"), nullptr);
  EXPECT_EQ(FXMetaClass::getMetaClassFromName("InvoiceItemPlugin"), nullptr);
  EXPECT_EQ(ItemDataAssociationPanel::Plugin(nullptr).getMetaClass(), &PanelProvider::Plugin::metaClass);
}

}  // namespace
}  // namespace Quillane::Plugin::ItemData
