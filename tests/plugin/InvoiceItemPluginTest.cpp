// The hook into loading, saving, exporting and printing of invoice items.
#include "plugin/InvoiceItemPlugin.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include "itemdata/ItemDataList.h"
#include "itemdata/ItemDataStringEntry.h"
#include "plugin/ItemDataContainer.h"
#include "plugin/contract/Invoice.h"
#include "plugin/contract/XMLBuilder.h"
#include "tests/plugin/PluginTest.h"

using namespace FX;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace Quillane::Plugin::ItemData {

/// An invoice item of another module's making.
class SpecialItem : public InvoiceItem {
  FXDECLARE(SpecialItem)
};
FXIMPLEMENT(SpecialItem, InvoiceItem, nullptr, 0)

namespace {

/// An entry that tells which statuses it was told.
class StatusEntry : public ItemDataStringEntry {
 public:
  explicit StatusEntry(std::vector<unsigned>& statuses) : told(statuses) {}
  void setStatus(unsigned status) override { told.push_back(status); }

 private:
  std::vector<unsigned>& told;
};

/// Product 1 asks for "Szín" (text, once) and "Gyári szám" (text, per unit) on outgoing documents, product 2 for
/// nothing; the stored outgoing draft 1 has item 1 (product 1) and item 2 (product 2).
class InvoiceItemPluginTest : public PluginTest {
 protected:
  InvoiceItemPluginTest() {
    container = std::make_unique<ItemDataContainer>(&testAccount());
    container->init();
    hook = dynamic_cast<EntityPlugin*>(container->getModules()[container->getModules().no() - 1]);
    company.run("insert into t_product (t_product_id, name) values (1, 'Gép'), (2, 'Kábel')");
    company.run(
        "insert into t_itemvariable (t_itemvariable_id, name, type, process, mandatory) "
        "values (10, 'Szín', 1, 0, 1), (11, 'Gyári szám', 1, 1, 1)");
    company.run(
        "insert into t_productitemdata (t_product_1, t_itemvariable_1, position, direction) "
        "values (1, 10, 1, 100), (1, 11, 2, 100)");
    company.run("insert into t_invoice (t_invoice_id, t_invoicestatus_1, statusgate) values (1, 101, 1)");
    company.run(
        "insert into t_invoiceitem (t_invoiceitem_id, t_invoice_1, articlekind, articleid) "
        "values (1, 1, 1, 1), (2, 1, 1, 2)");
    invoice.setId(1);
    invoice.setStatus(101, false);
    invoice.setStatusGate(1);
  }

  /// A new item object of the document, as the host makes one when it loads the item of this id; 0 is not stored yet.
  InvoiceItem* addItem(int id, int product) {
    auto* item = new InvoiceItem;
    item->setId(id);
    item->setArticle(InvoiceItem::ARTICLE_PRODUCT, product);
    invoice.appendItem(item);
    return item;
  }

  void recordOneUnit() {
    company.run(
        "insert into t_invoiceitemdata (t_itemvariable_1, t_invoiceitem_1, row, value) "
        "values (10, 1, 0, 'piros'), (-1, 1, 1, '2'), (11, 1, 1, 'SN-1')");
  }

  Grid recordedRows() {
    return company.query(
        "select t_itemvariable_1, t_invoiceitem_1, row, value from t_invoiceitemdata order by 2, 3, 1");
  }

  std::unique_ptr<ItemDataContainer> container;  // before the document: lists outlive no prototype's class
  EntityPlugin* hook = nullptr;                  // owned by the container
  Invoice invoice;
};

TEST_F(InvoiceItemPluginTest, handlesInvoiceItemsAndWhatDerivesFromThem) {
  EXPECT_TRUE(hook->canHandle(InvoiceItem::metaClass));
  EXPECT_TRUE(hook->canHandle(SpecialItem::metaClass));
}

TEST_F(InvoiceItemPluginTest, handlesNoOtherClass) {
  EXPECT_FALSE(hook->canHandle(Entity::metaClass)) << "the base of an invoice item is none";
  EXPECT_FALSE(hook->canHandle(Invoice::metaClass));
  EXPECT_FALSE(hook->canHandle(EntityMiscData::metaClass));
  EXPECT_FALSE(hook->canHandle(FXObject::metaClass));
}

TEST_F(InvoiceItemPluginTest, attachesNothingToAnItemWhoseArticleAsksForNothing) {
  InvoiceItem* item = addItem(2, 2);

  EXPECT_EQ(hook->load(item), 0);

  EXPECT_EQ(item->getMiscData("ItemData"), nullptr);
  EXPECT_EQ(hook->save(item), 0);
  EXPECT_EQ(hook->toString(item), "");
  XMLBuilder::Document document("urn:test", "item");
  EXPECT_EQ(hook->toXml(item, document.getRoot()), 1);
  EXPECT_THAT(document.toText().text(), Not(HasSubstr("itemdata")));
}

TEST_F(InvoiceItemPluginTest, attachesNothingWhenTheArticleAsksForTheOtherDirectionOnly) {
  invoice.setStatus(201, false);
  InvoiceItem* item = addItem(1, 1);
  EXPECT_EQ(hook->load(item), 0);
  EXPECT_EQ(item->getMiscData("ItemData"), nullptr);
}

TEST_F(InvoiceItemPluginTest, attachesNothingToAnItemWithoutArticle) {
  InvoiceItem* item = addItem(1, 1);
  item->setArticle(InvoiceItem::ARTICLE_NONE, 0);
  EXPECT_EQ(hook->load(item), 0);
  EXPECT_EQ(item->getMiscData("ItemData"), nullptr);
}

TEST_F(InvoiceItemPluginTest, attachesItemDataThatTheItemOwns) {
  InvoiceItem* item = addItem(0, 1);

  EXPECT_EQ(hook->load(item), 0);

  auto* list = dynamic_cast<ItemDataList*>(item->getMiscData("ItemData"));
  ASSERT_NE(list, nullptr);
  EXPECT_EQ(list->getOwner(), item);
  ASSERT_EQ(list->no(), 1) << "a new item starts with what is recorded once";
  EXPECT_EQ(list->at(0)->name, "Szín");
  ASSERT_NE(list->settings, nullptr);
  EXPECT_EQ(list->settings->no(), 3) << "Szín, the quantity, Gyári szám";
  EXPECT_EQ(list->settings->getOwner(), nullptr);
}

TEST_F(InvoiceItemPluginTest, readsWhatWasRecordedForAStoredItem) {
  recordOneUnit();
  InvoiceItem* item = addItem(1, 1);

  EXPECT_EQ(hook->load(item), 0);

  const ItemDataList* list = ItemDataList::of(*item);
  ASSERT_NE(list, nullptr);
  ASSERT_EQ(list->no(), 3);
  EXPECT_EQ(list->at(0)->getValue(), "piros");
  EXPECT_EQ(list->at(1)->getValue(), "2");
  EXPECT_EQ(list->at(2)->getValue(), "SN-1");
}

TEST_F(InvoiceItemPluginTest, buildsTheItemDataOfOneObjectOnce) {
  recordOneUnit();
  InvoiceItem* item = addItem(1, 1);
  EXPECT_EQ(hook->load(item), 0);
  EntityMiscData* list = item->getMiscData("ItemData");

  const std::vector<std::string> log = watch([&] { EXPECT_EQ(hook->load(item), 1); });

  EXPECT_EQ(item->getMiscData("ItemData"), list);
  EXPECT_THAT(log, IsEmpty()) << "nothing is read again";
}

TEST_F(InvoiceItemPluginTest, tellsItemDataThatAreThereTheStatusOfTheDocument) {
  InvoiceItem* item = addItem(0, 1);
  hook->load(item);
  std::vector<unsigned> told;
  ItemDataList::of(*item)->append(new StatusEntry(told));

  hook->load(item);
  EXPECT_THAT(told, ElementsAre(101));
  invoice.setStatus(102, false);
  hook->load(item);
  EXPECT_THAT(told, ElementsAre(101, 102));
  invoice.setStatus(151, true);
  hook->load(item);
  EXPECT_THAT(told, ElementsAre(101, 102)) << "a status that does not concern item data";
}

TEST_F(InvoiceItemPluginTest, readsTheAssignmentsForTheDirectionOfTheDocument) {
  InvoiceItem* item = addItem(0, 1);
  const std::vector<std::string> log = watch([&] { hook->load(item); });
  ASSERT_FALSE(log.empty());
  EXPECT_THAT(log[0], AllOf(HasSubstr("from t_productitemdata"), HasSubstr("\n    id='1', direction='100'")));
}

TEST_F(InvoiceItemPluginTest, seesChangedAssignmentsOnNewItemObjectsOnly) {
  InvoiceItem* known = addItem(0, 1);
  hook->load(known);
  company.run("insert into t_itemvariable (t_itemvariable_id, name, type, process) values (12, 'Méret', 1, 0)");
  company.run(
      "insert into t_productitemdata (t_product_1, t_itemvariable_1, position, direction) values (1, 12, 3, 100)");

  hook->load(known);
  EXPECT_EQ(ItemDataList::of(*known)->settings->no(), 3);

  InvoiceItem* fresh = addItem(0, 1);
  hook->load(fresh);
  EXPECT_EQ(ItemDataList::of(*fresh)->settings->no(), 4);
}

TEST_F(InvoiceItemPluginTest, savesTheItemData) {
  InvoiceItem* item = addItem(1, 1);
  hook->load(item);
  ItemDataList* list = ItemDataList::of(*item);
  list->cloneItemsFrom(list->settings, 1);
  list->at(0)->value = "kék";
  list->at(1)->value = "1";
  list->at(2)->value = "SN-7";

  EXPECT_EQ(hook->save(item), 1);

  EXPECT_EQ(recordedRows(), (Grid{{"10", "1", "0", "kék"}, {"-1", "1", "1", "1"}, {"11", "1", "1", "SN-7"}}));
}

TEST_F(InvoiceItemPluginTest, keepsReturningOneWhenNothingCouldBeSaved) {
  InvoiceItem* item = addItem(1, 1);
  hook->load(item);
  ItemDataList* list = ItemDataList::of(*item);
  list->cloneItemsFrom(list->settings, 0);
  list->at(0)->value = "kék";

  company.run("pragma query_only=1");
  EXPECT_EQ(hook->save(item), 1);
  EXPECT_THAT(db().getLastError().text(), HasSubstr("t_invoiceitemdata"));
  company.run("pragma query_only=0");
  EXPECT_EQ(recordedRows(), Grid{});
}

TEST_F(InvoiceItemPluginTest, addsTheItemDataToTheItemsXml) {
  recordOneUnit();
  InvoiceItem* item = addItem(1, 1);
  hook->load(item);
  XMLBuilder::Document document("urn:test", "item");

  EXPECT_EQ(hook->toXml(item, document.getRoot()), 1);

  const std::string xml = document.toText().text();
  EXPECT_THAT(xml, HasSubstr("xmlns:itemdata=\"urn:quillane:plugin:itemdata\""));
  EXPECT_THAT(xml, HasSubstr("<itemdata:itemdata row=\"0\" name=\"Szín\">piros</itemdata:itemdata>"));
  EXPECT_THAT(xml, HasSubstr("<itemdata:itemdata row=\"1\" name=\"Mennyiség\">2</itemdata:itemdata>"));
  EXPECT_THAT(xml, HasSubstr("<itemdata:itemdata row=\"1\" name=\"Gyári szám\">SN-1</itemdata:itemdata>"));
}

TEST_F(InvoiceItemPluginTest, printsTheItemData) {
  recordOneUnit();
  InvoiceItem* item = addItem(1, 1);
  item->setUnit("db");
  hook->load(item);
  EXPECT_EQ(hook->toString(item), "piros; 2 db SN-1");
}

TEST_F(InvoiceItemPluginTest, doesNothingWhenAnItemIsDeleted) {
  recordOneUnit();
  InvoiceItem* item = addItem(1, 1);
  hook->load(item);
  const std::vector<std::string> log = watch([&] { EXPECT_EQ(hook->del(item), 0); });
  EXPECT_THAT(log, IsEmpty());
  EXPECT_NE(item->getMiscData("ItemData"), nullptr);
}

TEST_F(InvoiceItemPluginTest, readsNoXml) {
  FXDict parsers;
  EXPECT_EQ(hook->getParser(&InvoiceItem::metaClass, parsers), nullptr);
  EXPECT_EQ(parsers.no(), 0);
}

TEST_F(InvoiceItemPluginTest, comesAt103InXmlAndText) {
  EXPECT_EQ(hook->getXmlWeight(), 103);
  EXPECT_EQ(hook->getStringWeight(), 103);
}

}  // namespace
}  // namespace Quillane::Plugin::ItemData
