// The association panel on a display: variables assigned with real clicks and keys.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <clocale>
#include <memory>

#include "fxext/FXDualList.h"
#include "plugin/contract/Forms.h"
#include "tests/support/FakeInput.h"
#include "tests/support/KeyScript.h"
#include "tests/support/ToolkitApplication.h"
#include "tests/support/WaitCursor.h"
#include "tests/ui/AssociationFixture.h"
#include "tests/ui/DialogFixture.h"
#include "ui/ItemDataAssociationPanel.h"

using namespace FX;
using FXExt::FXDualList;
using testing::ElementsAre;
using TestSupport::click;
using TestSupport::isOnScreen;
using TestSupport::runEvents;
using TestSupport::typeKey;
using TestSupport::waitUntil;

#define EXPECT_SOON(condition) EXPECT_TRUE(waitUntil([&] { return (condition); })) << "never true: " #condition
#define ASSERT_SOON(condition) ASSERT_TRUE(waitUntil([&] { return (condition); })) << "never true: " #condition

namespace Quillane::Plugin::ItemData {
namespace {

class AssociationPanelWindow : public AssociationTest {
 protected:
  void SetUp() override {
    std::setlocale(LC_CTYPE, "C.UTF-8");  // as the programs choose it: without it the display gives no such letters
    ASSERT_TRUE(TestSupport::openToolkitDisplay()) << TestSupport::kNoDisplay;
    windowsBefore = testAccount().getRootWindow()->numChildren();
  }

  void TearDown() override {
    handler.reset();
    place.reset();
    window.reset();
    if (!testAccount().isInitialized()) return;
    runEvents(20);
    EXPECT_EQ(testAccount().getRootWindow()->numChildren(), windowsBefore) << "a window was left behind";
  }

  /// Shows the panel of the product 1 in a window of its own.
  void open() {
    window = makeWindow<ProductDataWindow>(1);
    handler.reset(provider.getHandler(window.get()));
    place = std::make_unique<FXMainWindow>(&testAccount(), "Termék", nullptr, nullptr, DECOR_ALL, 100, 100, 600, 400);
    handler->createGUI(place.get());
    panel = dynamic_cast<UI::ItemDataAssociationPanel*>(place->getFirst());
    ASSERT_NE(panel, nullptr);
    place->create();
    place->show();
    ASSERT_SOON(isOnScreen(*incoming().getFromList()));
    ASSERT_SOON(isOnScreen(*outgoing().getToList()));
    place->setFocus();
    ASSERT_SOON(testAccount().getActiveWindow() == place.get());
    executed();
  }

  FXDualList& incoming() const { return *panel->getIncoming(); }
  FXDualList& outgoing() const { return *panel->getOutgoing(); }

  static FXArrowButton* arrow(const FXDualList& chooser, FXSelector message) {
    for (FXArrowButton* button : widgetsIn<FXArrowButton>(chooser))
      if (button->getSelector() == message) return button;
    return nullptr;
  }

  static void clickItem(const FXList* list, const char* name) {
    const FXint index = list->findItem(name);
    ASSERT_GE(index, 0) << name;
    click(*list, 1, list->getItemHeight(index), list->getYPosition() + index * list->getItemHeight(index) + 4);
  }

  std::unique_ptr<PanelisedWindow> window;
  std::unique_ptr<FXMainWindow> place;
  std::unique_ptr<PanelProvider::Handler> handler;
  UI::ItemDataAssociationPanel* panel = nullptr;  // a child of the place

