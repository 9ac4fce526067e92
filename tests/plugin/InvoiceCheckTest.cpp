// The module's part in the check of a document.
#include "plugin/InvoiceCheck.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>
#include <vector>

#include "itemdata/ItemDataList.h"
#include "itemdata/ItemDataStringEntry.h"
#include "plugin/contract/Invoice.h"
#include "plugin/contract/Message.h"
#include "plugin/contract/PluginContainer.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/TestCompany.h"
#include "tests/support/TestForm.h"

using namespace FX;
using testing::ElementsAre;
using TestSupport::ModalDriver;

namespace Quillane::Plugin::ItemData {
namespace {

/// Attaches item data that lack one value for each of these variables.
void attachMissing(InvoiceItem* item, const std::vector<const char*>& names, FXuchar mandatory = 1) {
  auto* list = new ItemDataList(item, nullptr);
  item->addMiscData(ItemDataList::kMiscDataKey, list);
  for (const char* name : names) {
    auto* entry = new ItemDataStringEntry(item);
    entry->name = name;
    entry->mandatory = mandatory;
    list->append(entry);
  }
}

/// A document in memory; the check reads no database.
class InvoiceCheckTest : public testing::Test {
 protected:
  InvoiceCheckTest() {
    invoice.setStatus(101, false);
    invoice.setDisplayText("K-1");
  }

  ~InvoiceCheckTest() override {
    for (FXint i = 0; i < messages.no(); ++i) delete messages[i];
  }

  InvoiceItem* addItem(int articleKind = InvoiceItem::ARTICLE_PRODUCT) {
    auto* item = new InvoiceItem;
    item->setArticle(articleKind, articleKind ? 1 : 0);
    invoice.appendItem(item);
    return item;
  }

  int runCheck(const char* prefix = "T") { return check.checkInvoice(nullptr, &invoice, messages, prefix); }

  std::vector<std::string> texts() const {
    std::vector<std::string> all;
    for (FXint i = 0; i < messages.no(); ++i) all.emplace_back(messages[i]->getText().text());
    return all;
  }

  PluginContainer container{nullptr, "", "", "", ""};
  InvoiceCheck check{&container};
  Invoice invoice;
  ListOfMessage messages;
};

std::string missing(int item, const std::string& name) {
  return "A(z) " + std::to_string(item) + ". tételhez rögzíteni kell néhány egyéb adatot!\nMező neve:" + name;
}

TEST_F(InvoiceCheckTest, findsNothingOnADocumentWithoutItems) {
  EXPECT_EQ(runCheck(), 1);
  EXPECT_EQ(messages.no(), 0);
}

TEST_F(InvoiceCheckTest, findsNothingOnItemsWithoutItemData) {
  addItem();
  addItem(InvoiceItem::ARTICLE_SERVICE);
  EXPECT_EQ(runCheck(), 1);
  EXPECT_EQ(messages.no(), 0);
}

TEST_F(InvoiceCheckTest, passesOverAnItemWithoutArticleAlsoWhenItHasItemData) {
  attachMissing(addItem(InvoiceItem::ARTICLE_NONE), {"Szín"});
  EXPECT_EQ(runCheck(), 1);
  EXPECT_EQ(messages.no(), 0);
}

TEST_F(InvoiceCheckTest, checksArticlesOfEveryKind) {
  for (const int kind : {InvoiceItem::ARTICLE_PRODUCT, InvoiceItem::ARTICLE_SERVICE, InvoiceItem::ARTICLE_SUITE})
    attachMissing(addItem(kind), {"Szín"});
  EXPECT_EQ(runCheck(), 1);
  EXPECT_THAT(texts(), ElementsAre(missing(1, "Szín"), missing(2, "Szín"), missing(3, "Szín")));
}

TEST_F(InvoiceCheckTest, numbersItemsByTheirPlaceAlsoAfterThoseItPassesOver) {
  addItem();
  attachMissing(addItem(InvoiceItem::ARTICLE_NONE), {"Szín"});
  attachMissing(addItem(), {"Méret"});
  runCheck();
  EXPECT_THAT(texts(), ElementsAre(missing(3, "Méret")));
}

TEST_F(InvoiceCheckTest, handsOverTheFindingsInTheOrderOfTheItems) {
  attachMissing(addItem(), {"Szín", "Méret"});
  attachMissing(addItem(), {"Súly"});
  runCheck();
  EXPECT_THAT(texts(), ElementsAre(missing(1, "Szín"), missing(1, "Méret"), missing(2, "Súly")));
}

TEST_F(InvoiceCheckTest, appendsToWhatOthersFound) {
  messages.append(new Message("OTHER", Message::ERROR, "other", "", nullptr, nullptr, nullptr));
  attachMissing(addItem(), {"Szín"});
  runCheck();
  EXPECT_THAT(texts(), ElementsAre("other", missing(1, "Szín")));
}

TEST_F(InvoiceCheckTest, passesThePrefixOnUnchanged) {
  attachMissing(addItem(), {"Szín", "Méret"});
  runCheck("100% %s");
  ASSERT_EQ(messages.no(), 2);
  EXPECT_EQ(messages[0]->getKey(), "100% %s_ITEMDATAWANTED");
  EXPECT_EQ(messages[1]->getKey(), "100% %s_ITEMDATAWANTED");
}

TEST_F(InvoiceCheckTest, countsErrorsInTheFirstCounterAndNoticesInTheSecond) {
  attachMissing(addItem(), {"Szín", "Méret"}, 1);
  attachMissing(addItem(), {"Megjegyzés"}, 0);
  runCheck();
  EXPECT_EQ(messages.getErrorCount(), 2);
  EXPECT_EQ(messages.getWarningCount(), 1);
}

TEST_F(InvoiceCheckTest, makesNewMessagesOnEveryRun) {
  attachMissing(addItem(), {"Szín"});
  runCheck();
  runCheck();
  ASSERT_EQ(messages.no(), 2);
  EXPECT_NE(messages[0], messages[1]);
}

TEST_F(InvoiceCheckTest, leavesTheDocumentsItemsAlone) {
  InvoiceItem* first = addItem();
  InvoiceItem* second = addItem();
  attachMissing(first, {"Szín"});
  runCheck();
  ASSERT_EQ(invoice.getItems().no(), 2);
  EXPECT_EQ(invoice.getItems()[0], first);
  EXPECT_EQ(invoice.getItems()[1], second);
}

TEST_F(InvoiceCheckTest, givesEveryMessageAnEventOfItsOwn) {
  attachMissing(addItem(), {"Szín", "Méret"});
  attachMissing(addItem(), {"Súly"});
  runCheck();
  ASSERT_EQ(messages.no(), 3);
  std::set<const MessageEvent*> events;
  for (FXint i = 0; i < messages.no(); ++i) {
    EXPECT_EQ(messages[i]->getFirstEvent(), nullptr);
    ASSERT_NE(messages[i]->getSecondEvent(), nullptr);
    EXPECT_EQ(messages[i]->getSecondEvent()->getKind(), 2);
    events.insert(messages[i]->getSecondEvent());
  }
  EXPECT_EQ(events.size(), 3u);
}

TEST_F(InvoiceCheckTest, leavesTheEventsOfOtherMessagesAlone) {
  messages.append(new Message("OTHER", Message::ERROR, "other", "", nullptr, nullptr, nullptr));
  attachMissing(addItem(), {"Szín"});
  runCheck();
  ASSERT_EQ(messages.no(), 2);
  EXPECT_EQ(messages[0]->getSecondEvent(), nullptr);
}

TEST_F(InvoiceCheckTest, needsNoInitOfItsOwn) { EXPECT_EQ(check.init(), 0); }

/// A document in its form, so that the events of the messages can be executed.
class InvoiceCheckInFormTest : public testing::Test {
 protected:
  InvoiceCheckInFormTest() { testAccount(); }

