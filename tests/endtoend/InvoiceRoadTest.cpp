// The whole road of an invoice, in the real windows with the real module, by real key presses: written, its item data
// recorded, checked, repaired, saved, closed, found again, and others derived from it until nothing is left.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "host/company/Company.h"
#include "host/desktop/CompanyFile.h"
#include "host/desktop/DeriveDialog.h"
#include "host/desktop/DocumentItemTable.h"
#include "host/desktop/DocumentWindow.h"
#include "host/desktop/ItemDialog.h"
#include "host/desktop/MainWindow.h"
#include "host/desktop/MessageListPanel.h"
#include "host/desktop/PartnerPicker.h"
#include "tests/support/FakeInput.h"
#include "tests/support/KeyScript.h"
#include "tests/support/TestCompany.h"
#include "tests/support/ToolkitApplication.h"

using namespace FX;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using TestSupport::isOnScreen;
using TestSupport::KeyScript;
using TestSupport::takeScreenshot;
using TestSupport::typeKey;
using TestSupport::typeText;

namespace Quillane::Desktop {
namespace {

constexpr int kPatience = 120000;  // milliseconds, for all of the road
constexpr int kOutgoingDraft = 101;
constexpr int kOutgoingClosed = 151;

constexpr char kCtrl[] = "Control_L";
constexpr char kAlt[] = "Alt_L";

/// The first window of the type among those in parent.
template <class T>
T* findChild(const FXWindow& parent) {
  for (FXWindow* child = parent.getFirst(); child; child = child->getNext()) {
    if (auto* found = dynamic_cast<T*>(child)) return found;
    if (T* found = findChild<T>(*child)) return found;
  }
  return nullptr;
}

/// The program as its user has it, on a company file of its own, and the user.
class InvoiceRoad : public testing::Test {
 protected:
  using Find = std::function<FXTopWindow*()>;
  using Condition = KeyScript::Condition;
  using Action = KeyScript::Action;

  void SetUp() override {
    testAccount();
    ASSERT_TRUE(TestSupport::openToolkitDisplay()) << TestSupport::kNoDisplay;
    folder = (std::filesystem::temp_directory_path() / "quillane-road-XXXXXX").string();
    ASSERT_TRUE(mkdtemp(folder.data()));
    company = std::make_unique<Host::Company>(testAccount(), std::vector<FXString>{QUILLANE_MODULE_FOLDER});
    file = std::make_unique<CompanyFile>(testAccount(), *company);
    icons = std::make_unique<Host::IconSet>(&testAccount());
    window = std::make_unique<MainWindow>(testAccount(), *company, *file, *icons);
    window->create();
    ASSERT_TRUE(window->makeCompany((folder + "/company.db").c_str(), CompanyFile::SAMPLE));
    window->show(PLACEMENT_SCREEN);
  }

  void TearDown() override {
    if (window) TestSupport::runEvents(20);
    window.reset();
    file.reset();
    company.reset();
    if (!folder.empty()) std::filesystem::remove_all(folder);
  }

  /// Walks the road that the steps make.
  void walk() {
    script.start();
    EXPECT_TRUE(TestSupport::waitUntil([this] { return script.isDone() || HasFailure(); }, kPatience));
  }

  // ---- where the user looks ----

  FXTopWindow* mainWindow() const { return testAccount().getModalWindow() ? nullptr : window.get(); }

  /// The window of a document that was opened last; null while there is none, or while it is covered by a dialog.
  DocumentWindow* document() const {
    const auto& windows = window->getDocumentWindows();
    return windows.empty() || testAccount().getModalWindow() ? nullptr : windows.back();
  }

  /// The dialog that waits for an answer.
  static FXDialogBox* dialog() { return dynamic_cast<FXDialogBox*>(testAccount().getModalWindow()); }

  template <class T>
  static T* dialogOf() {
    return dynamic_cast<T*>(testAccount().getModalWindow());
  }

  static FXDialogBox* itemDataDialog() {
    FXDialogBox* shown = dialog();
    return shown && shown->getTitle().find("egyéb tételadatai") >= 0 ? shown : nullptr;
  }

  static FXTable* unitTable() { return itemDataDialog() ? findChild<FXTable>(*itemDataDialog()) : nullptr; }

  std::string itemCell(int column) const { return document()->getItemTable()->getItemText(0, column).text(); }

  int count(const FXString& sql) const { return company->getDatabase().queryScalar(sql, 1, -1); }

  /// How many units of the document are stored in the row with this serial number.
  int countUnits(const std::string& serial) const {
    return count(FXStringFormat(
        "select count(*) from t_invoiceitemdata q join t_invoiceitem i on i.t_invoiceitem_id=q.t_invoiceitem_1 "
        "join t_invoiceitemdata s on s.t_invoiceitem_1=q.t_invoiceitem_1 and s.row=q.row "
        "where q.t_itemvariable_1=-1 and q.value='1' and s.value='%s' and i.t_invoice_1=%d",
        serial.c_str(), document()->getDocumentId()));
  }

  // ---- what the user does ----

