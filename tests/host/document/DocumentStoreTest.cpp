#include "host/document/DocumentStore.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "plugin/contract/Statement.h"
#include "tests/host/document/RecordingHook.h"
#include "tests/support/StatementLog.h"
#include "tests/support/TestCompany.h"

using namespace FX;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace Quillane::Host {
namespace {

const char* const kDocumentsSql =
    "select t_invoice_id, number, partnernumber, t_invoicestatus_1, statusgate, issuedate, t_partner_1, t_invoice_1, "
    "version from t_invoice order by 1";
const char* const kItemsSql =
    "select t_invoiceitem_id, t_invoice_1, position, articlekind, articleid, name, unit, quantity, price, originmode, "
    "t_invoiceitem_1 from t_invoiceitem order by t_invoice_1, position";

/// A company with the partner 1 "Kovács Bt." and the draft 12 in version 3, which has the items 21 "A" and 22 "B".
class DocumentStoreTest : public testing::Test {
 protected:
  explicit DocumentStoreTest(TestCompany::Where where = TestCompany::IN_MEMORY) : company(where) {
    company.fill("t_partner", {{"t_partner_id", "name"}, {"1", "Kovács Bt."}, {"2", "Szabó Kft."}});
    company.fill("t_invoice", {{"t_invoice_id", "number", "partnernumber", "t_invoicestatus_1", "statusgate",
                                "issuedate", "t_partner_1", "t_invoice_1", "version"},
                               {"12", "", "SZ-1", "101", "1", "2026-01-31", "1", "NULL", "3"}});
    company.fill("t_invoiceitem", {{"t_invoiceitem_id", "t_invoice_1", "position", "articlekind", "articleid", "name",
                                    "unit", "quantity", "price", "originmode", "t_invoiceitem_1"},
                                   {"21", "12", "1", "1", "5", "A", "db", "2.5", "100", "0", "NULL"},
                                   {"22", "12", "2", "2", "6", "B", "óra", "1", "200.5", "0", "NULL"}});
  }

  std::unique_ptr<Document> load(int id = 12) {
    FXString error;
    auto document = store().load(id, error);
    EXPECT_NE(document, nullptr) << error.text();
    return document;
  }

  std::string loadError(int id) {
    FXString error;
    EXPECT_EQ(store().load(id, error), nullptr);
    return error.text();
  }

  void save(Document& document) {
    FXString error;
    EXPECT_TRUE(store().save(document, error)) << error.text();
    EXPECT_FALSE(company.getDB()->isInTransaction());
  }

  /// A save that must be refused and leave everything as it was.
  std::string saveError(Document& document) {
    const Grid documents = company.query(kDocumentsSql);
    const Grid items = company.query(kItemsSql);
    FXString error;
    EXPECT_FALSE(store().save(document, error));
    EXPECT_FALSE(company.getDB()->isInTransaction());
    EXPECT_EQ(company.query(kDocumentsSql), documents);
    EXPECT_EQ(company.query(kItemsSql), items);
    return error.text();
  }

  DocumentStore store() { return DocumentStore(*company.getDB(), hooks); }

  /// Adds hook, and lets it write down what it is asked.
  void use(const RecordingHook& hook) { hooks.add(&hook); }

  TestCompany company;
  Calls calls;
  EntityHooks hooks;
};

using DocumentStoreLoad = DocumentStoreTest;

TEST_F(DocumentStoreLoad, readsEveryField) {
  company.fill("t_invoice", {{"t_invoice_id", "number", "partnernumber", "t_invoicestatus_1", "statusgate", "issuedate",
                              "t_partner_1", "t_invoice_1", "version"},
                             {"13", "2026/7", "SZ-2", "152", "0", "2026-02-01", "2", "12", "4"}});
  const auto document = load(13);
  EXPECT_EQ(document->getId(), 13);
  EXPECT_EQ(document->getNumber(), "2026/7");
  EXPECT_EQ(document->getPartnerNumber(), "SZ-2");
  EXPECT_EQ(document->getStatus(), 152);
  EXPECT_TRUE(document->isStatusClosed());
  EXPECT_EQ(document->getStatusName(), "Kimenő számla (sztornó)");
  EXPECT_EQ(document->getStatusGate(), 0);
  EXPECT_EQ(document->getIssueDate(), "2026-02-01");
  EXPECT_EQ(document->getPartnerId(), 2);
  EXPECT_EQ(document->getPartnerName(), "Szabó Kft.");
  EXPECT_EQ(document->getCancelledDocumentId(), 12);
  EXPECT_EQ(document->getVersion(), 4);
  EXPECT_EQ(document->getDisplayText(), "2026/7");
  EXPECT_EQ(document->getLoadMark(), 0);
  EXPECT_EQ(document->getItems().no(), 0);
}

TEST_F(DocumentStoreLoad, callsADraftByStatusPartnerAndId) {
  EXPECT_EQ(load()->getDisplayText(), "Kimenő számla (piszkozat), Kovács Bt., #12");
}

TEST_F(DocumentStoreLoad, readsEveryFieldOfTheItems) {
  company.run("update t_invoiceitem set originmode=2, t_invoiceitem_1=22 where t_invoiceitem_id=21");
  const auto document = load();
  ASSERT_EQ(document->getItems().no(), 2);
  const DocumentItem& item = *document->getItem(0);
  EXPECT_EQ(item.getId(), 21);
  EXPECT_EQ(item.getInvoice(), document.get());
  EXPECT_EQ(item.getPosition(), 1);
  EXPECT_EQ(item.getArticleKind(), 1);
  EXPECT_EQ(item.getArticleId(), 5);
  EXPECT_EQ(item.getName(), "A");
  EXPECT_EQ(item.getUnit(), "db");
  EXPECT_EQ(item.getQuantityText(), "2.5");
  EXPECT_EQ(item.getQuantity().toString(), "2.5");
  EXPECT_EQ(item.getPriceText(), "100");
  EXPECT_EQ(item.getOriginMode(), InvoiceItem::ORIGIN_DERIVED);
  EXPECT_EQ(item.getSourceItemId(), 22);
  EXPECT_EQ(document->getItem(1)->getName(), "B");
}

TEST_F(DocumentStoreLoad, ordersItemsByPositionAndThenById) {
  company.run("create index by_name on t_invoiceitem (t_invoice_1, position, name)");  // would give another order
  company.run("delete from t_invoiceitem");
  company.fill("t_invoiceitem", {{"t_invoiceitem_id", "t_invoice_1", "position", "name"},
                                 {"1", "12", "7", "x"},
                                 {"2", "12", "5", "z"},
                                 {"3", "12", "NULL", "x"},
                                 {"4", "12", "5", "a"},
                                 {"5", "12", "-1", "x"}});
  const auto document = load();
  std::vector<int> ids;
  for (FXint i = 0; i < document->getItems().no(); ++i) ids.push_back(document->getItem(i)->getId());
  EXPECT_EQ(ids, (std::vector<int>{3, 5, 2, 4, 1}));
}

TEST_F(DocumentStoreLoad, readsADocumentThatSaysNothing) {
  company.run("insert into t_invoice (t_invoice_id) values (13)");
  company.run("insert into t_invoiceitem (t_invoiceitem_id, t_invoice_1) values (31, 13)");
  const auto document = load(13);
  EXPECT_EQ(document->getStatus(), 0);
  EXPECT_FALSE(document->isStatusClosed());
  EXPECT_EQ(document->getVersion(), 0);
  EXPECT_EQ(document->getPartnerId(), 0);
  EXPECT_EQ(document->getDisplayText(), "#13");
  ASSERT_EQ(document->getItems().no(), 1);
  EXPECT_EQ(document->getItem(0)->getArticleKind(), 0);
  EXPECT_EQ(document->getItem(0)->getQuantityText(), "");
  EXPECT_EQ(document->getItem(0)->getQuantity().toString(), "0");
  EXPECT_EQ(document->getItem(0)->getOriginMode(), InvoiceItem::ORIGIN_NONE);
}

TEST_F(DocumentStoreLoad, readsNumbersThatAnotherProgramStoredItsOwnWay) {
  company.run("update t_invoiceitem set quantity=0.1+0.2, price=1e3, position=1.0, name=17 where t_invoiceitem_id=21");
  company.run("update t_invoiceitem set quantity='1 234,5', price='ingyen' where t_invoiceitem_id=22");
  const auto document = load();
  ASSERT_EQ(document->getItems().no(), 2);
  EXPECT_EQ(document->getItem(0)->getQuantity().toString(), "0.3");
  EXPECT_EQ(document->getItem(0)->getName(), "17");
  EXPECT_EQ(document->getItem(1)->getQuantity().toString(), "1234.5");
  EXPECT_EQ(document->getItem(1)->getQuantityText(), "1 234,5");
  EXPECT_EQ(document->getItem(1)->getPriceText(), "ingyen");
}

TEST_F(DocumentStoreLoad, leavesAnItemThatWasStoredAsBeingDerivedAsItIs) {
  company.run("update t_invoiceitem set originmode=1, t_invoiceitem_1=22 where t_invoiceitem_id=21");
  const auto document = load();
  EXPECT_EQ(document->getItem(0)->getOriginMode(), InvoiceItem::ORIGIN_DERIVING);
  save(*document);
  EXPECT_EQ(load()->getItem(0)->getOriginMode(), InvoiceItem::ORIGIN_DERIVING);
}

TEST_F(DocumentStoreLoad, runsTheHooksOnEveryItemWhenAllAreThere) {
  RecordingHook second("second", {2, 0, 0, 0, 0}, &calls);
  RecordingHook first("first", {1, 0, 0, 0, 0}, &calls);
  first.onLoad = [](Entity* entity) {
    const auto* item = static_cast<InvoiceItem*>(entity);
    EXPECT_EQ(item->getInvoice()->getItems().no(), 2);
    EXPECT_EQ(item->getInvoice()->getStatus(), 101);
  };
  use(second);
  use(first);
  load();
  EXPECT_THAT(calls, ElementsAre("first load #21", "second load #21", "first load #22", "second load #22"));
}

TEST_F(DocumentStoreLoad, saysThatThereIsNoSuchDocument) {
  EXPECT_EQ(loadError(99), "Nincs #99 azonosítójú bizonylat.");
  EXPECT_EQ(loadError(0), "Nincs #0 azonosítójú bizonylat.");
}

TEST_F(DocumentStoreLoad, failsWhenAHookCannotReadItsData) {
  RecordingHook hook("hook", {1, 1, 1, 1, 1});
  hook.onLoad = [this](Entity*) { Statement(company.getDB(), "select x from t_missing").execute(nullptr, 1); };
  use(hook);
  EXPECT_THAT(loadError(12), HasSubstr("A #12 azonosítójú bizonylat nem olvasható be: "));
  EXPECT_THAT(loadError(12), HasSubstr("t_missing"));
}

TEST_F(DocumentStoreLoad, doesNotMindAFailureOfEarlier) {
  EXPECT_FALSE(Statement(company.getDB(), "select x from t_missing").execute(nullptr, 1));
  EXPECT_NE(load(), nullptr);
}

TEST_F(DocumentStoreLoad, saysWhyADocumentCannotBeRead) {
  company.run("alter table t_invoiceitem rename to t_elsewhere");
  EXPECT_THAT(loadError(12), HasSubstr("A #12 azonosítójú bizonylat nem olvasható be: "));
  EXPECT_THAT(loadError(12), HasSubstr("t_invoiceitem"));
}

using DocumentStoreMake = DocumentStoreTest;

TEST_F(DocumentStoreMake, givesAnEmptyDocumentOfTheStatus) {
  FXString error;
  const auto document = store().make(801, error);
  ASSERT_NE(document, nullptr) << error.text();
  EXPECT_EQ(document->getId(), 0);
  EXPECT_EQ(document->getStatus(), 801);
  EXPECT_FALSE(document->isStatusClosed());
  EXPECT_EQ(document->getStatusGate(), 1);
  EXPECT_EQ(document->getStatusName(), "Megrendelés");
  EXPECT_EQ(document->getDisplayText(), "Megrendelés, új");
  EXPECT_EQ(document->getVersion(), 0);
}

TEST_F(DocumentStoreMake, knowsWhichStatusesAreClosed) {
  FXString error;
  const auto document = store().make(451, error);
  ASSERT_NE(document, nullptr) << error.text();
  EXPECT_TRUE(document->isStatusClosed());
  EXPECT_EQ(document->getStatusGate(), 0);
}

TEST_F(DocumentStoreMake, saysThatThereIsNoSuchStatus) {
  FXString error;
  EXPECT_EQ(store().make(999, error), nullptr);
  EXPECT_EQ(error, "Nincs ilyen állapot: 999.");
}

using DocumentStoreSave = DocumentStoreTest;

TEST_F(DocumentStoreSave, storesANewDocumentWithItsItems) {
  FXString error;
  const auto document = store().make(201, error);
  ASSERT_NE(document, nullptr) << error.text();
  document->setPartnerNumber("SZ-77");
  document->setIssueDate("2026-03-04");
  document->setPartner(2, "Szabó Kft.");
  document->setCancelledDocumentId(12);
  DocumentItem* first = document->addItem();
  first->setArticle(InvoiceItem::ARTICLE_SUITE, 9);
  first->setName("Kosár");
  first->setUnit("db");
  first->setQuantityText("3");
  first->setPriceText("18900");
  document->addItem();
  save(*document);
  EXPECT_EQ(document->getId(), 13);
  EXPECT_EQ(company.query(kDocumentsSql)[1], (Grid{{"13", "", "SZ-77", "201", "1", "2026-03-04", "2", "12", "1"}}[0]));
  EXPECT_EQ(company.query(std::string(kItemsSql)),
            (Grid{
                {"21", "12", "1", "1", "5", "A", "db", "2.5", "100", "0", "NULL"},
                {"22", "12", "2", "2", "6", "B", "óra", "1", "200.5", "0", "NULL"},
                {"23", "13", "1", "3", "9", "Kosár", "db", "3", "18900", "0", "NULL"},
                {"24", "13", "2", "0", "0", "", "", "", "", "0", "NULL"},
            }));
}

TEST_F(DocumentStoreSave, storesWhatWasChangedAndRaisesTheVersion) {
  const auto document = load();
  document->setPartner(2, "Szabó Kft.");
  document->setPartnerNumber("új");
  document->setIssueDate("");
  document->getItem(1)->setQuantityText("4");
  document->getItem(1)->setName("B2");
  save(*document);
  EXPECT_EQ(company.query(kDocumentsSql), (Grid{{"12", "", "új", "101", "1", "", "2", "NULL", "4"}}));
  EXPECT_EQ(company.query(kItemsSql)[1],
            (Grid{{"22", "12", "2", "2", "6", "B2", "óra", "4", "200.5", "0", "NULL"}}[0]));
}

TEST_F(DocumentStoreSave, storesADocumentAgainAfterItWasLoadedAnew) {
  for (int version = 4; version < 7; ++version) {
    const auto document = load();
    save(*document);
    EXPECT_EQ(load()->getVersion(), version);
  }
}

TEST_F(DocumentStoreSave, numbersTheItemsAnewAndDeletesThoseThatWereTakenOff) {
  const auto document = load();
  document->removeItem(0);
  document->insertItem(0)->setName("új");
  document->addItem()->setName("vége");
  save(*document);
  EXPECT_EQ(company.query("select t_invoiceitem_id, position, name from t_invoiceitem order by position"),
            (Grid{{"23", "1", "új"}, {"22", "2", "B"}, {"24", "3", "vége"}}));
}

TEST_F(DocumentStoreSave, storesADerivedItemAsDerived) {
  const auto document = load();
  document->addItem()->setOrigin(InvoiceItem::ORIGIN_DERIVING, 21);
  RecordingHook hook("hook", {1, 1, 1, 1, 1});
  std::vector<int> modes;
  hook.onSave = [&modes](Entity* entity) { modes.push_back(static_cast<InvoiceItem*>(entity)->getOriginMode()); };
  use(hook);
  save(*document);
  EXPECT_EQ(company.query("select originmode, t_invoiceitem_1 from t_invoiceitem where position=3"),
            (Grid{{"2", "21"}}));
  EXPECT_THAT(modes, ElementsAre(0, 0, InvoiceItem::ORIGIN_DERIVING));  // as the item was loaded
}

TEST_F(DocumentStoreSave, runsTheHooksOnEveryItemOnceItHasItsRow) {
  const auto document = load();
  document->removeItem(0);
  document->addItem();
  RecordingHook late("late", {0, 9, 0, 0, 0}, &calls);
  RecordingHook early("early", {0, 1, 5, 0, 0}, &calls);
  early.onSave = [this](Entity* entity) {
    EXPECT_EQ(
        company.query("select count(*) from t_invoiceitem where t_invoiceitem_id=" + std::to_string(entity->getId())),
        (Grid{{"1"}}));
    EXPECT_TRUE(company.getDB()->isInTransaction());
  };
  early.onDelete = [this](Entity* entity) {
    EXPECT_EQ(
        company.query("select count(*) from t_invoiceitem where t_invoiceitem_id=" + std::to_string(entity->getId())),
        (Grid{{"1"}}));
    EXPECT_TRUE(company.getDB()->isInTransaction());
  };
  use(late);
  use(early);
  save(*document);
  EXPECT_THAT(calls, ElementsAre("late del #21", "early del #21", "early save #22", "late save #22", "early save #23",
                                 "late save #23"));
}

TEST_F(DocumentStoreSave, writesInOneOrderAndNothingElse) {
  const auto document = load();
  document->removeItem(1);
  document->addItem()->setName("új");
  StatementLog log;
  company.getDB()->setObserver(&log);
  save(*document);
  company.getDB()->setObserver(nullptr);
  EXPECT_THAT(
      log.take(),
      ElementsAre(
          "select i.version, s.closed from t_invoice i left join t_invoicestatus s on "
          "s.t_invoicestatus_id=i.t_invoicestatus_1 where i.t_invoice_id=%id\n    id='12'",
          "update t_invoice set number=%number, partnernumber=%partnernumber, issuedate=%issuedate, "
          "t_partner_1=%t_partner_1, t_invoice_1=%t_invoice_1, version=%version where t_invoice_id=%t_invoice_id\n"
          "    t_invoice_id='12', number='', partnernumber='SZ-1', issuedate='2026-01-31', t_partner_1='1', "
          "t_invoice_1=NULL, version='4'",
          "select count(1) from t_invoiceitem where t_invoiceitem_1=%item and t_invoice_1<>%document\n"
          "    item='22', document='12'",
          "delete from t_invoiceitem where t_invoiceitem_id=%t_invoiceitem_id\n    t_invoiceitem_id='22'",
          "update t_invoiceitem set position=%position, articlekind=%articlekind, articleid=%articleid, name=%name, "
          "unit=%unit, quantity=%quantity, price=%price, originmode=%originmode, t_invoiceitem_1=%t_invoiceitem_1 "
          "where "
          "t_invoiceitem_id=%t_invoiceitem_id\n"
          "    t_invoiceitem_id='21', position='1', articlekind='1', articleid='5', name='A', unit='db', "
          "quantity='2.5', price='100', originmode='0', t_invoiceitem_1=NULL",
          "insert into t_invoiceitem (t_invoiceitem_id, t_invoice_1, position, articlekind, articleid, name, unit, "
          "quantity, price, originmode, t_invoiceitem_1) values (%t_invoiceitem_id, %t_invoice_1, %position, "
          "%articlekind, %articleid, %name, %unit, %quantity, %price, %originmode, %t_invoiceitem_1)\n"
          "    t_invoiceitem_id='22', t_invoice_1='12', position='2', articlekind='0', articleid='0', name='új', "
          "unit='', quantity='', price='', originmode='0', t_invoiceitem_1=NULL"));
}

TEST_F(DocumentStoreSave, storesHostileTextsAsTheyAre) {
  std::string hostile = "'; drop table t_invoice; -- %name \\ \"\n\r\t\x01\xFF\xC3 \xF0\x9F\x98\x80";
  hostile.append(100000, 'x');
  const FXString text(hostile.data(), static_cast<FXint>(hostile.size()));
  const auto document = load();
  document->setPartnerNumber(text);
  document->getItem(0)->setName(text);
  document->getItem(0)->setQuantityText(text);
  save(*document);
  const auto again = load();
  EXPECT_EQ(again->getPartnerNumber(), text);
  EXPECT_EQ(again->getItem(0)->getName(), text);
  EXPECT_EQ(again->getItem(0)->getQuantityText(), text);
}

TEST_F(DocumentStoreSave, leavesStatusAndStatusGateToThoseWhoChangeThem) {
  const auto document = load();
  document->setStatus(201, false);
  document->setStatusGate(0);
  save(*document);
  EXPECT_EQ(company.query("select t_invoicestatus_1, statusgate from t_invoice"), (Grid{{"101", "1"}}));
}

TEST_F(DocumentStoreSave, refusesAClosedDocument) {
  company.run("update t_invoice set t_invoicestatus_1=151, number='2026/1'");
  const auto document = load();
  EXPECT_EQ(saveError(*document), "A bizonylat mentése nem sikerült (2026/1): Lezárt bizonylat nem módosítható.");
}

TEST_F(DocumentStoreSave, refusesADocumentThatWasClosedMeanwhile) {
  const auto document = load();
  company.run("update t_invoice set t_invoicestatus_1=151");
  EXPECT_THAT(saveError(*document), HasSubstr("Lezárt bizonylat nem módosítható."));
}

TEST_F(DocumentStoreSave, refusesANewDocumentThatIsClosed) {
  FXString error;
  const auto document = store().make(152, error);
  ASSERT_NE(document, nullptr);
  EXPECT_EQ(saveError(*document),
            "A bizonylat mentése nem sikerült (Kimenő számla (sztornó), új): Lezárt bizonylat nem módosítható.");
}

TEST_F(DocumentStoreSave, refusesACopyThatIsNotTheNewest) {
  const auto mine = load();
  const auto theirs = load();
  theirs->getItem(0)->setName("övék");
  save(*theirs);
  mine->getItem(0)->setName("enyém");
  mine->addItem()->setName("új");
  mine->removeItem(1);
  EXPECT_EQ(saveError(*mine),
            "A bizonylat mentése nem sikerült (Kimenő számla (piszkozat), Kovács Bt., #12): A bizonylatot időközben "
            "máshol is mentették. Nyissa meg újra a módosításhoz.");
  EXPECT_EQ(mine->getItem(0)->getName(), "enyém");
  EXPECT_EQ(mine->getItem(1)->getId(), 0);
  EXPECT_EQ(mine->getRemovedItems().size(), 1u);
}

TEST_F(DocumentStoreSave, refusesToStoreTheSameObjectsTwice) {
  const auto document = load();
  document->addItem()->setName("új");
  save(*document);
  EXPECT_THAT(saveError(*document), HasSubstr("időközben máshol is mentették"));
}

TEST_F(DocumentStoreSave, refusesToStoreTheSameNewDocumentTwice) {
  FXString error;
  const auto document = store().make(101, error);
  save(*document);
  EXPECT_THAT(saveError(*document), HasSubstr("időközben máshol is mentették"));
}

TEST_F(DocumentStoreSave, refusesADocumentThatWasDeletedMeanwhile) {
  const auto document = load();
  company.run("delete from t_invoice");
  EXPECT_THAT(saveError(*document), HasSubstr("A bizonylatot időközben törölték."));
}

TEST_F(DocumentStoreSave, countsAMissingVersionAsNone) {
  company.run("update t_invoice set version=null");
  save(*load());
  EXPECT_EQ(load()->getVersion(), 1);
}

TEST_F(DocumentStoreSave, refusesToDeleteAnItemThatAnotherDocumentTookFrom) {
  company.run("insert into t_invoice (t_invoice_id) values (13)");
  company.run("insert into t_invoiceitem (t_invoiceitem_id, t_invoice_1, t_invoiceitem_1) values (31, 13, 21)");
  const auto document = load();
  document->removeItem(0);
  EXPECT_THAT(saveError(*document),
              HasSubstr("A(z) „A” tétel nem törölhető, mert másik bizonylat tétele készült belőle."));
}

TEST_F(DocumentStoreSave, deletesAnItemThatOnlyItsOwnDocumentTookFrom) {
  company.run("update t_invoiceitem set t_invoiceitem_1=21 where t_invoiceitem_id=22");
  const auto document = load();
  document->removeItem(0);
  document->getItem(0)->setOrigin(InvoiceItem::ORIGIN_NONE, 0);
  save(*document);
  EXPECT_EQ(company.query("select t_invoiceitem_id, t_invoiceitem_1 from t_invoiceitem"), (Grid{{"22", "NULL"}}));
}

TEST_F(DocumentStoreSave, refusesAPartnerThatDoesNotExist) {
  const auto document = load();
  document->setPartner(77, "Senki");
  EXPECT_THAT(saveError(*document), HasSubstr("A bizonylat mentése nem sikerült ("));
}

TEST_F(DocumentStoreSave, leavesEverythingAsItWasWhenAStatementOfAHookFails) {
  RecordingHook hook("hook", {1, 1, 1, 1, 1}, &calls);
  hook.onSave = [this](Entity* entity) {
    if (entity->getId() == 21) Statement(company.getDB(), "insert into t_missing values (1)").execute(nullptr, 1);
  };
  use(hook);
  const auto document = load();
  calls.clear();
  document->getItem(0)->setName("X");
  document->addItem();
  const std::string error = saveError(*document);
  EXPECT_THAT(error, HasSubstr("A bizonylat mentése nem sikerült (Kimenő számla (piszkozat), Kovács Bt., #12): "));
  EXPECT_THAT(error, HasSubstr("t_missing"));
  EXPECT_EQ(document->getItem(2)->getId(), 0);
  hook.onSave = {};
  save(*document);
  EXPECT_EQ(load()->getItem(0)->getName(), "X");
  EXPECT_EQ(load()->getItems().no(), 3);
}

TEST_F(DocumentStoreSave, saysWhatCanBeDoneWhenAttachedDataRestOnSomethingThatIsGone) {
  RecordingHook hook("hook", {1, 1, 1, 1, 1}, &calls);
  company.run("create table t_value (t_product_1 integer references t_product(t_product_id))");
  hook.onSave = [this](Entity* entity) {
    if (entity->getId() != 21) return;
    Statement(company.getDB(), "insert into t_value values (77)").execute(nullptr, 1);
  };
  use(hook);
  const auto document = load();
  document->getItem(0)->setName("X");
  const std::string error = saveError(*document);
  EXPECT_THAT(error, HasSubstr("A(z) „" + std::string(document->getItem(0)->getName().text()) +
                               "” tételhez rögzített egyéb adatok nem tárolhatók"));
  EXPECT_THAT(error, HasSubstr("Távolítsa el a tételt, és vegye fel újra."));
  EXPECT_THAT(error, HasSubstr("insert into t_value"));
  EXPECT_NE(load()->getItem(0)->getName(), "X");
}

TEST_F(DocumentStoreSave, leavesEverythingAsItWasWhenARowInTheMiddleCannotBeWritten) {
  company.run(
      "create trigger t before insert on t_invoiceitem when new.name='rossz' begin select raise(abort, 'megtelt'); "
      "end");
  FXString error;
  const auto document = store().make(101, error);
  document->addItem()->setName("jó");
  document->addItem()->setName("rossz");
  document->addItem()->setName("soha");
  RecordingHook hook("hook", {1, 1, 1, 1, 1}, &calls);
  use(hook);
  EXPECT_THAT(saveError(*document), HasSubstr("megtelt"));
  EXPECT_EQ(document->getId(), 0);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(document->getItem(i)->getId(), 0);
  EXPECT_EQ(calls.size(), 1u);  // nobody is asked beyond the failure
  document->getItem(1)->setName("jobb");
  save(*document);
  EXPECT_EQ(load(document->getId())->getItems().no(), 3);
}

TEST_F(DocumentStoreSave, leavesEverythingAsItWasWhenTheDatabaseIsFull) {
  company.run("pragma max_page_count=1");  // means: as it is now
  const auto document = load();
  for (int i = 0; i < 1000; ++i) document->addItem()->setName("egy hosszabb megnevezés, hogy gyorsan megteljen");
  EXPECT_THAT(saveError(*document), HasSubstr("megtelt"));
  company.run("pragma max_page_count=100000");
  save(*document);
  EXPECT_EQ(load()->getItems().no(), 1002);
}

TEST_F(DocumentStoreSave, doesNotDisturbATransactionThatRunsAlready) {
  const auto document = load();
  ASSERT_TRUE(company.getDB()->begin());
  FXString error;
  EXPECT_FALSE(store().save(*document, error));
  EXPECT_THAT(error.text(), HasSubstr("A bizonylat mentése nem sikerült ("));
  EXPECT_TRUE(company.getDB()->isInTransaction());
  EXPECT_TRUE(company.getDB()->commit());
}

/// The same company in a file that another program has open too.
class DocumentStoreFile : public DocumentStoreTest {
 protected:
  DocumentStoreFile() : DocumentStoreTest(TestCompany::IN_FILE), other(company.openAgain()) {
    company.run("pragma busy_timeout=0");
  }

  std::unique_ptr<TarnwellDatabase> other;
};

TEST_F(DocumentStoreFile, cannotBeSavedWhileAnotherProgramWrites) {
  const auto document = load();
  ASSERT_TRUE(other->begin());
  document->addItem()->setName("új");
  EXPECT_THAT(saveError(*document), HasSubstr("zárol"));
  ASSERT_TRUE(other->rollback());
  save(*document);
  EXPECT_EQ(load()->getItems().no(), 3);
}

TEST_F(DocumentStoreFile, cannotBeLoadedWhileAnotherProgramHasItAlone) {
  ASSERT_TRUE(Statement(other.get(), "begin exclusive").execute(nullptr, 1));
  EXPECT_THAT(loadError(12), HasSubstr("A #12 azonosítójú bizonylat nem olvasható be: "));
  EXPECT_THAT(loadError(12), HasSubstr("zárol"));
  ASSERT_TRUE(Statement(other.get(), "rollback").execute(nullptr, 1));
  EXPECT_NE(load(), nullptr);
}

TEST_F(DocumentStoreFile, isLoadedWholeWhileAnotherProgramWantsToWrite) {
  ASSERT_TRUE(Statement(other.get(), "pragma busy_timeout=0").execute(nullptr, 1));
  const auto rename = [this] {
    return Statement(other.get(), "update t_invoiceitem set name='X'").execute(nullptr, 1);
  };
  std::vector<bool> renamed;
  RecordingHook hook("hook", {1, 1, 1, 1, 1});
  use(hook);
  hook.onLoad = [&](Entity*) { renamed.push_back(rename()); };
  const auto document = load();
  EXPECT_THAT(renamed, ElementsAre(false, false));
  EXPECT_EQ(document->getItem(1)->getName(), "B");
  EXPECT_TRUE(rename());
}

TEST_F(DocumentStoreFile, isLoadedWholeThoughAHookLoadsAnotherDocumentMeanwhile) {
  ASSERT_TRUE(Statement(other.get(), "pragma busy_timeout=0").execute(nullptr, 1));
  std::vector<bool> renamed;
  RecordingHook hook("hook", {1, 1, 1, 1, 1});
  use(hook);
  hook.onLoad = [&](Entity*) {
    const EntityHooks none;
    FXString error;
    EXPECT_NE(DocumentStore(*company.getDB(), none).load(12, error), nullptr) << error.text();
    renamed.push_back(Statement(other.get(), "update t_invoiceitem set name='X'").execute(nullptr, 1));
  };
  load();
  EXPECT_THAT(renamed, ElementsAre(false, false));
}

TEST_F(DocumentStoreFile, letsAHookWriteWhileItIsLoaded) {
  RecordingHook hook("hook", {1, 1, 1, 1, 1});
  use(hook);
  hook.onLoad = [this](Entity*) { company.run("update t_partner set name=name || '!' where t_partner_id=2"); };
  load();
  EXPECT_EQ(company.query("select name from t_partner where t_partner_id=2"), (Grid{{"Szabó Kft.!!"}}));
  hook.onLoad = [this](Entity*) {
    EXPECT_TRUE(company.getDB()->begin());
    EXPECT_TRUE(company.getDB()->commit());
  };
  load();
}

TEST_F(DocumentStoreFile, isSavedByOneOfTwoProgramsOnly) {
  const EntityHooks none;
  FXString error;
  const auto theirs = DocumentStore(*other, none).load(12, error);
  ASSERT_NE(theirs, nullptr) << error.text();
  const auto mine = load();
  mine->getItem(0)->setName("enyém");
  save(*mine);
  theirs->getItem(0)->setName("övék");
  EXPECT_FALSE(DocumentStore(*other, none).save(*theirs, error));
  EXPECT_THAT(error.text(), HasSubstr("időközben máshol is mentették"));
  EXPECT_EQ(load()->getItem(0)->getName(), "enyém");
}

}  // namespace
}  // namespace Quillane::Host
