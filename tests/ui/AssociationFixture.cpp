// A company with item variables to be assigned, and a hand on the choosers.
#include "tests/ui/AssociationFixture.h"

#include <algorithm>

#include "fxext/FXDualList.h"

using namespace FX;
using FXExt::FXDualList;

namespace Quillane::Plugin::ItemData {

namespace {

void select(FXList& list, const Lines& names) {
  list.killSelection();
  Lines missing = names;
  for (FXint i = 0; i < list.getNumItems(); ++i) {
    const auto found = std::find(missing.begin(), missing.end(), text(list.getItemText(i)));
    if (found == missing.end()) continue;
    list.selectItem(i);
    missing.erase(found);
  }
  for (const std::string& name : missing) ADD_FAILURE() << "no item " << name;
}

}  // namespace

AssociationTest::AssociationTest()
    : owner(std::make_unique<FXMainWindow>(&testAccount(), "Cikkek")),
      container(&testAccount(), "CodeName", "Név", "1", ""),
      provider(&container) {
  define({{11, "Rendelés"},
          {12, "Átvéve", ItemDataEntry::TYPE_DATE},
          {13, "Szín", ItemDataEntry::TYPE_LIST, 0, 1, "kék,zöld"},
          {14, "Gyári szám", ItemDataEntry::TYPE_TEXT, 1, 0},
          {15, "Lejárat", ItemDataEntry::TYPE_DATE, 1, 0},
          {16, "Állapot", ItemDataEntry::TYPE_LIST, 1, 0, "új,hibás"}});
}

AssociationTest::~AssociationTest() = default;

Lines AssociationTest::assignments(const std::string& kind) {
  return query("select t_" + kind + "_1, t_itemvariable_1, position, direction from t_" + kind +
               "itemdata order by direction desc, t_" + kind + "_1, position");
}

std::string AssociationTest::keyOf(const std::string& kind, int direction, int variable) {
  return query("select t_" + kind + "itemdata_id from t_" + kind + "itemdata where direction=" +
               std::to_string(direction) + " and t_itemvariable_1=" + std::to_string(variable))
      .at(0);
}

Lines texts(const FXList& list) {
  Lines result;
  for (FXint i = 0; i < list.getNumItems(); ++i) result.push_back(text(list.getItemText(i)));
  return result;
}

UI::ItemDataVariable* variableAt(const FXList& list, FXint index) {
  return static_cast<UI::ItemDataVariable*>(list.getItemData(index));
}

void choose(FXDualList& chooser, const Lines& names) {
  select(*chooser.getFromList(), names);
  chooser.handle(nullptr, FXSEL(SEL_COMMAND, FXDualList::ID_MAKESELECTED), nullptr);
}

void giveUp(FXDualList& chooser, const Lines& names) {
  select(*chooser.getToList(), names);
  chooser.handle(nullptr, FXSEL(SEL_COMMAND, FXDualList::ID_MAKEUNSELECTED), nullptr);
}

void moveUp(FXDualList& chooser, const std::string& name) {
  select(*chooser.getToList(), {name});
  chooser.handle(nullptr, FXSEL(SEL_COMMAND, FXDualList::ID_MOVEUP), nullptr);
}

}  // namespace Quillane::Plugin::ItemData