  /// Takes the keyboard to the window, when it is there, and acts once the condition holds.
  void at(
      const std::string& what, const Find& find, const Action& action,
      const Condition& condition = [] { return true; }) {
    // Without a window manager nobody else gives a new window the keyboard.
    script.step(
        what + ": the window", [find] { return find() && isOnScreen(*find()); }, [find] { find()->setFocus(); });
    script.step(
        what, [find, condition] { return find() && testAccount().getActiveWindow() == find() && condition(); }, action);
  }

  void atMain(
      const std::string& what, const Action& action, const Condition& condition = [] { return true; }) {
    at(
        what, [this] { return mainWindow(); }, action, condition);
  }

  void atDocument(
      const std::string& what, const Action& action, const Condition& condition = [] { return true; }) {
    at(
        what, [this] { return static_cast<FXTopWindow*>(document()); }, action, condition);
  }

  void atItemData(
      const std::string& what, const Action& action, const Condition& condition = [] { return true; }) {
    at(
        what, [] { return static_cast<FXTopWindow*>(itemDataDialog()); }, action, condition);
  }

  /// Goes to a cell of the unit table with the arrow keys.
  void goTo(int row, int column) {
    const std::string place = std::to_string(row + 1) + ". row, " + std::to_string(column + 1) + ". column";
    atItemData(
        "go to " + place,
        [=] {
          const FXTable& table = *unitTable();
          const auto press = [](const char* key, int times) {
            for (int i = 0; i < times; ++i) typeKey(key);
          };
          press("Down", row - table.getCurrentRow());
          press("Up", table.getCurrentRow() - row);
          press("Right", column - table.getCurrentColumn());
          press("Left", table.getCurrentColumn() - column);
        },
        [=] { return unitTable() && unitTable()->hasFocus() && unitTable()->getNumRows() > row; });
    script.step(
        "being at " + place,
        [=] { return unitTable()->getCurrentRow() == row && unitTable()->getCurrentColumn() == column; }, [] {});
  }

  /// Types a text over that of a cell.
  void typeIntoCell(int row, int column, const std::string& text) {
    goTo(row, column);
    atItemData("type " + text, [=] {
      typeText(text);
      typeKey("Return");
    });
    script.step(
        "having typed " + text, [=] { return unitTable()->getItemText(row, column) == text.c_str(); }, [] {});
  }

  /// Closes the item data dialog with its OK button.
  void finishItemData(const std::string& picture) {
    atItemData("close the item data", [=] {
      takeScreenshot(picture);
      typeKey("o", kAlt);
    });
  }

  /// Says yes to the question that comes up.
  void sayYes() {
    at(
        "answer the question", [] { return static_cast<FXTopWindow*>(dialogOf<FXMessageBox>()); },
        [] { typeKey("Return"); });
  }

  void closeDocument() {
    atDocument(
        "close the document", [] { typeKey("l", kCtrl); }, [this] { return !document()->isChanged(); });
    sayYes();
    script.step(
        "the document being closed",
        [this] { return document() && document()->getInvoice()->getStatus() == kOutgoingClosed; }, [] {});
  }

  void save() {
    atDocument(
        "save", [] { typeKey("s", kCtrl); }, [this] { return document()->isChanged(); });
    script.step(
        "being saved", [this] { return document() && !document()->isChanged() && document()->getDocumentId() > 0; },
        [] {});
  }

  void derive() {
    atDocument("derive", [] { typeKey("d", kCtrl); });
    at(
        "say what is to be derived", [] { return static_cast<FXTopWindow*>(dialogOf<DeriveDialog>()); },
        [] {
          takeScreenshot("road-6-derive");
          typeKey("Return");
        });
    script.step(
        "the derived draft being open",
        [this] { return document() && document()->getInvoice()->getStatus() == kOutgoingDraft; },
        [this] { EXPECT_GT(document()->getDocumentId(), 0); });
  }

  // ---- pieces of the road ----

  void writeInvoice();
  void recordItemData();
  void repair();
  void findAgain();
  void invoiceOnePiece();

