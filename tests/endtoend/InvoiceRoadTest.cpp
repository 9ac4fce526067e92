// The whole road of an invoice, in the real windows with the real module, by real key presses: written, its item data
// recorded, checked, repaired, saved, closed, found again, and others derived from it until nothing is left.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/desktop/DeriveDialog.h"
#include "host/desktop/DocumentItemTable.h"
#include "host/desktop/ItemDialog.h"
#include "host/desktop/MessageListPanel.h"
#include "tests/endtoend/DesktopFixture.h"
#include "tests/support/FakeInput.h"
#include "tests/support/KeyScript.h"

using namespace FX;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using TestSupport::takeScreenshot;
using TestSupport::typeKey;
using TestSupport::typeText;

namespace Quillane::Desktop {
namespace {

constexpr int kOutgoingDraft = 101;
constexpr int kOutgoingClosed = 151;

class InvoiceRoad : public DesktopTest {
 protected:
  /// How many units of the document are stored in the row with this serial number.
  int countUnits(const std::string& serial) const {
    return count(
        FXStringFormat(
            "select count(*) from t_invoiceitemdata q join t_invoiceitem i on i.t_invoiceitem_id=q.t_invoiceitem_1 "
            "join t_invoiceitemdata s on s.t_invoiceitem_1=q.t_invoiceitem_1 and s.row=q.row "
            "where q.t_itemvariable_1=-1 and q.value='1' and s.value='%s' and i.t_invoice_1=%d",
            serial.c_str(), document()->getDocumentId())
            .text());
  }

  /// Closes the item data dialog with its OK button.
  void finishItemData(const std::string& picture) {
    atItemData("close the item data", [=] {
      takeScreenshot(picture);
      typeKey("o", kAlt);
    });
  }

  void closeDocument() {
    atDocument(
        "close the document", [] { typeKey("l", kCtrl); }, [this] { return !document()->isChanged(); });
    sayYes();
    see("the document being closed",
        [this] { return document() && document()->getInvoice()->getStatus() == kOutgoingClosed; });
  }

  void derive() {
    atDocument("derive", [] { typeKey("d", kCtrl); });
    atDialog<DeriveDialog>("say what is to be derived", [] {
      takeScreenshot("road-6-derive");
      typeKey("Return");
    });
    see(
        "the derived draft being open",
        [this] { return document() && document()->getInvoice()->getStatus() == kOutgoingDraft; },
        [this] { EXPECT_GT(document()->getDocumentId(), 0); });
  }

  // ---- pieces of the road ----

