// The window of a document, driven by messages, with the real module and the sample company.
#include "host/desktop/DocumentWindow.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "host/desktop/DeriveDialog.h"
#include "host/desktop/DocumentHeadPanel.h"
#include "host/desktop/DocumentItemTable.h"
#include "host/desktop/MessageListPanel.h"
#include "host/desktop/PartnerPicker.h"
#include "host/desktop/UnsavedChangesDialog.h"
#include "host/document/DocumentRules.h"
#include "plugin/contract/Statement.h"
#include "tests/host/desktop/DocumentWindowFixture.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/TestCompany.h"
#include "tests/support/ToolkitApplication.h"

using namespace FX;
using testing::ElementsAre;
using testing::HasSubstr;

namespace Quillane::Desktop {
namespace {

using Host::DocumentRules;

constexpr int kProduct = InvoiceItem::ARTICLE_PRODUCT;
constexpr int kGreenDraft = 6;       // its check finds nothing
constexpr int kUnfinishedDraft = 7;  // values are missing
constexpr int kDeliveryNote = 19;    // closed, partly invoiced
constexpr int kClosedInvoice = 10;   // with a recorded serial number
constexpr int kIncomingDraft = 13;   // with a supplier's number
constexpr int kSourceOfOthers = 18;  // an order that others were made from

class DocumentWindowTest : public testing::Test {
 protected:
  DocumentWindow& open(int id) {
    workplace.openDocument(id);
    return workplace.getLatest();
  }

  int countRows(const FXString& sql) { return workplace.getCompany().getDatabase().queryScalar(sql, 1, -1); }

  static void select(DocumentWindow& window, int row) {
    window.getItemTable()->setCurrentItem(row, 0);
    window.getItemTable()->selectRow(row);
  }

  /// Picks the first entry of the modules by its visible button.
  static void pressPluginButton(DocumentWindow& window) {
    ASSERT_FALSE(window.getPluginButtons().empty());
    FXButton& button = *window.getPluginButtons().front();
    button.getTarget()->handle(&button, FXSEL(SEL_COMMAND, button.getSelector()), nullptr);
  }

  static bool mayRun(DocumentWindow& window, FXuint command) {
    FXButton button(&window, "asked", nullptr, &window, command);
    window.handle(&button, FXSEL(SEL_UPDATE, command), nullptr);
    return button.isEnabled();
  }

  static void type(FXTextField& field, const FXString& text) {
    field.setText(text);
    field.getTarget()->handle(&field, FXSEL(SEL_CHANGED, field.getSelector()), const_cast<char*>(text.text()));
  }

