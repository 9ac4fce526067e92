// Pages with tabs on a display: where the Tab key and the arrows lead.
#include "host/windows/TabPages.h"

#include <gtest/gtest.h>

#include "tests/fxext/WindowFixture.h"

using namespace FX;
using TestSupport::typeKey;

namespace Quillane::Host {
namespace {

class TabPagesWindow : public WindowTest {
 protected:
  void SetUp() override {
    WindowTest::SetUp();
    if (HasFatalFailure()) return;
    above = new FXTextField(form, 10);
    pages = new TabPages(form, nullptr, 0, TABBOOK_NORMAL | LAYOUT_FILL_X | LAYOUT_FILL_Y);
    firstTab = new FXTabItem(pages, "&First");
    auto* firstPage = new FXVerticalFrame(pages, LAYOUT_FILL_X | LAYOUT_FILL_Y);
    name = new FXTextField(firstPage, 10);
    price = new FXTextField(firstPage, 10);
    secondTab = new FXTabItem(pages, "&Second");
    auto* secondPage = new FXVerticalFrame(pages, LAYOUT_FILL_X | LAYOUT_FILL_Y);
    list = new FXList(secondPage, nullptr, 0, LAYOUT_FILL_X | LAYOUT_FILL_Y);
    list->appendItem("an item");
    below = new FXTextField(form, 10);
    show(above);
  }

  FXTextField* above = nullptr;  // these are owned by the window
  TabPages* pages = nullptr;
  FXTabItem* firstTab = nullptr;
  FXTabItem* secondTab = nullptr;
  FXTextField* name = nullptr;
  FXTextField* price = nullptr;
  FXList* list = nullptr;
  FXTextField* below = nullptr;
};

TEST_F(TabPagesWindow, leadsTheTabKeyThroughTheShownPageAndOn) {
  for (FXWindow* next : {static_cast<FXWindow*>(firstTab), static_cast<FXWindow*>(name), static_cast<FXWindow*>(price),
                         static_cast<FXWindow*>(below)}) {
    typeKey("Tab");
    EXPECT_SOON(next->hasFocus());
  }
  EXPECT_EQ(pages->getCurrent(), 0);
}

TEST_F(TabPagesWindow, leadsTheTabKeyBackTheSameWay) {
  below->setFocus();
  for (FXWindow* next : {static_cast<FXWindow*>(price), static_cast<FXWindow*>(name), static_cast<FXWindow*>(firstTab),
                         static_cast<FXWindow*>(above)}) {
    typeKey("Tab", "Shift_L");
    EXPECT_SOON(next->hasFocus());
  }
  EXPECT_EQ(pages->getCurrent(), 0);
}

TEST_F(TabPagesWindow, changesThePageWithTheArrowsOnItsTab) {
  typeKey("Tab");
  EXPECT_SOON(firstTab->hasFocus());
  typeKey("Right");
  EXPECT_SOON(secondTab->hasFocus());
  EXPECT_EQ(pages->getCurrent(), 1);
  typeKey("Tab");
  EXPECT_SOON(list->hasFocus());
  typeKey("Tab");
  EXPECT_SOON(below->hasFocus());
  typeKey("Tab", "Shift_L");
  EXPECT_SOON(list->hasFocus());
  typeKey("Tab", "Shift_L");
  EXPECT_SOON(secondTab->hasFocus());
  typeKey("Left");
  EXPECT_SOON(firstTab->hasFocus());
  EXPECT_EQ(pages->getCurrent(), 0);
}

TEST_F(TabPagesWindow, leavesTheArrowsInAPageToThePage) {
  pages->setCurrent(1);
  list->setFocus();
  typeKey("Left");
  typeKey("Right");
  TestSupport::runEvents(50);
  EXPECT_TRUE(list->hasFocus());
  EXPECT_EQ(pages->getCurrent(), 1);
}

TEST_F(TabPagesWindow, changesThePageWithTheLettersOfTheTabs) {
  typeKey("s", "Alt_L");
  EXPECT_SOON(pages->getCurrent() == 1);
  EXPECT_SOON(secondTab->hasFocus());
  typeKey("f", "Alt_L");
  EXPECT_SOON(pages->getCurrent() == 0);
}

}  // namespace
}  // namespace Quillane::Host
