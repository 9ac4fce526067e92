// The date input on a display: focus, pop-up and data target, with real keys and clicks.
#include "fxext/FXDateInput.h"

#include <gtest/gtest.h>

#include "fxext/FXDatePicker.h"
#include "fxext/FXDatePickerLabel.h"
#include "tests/fxext/WindowFixture.h"
#include "tests/support/RecordingTarget.h"

using namespace FX;
using FXExt::FXDateInput;
using FXExt::FXDatePicker;
using FXExt::FXDatePickerLabel;
using TestSupport::click;
using TestSupport::isOnScreen;
using TestSupport::runEvents;
using TestSupport::turnWheel;
using TestSupport::typeKey;
using TestSupport::typeText;

namespace {

constexpr int kMiddle = 2;

/// Reads a pixel of the window back from the display.
bool isBlack(FXWindow& window, FXint x, FXint y) {
  FXImage pixel(window.getApp(), nullptr, 0, 1, 1);
  pixel.create();
  {
    FXDCWindow dc(&pixel);
    dc.drawArea(&window, x, y, 1, 1, 0, 0);
  }
  pixel.restore();
  const FXColor color = pixel.getPixel(0, 0);
  return FXREDVAL(color) == 0 && FXGREENVAL(color) == 0 && FXBLUEVAL(color) == 0;
}

/// A date input between two text fields; the one before it has the focus.
class DateInputWindow : public WindowTest {
 protected:
  void SetUp() override {
    WindowTest::SetUp();
    if (HasFatalFailure()) return;
    before = new FXTextField(form, 10, nullptr, 0, FRAME_LINE | LAYOUT_FILL_X);
    input = new FXDateInput(form, nullptr, &data, FXDataTarget::ID_VALUE, FRAME_LINE | LAYOUT_FILL_X, 0, 0, 0, 0, 2, 2,
                            2, 2);
    after = new FXTextField(form, 10, nullptr, 0, FRAME_LINE | LAYOUT_FILL_X);
    picker = input->getPicker();
    field = input->getTextField();
    value = "2024.09.18";
    show(before);
    ASSERT_SOON(field->getText() == value);
  }

  void openPane() {
    click(*input->getDropButton());
    ASSERT_SOON(isOnScreen(*picker));
  }

  FXDatePickerLabel* cellOf(int day) const {
    for (FXint index = 0; index < picker->getNumCells(); ++index) {
      if (picker->getCell(index)->getDay() == day) return picker->getCell(index);
    }
    return nullptr;
  }

  /// Changes the value behind the input, and has the toolkit ask for it as after any event.
  void change(const FXString& text) {
    value = text;
    TestSupport::toolkitApplication().refresh();
  }

  /// Marks a text in the last field, so that the middle button pastes it elsewhere.
  void mark(const FXString& text) {
    after->setText(text);
    after->setFocus();
    after->setAnchorPos(0);
    after->setCursorPos(text.length());
    after->extendSelection(text.length());
    ASSERT_SOON(after->hasSelection());
  }

  /// Replaces the input's text by a paste with the middle button.
  void paste(const FXString& text) {
    change("");
    ASSERT_SOON(field->getText().empty());
    mark(text);
    click(*field, kMiddle);
    ASSERT_SOON(field->getText() == text);
  }

  std::string selected() const { return TestSupport::toText(picker->getSelectedDate()); }
  std::string displayed() const { return TestSupport::toText(picker->getDisplayedDate()); }

