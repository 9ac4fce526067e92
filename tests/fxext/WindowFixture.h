// A small window on the display, for widgets that are tried out with real keys and clicks.
#pragma once

#include <fx.h>
#include <gtest/gtest.h>

#include <string>

#include "tests/support/FakeInput.h"
#include "tests/support/ToolkitApplication.h"

/// Expects the condition to become true while the application's events run.
#define EXPECT_SOON(condition) \
  EXPECT_TRUE(TestSupport::waitUntil([&] { return (condition); })) << "never true: " #condition
#define ASSERT_SOON(condition) \
  ASSERT_TRUE(TestSupport::waitUntil([&] { return (condition); })) << "never true: " #condition

/// A window with two columns of widgets. What a test puts in is deleted with it, and nothing may be left behind.
class WindowTest : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(TestSupport::openToolkitDisplay()) << TestSupport::kNoDisplay;
    FX::FXApp& application = TestSupport::toolkitApplication();
    windowsBefore = application.getRootWindow()->numChildren();
    window = new FX::FXMainWindow(&application, "test", nullptr, nullptr, FX::DECOR_ALL, 100, 100, 400, 300);
    form = new FX::FXVerticalFrame(window, FX::LAYOUT_FILL_X | FX::LAYOUT_FILL_Y);
  }

  void TearDown() override {
    delete window;
    if (!TestSupport::toolkitApplication().isInitialized()) return;
    TestSupport::runEvents(20);
    EXPECT_EQ(TestSupport::toolkitApplication().getRootWindow()->numChildren(), windowsBefore)
        << "a pop-up was left behind";
    EXPECT_EQ(TestSupport::toolkitApplication().getPopupWindow(), nullptr);
  }

  /// Shows the window with what is in it, gives it the keyboard and the widget the focus.
  void show(FX::FXWindow* focused) {
    window->create();
    window->show();
    ASSERT_SOON(TestSupport::isOnScreen(*focused));
    focused->setFocus();
    ASSERT_SOON(TestSupport::toolkitApplication().getActiveWindow() == window);
  }

  FX::FXMainWindow* window = nullptr;   // owned
  FX::FXVerticalFrame* form = nullptr;  // where the test puts its widgets

 private:
  FX::FXint windowsBefore = 0;
};
