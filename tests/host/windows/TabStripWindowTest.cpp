// A row of tabs on a display: where the Tab key and the arrows lead.
#include "host/windows/TabStrip.h"

#include <gtest/gtest.h>

#include "tests/fxext/WindowFixture.h"

using namespace FX;
using TestSupport::typeKey;

namespace Quillane::Host {
namespace {

class TabStripWindow : public WindowTest {
 protected:
  void SetUp() override {
    WindowTest::SetUp();
    if (HasFatalFailure()) return;
    above = new FXTextField(form, 10);
    strip = new TabStrip(form, nullptr, 0, TABBOOK_NORMAL | LAYOUT_FILL_X);
    for (FXTabItem*& tab : tabs) tab = new FXTabItem(strip, "a tab");
    below = new FXTextField(form, 10);
    show(above);
  }

  FXTextField* above = nullptr;  // these are owned by the window
  TabStrip* strip = nullptr;
  FXTabItem* tabs[3] = {};
  FXTextField* below = nullptr;
};

TEST_F(TabStripWindow, stopsTheTabKeyAtTheCurrentTabOnly) {
  strip->setCurrent(1);
  typeKey("Tab");
  EXPECT_SOON(tabs[1]->hasFocus());
  typeKey("Tab");
  EXPECT_SOON(below->hasFocus());
  typeKey("Tab", "Shift_L");
  EXPECT_SOON(tabs[1]->hasFocus());
  typeKey("Tab", "Shift_L");
  EXPECT_SOON(above->hasFocus());
  EXPECT_EQ(strip->getCurrent(), 1);
}

TEST_F(TabStripWindow, changesTheCurrentTabWithTheArrows) {
  strip->setCurrent(1);
  tabs[1]->setFocus();
  typeKey("Right");
  EXPECT_SOON(strip->getCurrent() == 2 && tabs[2]->hasFocus());
  typeKey("Left");
  typeKey("Left");
  EXPECT_SOON(strip->getCurrent() == 0 && tabs[0]->hasFocus());
}

}  // namespace
}  // namespace Quillane::Host