  FXString value;
  FXDataTarget data{value};
  FXTextField* before = nullptr;  // these are owned by the window
  FXDateInput* input = nullptr;
  FXTextField* after = nullptr;
  FXDatePicker* picker = nullptr;
  FXTextField* field = nullptr;
};

TEST_F(DateInputWindow, showsTheValueOfItsTarget) {
  EXPECT_EQ(selected(), "2024.09.18");
  change("1999-09-09");
  EXPECT_SOON(field->getText() == "1999.09.09");
  EXPECT_EQ(selected(), "1999.09.09");
  EXPECT_EQ(value, "1999-09-09") << "showing changes nothing";
}

TEST_F(DateInputWindow, storesWhatIsTyped) {
  click(*field);
  ASSERT_SOON(field->hasFocus());
  typeKey("End");
  for (int backspace = 0; backspace < 5; ++backspace) typeKey("BackSpace");
  EXPECT_SOON(value == "2024.");
  typeText("02.30");
  EXPECT_SOON(value == "2024.02.30");
  EXPECT_EQ(field->getText(), "2024.02.30");
  EXPECT_EQ(selected(), "2024.03.01");
  runEvents(100);
  EXPECT_EQ(field->getText(), "2024.02.30") << "the target does not overwrite what is being edited";
}

TEST_F(DateInputWindow, storesTheLastKeyAlsoWhenItIsReleasedElsewhere) {
  click(*field);
  ASSERT_SOON(field->hasFocus());
  typeKey("End");
  TestSupport::holdKey("7", true);
  EXPECT_SOON(field->getText() == "2024.09.187");
  after->setFocus();
  EXPECT_SOON(value == "2024.09.187");
  TestSupport::holdKey("7", false);
  runEvents(50);
  EXPECT_EQ(value, "2024.09.187");
}

TEST_F(DateInputWindow, isOneStopForTheFocusAndOneForItsButton) {
  typeKey("Tab");
  EXPECT_SOON(field->hasFocus());
  typeKey("Tab");
  EXPECT_SOON(input->getDropButton()->hasFocus());
  EXPECT_FALSE(field->hasFocus());
  typeKey("Tab");
  EXPECT_SOON(after->hasFocus());
  EXPECT_FALSE(input->hasFocus());
  EXPECT_EQ(value, "2024.09.18");
}

TEST_F(DateInputWindow, opensTheCalendarByClickAndClosesItByEscape) {
  openPane();
  EXPECT_TRUE(input->isPaneShown());
  EXPECT_EQ(displayed(), "2024.09.18");
  typeKey("Escape");
  EXPECT_SOON(!input->isPaneShown());
  EXPECT_EQ(value, "2024.09.18");
}

TEST_F(DateInputWindow, leavesNoFocusBehindInTheField) {
  openPane();  // gives the field the focus on the way to the button
  typeKey("Escape");
  EXPECT_SOON(!input->isPaneShown());
  before->setFocus();
  EXPECT_FALSE(field->hasFocus());
  EXPECT_FALSE(input->hasFocus());
  change("1999.09.09");
  EXPECT_SOON(field->getText() == "1999.09.09");
}

TEST_F(DateInputWindow, dropsTheCalendarAtTheButtonsRightEdge) {
  openPane();
  const FXMenuButton* button = input->getDropButton();
  FXint x = 0;
  FXint y = 0;
  button->translateCoordinatesTo(x, y, button->getRoot(), button->getWidth(), button->getHeight());
  EXPECT_EQ(input->getPane()->getX() + input->getPane()->getWidth(), x + 1) << "covers the input's border";
  EXPECT_EQ(input->getPane()->getY(), y + 1);
  typeKey("Escape");
  EXPECT_SOON(!input->isPaneShown());
}

TEST_F(DateInputWindow, opensTheCalendarByTheSpaceBar) {
  typeKey("Tab");
  typeKey("Tab");
  ASSERT_SOON(input->getDropButton()->hasFocus());
  typeKey("space");
  EXPECT_SOON(isOnScreen(*picker));
  typeKey("space");
  EXPECT_SOON(!input->isPaneShown());
}

TEST_F(DateInputWindow, movesByKeysAndAcceptsByReturn) {
  openPane();
  typeKey("Right");
  EXPECT_SOON(field->getText() == "2024.09.19");
  typeKey("Down");
  EXPECT_SOON(field->getText() == "2024.09.26");
  typeKey("Down");
  EXPECT_SOON(field->getText() == "2024.10.03");
  EXPECT_EQ(displayed(), "2024.10.03");
  typeKey("Left");
  EXPECT_SOON(field->getText() == "2024.10.02");
  typeKey("Up");
  EXPECT_SOON(field->getText() == "2024.09.25");
  typeKey("Prior");
  EXPECT_SOON(field->getText() == "2024.08.25");
  typeKey("Next");
  typeKey("Next");
  EXPECT_SOON(field->getText() == "2024.10.25");
  EXPECT_EQ(value, "2024.09.18") << "not before it is accepted";
  typeKey("Return");
  EXPECT_SOON(value == "2024.10.25");
  EXPECT_FALSE(input->isPaneShown());
  EXPECT_SOON(field->hasFocus());
  EXPECT_FALSE(input->getDropButton()->hasFocus());
}

TEST_F(DateInputWindow, goesBackToTheValueWhenNothingIsAccepted) {
  openPane();
  typeKey("Right");
  ASSERT_SOON(field->getText() == "2024.09.19");
  typeKey("Escape");
  EXPECT_SOON(!input->isPaneShown());
  EXPECT_SOON(field->getText() == "2024.09.18");
  EXPECT_EQ(value, "2024.09.18");
}

TEST_F(DateInputWindow, goesBackAlsoAfterTyping) {
  click(*field);
  ASSERT_SOON(field->hasFocus());
  typeKey("End");
  typeKey("BackSpace");
  typeText("7");
  ASSERT_SOON(value == "2024.09.17");
  openPane();
  typeKey("Right");
  ASSERT_SOON(field->getText() == "2024.09.18");
  typeKey("Escape");
  EXPECT_SOON(field->getText() == "2024.09.17");
  EXPECT_EQ(value, "2024.09.17");
}

TEST_F(DateInputWindow, isNotOverwrittenWhileTheCalendarIsShown) {
  openPane();
  change("1999.09.09");
  runEvents(100);
  EXPECT_EQ(field->getText(), "2024.09.18");
  typeKey("Escape");
  EXPECT_SOON(!input->isPaneShown());
  after->setFocus();
  EXPECT_SOON(field->getText() == "1999.09.09");
}

TEST_F(DateInputWindow, takesTheClickedDay) {
  openPane();
  click(*cellOf(3));
  EXPECT_SOON(value == "2024.09.03");
  EXPECT_SOON(!input->isPaneShown());
  EXPECT_EQ(field->getText(), "2024.09.03");
  EXPECT_EQ(selected(), "2024.09.03");
  openPane();
  click(*cellOf(4));
  EXPECT_SOON(value == "2024.09.04") << "opens at the first click again";
}

TEST_F(DateInputWindow, staysOpenWhenAnEmptyCellIsClicked) {
  openPane();
  click(*picker->getCell(0));
  runEvents(100);
  EXPECT_TRUE(input->isPaneShown());
  EXPECT_EQ(value, "2024.09.18");
  typeKey("Escape");
  EXPECT_SOON(!input->isPaneShown());
}

TEST_F(DateInputWindow, closesByAClickElsewhere) {
  openPane();
  click(*before);
  EXPECT_SOON(!input->isPaneShown());
  EXPECT_EQ(value, "2024.09.18");
}

TEST_F(DateInputWindow, movesTheDateByArrowKeysAlsoAfterAClickOnTheMonthsArrows) {
  openPane();
  click(*picker->getNextButton());
  EXPECT_SOON(displayed() == "2024.10.18");
  EXPECT_EQ(selected(), "2024.09.18");
  typeKey("Right");
  EXPECT_SOON(field->getText() == "2024.09.19");
  EXPECT_EQ(displayed(), "2024.09.19") << "the grid goes where the date is";
  click(*picker->getPrevButton());
  EXPECT_SOON(displayed() == "2024.08.19");
  typeKey("Down");
  EXPECT_SOON(field->getText() == "2024.09.26");
  typeKey("Return");
  EXPECT_SOON(value == "2024.09.26");
}

TEST_F(DateInputWindow, takesATypedYear) {
  openPane();
  click(*picker->getYearButton());
  ASSERT_SOON(isOnScreen(*picker->getYearSpinner()));
  EXPECT_SOON(!isOnScreen(*picker->getYearButton()));
  typeText("1989");
  EXPECT_SOON(picker->getYearSpinner()->getValue() == 1989);
  EXPECT_EQ(displayed(), "2024.09.18");
  typeKey("Return");
  EXPECT_SOON(displayed() == "1989.09.18");
  EXPECT_TRUE(picker->getYearButton()->shown());
  EXPECT_FALSE(picker->getYearSpinner()->shown());
  EXPECT_TRUE(input->isPaneShown());
  EXPECT_EQ(value, "2024.09.18");
  click(*cellOf(1));
  EXPECT_SOON(value == "1989.09.01");
}

TEST_F(DateInputWindow, stepsTheYearInTheSpinner) {
  openPane();
  click(*picker->getYearButton());
  ASSERT_SOON(isOnScreen(*picker->getYearSpinner()));
  typeKey("Up");
  EXPECT_SOON(displayed() == "2025.09.18");
  EXPECT_TRUE(picker->getYearSpinner()->shown());
  EXPECT_EQ(field->getText(), "2024.09.18") << "the arrow keys are the spinner's";
  typeKey("Return");
  EXPECT_SOON(picker->getYearButton()->shown());
  typeKey("Down");
  EXPECT_SOON(field->getText() == "2024.09.25");
  typeKey("Escape");
  EXPECT_SOON(!input->isPaneShown());
}

TEST_F(DateInputWindow, turnsTheMonthsWithTheWheel) {
  openPane();
  turnWheel(*cellOf(18), true);
  EXPECT_SOON(displayed() == "2024.08.18");
  turnWheel(*cellOf(18), false);
  EXPECT_SOON(displayed() == "2024.09.18");
  turnWheel(*picker->getMonthLabel(), false);
  EXPECT_SOON(displayed() == "2024.10.18");
  EXPECT_TRUE(input->isPaneShown());
  EXPECT_EQ(value, "2024.09.18");
  typeKey("Escape");
  EXPECT_SOON(!input->isPaneShown());
}

TEST_F(DateInputWindow, storesPastedTextWhenTheFocusMovesOn) {
  paste("2024.05.06");
  EXPECT_EQ(selected(), "2024.05.06");
  EXPECT_EQ(value, "");
  click(*before);
  EXPECT_SOON(value == "2024.05.06");
  runEvents(50);
  EXPECT_EQ(field->getText(), "2024.05.06");
}

TEST_F(DateInputWindow, storesPastedTextWhenTheCalendarIsOpenedAndClosed) {
  paste("2024.05.06");
  openPane();
  typeKey("Escape");
  EXPECT_SOON(!input->isPaneShown());
  EXPECT_SOON(value == "2024.05.06");
  EXPECT_EQ(field->getText(), "2024.05.06");
}

TEST_F(DateInputWindow, storesPastedTextWhenTheFocusMovesToItsButton) {
  paste("2024.05.06");
  input->getDropButton()->setFocus();
  TestSupport::toolkitApplication().refresh();
  EXPECT_SOON(value == "2024.05.06");
  runEvents(50);
  EXPECT_EQ(field->getText(), "2024.05.06");
}

TEST_F(DateInputWindow, storesPastedTextWhenItIsDisabled) {
  paste("2024.05.06");
  input->disable();
  EXPECT_EQ(value, "2024.05.06");
}

TEST_F(DateInputWindow, closesTheCalendarWhenItIsDisabled) {
  openPane();
  input->disable();
  EXPECT_FALSE(input->isPaneShown());
  EXPECT_SOON(!isOnScreen(*input->getDropButton()));
  input->enable();
  EXPECT_SOON(isOnScreen(*input->getDropButton()));
  openPane();
}

TEST_F(DateInputWindow, closesTheCalendarWhenItIsDisabledWithTheFocusElsewhere) {
  input->getDropButton()->handle(window, FXSEL(SEL_COMMAND, FXWindow::ID_POST), nullptr);
  ASSERT_SOON(isOnScreen(*picker));
  ASSERT_TRUE(before->hasFocus());
  input->disable();
  EXPECT_FALSE(input->isPaneShown());
  EXPECT_SOON(!isOnScreen(*picker));
  input->enable();
  ASSERT_SOON(isOnScreen(*input->getDropButton()));
  openPane();  // by the first click
}

TEST_F(DateInputWindow, canBeDeletedWithItsCalendarOpen) {
  openPane();
  delete input;
  input = nullptr;
  EXPECT_EQ(TestSupport::toolkitApplication().getPopupWindow(), nullptr);
  click(*before);
  EXPECT_SOON(before->hasFocus());
}

TEST_F(DateInputWindow, worksAfterBeingDestroyedAndCreatedAgain) {
  openPane();
  typeKey("Escape");
  ASSERT_SOON(!input->isPaneShown());
  input->destroy();
  EXPECT_EQ(field->id(), 0u);
  input->create();
  input->layout();
  ASSERT_SOON(isOnScreen(*field));
  openPane();
  click(*cellOf(3));
  EXPECT_SOON(value == "2024.09.03");
}

TEST_F(DateInputWindow, outlinesTodayInTheCalendar) {
  const FXDate today = FXDate::localDate();
  const FXint otherDay = today.day() == 10 ? 11 : 10;
  const FXint chosenDay = today.day() == 20 ? 21 : 20;
  change(TestSupport::toText(FXDate(today.year(), today.month(), chosenDay)).c_str());
  ASSERT_SOON(field->getText() == value);
  openPane();
  FXDatePickerLabel* marked = cellOf(today.day());
  const FXint right = marked->getWidth() - 2;
  const FXint bottom = marked->getHeight() - 2;
  EXPECT_SOON(isBlack(*marked, 1, 1));
  EXPECT_TRUE(isBlack(*marked, right, 1));
  EXPECT_TRUE(isBlack(*marked, 1, bottom));
  EXPECT_TRUE(isBlack(*marked, right, bottom));
  EXPECT_TRUE(isBlack(*marked, right / 2, 1));
  EXPECT_FALSE(isBlack(*marked, 0, 0));
  EXPECT_FALSE(isBlack(*marked, 2, 2));
  EXPECT_FALSE(isBlack(*cellOf(otherDay), 1, 1));
  typeKey("Escape");
  EXPECT_SOON(!input->isPaneShown());
}

}  // namespace
