#include "host/document/Document.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace FX;

namespace Quillane::Host {
namespace {

/// Counts its living objects on the item that it is attached to.
class Counted : public EntityMiscData {
 public:
  explicit Counted(int& counter) : living(counter) { ++living; }
  ~Counted() override { --living; }

 private:
  int& living;
};

std::vector<std::string> names(const Document& document) {
  std::vector<std::string> all;
  for (FXint i = 0; i < document.getItems().no(); ++i) all.emplace_back(document.getItem(i)->getName().text());
  return all;
}

DocumentItem* add(Document& document, const char* name, int id = 0) {
  DocumentItem* item = document.addItem();
  item->setName(name);
  item->setId(id);
  return item;
}

using Names = std::vector<std::string>;

TEST(Document, isAnInvoiceForTheToolkitToo) {
  EXPECT_TRUE(Document::metaClass.isSubClassOf(&Invoice::metaClass));
  EXPECT_TRUE(DocumentItem::metaClass.isSubClassOf(&InvoiceItem::metaClass));
}

TEST(Document, holdsWhatItIsGiven) {
  Document document;
  document.setNumber("2026/1");
  document.setPartnerNumber("SZ-1");
  document.setIssueDate("2026-01-31");
  document.setPartner(3, "Kovács Bt.");
  document.setCancelledDocumentId(4);
  document.setVersion(5);
  document.setStatusName("Megrendelés");
  EXPECT_EQ(document.getNumber(), "2026/1");
  EXPECT_EQ(document.getPartnerNumber(), "SZ-1");
  EXPECT_EQ(document.getIssueDate(), "2026-01-31");
  EXPECT_EQ(document.getPartnerId(), 3);
  EXPECT_EQ(document.getPartnerName(), "Kovács Bt.");
  EXPECT_EQ(document.getCancelledDocumentId(), 4);
  EXPECT_EQ(document.getVersion(), 5);
  EXPECT_EQ(document.getStatusName(), "Megrendelés");
}

struct Shown {
  bool closed;
  int id;
  const char* number;
  const char* status;
  const char* partner;
  const char* text;
};

TEST(Document, isCalledByItsNumberOnceItIsClosed) {
  const Shown cases[] = {
      {false, 12, "", "Kimenő számla (piszkozat)", "Kovács Bt.", "Kimenő számla (piszkozat), Kovács Bt., #12"},
      {false, 12, "X", "Megrendelés", "", "Megrendelés, #12"},
      {false, 12, "", "", "Kovács Bt.", "Kovács Bt., #12"},
      {false, 12, "", "", "", "#12"},
      {false, 0, "", "Megrendelés", "Kovács Bt.", "Megrendelés, Kovács Bt., új"},
      {true, 12, "2026/3", "Kimenő számla (lezárt)", "Kovács Bt.", "2026/3"},
      {true, 12, "", "Kimenő számla (lezárt)", "Kovács Bt.", "Kimenő számla (lezárt), Kovács Bt., #12"},
  };
  for (const Shown& shown : cases) {
    SCOPED_TRACE(shown.text);
    Document document;
    document.setId(shown.id);
    document.setStatus(1, shown.closed);
    document.setNumber(shown.number);
    document.setStatusName(shown.status);
    document.setPartner(1, shown.partner);
    document.refreshDisplayText();
    EXPECT_EQ(document.getDisplayText(), shown.text);
  }
}

TEST(Document, takesItemsInAtAnyPlace) {
  Document document;
  add(document, "b");
  add(document, "d");
  document.insertItem(0)->setName("a");
  document.insertItem(2)->setName("c");
  document.insertItem(4)->setName("e");
  EXPECT_EQ(names(document), (Names{"a", "b", "c", "d", "e"}));
  EXPECT_EQ(document.getItem(2)->getInvoice(), &document);
}

TEST(Document, movesAnItemToItsNewPlace) {
  Document document;
  for (const char* name : {"A", "B", "C", "D"}) add(document, name);
  document.moveItem(0, 2);
  EXPECT_EQ(names(document), (Names{"B", "C", "A", "D"}));
  document.moveItem(3, 0);
  EXPECT_EQ(names(document), (Names{"D", "B", "C", "A"}));
  document.moveItem(1, 1);
  EXPECT_EQ(names(document), (Names{"D", "B", "C", "A"}));
  EXPECT_TRUE(document.getRemovedItems().empty());
}

TEST(Document, deletesANewItemThatIsTakenOffAtOnce) {
  int living = 0;
  Document document;
  add(document, "a");
  add(document, "b")->addMiscData("x", new Counted(living));
  document.removeItem(1);
  EXPECT_EQ(living, 0);
  EXPECT_EQ(names(document), (Names{"a"}));
  EXPECT_TRUE(document.getRemovedItems().empty());
}

TEST(Document, keepsAStoredItemThatIsTakenOffForTheSave) {
  int living = 0;
  {
    Document document;
    add(document, "a", 1);
    add(document, "b", 2)->addMiscData("x", new Counted(living));
    document.removeItem(1);
    ASSERT_EQ(document.getRemovedItems().size(), 1u);
    EXPECT_EQ(document.getRemovedItems()[0]->getId(), 2);
    EXPECT_EQ(document.getRemovedItems()[0]->getInvoice(), &document);
    EXPECT_EQ(names(document), (Names{"a"}));
    EXPECT_EQ(living, 1);
  }
  EXPECT_EQ(living, 0);
}

}  // namespace
}  // namespace Quillane::Host
