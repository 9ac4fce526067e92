#include "tests/endtoend/FieldFixture.h"

#include <algorithm>

#include "host/desktop/ArticleListWindow.h"
#include "plugin/contract/Forms.h"
#include "plugin/contract/PluginSettingsDialogBox.h"
#include "tests/support/FakeInput.h"
#include "tests/support/ToolkitApplication.h"

using namespace FX;
using TestSupport::click;
using TestSupport::holdKey;
using TestSupport::isOnScreen;
using TestSupport::typeKey;
using TestSupport::typeText;

namespace Quillane::Desktop {

namespace {

constexpr char kTabName[] = "Tételadatok";

FXTabItem* fieldTab(const FXWindow& articleWindow) {
  for (FXTabItem* tab : findChildren<FXTabItem>(articleWindow))
    if (tab->getText() == kTabName) return tab;
  return nullptr;
}

/// Clicks on an item of the list; with Ctrl the others stay selected.
void clickItem(FXList& list, const std::string& name, bool withCtrl = false) {
  const FXint index = list.findItem(name.c_str());
  ASSERT_GE(index, 0) << name;
  list.makeItemVisible(index);
  if (withCtrl) holdKey(kCtrl, true);
  click(list, 1, list.getItemHeight(index), list.getYPosition() + index * list.getItemHeight(index) + 4);
  if (withCtrl) holdKey(kCtrl, false);
}

std::vector<std::string> selectedTexts(const FXList& list) {
  std::vector<std::string> names;
  for (FXint i = 0; i < list.getNumItems(); ++i)
    if (list.isItemSelected(i)) names.emplace_back(list.getItemText(i).text());
  return names;
}

}  // namespace

// ---- the settings

FXDialogBox* FieldTest::settings() { return dialogOf<Plugin::UI::PluginSettingsDialogBox>(); }

DBTable* FieldTest::settingsTable() { return settings() ? findChild<DBTable>(*settings()) : nullptr; }

int FieldTest::findVariable(const std::string& name) {
  for (FXint row = 0; row < settingsTable()->getNumRows(); ++row)
    if (settingsTable()->getItemText(row, NAME) == name.c_str()) return row;
  return -1;
}

void FieldTest::atSettings(const std::string& what, const Action& action, const Condition& condition) {
  at(
      what, [] { return static_cast<FXTopWindow*>(settings()); }, action, condition);
}

void FieldTest::openSettings() {
  atMain("open the menu of the modules", [] { typeKey("v", kAlt); });
  see(
      "the menu", [this] { return isOnScreen(*window->getPluginMenu()); }, [] { typeKey("e", kAlt); });
  atSettings(
      "begin in the table", [] {}, [] { return settingsTable()->hasFocus(); });
}

void FieldTest::addList(const std::string& name, const std::string& choices) {
  atSettings("add a row", [] { typeKey("Insert"); });
  const auto isIn = [](int column) {
    const DBTable* table = settingsTable();
    return table && !findChild<FXTextField>(*table) && table->isNewRow(table->getCurrentRow()) &&
           table->getCurrentColumn() == column;
  };
  const auto cell = [](int column) { return settingsTable()->getItemText(settingsTable()->getCurrentRow(), column); };
  see("the new row", [=] { return isIn(NAME) && cell(NAME).empty(); });
  atSettings("type its name", [=] {
    typeText(name);
    typeKey("Tab");
  });
  see(
      "the type", [=] { return isIn(TYPE); }, [] { typeKey("l"); });
  see(
      "a list being chosen",
      [] {
        const auto* editor = settingsTable() ? findChild<FXComboBox>(*settingsTable()) : nullptr;
        return editor && editor->getText() == "Lista";
      },
      [] { typeKey("Return"); });
  see(
      "the type being a list",
      [=] { return isIn(TYPE) && !findChild<FXComboBox>(*settingsTable()) && cell(TYPE) == "Lista"; },
      [] { typeKey("Tab"); });
  see(
      "the check box", [=] { return isIn(PER_UNIT); }, [] { typeKey("space"); });
  see(
      "its tick", [] { return settingsTable()->isChecked(settingsTable()->getCurrentRow(), PER_UNIT); },
      [] {
        typeKey("Tab");
        typeKey("Tab");
      });
  see("the cell of the choices", [=] { return isIn(PARAMETER); });
  if (!choices.empty()) typeIntoCell(settingsCells, choices);
}

void FieldTest::goToVariable(const std::string& name) {
  atSettings("go to " + name, [=] {
    for (int row = settingsTable()->getCurrentRow(); row < findVariable(name); ++row) typeKey("Down");
    for (int row = settingsTable()->getCurrentRow(); row > findVariable(name); --row) typeKey("Up");
  });
  see("being at " + name, [=] { return settingsTable()->getCurrentRow() == findVariable(name); });
}

void FieldTest::acceptSettings() {
  atSettings("accept the settings", [] { typeKey("o", kAlt); });
}

void FieldTest::seeMain() {
  see("being back at the main window", [this] { return mainWindow() != nullptr; });
}

// ---- the article

FieldTest::Chooser FieldTest::chooser(const std::string& direction) {
  for (const FXGroupBox* box : findChildren<FXGroupBox>(*dialogOf<ArticleDataWindow>())) {
    if (box->getText() != direction.c_str()) continue;
    const std::vector<FXList*> lists = findChildren<FXList>(*box);
    const std::vector<FXArrowButton*> arrows = findChildren<FXArrowButton>(*box);
    return {lists.at(0), lists.at(1), arrows.at(0), arrows.at(1), arrows.at(2), arrows.at(3)};
  }
  ADD_FAILURE() << "the article's window has no fields for " << direction;
  return {};
}

std::vector<std::string> FieldTest::texts(const FXList& list) {
  std::vector<std::string> names;
  for (FXint i = 0; i < list.getNumItems(); ++i) names.emplace_back(list.getItemText(i).text());
  return names;
}

void FieldTest::openFields(const std::string& product) {
  atMain("open the articles", [] { typeKey("t", kCtrl); });
  atDialog<ArticleListWindow>("type a part of the name", [=] { typeText(product); });
  atDialog<ArticleListWindow>(
      "open the product", [] { typeKey("Return"); },
      [] { return dialogOf<ArticleListWindow>()->getRecordList()->getNumShown() == 1; });
  atDialog<ArticleDataWindow>("go to the fields", [] {
    FXTabItem* tab = fieldTab(*dialogOf<ArticleDataWindow>());
    ASSERT_NE(tab, nullptr);
    click(*tab);
  });
  see("the fields", [] {
    return dialogOf<ArticleDataWindow>() && isOnScreen(*chooser(kIncoming).from) && isOnScreen(*chooser(kOutgoing).to);
  });
}

void FieldTest::selectChosen(const std::string& direction, const std::vector<std::string>& names) {
  for (std::size_t i = 0; i < names.size(); ++i) {
    atDialog<ArticleDataWindow>("click on " + names[i], [=] { clickItem(*chooser(direction).to, names[i], i > 0); });
  }
  see("what is selected", [=] { return selectedTexts(*chooser(direction).to) == names; });
}

void FieldTest::choose(const std::string& direction, const std::string& name) {
  atDialog<ArticleDataWindow>("choose " + name, [=] { clickItem(*chooser(direction).from, name); });
  see(
      name + " being selected",
      [=] { return selectedTexts(*chooser(direction).from) == std::vector<std::string>{name}; },
      [=] { click(*chooser(direction).choose); });
  see(name + " being chosen", [=] { return chooser(direction).to->findItem(name.c_str()) >= 0; });
}

void FieldTest::giveUp(const std::string& direction, const std::string& name) {
  selectChosen(direction, {name});
  then("giving up " + name, [=] { click(*chooser(direction).giveUp); });
  see(name + " being given up", [=] { return chooser(direction).from->findItem(name.c_str()) >= 0; });
}

void FieldTest::clickArrow(const std::string& what, FXArrowButton* Chooser::*arrow, const std::string& direction,
                           const std::vector<std::string>& expected) {
  atDialog<ArticleDataWindow>(what, [=] { click(*(chooser(direction).*arrow)); });
  see(what + " done", [=] { return texts(*chooser(direction).to) == expected; });
}

void FieldTest::acceptArticle() {
  atDialog<ArticleDataWindow>("accept the product", [] { typeKey("o", kAlt); });
}

void FieldTest::cancelArticle() {
  atDialog<ArticleDataWindow>("give up the product", [] { typeKey("Escape"); });
}

void FieldTest::closeArticles() {
  atDialog<ArticleListWindow>("close the articles", [] { typeKey("b", kAlt); });
  seeMain();
}

// ---- what both say

std::string FieldTest::messageText() {
  std::string text;
  if (const auto* box = dialogOf<FXMessageBox>())
    for (const FXLabel* label : findChildren<FXLabel>(*box))
      if (!dynamic_cast<const FXButton*>(label)) text += label->getText().text();
  std::replace(text.begin(), text.end(), '\n', ' ');
  return text;
}

// ---- what is stored

std::vector<std::string> FieldTest::assignments(int product) const {
  return lines(
      "select t_itemvariable_1 || ' ' || position || ' ' || direction from t_productitemdata where t_product_1=" +
      std::to_string(product) + " order by direction, position");
}

int FieldTest::findVariableId(const std::string& name) const {
  return count("select t_itemvariable_id from t_itemvariable where name='" + name + "'");
}

}  // namespace Quillane::Desktop
