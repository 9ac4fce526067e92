// The date input: text, calendar and target kept in step, by messages and without a display.
#include "fxext/FXDateInput.h"

#include <fxkeys.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "fxext/FXDatePicker.h"
#include "fxext/FXDatePickerHoliday.h"
#include "fxext/FXDatePickerLabel.h"
#include "tests/support/RecordingTarget.h"
#include "tests/support/ToolkitApplication.h"

using namespace FX;
using FXExt::FXDateInput;
using FXExt::FXDatePickerHoliday;
using testing::ElementsAre;
using testing::IsEmpty;
using TestSupport::keyEvent;
using TestSupport::RecordingTarget;
using TestSupport::toolkitApplication;
using TestSupport::toText;

namespace {

constexpr FXSelector kMessage = 7;
constexpr FXSelector kPicker = 55;
constexpr FXSelector kField = 56;
constexpr FXSelector kButton = 57;
constexpr FXSelector kSetString = 21;
constexpr FXSelector kGetString = 27;
constexpr FXuint kOptions = 13313;

/// The input with its window flags in sight.
class OpenDateInput : public FXDateInput {
 public:
  using FXDateInput::FXDateInput;
  bool isAskedByTheToolkit() const { return flags & FLAG_UPDATE; }
  bool isDirty() const { return flags & FLAG_DIRTY; }
};

class DateInput : public testing::Test {
 protected:
  DateInput() {
    window = std::make_unique<FXMainWindow>(&toolkitApplication(), "date input");
    input = makeInput(&target, kMessage);
    picker = input->getPicker();
    field = input->getTextField();
  }

  OpenDateInput* makeInput(FXObject* receiver, FXSelector selector, FXDatePickerHoliday* holiday = nullptr) {
    return new OpenDateInput(window.get(), holiday, receiver, selector, kOptions, 0, 0, 0, 0, 2, 2, 2, 2);
  }

  /// A text that is entered as a paste does it: at once and without a key.
  void paste(const FXString& text) {
    field->handle(window.get(), FXSEL(SEL_COMMAND, FXTextField::ID_SELECT_ALL), nullptr);
    field->handle(window.get(), FXSEL(SEL_COMMAND, FXTextField::ID_INSERT_STRING), const_cast<FXchar*>(text.text()));
  }

  long send(FXuint type, FXSelector id, void* data = nullptr) {
    return input->handle(window.get(), FXSEL(type, id), data);
  }

  long sendKey(FXuint type, FXSelector id, FXint code) {
    FXEvent event = keyEvent(code);
    event.type = type;
    return send(type, id, &event);
  }

  long pressInPane(FXint code) { return sendKey(SEL_KEYPRESS, kButton, code); }

  std::string text() const { return field->getText().text(); }
  std::string selected() const { return toText(picker->getSelectedDate()); }

