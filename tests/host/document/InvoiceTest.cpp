#include "plugin/contract/Invoice.h"

#include <gtest/gtest.h>

using namespace FX;

namespace Quillane {
namespace {

class CountedItem : public InvoiceItem {
 public:
  explicit CountedItem(int& counter) : living(counter) { ++living; }
  ~CountedItem() override { --living; }

 private:
  int& living;
};

TEST(Invoice, isEmptyAtFirst) {
  const Invoice invoice;
  EXPECT_EQ(invoice.getItems().no(), 0);
  EXPECT_EQ(invoice.getStatus(), 0);
  EXPECT_FALSE(invoice.isStatusClosed());
  EXPECT_EQ(invoice.getStatusGate(), 0);
  EXPECT_TRUE(invoice.getDisplayText().empty());
  EXPECT_EQ(invoice.getLoadMark(), 0);
}

TEST(Invoice, holdsWhatItIsGiven) {
  Invoice invoice;
  invoice.setStatus(151, true);
  invoice.setStatusGate(1);
  invoice.setDisplayText("2026/1");
  invoice.setLoadMark(1);
  EXPECT_EQ(invoice.getStatus(), 151);
  EXPECT_TRUE(invoice.isStatusClosed());
  EXPECT_EQ(invoice.getStatusGate(), 1);
  EXPECT_EQ(invoice.getDisplayText(), "2026/1");
  EXPECT_EQ(invoice.getLoadMark(), 1);
}

TEST(Invoice, keepsItsItemsInOrderAndOwnsThem) {
  int living = 0;
  {
    Invoice invoice;
    auto* first = new CountedItem(living);
    auto* second = new CountedItem(living);
    invoice.appendItem(first);
    invoice.appendItem(second);
    ASSERT_EQ(invoice.getItems().no(), 2);
    EXPECT_EQ(invoice.getItems()[0], first);
    EXPECT_EQ(invoice.getItems()[1], second);
    EXPECT_EQ(second->getInvoice(), &invoice);
    EXPECT_EQ(living, 2);
  }
  EXPECT_EQ(living, 0);
}

TEST(InvoiceItem, isEmptyAtFirst) {
  const InvoiceItem item;
  EXPECT_EQ(item.getInvoice(), nullptr);
  EXPECT_EQ(item.getArticleKind(), InvoiceItem::ARTICLE_NONE);
  EXPECT_EQ(item.getArticleId(), 0);
  EXPECT_EQ(item.getOriginMode(), InvoiceItem::ORIGIN_NONE);
  EXPECT_EQ(item.getSourceItemId(), 0);
  EXPECT_EQ(item.getQuantity().toString(), "0");
  EXPECT_EQ(item.getQuantity().precision, 4);
  EXPECT_TRUE(item.getUnit().empty());
  EXPECT_TRUE(item.getName().empty());
}

TEST(InvoiceItem, holdsWhatItIsGiven) {
  Invoice invoice;
  InvoiceItem item(&invoice);
  item.setArticle(InvoiceItem::ARTICLE_SUITE, 5);
  item.setOrigin(InvoiceItem::ORIGIN_DERIVING, 12);
  item.setQuantity(FXExt::FXDecimal("1.5", 4));
  item.setUnit("db");
  item.setName("Ajándékkosár");
  EXPECT_EQ(item.getInvoice(), &invoice);
  EXPECT_EQ(item.getArticleKind(), 3);
  EXPECT_EQ(item.getArticleId(), 5);
  EXPECT_EQ(item.getOriginMode(), 1);
  EXPECT_EQ(item.getSourceItemId(), 12);
  EXPECT_EQ(item.getQuantity().toString(), "1.5");
  EXPECT_EQ(item.getUnit(), "db");
  EXPECT_EQ(item.getName(), "Ajándékkosár");
}

TEST(InvoiceItem, isAnEntityForTheToolkitToo) {
  EXPECT_TRUE(InvoiceItem::metaClass.isSubClassOf(&Entity::metaClass));
  EXPECT_TRUE(Invoice::metaClass.isSubClassOf(&Entity::metaClass));
  EXPECT_FALSE(Invoice::metaClass.isSubClassOf(&InvoiceItem::metaClass));
}

}  // namespace
}  // namespace Quillane
