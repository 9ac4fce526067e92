#include "tests/endtoend/DesktopFixture.h"

#include <stdlib.h>

#include <filesystem>

#include "host/desktop/DocumentItemTable.h"
#include "host/desktop/ItemDialog.h"
#include "host/desktop/PartnerPicker.h"
#include "plugin/contract/Statement.h"
#include "tests/support/FakeInput.h"
#include "tests/support/ToolkitApplication.h"

using namespace FX;
using TestSupport::isOnScreen;
using TestSupport::takeScreenshot;
using TestSupport::typeKey;
using TestSupport::typeText;

namespace Quillane::Desktop {

namespace {

constexpr int kPatience = 120000;  // milliseconds, for all of a road

class LineLoader : public DataBaseValueLoader {
 public:
  bool processValue(int column, const char*, const char* value) override {
    if (column == 0) lines.emplace_back();
    if (column > 0) lines.back() += '|';
    lines.back() += value ? value : "NULL";
    return true;
  }

  std::vector<std::string> lines;
};

bool isEditing(const FXTable& table) { return findChild<FXTextField>(table) || findChild<FXComboBox>(table); }

}  // namespace

void DesktopTest::SetUp() {
  folder = (std::filesystem::temp_directory_path() / "quillane-road-XXXXXX").string();
  ASSERT_TRUE(mkdtemp(folder.data()));
  setenv("HOME", folder.c_str(), 1);  // the settings that the program writes stay there
  testAccount();
  ASSERT_TRUE(TestSupport::openToolkitDisplay()) << TestSupport::kNoDisplay;
  company = std::make_unique<Host::Company>(testAccount(), std::vector<FXString>{QUILLANE_MODULE_FOLDER});
  file = std::make_unique<CompanyFile>(testAccount(), *company);
  icons = std::make_unique<Host::IconSet>(&testAccount());
  window = std::make_unique<MainWindow>(testAccount(), *company, *file, *icons);
  window->create();
  ASSERT_TRUE(window->makeCompany((folder + "/company.db").c_str(), CompanyFile::SAMPLE));
  window->show(PLACEMENT_SCREEN);
}

void DesktopTest::TearDown() {
  if (window) TestSupport::runEvents(20);
  window.reset();
  file.reset();
  company.reset();
  if (!folder.empty()) std::filesystem::remove_all(folder);
}

void DesktopTest::walk() {
  script.start();
  EXPECT_TRUE(TestSupport::waitUntil([this] { return script.isDone() || HasFailure(); }, kPatience));
}

// ---- where the user looks

FXTopWindow* DesktopTest::mainWindow() const { return testAccount().getModalWindow() ? nullptr : window.get(); }

DocumentWindow* DesktopTest::document() const {
  const auto& windows = window->getDocumentWindows();
  return windows.empty() || testAccount().getModalWindow() ? nullptr : windows.back();
}

FXDialogBox* DesktopTest::itemDataDialog() {
  auto* shown = dialogOf<FXDialogBox>();
  return shown && shown->getTitle().find("egyéb tételadatai") >= 0 ? shown : nullptr;
}

FXTable* DesktopTest::unitTable() { return itemDataDialog() ? findChild<FXTable>(*itemDataDialog()) : nullptr; }

std::string DesktopTest::itemCell(int row, int column) const {
  return document()->getItemTable()->getItemText(row, column).text();
}

int DesktopTest::count(const std::string& sql) const { return company->getDatabase().queryScalar(sql.c_str(), 1, -1); }

std::vector<std::string> DesktopTest::lines(const std::string& sql) const {
  LineLoader loader;
  EXPECT_TRUE(Statement(&company->getDatabase(), sql.c_str()).execute(&loader, 0))
      << company->getDatabase().getLastError().text();
  return loader.lines;
}

// ---- what the user does

void DesktopTest::see(const std::string& what, const Condition& condition, const Action& check) {
  script.step(what, condition, check);
}

void DesktopTest::then(const std::string& what, const Action& action) {
  script.step(
      what, [] { return true; }, action);
}

void DesktopTest::at(const std::string& what, const Find& find, const Action& action, const Condition& condition) {
  // Without a window manager nobody else gives a new window the keyboard.
  script.step(
      what + ": the window", [find] { return find() && isOnScreen(*find()); }, [find] { find()->setFocus(); });
  script.step(
      what, [find, condition] { return find() && testAccount().getActiveWindow() == find() && condition(); }, action);
}

void DesktopTest::atMain(const std::string& what, const Action& action, const Condition& condition) {
  at(
      what, [this] { return mainWindow(); }, action, condition);
}

void DesktopTest::atDocument(const std::string& what, const Action& action, const Condition& condition) {
  at(
      what, [this] { return static_cast<FXTopWindow*>(document()); }, action, condition);
}

void DesktopTest::atItemData(const std::string& what, const Action& action, const Condition& condition) {
  at(
      what, [] { return static_cast<FXTopWindow*>(itemDataDialog()); }, action, condition);
}

void DesktopTest::goTo(const FindTable& table, int row, int column) {
  const std::string place = std::to_string(row + 1) + ". row, " + std::to_string(column + 1) + ". column";
  at(
      "go to " + place, [=] { return table() ? dynamic_cast<FXTopWindow*>(table()->getShell()) : nullptr; },
      [=] {
        const auto press = [](const char* key, int times) {
          for (int i = 0; i < times; ++i) typeKey(key);
        };
        press("Down", row - table()->getCurrentRow());
        press("Up", table()->getCurrentRow() - row);
        press("Right", column - table()->getCurrentColumn());
        press("Left", table()->getCurrentColumn() - column);
      },
      [=] { return table()->hasFocus() && !isEditing(*table()) && table()->getNumRows() > row; });
  see("being at " + place,
      [=] { return table() && table()->getCurrentRow() == row && table()->getCurrentColumn() == column; });
}

void DesktopTest::typeIntoCell(const FindTable& table, const std::string& text) {
  see(
      "typing " + text, [=] { return table() && !isEditing(*table()); },
      [=] {
        typeText(text);
        typeKey("Return");
      });
  see("having typed " + text, [=] {
    return table() && !isEditing(*table()) &&
           table()->getItemText(table()->getCurrentRow(), table()->getCurrentColumn()) == text.c_str();
  });
}

void DesktopTest::typeIntoCell(const FindTable& table, int row, int column, const std::string& text) {
  goTo(table, row, column);
  typeIntoCell(table, text);
}

void DesktopTest::sayYes() {
  atDialog<FXMessageBox>("say yes", [] { typeKey("Return"); });
}

void DesktopTest::writeInvoice(const std::string& partner, const std::string& product, const std::string& quantity) {
  atMain("begin a new invoice", [] { typeKey("n", kCtrl); });
  atDocument("ask for the partners", [] { typeKey("F4"); });
  atDialog<PartnerPicker>("type a part of the partner's name", [=] { typeText(partner); });
  atDialog<PartnerPicker>(
      "pick the partner", [] { typeKey("Return"); },
      [] { return dialogOf<PartnerPicker>()->getRecordList()->getNumShown() == 1; });
  addItem(product, quantity);
}

void DesktopTest::addItem(const std::string& product, const std::string& quantity) {
  atDocument("ask for a new item", [] { typeKey("j", kAlt); });
  atDialog<ItemDialog>("type a part of the article's name", [=] { typeText(product); });
  atDialog<ItemDialog>(
      "accept the article", [] { typeKey("Tab"); },
      [] { return dialogOf<ItemDialog>()->getArticleList()->getNumShown() == 1; });
  atDialog<ItemDialog>(
      "type the quantity", [=] { typeText(quantity); },
      [] { return dialogOf<ItemDialog>()->getQuantityField()->hasFocus(); });
  atDialog<ItemDialog>(
      "accept the item",
      [] {
        takeScreenshot("item-dialog");
        typeKey("Return");
      },
      [=] { return dialogOf<ItemDialog>()->getQuantityField()->getText() == quantity.c_str(); });
}

void DesktopTest::save() {
  atDocument(
      "save", [] { typeKey("s", kCtrl); }, [this] { return document()->isChanged(); });
  see("being saved", [this] { return document() && !document()->isChanged() && document()->getDocumentId() > 0; });
}

void DesktopTest::openAgain(const std::string& text) {
  atDocument("close the window", [] { typeKey("w", kCtrl); });
  see("the window being closed", [this] { return window->getDocumentWindows().empty(); });
  findDocument(text);
}

void DesktopTest::findDocument(const std::string& text) {
  atMain("go to the search field", [] { typeKey("f", kCtrl); });
  atMain(
      "search", [=] { typeText(text); }, [this] { return window->getPanel()->getSearchField()->hasFocus(); });
  atMain(
      "open the document that was found", [] { typeKey("Return"); },
      [this] { return window->getPanel()->isSearching() && window->getPanel()->countShown() == 1; });
  see("the document being there", [this] { return document() != nullptr; });
}

}  // namespace Quillane::Desktop