  RecordingTarget target{TestSupport::describeText};
  std::unique_ptr<FXMainWindow> window;
  OpenDateInput* input;  // owned by the window
  FXExt::FXDatePicker* picker;
  FXTextField* field;
};

TEST_F(DateInput, registersUnderItsBareName) {
  EXPECT_STREQ(input->getClassName(), "FXDateInput");
  EXPECT_EQ(FXDateInput::metaClass.getBaseClass(), &FXPacker::metaClass);
}

TEST_F(DateInput, isManufacturedByItsMetaClass) {
  static FXObject* made = nullptr;  // kept for good: the toolkit cannot delete a widget that has no parent
  made = FXDateInput::metaClass.makeInstance();
  auto* bare = dynamic_cast<FXDateInput*>(made);
  ASSERT_NE(bare, nullptr);
  EXPECT_EQ(bare->getPicker(), nullptr);
  EXPECT_EQ(bare->getTextField(), nullptr);
  EXPECT_EQ(bare->getPane(), nullptr);
  EXPECT_EQ(bare->getDropButton(), nullptr);
}

TEST_F(DateInput, startsEmptyAndEnabled) {
  EXPECT_EQ(text(), "");
  EXPECT_TRUE(input->isEnabled());
  EXPECT_TRUE(input->FXWindow::isEnabled());
  EXPECT_FALSE(input->isPaneShown());
  EXPECT_EQ(input->getTarget(), &target);
  EXPECT_EQ(input->getSelector(), kMessage);
  EXPECT_FALSE(input->isAskedByTheToolkit()) << "the text field asks the target instead";
  EXPECT_THAT(target.take(), IsEmpty());
}

TEST_F(DateInput, isBuiltOfAFieldAPaneAndAButton) {
  EXPECT_EQ(input->getFirst(), field);
  EXPECT_EQ(field->getNext(), input->getDropButton());
  EXPECT_EQ(input->getLast(), input->getDropButton());
  EXPECT_EQ(field->getNumColumns(), 10);
  EXPECT_EQ(field->getTarget(), input);
  EXPECT_EQ(field->getSelector(), kField);
  EXPECT_THAT((std::vector<int>{field->getPadLeft(), field->getPadRight(), field->getPadTop(), field->getPadBottom()}),
              ElementsAre(2, 2, 2, 2));
  EXPECT_THAT((std::vector<int>{input->getPadLeft(), input->getPadRight(), input->getPadTop(), input->getPadBottom()}),
              ElementsAre(0, 0, 0, 0));
  EXPECT_EQ(input->getPane()->getFrameStyle(), 0x3000u);
  EXPECT_EQ(picker->getParent(), input->getPane());
  EXPECT_THAT(
      (std::vector<int>{picker->getPadLeft(), picker->getPadRight(), picker->getPadTop(), picker->getPadBottom()}),
      ElementsAre(2, 2, 2, 2));
  FXMenuButton* button = input->getDropButton();
  EXPECT_EQ(button->getText(), "");
  EXPECT_EQ(button->getIcon(), nullptr);
  EXPECT_EQ(button->getMenu(), input->getPane());
  EXPECT_EQ(button->getFrameStyle() | button->getAttachment(), 0x20006000u);
  EXPECT_EQ(button->getTarget(), input);
  EXPECT_EQ(button->getSelector(), kButton);
  EXPECT_EQ(button->getXOffset(), input->getBorderWidth());
  EXPECT_EQ(button->getYOffset(), input->getBorderWidth());
  EXPECT_EQ(input->getBorderWidth(), 1);
}

TEST_F(DateInput, passesItsPaddingsToTheField) {
  auto* padded = new FXDateInput(window.get(), nullptr, nullptr, 0, 0, 1, 2, 3, 4, 5, 6, 7, 8);
  EXPECT_THAT((std::vector<int>{padded->getX(), padded->getY(), padded->getWidth(), padded->getHeight()}),
              ElementsAre(1, 2, 3, 4));
  const FXTextField* inner = padded->getTextField();
  EXPECT_THAT((std::vector<int>{inner->getPadLeft(), inner->getPadRight(), inner->getPadTop(), inner->getPadBottom()}),
              ElementsAre(5, 6, 7, 8));
}

class CountedHoliday : public FXDatePickerHoliday {
 public:
  explicit CountedHoliday(int* alive) : count(alive) { ++*count; }
  ~CountedHoliday() override { --*count; }
  bool isHoliday(FXDate& date) override { return date.day() == 15; }