  void recordItemData();
  void repair();
  void findAgain();
  void invoiceOnePiece();
};

void InvoiceRoad::recordItemData() {
  atDocument(
      "open the item data", [] { typeKey("1", kCtrl); },
      [this] { return document()->getItemTable()->getNumRows() == 1; });
  atItemData("choose how it is delivered", [] { typeText("fut"); });
  atItemData("go on to the table", [] {
    for (int i = 0; i < 2; ++i) typeKey("Tab");
  });
  typeIntoCell(unitTable, 0, 0, "1");
  typeIntoCell(unitTable, 0, 1, "SN1001");
  typeIntoCell(unitTable, 0, 2, "2030.01.31");
  for (int row = 1; row < 3; ++row) {
    atItemData("add a row", [] { typeKey("Insert"); });
    see(
        "the new row with what is still missing", [=] { return unitTable()->getNumRows() == row + 1; },
        [=] { EXPECT_EQ(unitTable()->getItemText(row, 0), FXStringVal(3 - row)); });
    if (row == 1) {
      typeIntoCell(unitTable, row, 0, "1");
      typeIntoCell(unitTable, row, 1, "SN1002");
    }
    typeIntoCell(unitTable, row, 2, "2030.01.31");
  }
  finishItemData("road-2-item-data");
}

void InvoiceRoad::repair() {
  atDocument(
      "check", [] { typeKey("F5"); }, [this] { return document()->getMessagePanel()->getNumErrors() == 1; });
  atDocument("open what repairs the problem", [] {
    takeScreenshot("road-3-check");
    typeKey("F8");
  });
  atItemData("go to the table", [] {
    for (int i = 0; i < 2; ++i) typeKey("Tab");
  });
  typeIntoCell(unitTable, 2, 1, "SN1003");
  finishItemData("road-4-repair");
  see(
      "a check without problems", [this] { return document() && document()->getMessagePanel()->getNumMessages() == 0; },
      [] {});
}

void InvoiceRoad::findAgain() {
  openAgain("sn1002");
  see(
      "what was recorded", [this] { return document() != nullptr; },
      [this] {
        takeScreenshot("road-5-opened-again");
        EXPECT_EQ(itemCell(0, DocumentItemTable::QUANTITY), "3");
        EXPECT_THAT(itemCell(0, DocumentItemTable::ATTACHED_DATA),
                    AllOf(HasSubstr("futár"), HasSubstr("SN1001"), HasSubstr("SN1002"), HasSubstr("SN1003")));
        EXPECT_EQ(document()->getMessagePanel()->getNumMessages(), 0);
      });
}

/// In the derived draft everything goes but the first unit row.
void InvoiceRoad::invoiceOnePiece() {
  atDocument("open the item data of the draft", [] { typeKey("1", kCtrl); });
  atItemData("go to the table of the draft", [] {
    for (int i = 0; i < 2; ++i) typeKey("Tab");
  });
  for (int rows = 3; rows > 1; --rows) {
    goTo(unitTable, 1, 1);
    atItemData("delete a row", [] { typeKey("Delete"); });
    see("the row being gone", [=] { return unitTable()->getNumRows() == rows - 1; });
  }
  finishItemData("road-7-one-piece");

  atDocument("change the item", [] { typeKey("F2"); });
  atDialog<ItemDialog>(
      "type the new quantity",
      [] {
        typeKey("a", kCtrl);
        typeKey("1");
      },
      [] { return dialogOf<ItemDialog>()->getQuantityField()->hasFocus(); });
  atDialog<ItemDialog>(
      "accept the changed item", [] { typeKey("Return"); },
      [] { return dialogOf<ItemDialog>()->getQuantityField()->getText() == "1"; });
  see(
      "the changed item", [this] { return document() && itemCell(0, DocumentItemTable::QUANTITY) == "1"; },
      [this] {
        EXPECT_EQ(document()->getMessagePanel()->getNumErrors(), 0);
        EXPECT_THAT(itemCell(0, DocumentItemTable::ATTACHED_DATA),
                    AllOf(HasSubstr("SN1001"), Not(HasSubstr("SN1002"))));
      });
}

TEST_F(InvoiceRoad, leadsFromAnEmptyDocumentToWhatIsLeftOfIt) {
  writeInvoice("lgyfa", "porral", "3");
  recordItemData();
  repair();
  save();
  then("every serial number being stored", [this] {
    for (const char* serial : {"SN1001", "SN1002", "SN1003"}) EXPECT_EQ(countUnits(serial), 1) << serial;
  });
  findAgain();
  closeDocument();

  derive();
  invoiceOnePiece();
  save();
  closeDocument();
  atDocument("close the window of what was derived", [] { typeKey("w", kCtrl); });

  see(
      "being back at the first document", [this] { return document() && window->getDocumentWindows().size() == 1; },
      [this] { EXPECT_EQ(itemCell(0, DocumentItemTable::QUANTITY), "3"); });
  derive();
  see(
      "what is left", [this] { return document() != nullptr; },
      [this] {
        takeScreenshot("road-8-rest");
        EXPECT_EQ(itemCell(0, DocumentItemTable::QUANTITY), "2");
        EXPECT_THAT(itemCell(0, DocumentItemTable::ATTACHED_DATA), HasSubstr("futár"));
        // The unit that is used up keeps its values and has no quantity.
        EXPECT_EQ(countUnits("SN1001"), 0);
        EXPECT_EQ(countUnits("SN1002"), 1);
        EXPECT_EQ(countUnits("SN1003"), 1);
      });
  walk();
}

}  // namespace
}  // namespace Quillane::Desktop