  ~InvoiceCheckInFormTest() override {
    for (FXint i = 0; i < messages.no(); ++i) delete messages[i];
  }

  void runCheck() { check.checkInvoice(&form, form.getInvoice(), messages, "T"); }

  /// The titles of the dialogs that the message's event opens.
  std::vector<std::string> titlesOfEvent(FXint number) {
    ModalDriver driver(TestSupport::accept);
    messages[number]->getSecondEvent()->execute(messages[number], 0);
    return driver.titles;
  }

  PluginContainer container{nullptr, "", "", "", ""};
  InvoiceCheck check{&container};
  TestSupport::TestForm form;
  ListOfMessage messages;
};

TEST_F(InvoiceCheckInFormTest, givesTwoMessagesOfOneItemTwoEventsThatOpenTheDialogOnThatItem) {
  form.addItem("Szék");
  attachMissing(form.addItem("Asztal"), {"Szín", "Méret"});
  runCheck();
  ASSERT_EQ(messages.no(), 2);
  EXPECT_NE(messages[0]->getSecondEvent(), messages[1]->getSecondEvent());
  EXPECT_THAT(titlesOfEvent(0), ElementsAre("Asztal egyéb tételadatai"));
  EXPECT_THAT(titlesOfEvent(1), ElementsAre("Asztal egyéb tételadatai"));
}

TEST_F(InvoiceCheckInFormTest, givesTheMessagesOfEachItemEventsForThatItem) {
  attachMissing(form.addItem("Szék"), {"Szín"});
  attachMissing(form.addItem("Asztal"), {"Szín"});
  runCheck();
  ASSERT_EQ(messages.no(), 2);
  EXPECT_THAT(titlesOfEvent(0), ElementsAre("Szék egyéb tételadatai"));
  EXPECT_THAT(titlesOfEvent(1), ElementsAre("Asztal egyéb tételadatai"));
}

TEST_F(InvoiceCheckInFormTest, hasTheDocumentCheckedAgainAfterAnEvent) {
  attachMissing(form.addItem("Szék"), {"Szín"});
  runCheck();
  ASSERT_EQ(messages.no(), 1);
  EXPECT_EQ(form.takeChecks(), 0);
  titlesOfEvent(0);
  EXPECT_EQ(form.takeChecks(), 1);
}

}  // namespace
}  // namespace Quillane::Plugin::ItemData