  TestWorkplace workplace;
};

// ---- the main road ----

TEST_F(DocumentWindowTest, takesAnInvoiceFromTheFirstItemToTheRestThatIsOpen) {
  DocumentWindow& window = workplace.makeDocument(DocumentRules::OUTGOING_DRAFT);
  EXPECT_FALSE(window.isChanged());
  EXPECT_EQ(window.getDocumentId(), 0);
  EXPECT_EQ(window.getMessagePanel()->getSummary(), "Nincs hiba");

  answering(
      {[](FXDialogBox& box) {
        auto& picker = dynamic_cast<PartnerPicker&>(box);
        picker.reload();
        picker.getRecordList()->setCurrentId(3);
        TestSupport::accept(picker);
      }},
      [&] { window.getHeadPanel()->handle(nullptr, FXSEL(SEL_COMMAND, DocumentHeadPanel::ID_PARTNER), nullptr); });
  EXPECT_EQ(window.getHeadPanel()->getPartnerField()->getText(), "Kőszegi Általános Iskola");

  answering({enterItem(kProduct, "hordozható", "2")}, [&] { run(window, DocumentWindow::ID_ADD_ITEM); });
  EXPECT_EQ(cell(window, 0, DocumentItemTable::NAME), "Hordozható számítógép, 14\"");
  EXPECT_EQ(cell(window, 0, DocumentItemTable::UNIT), "db");
  EXPECT_THAT(cell(window, 0, DocumentItemTable::VALUE), "579\u00A0800");
  EXPECT_GT(window.getMessagePanel()->getNumErrors(), 0) << "what is missing is said at once";

  answering({record({{"1", "SN-1"}, {"1", "SN-2"}})}, [&] { pressPluginButton(window); });
  TestSupport::runEvents(20);
  EXPECT_EQ(window.getMessagePanel()->getNumErrors(), 0) << window.getMessagePanel()->getSummary().text();
  EXPECT_THAT(attachedTexts(window), ElementsAre(HasSubstr("SN-2")));

  run(window, DocumentWindow::ID_SAVE);
  EXPECT_GT(window.getDocumentId(), 0);
  EXPECT_FALSE(window.isChanged());
  EXPECT_THAT(attachedTexts(window), ElementsAre(HasSubstr("SN-1")));
  EXPECT_EQ(workplace.changes, 1);

  answering({sayYes()}, [&] { run(window, DocumentWindow::ID_CLOSE_DOCUMENT); });
  EXPECT_EQ(window.getSession().getDocument().getStatus(), DocumentRules::OUTGOING_CLOSED);
  EXPECT_EQ(window.getSession().getDocument().getNumber(), "5");

  answering({press(FXDialogBox::ID_ACCEPT)}, [&] { run(window, DocumentWindow::ID_DERIVE); });
  DocumentWindow& made = workplace.getLatest();
  ASSERT_NE(&made, &window);
  EXPECT_EQ(cell(made, 0, DocumentItemTable::QUANTITY), "2");
  EXPECT_THAT(attachedTexts(made), ElementsAre(HasSubstr("SN-1")));

  answering({enterItem(kProduct, "hordozható", "1")}, [&] { run(made, DocumentWindow::ID_CHANGE_ITEM); });
  answering({[](FXDialogBox& dialog) {
              auto* table = findChild<FXTable>(dialog);
              table->setCurrentItem(1, 0);
              table->handle(&dialog, FXSEL(SEL_COMMAND, FXTable::ID_LAST + 2), nullptr);  // deletes the row
              TestSupport::accept(dialog);
            }},
            [&] { pressPluginButton(made); });
  TestSupport::runEvents(20);
  answering({press(UnsavedChangesDialog::ID_SAVE), sayYes()}, [&] { run(made, DocumentWindow::ID_CLOSE_DOCUMENT); });
  ASSERT_TRUE(made.getSession().isReadOnly());

  answering({press(FXDialogBox::ID_ACCEPT)}, [&] { run(window, DocumentWindow::ID_DERIVE); });
  DocumentWindow& rest = workplace.getLatest();
  EXPECT_EQ(cell(rest, 0, DocumentItemTable::QUANTITY), "1");
  EXPECT_THAT(attachedTexts(rest), ElementsAre(HasSubstr("SN-2")));
}

// ---- what it shows ----

TEST_F(DocumentWindowTest, showsTheDocument) {
  DocumentWindow& window = open(kIncomingDraft);
  EXPECT_EQ(window.getTitle(), window.getSession().getDocument().getDisplayText() + " – Quillane");
  EXPECT_EQ(window.getHeadPanel()->getPartnerField()->getText(), "Zöldág Nagykereskedelmi Zrt.");
  EXPECT_EQ(window.getHeadPanel()->getPartnerNumberField()->getText(), "ZN-2025/00871");
  EXPECT_TRUE(window.getHeadPanel()->getPartnerNumberField()->shown());
  EXPECT_EQ(window.getHeadPanel()->getIssueDateField()->getText(), "2025-03-20");
  EXPECT_EQ(cell(window, 1, DocumentItemTable::NUMBER), "2");
  EXPECT_EQ(cell(window, 1, DocumentItemTable::ARTICLE_KIND), "Termék");
  EXPECT_EQ(cell(window, 1, DocumentItemTable::NAME), "Hosszabbító kábel, 3 × 1,5 mm²");
  EXPECT_EQ(cell(window, 1, DocumentItemTable::PRICE), "412,25");
  EXPECT_EQ(cell(window, 1, DocumentItemTable::VALUE), "41\u00A0225");
  EXPECT_EQ(window.getSumText(), "Összesen: 119\u00A0225");
  EXPECT_THAT(cell(window, 0, DocumentItemTable::ATTACHED_DATA), HasSubstr("Hűtő, 1. ajtó"));
}

TEST_F(DocumentWindowTest, saysInAMessageBoxWhatCouldNotBeReadWhileItOpened) {
  FXString error;
  std::unique_ptr<Host::Document> document = workplace.getCompany().getDocuments().load(kGreenDraft, error);
  ASSERT_TRUE(document) << error.text();
  Statement hide(&workplace.getCompany().getDatabase(), "alter table t_invoicestatus rename to hidden");
  ASSERT_TRUE(hide.execute(nullptr, 0));

  const std::vector<std::string> said = answering({sayOk()}, [&] {
    DocumentWindow window(workplace, std::move(document));
    TestSupport::runEvents(50);
  });

  ASSERT_EQ(said.size(), 1u);
  EXPECT_THAT(said[0], HasSubstr("t_invoicestatus"));
}

TEST_F(DocumentWindowTest, hidesTheSuppliersNumberOfOutgoingDocuments) {
  EXPECT_FALSE(open(kGreenDraft).getHeadPanel()->getPartnerNumberField()->shown());
}

TEST_F(DocumentWindowTest, givesACancellingDocumentsSumItsSign) {
  EXPECT_EQ(open(12).getSumText(), "Összesen: -37\u00A0800");
}

TEST_F(DocumentWindowTest, countsWhatTheCheckFound) {
  EXPECT_EQ(open(kGreenDraft).getMessagePanel()->getNumErrors(), 0);
  DocumentWindow& window = open(kUnfinishedDraft);
  EXPECT_GT(window.getMessagePanel()->getNumErrors(), 0);
  EXPECT_THAT(window.getMessagePanel()->getSummary().text(), HasSubstr("hiba"));
}

// ---- unsaved changes ----

TEST_F(DocumentWindowTest, asksNothingWhenNothingWasChanged) {
  DocumentWindow& window = open(kGreenDraft);
  answering({}, [&] { EXPECT_TRUE(window.closeDocument()); });
  EXPECT_EQ(workplace.countWindows(), 0u);
}

TEST_F(DocumentWindowTest, leavesNothingOfTheModulesBehindWhenItIsClosed) {
  DocumentWindow& window = open(kUnfinishedDraft);
  ASSERT_GT(window.getMessagePanel()->getNumMessages(), 0);
  EXPECT_TRUE(window.closeDocument());
  EXPECT_TRUE(window.closeDocument()) << "once more does no harm";
  window.proposeCheckAll();
  workplace.getCompany().close();  // unloads the modules, while the window waits for its end
  testAccount().refresh();
  TestSupport::runEvents(50);
}

TEST_F(DocumentWindowTest, staysWhenTheUserThinksBetterOfClosing) {
  DocumentWindow& window = open(kGreenDraft);
  type(*window.getHeadPanel()->getIssueDateField(), "2025.3.9.");
  EXPECT_TRUE(window.isChanged());
  EXPECT_EQ(window.getTitle().left(2), "* ");
  answering({cancelIt()}, [&] { EXPECT_FALSE(window.closeDocument()); });
  EXPECT_TRUE(window.isChanged());
  EXPECT_EQ(workplace.countWindows(), 1u);
}

TEST_F(DocumentWindowTest, storesOrForgetsChangesAsTheUserSays) {
  DocumentWindow& discarded = open(kGreenDraft);
  type(*discarded.getHeadPanel()->getIssueDateField(), "2025.3.9.");
  answering({press(UnsavedChangesDialog::ID_DISCARD)}, [&] { EXPECT_TRUE(discarded.closeDocument()); });
  EXPECT_EQ(countRows("select count(*) from t_invoice where issuedate='2025-03-09'"), 0);

  DocumentWindow& stored = open(kGreenDraft);
  type(*stored.getHeadPanel()->getIssueDateField(), "2025.3.9.");
  answering({press(UnsavedChangesDialog::ID_SAVE)}, [&] { EXPECT_TRUE(stored.close()); });
  EXPECT_EQ(countRows("select count(*) from t_invoice where issuedate='2025-03-09'"), 1);
  EXPECT_EQ(workplace.countWindows(), 0u);
}

TEST_F(DocumentWindowTest, knowsThatADialogOfAModuleChangedSomething) {
  DocumentWindow& window = open(kGreenDraft);
  answering({press(FXDialogBox::ID_ACCEPT)}, [&] { pressPluginButton(window); });
  EXPECT_FALSE(window.isChanged()) << "it was only looked at";
  answering({record({{"1", "SN-9"}})}, [&] { pressPluginButton(window); });
  EXPECT_TRUE(window.isChanged());
  EXPECT_FALSE(mayRun(window, DocumentWindow::ID_SAVE)) << "not until the check that the module asked for";
  TestSupport::runEvents(20);
  EXPECT_TRUE(mayRun(window, DocumentWindow::ID_SAVE));
}

TEST_F(DocumentWindowTest, settlesChangesBeforeItWorksOnWhatIsStored) {
  DocumentWindow& window = open(kDeliveryNote - 1);
  type(*window.getHeadPanel()->getIssueDateField(), "2025.3.9.");
  answering({cancelIt()}, [&] { run(window, DocumentWindow::ID_DERIVE); });
  EXPECT_TRUE(window.isChanged());
  answering({press(UnsavedChangesDialog::ID_DISCARD), cancelIt()}, [&] { run(window, DocumentWindow::ID_DERIVE); });
  EXPECT_FALSE(window.isChanged());
  EXPECT_EQ(window.getHeadPanel()->getIssueDateField()->getText(), "2025-03-26");
}

TEST_F(DocumentWindowTest, offersToSaveANewDocumentBeforeItWorksOnWhatIsStored) {
  DocumentWindow& window = workplace.makeDocument(DocumentRules::ORDER);
  answering({sayNo()}, [&] { run(window, DocumentWindow::ID_DERIVE); });
  EXPECT_EQ(window.getDocumentId(), 0);
  answering({sayYes(), cancelIt()}, [&] { run(window, DocumentWindow::ID_DERIVE); });
  EXPECT_GT(window.getDocumentId(), 0);
}

// ---- refused saves ----

TEST_F(DocumentWindowTest, keepsEverythingWhenAnotherCopyIsNewer) {
  DocumentWindow& window = open(kUnfinishedDraft);
  DocumentWindow& other = open(kUnfinishedDraft);
  type(*other.getHeadPanel()->getIssueDateField(), "2025.3.9.");
  run(other, DocumentWindow::ID_SAVE);

  answering({enterItem(kProduct, "kecskesajt", "3,5")}, [&] { run(window, DocumentWindow::ID_ADD_ITEM); });
  answering({record({{"1", "SN-7"}})}, [&] {
    select(window, 0);
    pressPluginButton(window);
  });
  TestSupport::runEvents(20);
  const auto said = answering({sayOk()}, [&] { run(window, DocumentWindow::ID_SAVE); });
  EXPECT_THAT(said, ElementsAre(testing::AllOf(HasSubstr("időközben máshol is mentették"), HasSubstr("#7"))));
  EXPECT_TRUE(window.isChanged());
  EXPECT_EQ(cell(window, 2, DocumentItemTable::NAME), "Érlelt kecskesajt");
  EXPECT_EQ(cell(window, 2, DocumentItemTable::QUANTITY), "3,5");
  EXPECT_THAT(cell(window, 0, DocumentItemTable::ATTACHED_DATA), HasSubstr("SN-7"));
}

TEST_F(DocumentWindowTest, saysWhyAnItemThatOthersWereMadeFromCannotGo) {
  DocumentWindow& window = open(kSourceOfOthers);
  answering({sayYes()}, [&] { run(window, DocumentWindow::ID_REMOVE_ITEM); });
  EXPECT_EQ(window.getItemTable()->getNumRows(), 1);
  const auto said = answering({sayOk()}, [&] { run(window, DocumentWindow::ID_SAVE); });
  EXPECT_THAT(said, ElementsAre(HasSubstr("nem törölhető")));
  EXPECT_EQ(window.getItemTable()->getNumRows(), 1);
  EXPECT_TRUE(window.isChanged());
}

TEST_F(DocumentWindowTest, savesNothingAsLongAsTheDateIsNone) {
  DocumentWindow& window = open(kGreenDraft);
  type(*window.getHeadPanel()->getIssueDateField(), "2025.2.30.");
  const auto said = answering({sayOk()}, [&] { run(window, DocumentWindow::ID_SAVE); });
  EXPECT_THAT(said, ElementsAre(HasSubstr("Ez nem dátum: „2025.2.30.”")));
  EXPECT_EQ(window.getHeadPanel()->getIssueDateField()->getText(), "2025.2.30.");
  EXPECT_TRUE(window.isChanged());
}

// ---- items ----

TEST_F(DocumentWindowTest, movesItemsAndStoresTheirOrder) {
  DocumentWindow& window = open(kUnfinishedDraft);
  EXPECT_FALSE(mayRun(window, DocumentWindow::ID_MOVE_UP));
  run(window, DocumentWindow::ID_MOVE_DOWN);
  EXPECT_EQ(cell(window, 0, DocumentItemTable::NAME), "Rendszeres karbantartás");
  EXPECT_EQ(window.getItemTable()->getCurrentItemIndex(), 1);
  EXPECT_FALSE(mayRun(window, DocumentWindow::ID_MOVE_DOWN));
  run(window, DocumentWindow::ID_SAVE);
  EXPECT_EQ(cell(window, 0, DocumentItemTable::NAME), "Rendszeres karbantartás");
  EXPECT_EQ(window.getItemTable()->getCurrentItemIndex(), 1) << "the current row stays";
  EXPECT_EQ(countRows("select position from t_invoiceitem where t_invoiceitem_id=14"), 1);
  run(window, DocumentWindow::ID_MOVE_UP);
  EXPECT_EQ(cell(window, 0, DocumentItemTable::NAME), "Porral oltó tűzoltó készülék, 6 kg");
}

TEST_F(DocumentWindowTest, removesAnItemThatMessagesAreAbout) {
  DocumentWindow& window = open(kUnfinishedDraft);
  select(window, 1);
  const int messages = window.getMessagePanel()->getNumMessages();
  run(window, DocumentWindow::ID_REMOVE_ITEM);
  EXPECT_LT(window.getMessagePanel()->getNumMessages(), messages);
  select(window, 0);
  answering({sayYes()}, [&] { run(window, DocumentWindow::ID_REMOVE_ITEM); });
  EXPECT_EQ(window.getMessagePanel()->getNumMessages(), 0);
  EXPECT_EQ(window.getItemTable()->getCurrentItemIndex(), -1);
  EXPECT_FALSE(mayRun(window, DocumentWindow::ID_PLUGIN_ENTRY));
  run(window, DocumentWindow::ID_SAVE);
  EXPECT_EQ(countRows("select count(*) from t_invoiceitem where t_invoice_1=7"), 0);
}

TEST_F(DocumentWindowTest, asksBeforeAnotherArticleCostsRecordedValues) {
  DocumentWindow& window = open(kGreenDraft);
  const auto change = enterItem(kProduct, "tűzoltó", "2");
  const auto said = answering({change, sayNo()}, [&] { run(window, DocumentWindow::ID_CHANGE_ITEM); });
  EXPECT_THAT(said.back(), HasSubstr("elvesznek"));
  EXPECT_EQ(cell(window, 0, DocumentItemTable::NAME), "Hordozható számítógép, 14\"");
  EXPECT_THAT(cell(window, 0, DocumentItemTable::ATTACHED_DATA), HasSubstr("NB14-5A01"));
  EXPECT_FALSE(window.isChanged());

  answering({change, sayYes()}, [&] { run(window, DocumentWindow::ID_CHANGE_ITEM); });
  EXPECT_EQ(cell(window, 0, DocumentItemTable::NAME), "Porral oltó tűzoltó készülék, 6 kg") << "in its place";
  EXPECT_EQ(window.getItemTable()->getNumRows(), 6);
  EXPECT_EQ(cell(window, 0, DocumentItemTable::ATTACHED_DATA), "");
  EXPECT_GT(window.getMessagePanel()->getNumErrors(), 0);
  run(window, DocumentWindow::ID_SAVE);
  EXPECT_EQ(countRows("select count(*) from t_invoiceitem where t_invoiceitem_id=7"), 0);
}

TEST_F(DocumentWindowTest, asksNothingWhenNoValuesAreRecorded) {
  DocumentWindow& window = workplace.makeDocument(DocumentRules::OUTGOING_DRAFT);
  answering({enterItem(kProduct, "hordozható", "1")}, [&] { run(window, DocumentWindow::ID_ADD_ITEM); });
  answering({enterItem(kProduct, "kecskesajt", "1")}, [&] { run(window, DocumentWindow::ID_CHANGE_ITEM); });
  EXPECT_EQ(cell(window, 0, DocumentItemTable::NAME), "Érlelt kecskesajt");
}

TEST_F(DocumentWindowTest, keepsRecordedValuesWhenOnlyQuantityOrPriceChange) {
  DocumentWindow& window = open(kGreenDraft);
  answering({enterItem(kProduct, "hordozható", "3", "1 234,5")}, [&] { run(window, DocumentWindow::ID_CHANGE_ITEM); });
  EXPECT_EQ(cell(window, 0, DocumentItemTable::VALUE), "3\u00A0703,5");
  EXPECT_THAT(cell(window, 0, DocumentItemTable::ATTACHED_DATA), HasSubstr("NB14-5A01"));
  EXPECT_GT(window.getMessagePanel()->getNumMessages(), 0) << "three are sold, two are recorded";
}

// ---- problems ----

TEST_F(DocumentWindowTest, opensWhatRepairsTheNextProblem) {
  DocumentWindow& window = open(kUnfinishedDraft);
  select(window, 1);
  run(window, DocumentWindow::ID_REMOVE_ITEM);
  const int messages = window.getMessagePanel()->getNumMessages();
  ASSERT_GE(messages, 2);
  const std::vector<Answer> looks(messages + 1, press(FXDialogBox::ID_ACCEPT));
  std::vector<int> visited;
  answering(looks, [&] {
    for (int step = 0; step <= messages; ++step) {
      run(window, DocumentWindow::ID_NEXT_PROBLEM);
      visited.push_back(window.getMessagePanel()->getList()->getCurrentItem());
      TestSupport::runEvents(20);
    }
  });
  for (int step = 0; step < messages; ++step) EXPECT_EQ(visited[step], step);
  EXPECT_EQ(visited.back(), 0) << "after the last comes the first";
}

TEST_F(DocumentWindowTest, opensWhatRepairsAProblemThatIsPicked) {
  DocumentWindow& window = open(kUnfinishedDraft);
  select(window, 1);
  run(window, DocumentWindow::ID_REMOVE_ITEM);
  answering({enterItem(kProduct, "kecskesajt", "3,5")}, [&] { run(window, DocumentWindow::ID_ADD_ITEM); });
  FXIconList& list = *window.getMessagePanel()->getList();
  const FXival last = list.getNumItems() - 1;
  const auto said = answering({press(FXDialogBox::ID_ACCEPT)}, [&] {
    list.getTarget()->handle(&list, FXSEL(SEL_DOUBLECLICKED, list.getSelector()), reinterpret_cast<void*>(last));
  });
  EXPECT_THAT(said.front(), HasSubstr("Érlelt kecskesajt"));
}

TEST_F(DocumentWindowTest, hasNoNextProblemWithoutProblems) {
  DocumentWindow& window = workplace.makeDocument(DocumentRules::OUTGOING_DRAFT);
  EXPECT_FALSE(mayRun(window, DocumentWindow::ID_NEXT_PROBLEM));
  answering({}, [&] { run(window, DocumentWindow::ID_NEXT_PROBLEM); });
}

// ---- statuses ----

TEST_F(DocumentWindowTest, cannotBeClosedWithErrors) {
  DocumentWindow& window = open(kUnfinishedDraft);
  const auto said = answering({sayOk()}, [&] { run(window, DocumentWindow::ID_CLOSE_DOCUMENT); });
  EXPECT_THAT(said, ElementsAre(HasSubstr("nem zárható le")));
  EXPECT_FALSE(window.getSession().isReadOnly());
  EXPECT_GT(window.getMessagePanel()->getNumErrors(), 0) << "the findings are shown again";
}

TEST_F(DocumentWindowTest, isNotClosedWithoutAWord) {
  DocumentWindow& window = open(kGreenDraft);
  answering({sayNo()}, [&] { run(window, DocumentWindow::ID_CLOSE_DOCUMENT); });
  EXPECT_FALSE(window.getSession().isReadOnly());
  EXPECT_EQ(workplace.changes, 0);
}

TEST_F(DocumentWindowTest, makesADraftOfAProFormaDocument) {
  DocumentWindow& window = open(9);
  EXPECT_FALSE(mayRun(window, DocumentWindow::ID_CLOSE_DOCUMENT));
  answering({sayYes()}, [&] { run(window, DocumentWindow::ID_MAKE_DRAFT); });
  EXPECT_EQ(window.getSession().getDocument().getStatus(), DocumentRules::OUTGOING_DRAFT);
  EXPECT_FALSE(window.isChanged());
  EXPECT_TRUE(mayRun(window, DocumentWindow::ID_CLOSE_DOCUMENT));
}

TEST_F(DocumentWindowTest, onlyShowsAClosedDocument) {
  DocumentWindow& window = open(kClosedInvoice);
  for (const FXuint command : {DocumentWindow::ID_SAVE, DocumentWindow::ID_ADD_ITEM, DocumentWindow::ID_CHANGE_ITEM,
                               DocumentWindow::ID_REMOVE_ITEM, DocumentWindow::ID_MOVE_DOWN,
                               DocumentWindow::ID_CLOSE_DOCUMENT, DocumentWindow::ID_DELETE_DOCUMENT}) {
    EXPECT_FALSE(mayRun(window, command)) << command;
    if (command != DocumentWindow::ID_CLOSE_DOCUMENT && command != DocumentWindow::ID_DELETE_DOCUMENT)
      answering({}, [&] { run(window, command); });
  }
  EXPECT_FALSE(window.getHeadPanel()->getIssueDateField()->isEditable());
  answering(
      {}, [&] { window.getHeadPanel()->handle(nullptr, FXSEL(SEL_COMMAND, DocumentHeadPanel::ID_PARTNER), nullptr); });
  answering({press(FXDialogBox::ID_ACCEPT)}, [&] { pressPluginButton(window); });
  TestSupport::runEvents(20);
  EXPECT_FALSE(window.isChanged());
  answering({}, [&] { EXPECT_TRUE(window.closeDocument()); });
}

TEST_F(DocumentWindowTest, cancelsAClosedDocumentOnce) {
  DocumentWindow& window = open(kClosedInvoice);
  answering({sayYes()}, [&] { run(window, DocumentWindow::ID_CANCEL_DOCUMENT); });
  EXPECT_EQ(workplace.getLatest().getSession().getDocument().getCancelledDocumentId(), kClosedInvoice);
  EXPECT_THAT(attachedTexts(workplace.getLatest()), testing::Contains(HasSubstr("NB14-4C77")));
  const auto said = answering({sayYes(), sayOk()}, [&] { run(window, DocumentWindow::ID_CANCEL_DOCUMENT); });
  EXPECT_THAT(said.back(), HasSubstr("sztornózták, ezzel: Kimenő számla (sztornó)"));
}

TEST_F(DocumentWindowTest, offersWhatMayBeMadeFromTheDocument) {
  DocumentWindow& window = open(1);
  const Answer choose = [](FXDialogBox& box) {
    auto& dialog = dynamic_cast<DeriveDialog&>(box);
    EXPECT_EQ(dialog.getList()->getNumItems(), 2);
    EXPECT_EQ(dialog.getStatus(), DocumentRules::OUTGOING_DRAFT);
    dialog.getList()->setCurrentItem(1);
    EXPECT_EQ(dialog.getStatus(), DocumentRules::DELIVERY_NOTE_DRAFT);
    TestSupport::accept(dialog);
  };
  const auto said = answering({choose, sayOk()}, [&] { run(window, DocumentWindow::ID_DERIVE); });
  EXPECT_THAT(said.front(), HasSubstr("Megrendelés, Tölgyfa Bútor Kft., #1"));
  EXPECT_THAT(said.back(), HasSubstr("nyitott mennyisége")) << "it was delivered";
  EXPECT_FALSE(mayRun(open(kIncomingDraft), DocumentWindow::ID_DERIVE));
}

TEST_F(DocumentWindowTest, asksWithThePartnersNameAsItIs) {
  Statement(&workplace.getCompany().getDatabase(), "update t_partner set name='Kovács & Társa'").execute(nullptr, 1);
  DocumentWindow& order = open(1);
  EXPECT_THAT(answering({cancelIt()}, [&] { run(order, DocumentWindow::ID_DERIVE); }).front(),
              HasSubstr("Megrendelés, Kovács & Társa, #1"));
  DocumentWindow& draft = open(kUnfinishedDraft);
  EXPECT_THAT(answering({sayNo()}, [&] { run(draft, DocumentWindow::ID_DELETE_DOCUMENT); }).front(),
              HasSubstr("Kovács & Társa"));
  EXPECT_EQ(draft.getTitle().contains('&'), 1);
}

TEST_F(DocumentWindowTest, asksWithThePartnersNameBeforeChangesAreLost) {
  const UnsavedChangesDialog dialog(&open(1), "Megrendelés, Kovács & Társa");
  const auto* label = dynamic_cast<FXLabel*>(dialog.getFirst());
  ASSERT_NE(label, nullptr);
  EXPECT_THAT(label->getText().text(), HasSubstr("Kovács & Társa"));
}

TEST_F(DocumentWindowTest, deletesADraftAndCloses) {
  DocumentWindow& window = open(kUnfinishedDraft);
  answering({sayNo()}, [&] { run(window, DocumentWindow::ID_DELETE_DOCUMENT); });
  EXPECT_EQ(workplace.countWindows(), 1u);
  answering({sayYes()}, [&] { run(window, DocumentWindow::ID_DELETE_DOCUMENT); });
  EXPECT_EQ(workplace.countWindows(), 0u);
  EXPECT_EQ(workplace.changes, 1);
  EXPECT_EQ(countRows("select count(*) from t_invoice where t_invoice_id=7"), 0);
}

TEST_F(DocumentWindowTest, saysWhyADocumentCannotBeDeleted) {
  DocumentWindow& window = open(kSourceOfOthers);
  const auto said = answering({sayYes(), sayOk()}, [&] { run(window, DocumentWindow::ID_DELETE_DOCUMENT); });
  EXPECT_THAT(said.back(), HasSubstr("másik bizonylat tétele készült"));
  EXPECT_EQ(workplace.countWindows(), 1u);
}

// ---- cells that are too narrow ----

TEST_F(DocumentWindowTest, knowsWhatIsCutOffOfACell) {
  DocumentItemTable& table = *open(kGreenDraft).getItemTable();
  const FXString text = table.getItemText(0, DocumentItemTable::ATTACHED_DATA);
  ASSERT_FALSE(text.empty());
  table.setColumnWidth(DocumentItemTable::ATTACHED_DATA, 20);
  EXPECT_EQ(Host::CutOffTip::getText(table, 0, DocumentItemTable::ATTACHED_DATA), text);
  table.setColumnWidth(DocumentItemTable::ATTACHED_DATA, 5000);
  EXPECT_EQ(Host::CutOffTip::getText(table, 0, DocumentItemTable::ATTACHED_DATA), "");
}

TEST_F(DocumentWindowTest, asksNoCellThatIsNotThere) {
  DocumentItemTable& table = *open(kGreenDraft).getItemTable();
  EXPECT_EQ(Host::CutOffTip::getText(table, -1, 0), "");
  EXPECT_EQ(Host::CutOffTip::getText(table, table.getNumRows(), 0), "");
  EXPECT_EQ(Host::CutOffTip::getText(table, 0, -1), "");
  EXPECT_EQ(Host::CutOffTip::getText(table, 0, DocumentItemTable::COLUMN_COUNT), "");
}

// ---- export ----

TEST_F(DocumentWindowTest, proposesTheSameFileAsTheListOfDocuments) {
  DocumentWindow& window = open(kClosedInvoice);
  std::string proposed;
  const Answer look = [&](FXDialogBox& box) {
    proposed = dynamic_cast<FXFileDialog&>(box).getFilename().text();
    TestSupport::cancel(box);
  };
  answering({look}, [&] { run(window, DocumentWindow::ID_EXPORT); });
  EXPECT_THAT(proposed, testing::EndsWith("/Kimenő számla (lezárt) 1.xml"));
}

TEST_F(DocumentWindowTest, writesTheStoredDocumentAsXml) {
  const std::filesystem::path file = std::filesystem::temp_directory_path() / "quillane-exported.xml";
  std::filesystem::remove(file);
  const Answer choose = [&](FXDialogBox& box) {
    auto& dialog = dynamic_cast<FXFileDialog&>(box);
    dialog.setFilename(file.c_str());
    TestSupport::accept(dialog);
  };
  DocumentWindow& window = open(kClosedInvoice);
  answering({choose}, [&] { run(window, DocumentWindow::ID_EXPORT); });
  std::stringstream text;
  text << std::ifstream(file).rdbuf();
  EXPECT_THAT(text.str(), HasSubstr("NB14-4C77"));
  answering({choose, sayNo()}, [&] { run(window, DocumentWindow::ID_EXPORT); });
  std::filesystem::remove(file);
}

}  // namespace
}  // namespace Quillane::Desktop