  std::string folder;
  std::unique_ptr<Host::Company> company;
  std::unique_ptr<CompanyFile> file;
  std::unique_ptr<Host::IconSet> icons;
  std::unique_ptr<MainWindow> window;
  KeyScript script;
};

void InvoiceRoad::writeInvoice() {
  atMain("begin a new invoice", [] { typeKey("n", kCtrl); });
  atDocument("ask for the partners", [] { typeKey("F4"); });
  const auto picker = [] { return dialogOf<PartnerPicker>(); };
  at("type a part of the partner's name", picker, [] { typeText("lgyfa"); });
  at(
      "pick the partner", picker, [] { typeKey("Return"); },
      [=] { return picker()->getRecordList()->getNumShown() == 1; });

  atDocument("ask for a new item", [] { typeKey("j", kAlt); });
  const auto item = [] { return dialogOf<ItemDialog>(); };
  at("type a part of the article's name", item, [] { typeText("porral"); });
  at(
      "accept the article", item, [] { typeKey("Tab"); }, [=] { return item()->getArticleList()->getNumShown() == 1; });
  at(
      "type the quantity", item, [] { typeText("3"); }, [=] { return item()->getQuantityField()->hasFocus(); });
  at(
      "accept the item", item,
      [] {
        takeScreenshot("road-1-item");
        typeKey("Return");
      },
      [=] { return item()->getQuantityField()->getText() == "3"; });
}

void InvoiceRoad::recordItemData() {
  atDocument(
      "open the item data", [] { typeKey("1", kCtrl); },
      [this] { return document()->getItemTable()->getNumRows() == 1; });
  atItemData("choose how it is delivered", [] { typeText("fut"); });
  atItemData("go on to the table", [] {
    for (int i = 0; i < 2; ++i) typeKey("Tab");
  });
  typeIntoCell(0, 0, "1");
  typeIntoCell(0, 1, "SN1001");
  typeIntoCell(0, 2, "2030.01.31");
  for (int row = 1; row < 3; ++row) {
    atItemData("add a row", [] { typeKey("Insert"); });
    script.step(
        "the new row with what is still missing", [=] { return unitTable()->getNumRows() == row + 1; },
        [=] { EXPECT_EQ(unitTable()->getItemText(row, 0), FXStringVal(3 - row)); });
    if (row == 1) {
      typeIntoCell(row, 0, "1");
      typeIntoCell(row, 1, "SN1002");
    }
    typeIntoCell(row, 2, "2030.01.31");
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
  typeIntoCell(2, 1, "SN1003");
  finishItemData("road-4-repair");
  script.step(
      "a check without problems", [this] { return document() && document()->getMessagePanel()->getNumMessages() == 0; },
      [] {});
}

void InvoiceRoad::findAgain() {
  atDocument("close the window", [] { typeKey("w", kCtrl); });
  atMain(
      "go to the search field", [] { typeKey("f", kCtrl); }, [this] { return window->getDocumentWindows().empty(); });
  atMain(
      "search for a serial number", [] { typeText("sn1002"); },
      [this] { return window->getPanel()->getSearchField()->hasFocus(); });
  atMain(
      "open the document that was found", [] { typeKey("Return"); },
      [this] { return window->getPanel()->isSearching() && window->getPanel()->countShown() == 1; });
  script.step(
      "the document being there again", [this] { return document() != nullptr; },
      [this] {
        takeScreenshot("road-5-opened-again");
        EXPECT_EQ(itemCell(DocumentItemTable::QUANTITY), "3");
        EXPECT_THAT(itemCell(DocumentItemTable::ATTACHED_DATA),
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
    goTo(1, 1);
    atItemData("delete a row", [] { typeKey("Delete"); });
    script.step(
        "the row being gone", [=] { return unitTable()->getNumRows() == rows - 1; }, [] {});
  }
  finishItemData("road-7-one-piece");

  const auto item = [] { return dialogOf<ItemDialog>(); };
  atDocument("change the item", [] { typeKey("F2"); });
  at(
      "type the new quantity", item,
      [] {
        typeKey("a", kCtrl);
        typeKey("1");
      },
      [=] { return item()->getQuantityField()->hasFocus(); });
  at(
      "accept the changed item", item, [] { typeKey("Return"); },
      [=] { return item()->getQuantityField()->getText() == "1"; });
  script.step(
      "the changed item", [this] { return document() && itemCell(DocumentItemTable::QUANTITY) == "1"; },
      [this] {
        EXPECT_EQ(document()->getMessagePanel()->getNumErrors(), 0);
        EXPECT_THAT(itemCell(DocumentItemTable::ATTACHED_DATA), AllOf(HasSubstr("SN1001"), Not(HasSubstr("SN1002"))));
      });
}

TEST_F(InvoiceRoad, leadsFromAnEmptyDocumentToWhatIsLeftOfIt) {
  writeInvoice();
  recordItemData();
  repair();
  save();
  script.step(
      "every serial number being stored", [] { return true; },
      [this] {
        for (const char* serial : {"SN1001", "SN1002", "SN1003"}) EXPECT_EQ(countUnits(serial), 1) << serial;
      });
  findAgain();
  closeDocument();

  derive();
  invoiceOnePiece();
  save();
  closeDocument();
  atDocument("close the window of what was derived", [] { typeKey("w", kCtrl); });

  script.step(
      "being back at the first document", [this] { return document() && window->getDocumentWindows().size() == 1; },
      [this] { EXPECT_EQ(itemCell(DocumentItemTable::QUANTITY), "3"); });
  derive();
  script.step(
      "what is left", [this] { return document() != nullptr; },
      [this] {
        takeScreenshot("road-8-rest");
        EXPECT_EQ(itemCell(DocumentItemTable::QUANTITY), "2");
        EXPECT_THAT(itemCell(DocumentItemTable::ATTACHED_DATA), HasSubstr("futár"));
        // The unit that is used up keeps its values and has no quantity.
        EXPECT_EQ(countUnits("SN1001"), 0);
        EXPECT_EQ(countUnits("SN1002"), 1);
        EXPECT_EQ(countUnits("SN1003"), 1);
      });
  walk();
}

}  // namespace
}  // namespace Quillane::Desktop