 private:
  FXint windowsBefore = 0;
};

TEST_F(AssociationPanelWindow, showsTheWaitCursorWhileItReadsAndWrites) {
  TestSupport::WaitCursorLog waits(testAccount());
  db()->setObserver(&waits);
  open();
  EXPECT_THAT(waits.counts, ElementsAre(1, 1)) << "one statement for each direction";
  EXPECT_EQ(TestSupport::getWaitCount(testAccount()), 0u);
  waits.counts.clear();
  choose(incoming(), {"Szín"});
  choose(outgoing(), {"Rendelés"});
  handler->onOKButton(nullptr, FXSEL(SEL_COMMAND, 1), nullptr);
  EXPECT_THAT(waits.counts, ElementsAre(1, 1));
  EXPECT_EQ(TestSupport::getWaitCount(testAccount()), 0u) << "what began has ended";
  db()->setObserver(nullptr);
}

TEST_F(AssociationPanelWindow, assignsByClicks) {
  assign(InvoiceItem::ARTICLE_PRODUCT, 1, 100, {16, 12, 13});
  open();
  clickItem(incoming().getFromList(), "Gyári szám");
  ASSERT_SOON(incoming().getFromList()->getItemText(incoming().getFromList()->getCurrentItem()) == "Gyári szám");
  click(*arrow(incoming(), FXDualList::ID_MAKESELECTED));
  ASSERT_SOON(incoming().getToList()->getNumItems() == 1);
  clickItem(incoming().getFromList(), "Lejárat");
  clickItem(incoming().getFromList(), "Lejárat");
  ASSERT_SOON(incoming().getToList()->getNumItems() == 2);

  clickItem(outgoing().getToList(), "Szín");
  ASSERT_SOON(outgoing().getToList()->isItemSelected(2));
  click(*arrow(outgoing(), FXDualList::ID_MOVEUP));
  ASSERT_SOON(texts(*outgoing().getToList()) == (Lines{"Állapot", "Szín", "Átvéve"}));
  clickItem(outgoing().getToList(), "Állapot");
  ASSERT_SOON(outgoing().getToList()->isItemSelected(0) && !outgoing().getToList()->isItemSelected(1));
  click(*arrow(outgoing(), FXDualList::ID_MAKEUNSELECTED));
  ASSERT_SOON(outgoing().getToList()->getNumItems() == 2);

  handler->onOKButton(nullptr, FXSEL(SEL_COMMAND, 1), nullptr);
  EXPECT_THAT(assignments("product"), ElementsAre("1 14 1 200", "1 15 2 200", "1 13 1 100", "1 12 2 100"));
}

TEST_F(AssociationPanelWindow, isUsedByKeysAlone) {
  open();
  incoming().getFromList()->setFocus();
  typeKey("End");
  typeKey("space");
  ASSERT_SOON(incoming().getFromList()->isItemSelected(5));
  const std::string last = text(incoming().getFromList()->getItemText(5));
  typeKey("Tab");
  ASSERT_SOON(arrow(incoming(), FXDualList::ID_MAKESELECTED)->hasFocus());
  typeKey("space");
  ASSERT_SOON(texts(*incoming().getToList()) == Lines{last});
  for (int i = 0; i < 5; ++i) typeKey("Tab");
  ASSERT_SOON(outgoing().getFromList()->hasFocus());
  typeKey("Home");
  typeKey("space");
  ASSERT_SOON(outgoing().getFromList()->isItemSelected(0));
  typeKey("Tab");
  ASSERT_SOON(arrow(outgoing(), FXDualList::ID_MAKESELECTED)->hasFocus());
  typeKey("space");
  ASSERT_SOON(outgoing().getToList()->getNumItems() == 1);

  handler->onOKButton(nullptr, FXSEL(SEL_COMMAND, 1), nullptr);
  EXPECT_EQ(assignments("product").size(), 2u);
}

TEST_F(AssociationPanelWindow, choosesTheSelectedFieldsByReturn) {
  open();
  incoming().getFromList()->setFocus();
  typeKey("End");
  ASSERT_SOON(incoming().getFromList()->isItemSelected(5));
  const std::string last = text(incoming().getFromList()->getItemText(5));
  typeKey("Return");
  ASSERT_SOON(texts(*incoming().getToList()) == Lines{last});
  incoming().getToList()->setFocus();
  typeKey("Return");
  ASSERT_SOON(incoming().getToList()->getNumItems() == 0);
}

TEST_F(AssociationPanelWindow, explainsItsArrows) {
  open();
  for (const FXDualList* chooser : {&incoming(), &outgoing()}) {
    std::vector<std::string> tips;
    for (FXArrowButton* button : widgetsIn<FXArrowButton>(*chooser)) tips.push_back(text(button->getTipText()));
    EXPECT_THAT(tips, ElementsAre("A kijelölt mezők kiválasztása (Enter)", "A kijelölt mezők elhagyása (Enter)",
                                  "A kijelölt mezők előbbre kerülnek", "A kijelölt mezők hátrébb kerülnek"));
  }
}

TEST_F(AssociationPanelWindow, showsBothChoosersWholeAtItsDefaultSize) {
  assign(InvoiceItem::ARTICLE_PRODUCT, 1, 200, {11, 12, 13});
  assign(InvoiceItem::ARTICLE_PRODUCT, 1, 100, {16});
  open();
  runEvents(50);
  TestSupport::takeScreenshot("association-panel");
  const auto* scroller = dynamic_cast<FXScrollWindow*>(panel->getFirst());
  ASSERT_NE(scroller, nullptr);
  EXPECT_FALSE(scroller->verticalScrollBar()->shown());
  EXPECT_FALSE(scroller->horizontalScrollBar()->shown());
  for (FXLabel* label : widgetsIn<FXLabel>(*panel)) EXPECT_GE(label->getWidth(), label->getDefaultWidth());
  for (FXArrowButton* button : widgetsIn<FXArrowButton>(*panel))
    EXPECT_GE(button->getHeight(), button->getDefaultHeight());
  for (FXList* list : widgetsIn<FXList>(*panel)) {
    EXPECT_LE(list->getContentWidth(), list->getViewportWidth());
    EXPECT_LE(list->getContentHeight(), list->getViewportHeight());
  }
  EXPECT_NEAR(incoming().getHeight(), outgoing().getHeight(), 1) << "both get the same room";
}

TEST_F(AssociationPanelWindow, isStoredWithANewProductByTheProductsOwnWindow) {
  owner->create();
  auto product = makeWindow<ProductDataWindow>(0);
  product->addPanels({&provider});
  product->create();
  product->show(PLACEMENT_SCREEN);
  product->getNameField()->setText("Fűrész");
  product->showTab(1);
  const std::vector<UI::ItemDataAssociationPanel*> panels = widgetsIn<UI::ItemDataAssociationPanel>(*product);
  ASSERT_EQ(panels.size(), 1u);
  panel = panels[0];
  ASSERT_SOON(isOnScreen(*outgoing().getFromList()));
  product->setFocus();
  ASSERT_SOON(testAccount().getActiveWindow() == product.get());
  for (const char* name : {"Szín", "Rendelés"}) {
    clickItem(outgoing().getFromList(), name);
    runEvents(50);
    click(*arrow(outgoing(), FXDualList::ID_MAKESELECTED));
    runEvents(50);
  }
  ASSERT_EQ(texts(*outgoing().getToList()), (Lines{"Szín", "Rendelés"}));
  TestSupport::takeScreenshot("association-panel-of-a-product");
  for (FXList* list : widgetsIn<FXList>(*panel)) {
    EXPECT_LE(list->getContentWidth(), list->getViewportWidth());
    EXPECT_LE(list->getContentHeight(), list->getViewportHeight());
  }

  product->handle(nullptr, FXSEL(SEL_COMMAND, FXDialogBox::ID_ACCEPT), nullptr);
  const int id = product->getRecordId();
  EXPECT_GT(id, 0);
  EXPECT_EQ(query("select name from t_product where t_product_id=" + std::to_string(id)), Lines{"Fűrész"});
  EXPECT_EQ(assignments("product"), (Lines{std::to_string(id) + " 13 1 100", std::to_string(id) + " 11 2 100"}));
}

TEST_F(AssociationPanelWindow, isScrolledWhereItHasNotRoomEnough) {
  open();
  place->resize(400, 120);
  const auto* scroller = dynamic_cast<FXScrollWindow*>(panel->getFirst());
  ASSERT_NE(scroller, nullptr);
  EXPECT_SOON(scroller->verticalScrollBar()->shown());
}

TEST_F(AssociationPanelWindow, isNotFilledAgainWhenItsWindowIsCreatedAgain) {
  assign(InvoiceItem::ARTICLE_PRODUCT, 1, 200, {13});
  open();
  place->create();
  runEvents(50);
  EXPECT_THAT(executed(), testing::IsEmpty());
  EXPECT_EQ(incoming().getFromList()->getNumItems(), 5);
  EXPECT_EQ(incoming().getToList()->getNumItems(), 1);
}

TEST_F(AssociationPanelWindow, paintsItsPicturesAgainAfterItWasDestroyedAndCreatedAgain) {
  open();
  place->hide();
  place->destroy();
  place->create();
  place->show();
  ASSERT_SOON(isOnScreen(*incoming().getFromList()));
  runEvents(50);
  for (FXint i = 0; i < incoming().getFromList()->getNumItems(); ++i)
    EXPECT_NE(incoming().getFromList()->getItemIcon(i)->id(), 0u);
}

}  // namespace
}  // namespace Quillane::Plugin::ItemData