 private:
  int* count;
};

TEST_F(DateInput, takesPaneAndHolidayObjectWithIt) {
  const FXint before = toolkitApplication().getRootWindow()->numChildren();
  int holidays = 0;
  OpenDateInput* other = makeInput(nullptr, 0, new CountedHoliday(&holidays));
  other->setValue("2024.05.06", 0);
  EXPECT_EQ(holidays, 1);
  EXPECT_TRUE(other->getPicker()->getCell(16)->showsHoliday());
  EXPECT_EQ(toolkitApplication().getRootWindow()->numChildren(), before + 1);
  delete other;
  EXPECT_EQ(holidays, 0);
  EXPECT_EQ(toolkitApplication().getRootWindow()->numChildren(), before);
}

TEST_F(DateInput, canBeDeletedWhileThePaneIsShown) {
  const FXint before = toolkitApplication().getRootWindow()->numChildren();
  OpenDateInput* other = makeInput(nullptr, 0);
  other->getPane()->show();
  delete other;
  EXPECT_EQ(toolkitApplication().getRootWindow()->numChildren(), before);
  EXPECT_EQ(toolkitApplication().getPopupWindow(), nullptr);
}

TEST_F(DateInput, isAsHighAsItsHighestPart) {
  FXMenuButton* button = input->getDropButton();
  field->setPadTop(40);
  EXPECT_EQ(input->getDefaultHeight(), field->getDefaultHeight() + 2);
  button->setPadTop(50);
  ASSERT_GT(button->getDefaultHeight(), field->getDefaultHeight());
  EXPECT_EQ(input->getDefaultHeight(), button->getDefaultHeight() + 2);
}

TEST_F(DateInput, isAsWideAsAPackerOfItsParts) {
  EXPECT_GT(input->getDefaultWidth(), field->getDefaultWidth());
  EXPECT_EQ(input->getDefaultWidth(), input->FXPacker::getDefaultWidth());
}

TEST_F(DateInput, putsTheButtonRightOfTheField) {
  input->position(10, 20, 200, 30);
  input->layout();
  EXPECT_FALSE(input->isDirty());
  const FXMenuButton* button = input->getDropButton();
  const FXint width = input->getDropButton()->getDefaultWidth();
  EXPECT_THAT((std::vector<int>{field->getX(), field->getY(), field->getWidth(), field->getHeight()}),
              ElementsAre(1, 1, 198 - width, 28));
  EXPECT_THAT((std::vector<int>{button->getX(), button->getY(), button->getWidth(), button->getHeight()}),
              ElementsAre(199 - width, 1, width, 28));
}

TEST_F(DateInput, disablesTheFieldAndHidesTheButton) {
  input->resize(200, 30);
  input->disable();
  EXPECT_FALSE(input->isEnabled());
  EXPECT_FALSE(input->FXWindow::isEnabled());
  EXPECT_FALSE(field->isEnabled());
  EXPECT_FALSE(input->getDropButton()->shown());
  EXPECT_EQ(field->getWidth(), 198 - input->getDropButton()->getDefaultWidth());
  EXPECT_FALSE(input->isDirty());
  input->enable();
  EXPECT_TRUE(input->isEnabled());
  EXPECT_TRUE(input->FXWindow::isEnabled());
  EXPECT_TRUE(field->isEnabled());
  EXPECT_TRUE(input->getDropButton()->shown());
  EXPECT_FALSE(input->isDirty());
}

TEST_F(DateInput, closesThePaneWhenItIsDisabledWithTheFocusElsewhere) {
  input->getPane()->show();
  ASSERT_FALSE(input->inFocusChain());
  input->disable();
  EXPECT_FALSE(input->isPaneShown());
  EXPECT_THAT(target.take(), IsEmpty());
}

TEST_F(DateInput, isDisabledByTheToolkitsMessages) {
  send(SEL_COMMAND, FXWindow::ID_DISABLE);
  EXPECT_FALSE(input->isEnabled());
  send(SEL_COMMAND, FXWindow::ID_ENABLE);
  EXPECT_TRUE(input->isEnabled());
}

TEST_F(DateInput, showsAValueWithPoints) {
  input->setValue("2024-05-06", 0);
  EXPECT_EQ(text(), "2024.05.06");
  EXPECT_EQ(input->getValue('x'), "2024.05.06");
  EXPECT_EQ(selected(), "2024.05.06");
  EXPECT_EQ(toText(picker->getDisplayedDate()), "2024.05.06");
  EXPECT_THAT(target.take(), IsEmpty());
}

TEST_F(DateInput, replacesEveryDashOfAValue) {
  input->setValue("a-b--c", 0);
  EXPECT_EQ(text(), "a.b..c");
}

TEST_F(DateInput, tellsOfAValueWhenAsked) {
  input->setValue("2024-05-06", 1);
  EXPECT_THAT(target.take(), ElementsAre("CHANGED 7 2024.05.06"));
  EXPECT_EQ(target.lastSender, input);
  input->setTarget(nullptr);
  input->setValue("2024-05-07", 1);
  EXPECT_EQ(selected(), "2024.05.07");
  EXPECT_THAT(target.take(), IsEmpty());
}

TEST_F(DateInput, showsADate) {
  input->setDate(FXDate(987, 6, 5));
  EXPECT_EQ(text(), "0987.06.05");
  EXPECT_THAT(target.take(), IsEmpty());
}

struct Entered {
  const char* text;
  const char* selected;  // empty: the calendar stays
};

TEST_F(DateInput, followsWhatIsEntered) {
  const Entered rows[] = {
      {"2024.05.06", "2024.05.06"},
      {"2024.5.6", "2024.05.06"},
      {"2024.02.29", "2024.02.29"},
      {"2024.05.06 and more", "2024.05.06"},
      {"0001.01.01", "0001.01.01"},
      {"2999.12.31", "2999.12.31"},
      {" 2024.05.06", "2024.05.06"},
      {"", ""},
      {"2024", ""},
      {"2024.05", ""},
      {"2024.05.", ""},
      {"no date", ""},
      {"0000.05.06", ""},
      {"3000.05.06", ""},
      {"9999.05.06", ""},
      {"2024.00.06", ""},
      {"2024.05.00", ""},
      {"2024.05.32", ""},
      {"2024.05.99", ""},
      {"-024.05.06", ""},
      {"2024.-5.06", ""},
      {"2024.05.-6", ""},
      {"20240506", ""},
      {"2024/05/06", ""},
      {"12024.05.06", ""},
  };
  for (const Entered& row : rows) {
    picker->setSelectedDate(FXDate(1999, 9, 9));
    field->setText(row.text);
    EXPECT_EQ(send(SEL_CHANGED, kField), 1) << row.text;
    EXPECT_EQ(selected(), *row.selected ? row.selected : "1999.09.09") << row.text;
    EXPECT_EQ(picker->getDisplayedDate(), picker->getSelectedDate()) << row.text;
    EXPECT_EQ(text(), row.text) << "the text stays as it was entered";
  }
  EXPECT_THAT(target.take(), IsEmpty()) << "the target learns of it by the key, not by the change";
}

TEST_F(DateInput, keepsCountingADayBeyondTheMonth) {
  paste("2024.02.30");
  EXPECT_EQ(selected(), "2024.03.01");
  paste("2023.02.31");
  EXPECT_EQ(selected(), "2023.03.03");
  paste("2024.04.31");
  EXPECT_EQ(selected(), "2024.05.01");
}

TEST_F(DateInput, keepsRefusingMonth13WhileMonthsAboveCountAsDecember) {
  paste("2024.05.06");
  paste("2024.13.01");
  EXPECT_EQ(selected(), "2024.05.06");
  paste("2024.14.01");
  EXPECT_EQ(selected(), "2024.12.01");
  paste("2023.99.31");
  EXPECT_EQ(selected(), "2023.12.31");
}

TEST_F(DateInput, isSetByADataTarget) {
  FXString value = "2024-05-06";
  EXPECT_EQ(send(SEL_COMMAND, kSetString, &value), 1);
  EXPECT_EQ(text(), "2024.05.06");
  EXPECT_EQ(selected(), "2024.05.06");
  EXPECT_EQ(value, "2024-05-06");
  EXPECT_THAT(target.take(), IsEmpty());
}

TEST_F(DateInput, isReadByADataTarget) {
  field->setText("2024.05.06");
  FXString value;
  EXPECT_EQ(send(SEL_COMMAND, kGetString, &value), 1);
  EXPECT_EQ(value, "2024.05.06");
}

TEST_F(DateInput, ignoresADataTargetWhileThePaneIsShown) {
  input->setValue("2024.05.06", 0);
  input->getPane()->show();
  ASSERT_TRUE(input->isPaneShown());
  FXString value = "1999.09.09";
  EXPECT_EQ(send(SEL_COMMAND, kSetString, &value), 1);
  EXPECT_EQ(text(), "2024.05.06");
  EXPECT_EQ(selected(), "2024.05.06");
  input->getPane()->hide();
  EXPECT_EQ(send(SEL_COMMAND, kSetString, &value), 1);
  EXPECT_EQ(text(), "1999.09.09");
}

TEST_F(DateInput, asksItsTargetForTheText) {
  EXPECT_EQ(send(SEL_UPDATE, kField), 0) << "not handled by the target";
  EXPECT_THAT(target.take(), ElementsAre("UPDATE 7"));
  EXPECT_EQ(target.lastSender, input);
  target.answered = {SEL_UPDATE};
  EXPECT_EQ(send(SEL_UPDATE, kField), 1);
  target.take();

  input->getPane()->show();
  EXPECT_EQ(send(SEL_UPDATE, kField), 0);
  input->getPane()->hide();
  input->setTarget(nullptr);
  EXPECT_EQ(send(SEL_UPDATE, kField), 0);
  EXPECT_THAT(target.take(), IsEmpty());
}

TEST_F(DateInput, showsAndStoresTheValueOfADataTarget) {
  FXString value = "2024.05.06";
  FXDataTarget data(value);
  OpenDateInput* bound = makeInput(&data, FXDataTarget::ID_VALUE);
  FXTextField* inner = bound->getTextField();
  inner->handle(inner, FXSEL(SEL_UPDATE, 0), nullptr);
  EXPECT_EQ(inner->getText(), "2024.05.06");
  EXPECT_EQ(toText(bound->getPicker()->getSelectedDate()), "2024.05.06");

  TestSupport::pressKey(*inner, KEY_BackSpace, "\b");
  EXPECT_EQ(inner->getText(), "2024.05.0");
  EXPECT_EQ(value, "2024.05.06") << "the press tells of the text before the key";
  FXEvent release = keyEvent(KEY_BackSpace);
  inner->handle(inner, FXSEL(SEL_KEYRELEASE, 0), &release);
  EXPECT_EQ(value, "2024.05.0");
  value = "1999.09.09";
  inner->handle(inner, FXSEL(SEL_UPDATE, 0), nullptr);
  EXPECT_EQ(inner->getText(), "2024.05.0") << "not overwritten while it is being edited";
}

TEST_F(DateInput, keepsTellingTheTextBeforeAPressedKey) {
  field->setText("2024.05.06");
  field->setCursorPos(10);
  TestSupport::pressKey(*field, KEY_BackSpace, "\b");
  EXPECT_EQ(text(), "2024.05.0");
  EXPECT_THAT(target.take(), ElementsAre("CHANGED 7 2024.05.06"));
}

TEST_F(DateInput, tellsItsTextAtEveryKey) {
  field->setText("2024.05.0");
  EXPECT_EQ(sendKey(SEL_KEYPRESS, kField, KEY_6), 0) << "the field takes the key";
  EXPECT_THAT(target.take(), ElementsAre("CHANGED 7 2024.05.0"));
  EXPECT_EQ(target.lastSender, input);
  EXPECT_EQ(sendKey(SEL_KEYRELEASE, kField, KEY_6), 1);
  EXPECT_THAT(target.take(), ElementsAre("CHANGED 7 2024.05.0"));
  input->setTarget(nullptr);
  EXPECT_EQ(sendKey(SEL_KEYPRESS, kField, KEY_6), 0);
  EXPECT_EQ(sendKey(SEL_KEYRELEASE, kField, KEY_6), 1);
  EXPECT_THAT(target.take(), IsEmpty());
}

TEST_F(DateInput, tellsPastedTextWhenTheFocusLeaves) {
  paste("2024.05.06");
  EXPECT_THAT(target.take(), IsEmpty());
  EXPECT_EQ(send(SEL_FOCUSOUT, 0), 1);
  EXPECT_THAT(target.take(), ElementsAre("CHANGED 7 2024.05.06"));
  EXPECT_EQ(send(SEL_FOCUSOUT, 0), 1);
  EXPECT_THAT(target.take(), IsEmpty()) << "once is enough";
}

TEST_F(DateInput, tellsPastedTextBeforeTheTargetCanOverwriteIt) {
  FXString value = "1999.09.09";
  FXDataTarget data(value);
  input->setTarget(&data);
  input->setSelector(FXDataTarget::ID_VALUE);
  paste("2024.05.06");
  field->handle(field, FXSEL(SEL_UPDATE, 0), nullptr);
  EXPECT_EQ(value, "2024.05.06");
  EXPECT_EQ(text(), "2024.05.06");
}

TEST_F(DateInput, tellsNothingWhenTheFocusLeavesATextThatTheTargetKnows) {
  input->setValue("2024-05-06", 0);
  send(SEL_FOCUSOUT, 0);
  EXPECT_THAT(target.take(), IsEmpty()) << "else the value would be rewritten by passing through";
  paste("2024.05.07");
  sendKey(SEL_KEYRELEASE, kField, KEY_v);
  target.take();
  send(SEL_FOCUSOUT, 0);
  EXPECT_THAT(target.take(), IsEmpty());
}

TEST_F(DateInput, forgetsPastedTextWhenAValueOrADateIsSet) {
  paste("2024.05.06");
  input->setValue("2024-05-07", 0);
  send(SEL_FOCUSOUT, 0);
  paste("2024.05.06");
  input->setDate(FXDate(2024, 5, 7));
  send(SEL_FOCUSOUT, 0);
  EXPECT_THAT(target.take(), IsEmpty());
}

TEST_F(DateInput, leavesTheFocusWithoutATarget) {
  input->setTarget(nullptr);
  paste("2024.05.06");
  EXPECT_EQ(send(SEL_FOCUSOUT, 0), 1);
  EXPECT_EQ(text(), "2024.05.06");
}

TEST_F(DateInput, givesTheFocusToTheField) {
  input->setFocus();
  EXPECT_EQ(input->getFocus(), field);
  EXPECT_TRUE(input->inFocusChain());
  input->killFocus();
  EXPECT_EQ(input->getFocus(), nullptr);
  FXEvent event = keyEvent(KEY_Tab);
  EXPECT_EQ(send(SEL_FOCUS_SELF, 0, &event), 1);
  EXPECT_EQ(input->getFocus(), field);
  EXPECT_TRUE(input->inFocusChain());
  input->disable();
  EXPECT_EQ(send(SEL_FOCUS_SELF, 0, &event), 0) << "a disabled field takes no focus";
}

TEST_F(DateInput, takesTheDayThatThePickerReports) {
  picker->setSelectedDate(FXDate(2024, 5, 6));
  input->getPane()->show();
  EXPECT_EQ(send(SEL_LEFTBUTTONPRESS, kPicker), 1);
  EXPECT_FALSE(input->isPaneShown());
  EXPECT_EQ(text(), "2024.05.06");
  EXPECT_THAT(target.take(), ElementsAre("CHANGED 7 2024.05.06"));
  EXPECT_EQ(target.lastSender, input);
  input->setTarget(nullptr);
  EXPECT_EQ(send(SEL_LEFTBUTTONPRESS, kPicker), 1);
  EXPECT_THAT(target.take(), IsEmpty());
}

TEST_F(DateInput, takesAPressedDay) {
  input->setValue("2021.02.14", 0);
  input->getPane()->show();
  FXEvent event{};
  EXPECT_EQ(picker->getCell(0)->handle(window.get(), FXSEL(SEL_LEFTBUTTONPRESS, 0), &event), 1);
  EXPECT_EQ(text(), "2021.02.01");
  EXPECT_FALSE(input->isPaneShown());
  EXPECT_THAT(target.take(), ElementsAre("CHANGED 7 2021.02.01"));
}

TEST_F(DateInput, staysOpenWhenAnEmptyCellIsPressed) {
  input->setValue("2021.02.14", 0);
  input->getPane()->show();
  FXEvent event{};
  EXPECT_EQ(picker->getCell(41)->handle(window.get(), FXSEL(SEL_LEFTBUTTONPRESS, 0), &event), 1);
  EXPECT_EQ(text(), "2021.02.14");
  EXPECT_TRUE(input->isPaneShown());
  EXPECT_THAT(target.take(), IsEmpty());
}

struct Move {
  FXint code;
  FXDate from;
  const char* to;
};

TEST_F(DateInput, movesTheDateByKeysInThePane) {
  const Move moves[] = {
      {KEY_Left, FXDate(2024, 5, 6), "2024.05.05"},
      {KEY_KP_Left, FXDate(2024, 3, 1), "2024.02.29"},
      {KEY_Left, FXDate(2024, 1, 1), "2023.12.31"},
      {KEY_Right, FXDate(2024, 5, 6), "2024.05.07"},
      {KEY_KP_Right, FXDate(2023, 2, 28), "2023.03.01"},
      {KEY_Right, FXDate(2023, 12, 31), "2024.01.01"},
      {KEY_Up, FXDate(2024, 5, 6), "2024.04.29"},
      {KEY_KP_Up, FXDate(2024, 1, 7), "2023.12.31"},
      {KEY_Down, FXDate(2024, 5, 6), "2024.05.13"},
      {KEY_KP_Down, FXDate(2024, 12, 28), "2025.01.04"},
      {KEY_Page_Up, FXDate(2024, 5, 6), "2024.04.06"},
      {KEY_KP_Page_Up, FXDate(2024, 1, 31), "2023.12.31"},
      {KEY_Page_Up, FXDate(2024, 3, 31), "2024.02.29"},
      {KEY_Page_Down, FXDate(2024, 5, 6), "2024.06.06"},
      {KEY_KP_Page_Down, FXDate(2024, 12, 31), "2025.01.31"},
      {KEY_Page_Down, FXDate(2024, 1, 31), "2024.02.29"},
      {KEY_Page_Down, FXDate(2023, 1, 31), "2023.02.28"},
      {KEY_Left, FXDate(1, 1, 1), "0001.01.01"},
      {KEY_Page_Up, FXDate(1, 1, 1), "0001.01.01"},
      {KEY_Right, FXDate(2999, 12, 31), "3000.01.01"},
  };
  input->getPane()->show();
  for (const Move& move : moves) {
    input->setDate(move.from);
    picker->setSelectedDate(move.from);
    EXPECT_EQ(pressInPane(move.code), 1) << move.to;
    EXPECT_EQ(selected(), move.to);
    EXPECT_EQ(toText(picker->getDisplayedDate()), move.to) << "the grid follows";
    EXPECT_EQ(text(), move.to);
    EXPECT_TRUE(input->isPaneShown());
    EXPECT_THAT(target.take(), ElementsAre("KEYPRESS 7 " + std::to_string(move.code)))
        << "nothing is told before the date is accepted";
  }
}

TEST_F(DateInput, acceptsTheDateByReturnInThePane) {
  for (const FXint code : {0xFF0D, 0xFF8D, 0xFE34}) {
    picker->setSelectedDate(FXDate(2024, 5, 6));
    input->getPane()->show();
    input->getDropButton()->setFocus();
    pressInPane(KEY_Right);
    target.take();
    EXPECT_EQ(pressInPane(code), 1);
    EXPECT_FALSE(input->isPaneShown());
    EXPECT_EQ(text(), "2024.05.07");
    EXPECT_EQ(input->getFocus(), field);
    EXPECT_THAT(target.take(), ElementsAre("KEYPRESS 7 " + std::to_string(code), "CHANGED 7 2024.05.07"));
  }
}

TEST_F(DateInput, leavesOtherKeysInThePaneAlone) {
  picker->setSelectedDate(FXDate(2024, 5, 6));
  input->getPane()->show();
  for (const FXint code : {KEY_Home, KEY_End, KEY_space, KEY_Escape, KEY_Tab, KEY_5, KEY_KP_Home, KEY_KP_Begin}) {
    EXPECT_EQ(pressInPane(code), 0) << code;
  }
  EXPECT_EQ(selected(), "2024.05.06");
  EXPECT_EQ(text(), "");
  EXPECT_TRUE(input->isPaneShown());
}

TEST_F(DateInput, leavesKeysInThePaneToATargetThatHandlesThem) {
  picker->setSelectedDate(FXDate(2024, 5, 6));
  input->getPane()->show();
  target.answered = {SEL_KEYPRESS};
  EXPECT_EQ(pressInPane(KEY_Right), 1);
  EXPECT_EQ(pressInPane(KEY_Return), 1);
  EXPECT_EQ(selected(), "2024.05.06");
  EXPECT_TRUE(input->isPaneShown());
  EXPECT_THAT(target.take(), ElementsAre("KEYPRESS 7 65363", "KEYPRESS 7 65293"));
}

TEST_F(DateInput, movesTheDateWithoutATarget) {
  input->setTarget(nullptr);
  picker->setSelectedDate(FXDate(2024, 5, 6));
  input->getPane()->show();
  EXPECT_EQ(pressInPane(KEY_Right), 1);
  EXPECT_EQ(pressInPane(KEY_Return), 1);
  EXPECT_EQ(text(), "2024.05.07");
}

TEST_F(DateInput, actsOnNoPaneKeyWhileThePaneIsClosed) {
  picker->setSelectedDate(FXDate(2024, 5, 6));
  for (const FXint code : {KEY_Right, KEY_Page_Down, KEY_Return}) EXPECT_EQ(pressInPane(code), 0) << code;
  EXPECT_EQ(selected(), "2024.05.06");
  EXPECT_EQ(text(), "");
  EXPECT_THAT(target.take(), IsEmpty());
}

TEST_F(DateInput, tellsPastedTextBeforeTheCalendarReplacesIt) {
  paste("hétfő");
  input->getPane()->show();
  picker->setSelectedDate(FXDate(2024, 5, 6));
  pressInPane(KEY_Right);
  EXPECT_THAT(target.take(), ElementsAre("KEYPRESS 7 65363", "CHANGED 7 hétfő"));
}

TEST_F(DateInput, goesBackToTheTargetsTextWhenNothingWasAccepted) {
  FXString value = "2024.05.06";
  FXDataTarget data(value);
  OpenDateInput* bound = makeInput(&data, FXDataTarget::ID_VALUE);
  FXTextField* inner = bound->getTextField();
  inner->handle(inner, FXSEL(SEL_UPDATE, 0), nullptr);
  bound->getDropButton()->setFocus();  // as a click on it does: the field gets the focus first, and keeps its state
  bound->getPane()->show();
  FXEvent right = keyEvent(KEY_Right);
  bound->handle(bound, FXSEL(SEL_KEYPRESS, kButton), &right);
  ASSERT_EQ(inner->getText(), "2024.05.07");
  bound->getPane()->hide();
  inner->handle(inner, FXSEL(SEL_UPDATE, 0), nullptr);
  EXPECT_EQ(inner->getText(), "2024.05.06");
  EXPECT_EQ(value, "2024.05.06");
}

TEST_F(DateInput, readsTheTargetAgainAfterAClickOnItsButton) {
  FXString value = "2024.05.06";
  FXDataTarget data(value);
  OpenDateInput* bound = makeInput(&data, FXDataTarget::ID_VALUE);
  FXTextField* inner = bound->getTextField();
  bound->getDropButton()->setFocus();
  bound->killFocus();
  bound->handle(bound, FXSEL(SEL_FOCUSOUT, 0), nullptr);
  value = "1999.09.09";
  inner->handle(inner, FXSEL(SEL_UPDATE, 0), nullptr);
  EXPECT_EQ(inner->getText(), "1999.09.09");
}

}  // namespace
