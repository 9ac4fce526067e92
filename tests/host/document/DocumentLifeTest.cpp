#include "host/document/DocumentLife.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "plugin/contract/Message.h"
#include "plugin/contract/Statement.h"
#include "tests/host/document/LivingCompany.h"
#include "tests/host/document/RecordingHook.h"

using namespace FX;
using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace Quillane::Host {
namespace {

constexpr int kStatuses[] = {101, 102, 151, 152, 201, 202, 251, 252, 401, 451, 452, 801};

/// A check hook that finds what the test says.
class FakeCheck : public Plugin::InvoiceCheckPlugin {
 public:
  FakeCheck() : InvoiceCheckPlugin(nullptr) {}

  int checkInvoice(FXWindow* window, Invoice* invoice, ListOfMessage& messages, FXString prefix) override {
    checked.push_back(std::to_string(invoice->getId()) + " in status " + std::to_string(invoice->getStatus()) +
                      (window ? " over a window" : ""));
    for (const unsigned severity : severities)
      messages.append(
          new Message(prefix + "_X", severity, FXStringFormat("lelet %u", severity), "", nullptr, nullptr, nullptr));
    if (onCheck) onCheck(invoice);
    return 1;
  }

  std::vector<unsigned> severities;
  std::function<void(Invoice*)> onCheck;
  Lines checked;
};

class DocumentLifeTest : public testing::Test {
 protected:
  DocumentLifeTest() { check.add(&fakeCheck); }

  DocumentLife life() { return DocumentLife(company.getDatabase(), LivingCompany::getHooks(), check); }
  DocumentLife lifeWith(const EntityHooks& hooks) { return DocumentLife(company.getDatabase(), hooks, check); }

  bool moves(Document& document, int status) {
    error.clear();
    return life().changeStatus(document, status, error);
  }

  std::string stateOf(int id) {
    return company.queryLines(
        "select t_invoicestatus_1, statusgate, ifnull(number, ''), version from t_invoice where "
        "t_invoice_id=" +
        std::to_string(id))[0];
  }

  static std::string stateOf(const Document& document) {
    return std::to_string(document.getStatus()) + " " + std::to_string(document.getStatusGate()) + " " +
           document.getNumber().text() + " " + std::to_string(document.getVersion()) +
           (document.isStatusClosed() ? " closed " : " open ") + document.getStatusName().text() + "|" +
           document.getDisplayText().text();
  }

  LivingCompany company;
  FakeCheck fakeCheck;
  DocumentCheck check;
  FXString error;
};

// ---- moving ----

TEST_F(DocumentLifeTest, movesAsTheTableOfStatusesSays) {
  const std::set<std::pair<int, int>> expected = {{101, 151}, {201, 251}, {401, 451}, {102, 101}, {202, 201}};
  for (const int from : kStatuses)
    for (const int to : kStatuses) {
      const int id = company.add(from, {{LivingCompany::STRING, "1"}});
      company.run("update t_invoice set statusgate=1 where t_invoice_id=" + std::to_string(id));
      const std::string before = company.dump();
      const auto document = company.load(id);
      const std::string shown = stateOf(*document);
      if (expected.count({from, to})) {
        EXPECT_TRUE(moves(*document, to)) << from << " to " << to << ": " << error.text();
        EXPECT_EQ(company.query("select t_invoicestatus_1 from t_invoice where t_invoice_id=" + std::to_string(id)),
                  std::to_string(to));
      } else {
        EXPECT_FALSE(moves(*document, to)) << from << " to " << to;
        EXPECT_THAT(error.text(), AllOf(HasSubstr("A bizonylat állapota nem változott"),
                                        HasSubstr("#" + std::to_string(id)), HasSubstr("Ebből az állapotból")));
        EXPECT_EQ(company.dump(), before);
        EXPECT_EQ(stateOf(*document), shown);
      }
    }
}

TEST_F(DocumentLifeTest, closesWithANumberAndAShutGate) {
  const int id = company.add(101, {{LivingCompany::STRING, "1"}});
  const auto document = company.load(id);
  ASSERT_TRUE(moves(*document, 151)) << error.text();
  EXPECT_EQ(stateOf(id), "151 0 1 2");
  EXPECT_EQ(stateOf(*document), "151 0 1 2 closed Kimenő számla (lezárt)|1");
  EXPECT_EQ(stateOf(*document), stateOf(*company.load(id)));
}

TEST_F(DocumentLifeTest, movesAProFormaWithoutNumberAndWithoutCheck) {
  fakeCheck.severities = {Message::ERROR};
  const int id = company.add(102, {{LivingCompany::STRING, "1"}});
  company.run("update t_invoice set number='PF-9'");
  const auto document = company.load(id);
  ASSERT_TRUE(moves(*document, 101)) << error.text();
  EXPECT_EQ(stateOf(id), "101 1 PF-9 2");
  EXPECT_EQ(stateOf(*document), stateOf(*company.load(id)));
  EXPECT_THAT(fakeCheck.checked, IsEmpty());
}

TEST_F(DocumentLifeTest, staysTheNewestCopyAfterAMove) {
  const int id = company.add(102, {{LivingCompany::VALVE, "1"}});
  company.record(company.itemOf(id), {{1, LivingCompany::kQuantity, "1"}, {1, LivingCompany::kSerial, "A"}});
  const Lines values = company.valuesOf(company.itemOf(id));
  const auto document = company.load(id);
  ASSERT_TRUE(moves(*document, 101)) << error.text();
  document->setIssueDate("2026-02-02");
  ASSERT_TRUE(company.getStore().save(*document, error)) << error.text();
  EXPECT_EQ(company.valuesOf(company.itemOf(id)), values);
  ASSERT_TRUE(moves(*company.load(id), 151)) << error.text();
  EXPECT_EQ(stateOf(id), "151 0 1 4");
}

TEST_F(DocumentLifeTest, refusesWhatHasAnotherGateThanOne) {
  for (const char* gate : {"0", "NULL", "-1"}) {
    for (const auto& [from, to] :
         {std::pair(101, 151), std::pair(201, 251), std::pair(401, 451), std::pair(102, 101), std::pair(202, 201)}) {
      const int id = company.add(from, {{LivingCompany::STRING, "1"}});
      company.run("update t_invoice set statusgate=" + std::string(gate) + " where t_invoice_id=" + std::to_string(id));
      const std::string before = company.dump();
      EXPECT_FALSE(moves(*company.load(id), to)) << from << " with gate " << gate;
      EXPECT_THAT(error.text(), HasSubstr("rögzítették"));
      EXPECT_EQ(company.dump(), before);
    }
  }
}

TEST_F(DocumentLifeTest, refusesAStaleCopy) {
  const int id = company.add(101, {{LivingCompany::STRING, "1"}});
  const auto stale = company.load(id);
  const auto newer = company.load(id);
  newer->setPartnerNumber("új");
  ASSERT_TRUE(company.getStore().save(*newer, error)) << error.text();
  const std::string before = company.dump();
  const std::string shown = stateOf(*stale);
  EXPECT_FALSE(moves(*stale, 151));
  EXPECT_THAT(error.text(), HasSubstr("Időközben máshol is mentették"));
  EXPECT_EQ(company.dump(), before);
  EXPECT_EQ(stateOf(*stale), shown);
}

TEST_F(DocumentLifeTest, refusesToMoveWhatIsNotStoredOrNotThereAnyMore) {
  const auto fresh = company.getStore().make(101, error);
  EXPECT_FALSE(moves(*fresh, 151));
  EXPECT_THAT(error.text(), HasSubstr("Még nincs elmentve"));
  const int id = company.add(101, {});
  const auto gone = company.load(id);
  company.run("delete from t_invoice");
  EXPECT_FALSE(moves(*gone, 151));
  EXPECT_THAT(error.text(), HasSubstr("Nincs #" + std::to_string(id)));
  const int other = company.add(101, {});
  EXPECT_FALSE(moves(*company.load(other), 7));
  EXPECT_THAT(error.text(), HasSubstr("Nincs ilyen állapot: 7"));
}

TEST_F(DocumentLifeTest, closesWithNoticesOnly) {
  // The list of messages counts notices among its errors when they come one by one.
  fakeCheck.severities = {Message::NOTICE, Message::NOTICE, 2};
  const int id = company.add(101, {{LivingCompany::STRING, "1"}});
  EXPECT_TRUE(moves(*company.load(id), 151)) << error.text();
  EXPECT_THAT(fakeCheck.checked, ElementsAre(std::to_string(id) + " in status 101"));
  EXPECT_EQ(check.getMessages().no(), 0) << "the findings hold items of a copy that is gone";
}

TEST_F(DocumentLifeTest, refusesToCloseWithAnErrorAndNamesTheFirst) {
  fakeCheck.severities = {Message::NOTICE, Message::ERROR, Message::ERROR};
  const int id = company.add(101, {{LivingCompany::STRING, "1"}});
  const std::string before = company.dump();
  EXPECT_FALSE(moves(*company.load(id), 151));
  EXPECT_THAT(error.text(), AllOf(HasSubstr("(2)"), HasSubstr("lelet 1"), HasSubstr("javítsa ki")));
  EXPECT_EQ(company.dump(), before);
  EXPECT_EQ(check.getMessages().no(), 0);
}

TEST_F(DocumentLifeTest, checksWhatIsStoredAndNotWhatIsTypedInAWindow) {
  const int id = company.add(101, {{LivingCompany::VALVE, "1"}});
  const auto document = company.load(id);
  document->getItem(0)->setQuantityText("0");
  FXString seen;
  fakeCheck.onCheck = [&seen](Invoice* invoice) {
    seen = static_cast<Document*>(invoice)->getItem(0)->getQuantityText();
  };
  EXPECT_TRUE(moves(*document, 151)) << error.text();
  EXPECT_EQ(seen, "1");
}

TEST_F(DocumentLifeTest, loadsTheItemsThroughTheHooksAgainOnceTheStatusIsWritten) {
  const int id = company.add(102, {{LivingCompany::STRING, "1"}, {LivingCompany::STRING, "2"}});
  Calls calls;
  RecordingHook hook("H", {1, 1, 1, 1, 1}, &calls);
  EntityHooks hooks;
  hooks.add(&hook);
  const auto document = DocumentStore(company.getDatabase(), hooks).load(id, error);
  calls.clear();
  Lines seen;
  hook.onLoad = [&](Entity* entity) {
    const auto* item = static_cast<InvoiceItem*>(entity);
    if (item->getInvoice() != document.get()) return;
    seen.push_back(std::to_string(item->getInvoice()->getStatus()) + " stored " +
                   company.query("select t_invoicestatus_1 from t_invoice where t_invoice_id=" + std::to_string(id)));
  };
  ASSERT_TRUE(lifeWith(hooks).changeStatus(*document, 101, error)) << error.text();
  EXPECT_THAT(seen, ElementsAre("101 stored 101", "101 stored 101"));
}

TEST_F(DocumentLifeTest, takesTheMoveBackWhenAHookFails) {
  const int id = company.add(102, {{LivingCompany::STRING, "1"}});
  Calls calls;
  RecordingHook hook("H", {1, 1, 1, 1, 1}, &calls);
  EntityHooks hooks;
  hooks.add(&hook);
  const auto document = DocumentStore(company.getDatabase(), hooks).load(id, error);
  const std::string shown = stateOf(*document);
  const std::string before = company.dump();
  Lines seen;
  hook.onLoad = [&](Entity* entity) {
    const Invoice* invoice = static_cast<InvoiceItem*>(entity)->getInvoice();
    if (invoice != document.get()) return;
    seen.push_back(std::to_string(invoice->getStatus()));
    Statement(&company.getDatabase(), "insert into t_nowhere values (1)").execute(nullptr, 1);
  };
  EXPECT_FALSE(lifeWith(hooks).changeStatus(*document, 101, error));
  EXPECT_THAT(error.text(), HasSubstr("t_nowhere"));
  EXPECT_EQ(company.dump(), before);
  EXPECT_EQ(stateOf(*document), shown);
  EXPECT_THAT(seen, ElementsAre("101", "102")) << "what is attached hears that the status is the old one again";
}

// ---- numbers ----

TEST_F(DocumentLifeTest, countsNumbersWithoutGapsWithinAStatus) {
  for (const auto& [draft, closed] : {std::pair(101, 151), std::pair(201, 251), std::pair(401, 451)})
    for (int number = 1; number <= 3; ++number) {
      const int id = company.add(draft, {});
      company.mustMove(id, closed);
      EXPECT_EQ(company.query("select number from t_invoice where t_invoice_id=" + std::to_string(id)),
                std::to_string(number));
    }
}

TEST_F(DocumentLifeTest, countsNumbersAsNumbers) {
  for (int number = 1; number <= 11; ++number) company.mustMove(company.add(101, {}), 151);
  EXPECT_EQ(company.query("select group_concat(number, ' ') from (select number from t_invoice order by t_invoice_id)"),
            "1 2 3 4 5 6 7 8 9 10 11");
}

TEST_F(DocumentLifeTest, usesANumberAgainThatARolledBackClosingHad) {
  fakeCheck.severities = {};
  const int first = company.add(101, {});
  const int second = company.add(101, {});
  company.run("create trigger refuse after update on t_invoice when new.t_invoice_id=" + std::to_string(first) +
              " begin select raise(abort, 'nem lehet'); end");
  EXPECT_FALSE(moves(*company.load(first), 151));
  EXPECT_THAT(error.text(), HasSubstr("nem lehet"));
  EXPECT_TRUE(moves(*company.load(second), 151));
  company.run("drop trigger refuse");
  EXPECT_TRUE(moves(*company.load(first), 151));
  EXPECT_EQ(stateOf(second), "151 0 1 2");
  EXPECT_EQ(stateOf(first), "151 0 2 2");
}

TEST_F(DocumentLifeTest, passesOverNumbersThatAreNoneOfOurs) {
  for (const char* foreign : {"'A-7'", "'007'", "'1e3'", "' 5'", "'5 '", "'-3'", "'8.5'", "'9999999999'", "''", "NULL",
                              "'٣'", "'99999999999999999999999999'", "'0'", "x'00FF'", "'12' || char(10)"}) {
    const int id = company.add(151, {});
    company.run("update t_invoice set number=" + std::string(foreign) + " where t_invoice_id=" + std::to_string(id));
  }
  const int incoming = company.add(251, {});
  company.run("update t_invoice set number='77' where t_invoice_id=" + std::to_string(incoming));
  const int id = company.add(101, {});
  company.mustMove(id, 151);
  EXPECT_EQ(stateOf(id), "151 0 1 2");
}

TEST_F(DocumentLifeTest, goesOnFromTheHighestNumberOfOurKind) {
  const int earlier = company.add(151, {});
  company.run("update t_invoice set number='1057' where t_invoice_id=" + std::to_string(earlier));
  const int id = company.add(101, {});
  company.mustMove(id, 151);
  EXPECT_EQ(stateOf(id), "151 0 1058 2");
}

TEST_F(DocumentLifeTest, saysWhenTheNumbersHaveRunOut) {
  const int last = company.add(151, {});
  company.run("update t_invoice set number='999999999' where t_invoice_id=" + std::to_string(last));
  const int id = company.add(101, {});
  const std::string before = company.dump();
  EXPECT_FALSE(moves(*company.load(id), 151));
  EXPECT_THAT(error.text(), HasSubstr("Elfogytak a bizonylatszámok"));
  EXPECT_EQ(company.dump(), before);
}

// ---- making one from another ----

TEST_F(DocumentLifeTest, derivesAsTheTableOfStatusesSays) {
  const std::set<std::pair<int, int>> expected = {{102, 101}, {801, 101}, {401, 101}, {451, 101},
                                                  {151, 101}, {801, 401}, {202, 201}, {251, 201},
                                                  {151, 152}, {251, 252}, {451, 452}};
  for (const int from : kStatuses)
    for (const int to : kStatuses) {
      const int id = company.add(from, {{LivingCompany::STRING, "1"}});
      const std::string before = company.dump();
      int made = 0;
      const std::string refusal = company.derive(id, to, made);
      if (expected.count({from, to})) {
        EXPECT_EQ(refusal, "") << from << " to " << to;
        EXPECT_EQ(company.query("select t_invoicestatus_1 from t_invoice where t_invoice_id=" + std::to_string(made)),
                  std::to_string(to));
        EXPECT_EQ(company.query("select count(*) from t_invoiceitem where t_invoice_1=" + std::to_string(made)), "1");
      } else {
        EXPECT_THAT(refusal, AllOf(HasSubstr("Nem készült új bizonylat ebből"), HasSubstr("#" + std::to_string(id))))
            << from << " to " << to;
        EXPECT_EQ(made, 0);
        EXPECT_EQ(company.dump(), before) << from << " to " << to;
      }
    }
}

TEST_F(DocumentLifeTest, namesTheReasonAndTheWayOutWhenNothingCanBeMade) {
  struct Case {
    int from;
    int to;
    const char* reason;
  };
  const Case cases[] = {{801, 151, "Ilyen állapotú új bizonylat készíthető belőle: 101, 401."},
                        {451, 401, "Ilyen állapotú új bizonylat készíthető belőle: 101, 452."},
                        {152, 101, "Semmi sem készíthető belőle."},
                        {101, 152, "Csak lezárt bizonylat sztornózható. Zárja le előbb, vagy törölje."},
                        {201, 252, "Csak lezárt bizonylat sztornózható. Zárja le előbb, vagy törölje."},
                        {401, 452, "Csak lezárt bizonylat sztornózható. Zárja le előbb, vagy törölje."},
                        {101, 7, "Nincs ilyen állapot: 7."}};
  for (const Case& one : cases) {
    int made = 0;
    EXPECT_THAT(company.derive(company.add(one.from, {{LivingCompany::STRING, "1"}}), one.to, made),
                HasSubstr(one.reason));
  }
  int made = 0;
  EXPECT_THAT(company.derive(12345, 101, made), HasSubstr("Nincs #12345 azonosítójú bizonylat."));
}

TEST_F(DocumentLifeTest, refusesToDeriveWhenNothingIsOpen) {
  for (const int id : {company.add(801, {}), company.add(801, {{LivingCompany::STRING, "0"}}),
                       company.add(801, {{LivingCompany::STRING, "sok"}})}) {
    const std::string before = company.dump();
    int made = 0;
    EXPECT_THAT(company.derive(id, 101, made), HasSubstr("Egyetlen tételének sincs nyitott mennyisége"));
    EXPECT_EQ(company.dump(), before);
  }
}

TEST_F(DocumentLifeTest, storesTheOpenQuantityInPlainNotation) {
  const int id = company.add(801, {{LivingCompany::STRING, " 1 234,50 "}});
  EXPECT_EQ(company.quantityOf(company.itemOf(company.derive(id, 101))), "1234.5");
}

TEST_F(DocumentLifeTest, cancelsOnceOnly) {
  const int invoice = company.add(101, {{LivingCompany::STRING, "1"}});
  company.mustMove(invoice, 151);
  company.run("update t_invoice set partnernumber='SZ-9'");
  const int cancelling = company.derive(invoice, 152);
  EXPECT_EQ(stateOf(cancelling), "152 0 1 1");
  EXPECT_THAT(company.queryLines("select t_invoice_1, t_partner_1, partnernumber, issuedate=date('now', 'localtime') "
                                 "from t_invoice where t_invoice_id=" +
                                 std::to_string(cancelling)),
              ElementsAre(std::to_string(invoice) + " 1 SZ-9 1"));
  const std::string before = company.dump();
  int made = 0;
  EXPECT_THAT(company.derive(invoice, 152, made),
              AllOf(HasSubstr("Kimenő számla (lezárt), 1, #" + std::to_string(invoice)),
                    HasSubstr("Már sztornózták, ezzel: Kimenő számla (sztornó), 1, #" + std::to_string(cancelling))));
  EXPECT_EQ(company.dump(), before);
}

TEST_F(DocumentLifeTest, numbersCancellingDocumentsByThemselves) {
  for (int number = 1; number <= 3; ++number) {
    const int invoice = company.add(101, {});
    company.mustMove(invoice, 151);
    const int cancelling = company.derive(invoice, 152);
    EXPECT_EQ(stateOf(cancelling), "152 0 " + std::to_string(number) + " 1");
  }
}

TEST_F(DocumentLifeTest, letsACancellingDocumentTakeFromWhereTheCancelledOneTook) {
  const int order = company.add(801, {{LivingCompany::STRING, "4"}});
  const int invoice = company.derive(order, 101);
  company.run("insert into t_invoiceitem (t_invoice_1, position, name, quantity, originmode) values (" +
              std::to_string(invoice) + ", 2, 'Saját', '1', 0)");
  company.mustMove(invoice, 151);
  const int cancelling = company.derive(invoice, 152);
  EXPECT_THAT(company.queryLines("select name, quantity, originmode, t_invoiceitem_1 from t_invoiceitem where "
                                 "t_invoice_1=" +
                                 std::to_string(cancelling) + " order by position"),
              ElementsAre("Zsinór 4 2 " + std::to_string(company.itemOf(order)), "Saját 1 0 NULL"));
}

TEST_F(DocumentLifeTest, makesNothingWhenAHookFails) {
  const int order = company.add(451, {{LivingCompany::STRING, "1"}, {LivingCompany::STRING, "2"}});
  RecordingHook hook("H", {1, 1, 1, 1, 1});
  EntityHooks hooks;
  hooks.add(&hook);
  const std::string before = company.dump();
  const auto fails = [&](Entity*) {
    Statement(&company.getDatabase(), "insert into t_nowhere values (1)").execute(nullptr, 1);
  };
  for (const int status : {101, 452}) {
    hook.onSave = fails;
    EXPECT_EQ(lifeWith(hooks).derive(order, status, error), 0);
    EXPECT_THAT(error.text(), HasSubstr("t_nowhere"));
    EXPECT_EQ(company.dump(), before);
    hook.onSave = nullptr;
  }
  hook.onLoad = fails;
  EXPECT_EQ(lifeWith(hooks).derive(order, 101, error), 0);
  EXPECT_THAT(error.text(), HasSubstr("t_nowhere"));
  EXPECT_EQ(company.dump(), before);
}

TEST_F(DocumentLifeTest, storesTheItemsOfACancellingDocumentBeforeTheirDataAreCopied) {
  const int invoice = company.add(151, {{LivingCompany::STRING, "1"}, {LivingCompany::STRING, "2"}});
  RecordingHook hook("H", {1, 1, 1, 1, 1});
  EntityHooks hooks;
  hooks.add(&hook);
  Lines seen;
  hook.onSave = [&](Entity* entity) {
    seen.push_back(
        company.query("select quantity from t_invoiceitem where t_invoiceitem_id=" + std::to_string(entity->getId())) +
        " of " + company.query("select count(*) from t_invoiceitem where t_invoice_1<>" + std::to_string(invoice)));
  };
  EXPECT_GT(lifeWith(hooks).derive(invoice, 152, error), 0) << error.text();
  EXPECT_THAT(seen, ElementsAre("1 of 2", "2 of 2"));
}

// ---- deleting ----

TEST_F(DocumentLifeTest, deletesWhatIsNotClosed) {
  const std::set<int> closed = {151, 152, 251, 252, 451, 452};
  for (const int status : kStatuses) {
    const std::string empty = company.dump();
    const int id = company.add(status, {{LivingCompany::VALVE, "1"}});
    company.record(company.itemOf(id), {{1, LivingCompany::kQuantity, "1"}});
    const std::string before = company.dump();
    const std::string refusal = company.remove(id);
    if (closed.count(status)) {
      EXPECT_THAT(refusal, AllOf(HasSubstr("A bizonylat nem törölhető"), HasSubstr("#" + std::to_string(id)),
                                 HasSubstr("Lezárt bizonylat.")));
      EXPECT_EQ(refusal.find("sztornózza.") != std::string::npos, status % 10 == 1) << status;
      EXPECT_EQ(company.dump(), before);
    } else {
      EXPECT_EQ(refusal, "") << status;
      EXPECT_EQ(company.dump(), empty) << status;
    }
  }
  EXPECT_THAT(company.remove(12345), HasSubstr("Nincs #12345 azonosítójú bizonylat."));
}

TEST_F(DocumentLifeTest, refusesToDeleteWhatAnotherDocumentWasMadeFrom) {
  const int order = company.add(801, {{LivingCompany::STRING, "1"}, {LivingCompany::STRING, "2"}});
  const int invoice = company.derive(order, 101);
  const std::string before = company.dump();
  EXPECT_THAT(company.remove(order),
              AllOf(HasSubstr("Megrendelés, Kovács Bt., #" + std::to_string(order)),
                    HasSubstr("Tételéből másik bizonylat tétele készült"),
                    HasSubstr("Kimenő számla (piszkozat), Kovács Bt., #" + std::to_string(invoice))));
  EXPECT_EQ(company.dump(), before);
  EXPECT_EQ(company.remove(invoice), "");
  EXPECT_EQ(company.remove(order), "");
  EXPECT_EQ(company.query("select count(*) from t_invoiceitem"), "0");
}

TEST_F(DocumentLifeTest, deletesADocumentWhoseItemsComeFromEachOther) {
  const int draft = company.add(101, {{LivingCompany::STRING, "1"}, {LivingCompany::STRING, "2"}});
  company.run("update t_invoiceitem set t_invoiceitem_1=" + std::to_string(company.itemOf(draft, 1)) +
              " where position=2");
  company.run("update t_invoiceitem set t_invoiceitem_1=" + std::to_string(company.itemOf(draft, 2)) +
              " where position=1");
  EXPECT_EQ(company.remove(draft), "");
  EXPECT_EQ(company.query("select count(*) from t_invoiceitem"), "0");
}

TEST_F(DocumentLifeTest, refusesToDeleteWhatAnotherDocumentCancels) {
  const int draft = company.add(101, {});
  const int cancelling = company.add(152, {});
  company.run("update t_invoice set t_invoice_1=" + std::to_string(draft) +
              " where t_invoice_id=" + std::to_string(cancelling));
  const std::string before = company.dump();
  EXPECT_THAT(company.remove(draft), HasSubstr("Ez a bizonylat sztornózza: Kimenő számla (sztornó)"));
  EXPECT_EQ(company.dump(), before);
}

TEST_F(DocumentLifeTest, tellsTheHooksOfEveryItemBeforeItGoes) {
  const int draft = company.add(101, {{LivingCompany::STRING, "1"}, {LivingCompany::STRING, "2"}});
  Calls calls;
  RecordingHook hook("H", {1, 1, 1, 1, 1}, &calls);
  EntityHooks hooks;
  hooks.add(&hook);
  Lines seen;
  hook.onDelete = [&](Entity* entity) {
    seen.push_back(
        company.query("select quantity from t_invoiceitem where t_invoiceitem_id=" + std::to_string(entity->getId())));
  };
  EXPECT_TRUE(lifeWith(hooks).remove(draft, error)) << error.text();
  EXPECT_THAT(seen, ElementsAre("1", "2"));
}

TEST_F(DocumentLifeTest, deletesNothingWhenAHookFails) {
  const int draft = company.add(101, {{LivingCompany::STRING, "1"}});
  RecordingHook hook("H", {1, 1, 1, 1, 1});
  EntityHooks hooks;
  hooks.add(&hook);
  hook.onDelete = [&](Entity*) {
    Statement(&company.getDatabase(), "insert into t_nowhere values (1)").execute(nullptr, 1);
  };
  const std::string before = company.dump();
  EXPECT_FALSE(lifeWith(hooks).remove(draft, error));
  EXPECT_THAT(error.text(), HasSubstr("t_nowhere"));
  EXPECT_EQ(company.dump(), before);
}

TEST_F(DocumentLifeTest, refusesInsideATransactionOfSomebodyElseAndLeavesItRunning) {
  const int draft = company.add(101, {{LivingCompany::STRING, "1"}});
  const auto document = company.load(draft);
  ASSERT_TRUE(company.getDatabase().begin());
  EXPECT_FALSE(moves(*document, 151));
  EXPECT_THAT(error.text(), HasSubstr("Már fut egy művelet"));
  EXPECT_FALSE(life().remove(draft, error));
  EXPECT_EQ(life().derive(draft, 101, error), 0);
  EXPECT_TRUE(company.getDatabase().isInTransaction());
  EXPECT_TRUE(company.getDatabase().commit());
}

}  // namespace
}  // namespace Quillane::Host
