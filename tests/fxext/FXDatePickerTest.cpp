// The calendar: what it shows of a month, and how it is paged through.
#include "fxext/FXDatePicker.h"

#include <FXTranslator.h>
#include <fxkeys.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "fxext/FXDatePickerHoliday.h"
#include "fxext/FXDatePickerLabel.h"
#include "tests/support/RecordingTarget.h"
#include "tests/support/ToolkitApplication.h"

using namespace FX;
using FXExt::FXDatePicker;
using FXExt::FXDatePickerHoliday;
using FXExt::FXDatePickerLabel;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using TestSupport::keyEvent;
using TestSupport::RecordingTarget;
using TestSupport::toolkitApplication;
using TestSupport::toText;

namespace {

constexpr FXSelector kMessage = 7;
constexpr FXSelector kPrev = 55;
constexpr FXSelector kNext = 56;
constexpr FXSelector kToday = 57;
constexpr FXSelector kCell = 58;
constexpr FXSelector kYear = 59;
constexpr FXSelector kYearNumber = 60;

class MarkedDay : public FXDatePickerHoliday {
 public:
  MarkedDay(FXDate date, bool* wasDeleted) : marked(date), deleted(wasDeleted) {}
  ~MarkedDay() override { *deleted = true; }
  bool isHoliday(FXDate& date) override { return date == marked; }

 private:
  FXDate marked;
  bool* deleted;
};

class DatePicker : public testing::Test {
 protected:
  DatePicker() {
    window = std::make_unique<FXMainWindow>(&toolkitApplication(), "picker");
    picker = new FXDatePicker(window.get(), nullptr, &target, kMessage, 0, 0, 0, 0, 0, 2, 2, 2, 2);
  }

  long send(FXuint type, FXSelector id, void* data = nullptr) {
    return picker->handle(window.get(), FXSEL(type, id), data);
  }

  std::vector<std::string> cells() const {
    std::vector<std::string> texts;
    texts.reserve(picker->getNumCells());
    for (int index = 0; index < picker->getNumCells(); ++index) {
      texts.emplace_back(picker->getCell(index)->getText().text());
    }
    return texts;
  }

  FXDatePickerLabel* cellOf(int day) const {
    for (int index = 0; index < picker->getNumCells(); ++index) {
      if (picker->getCell(index)->getDay() == day) return picker->getCell(index);
    }
    return nullptr;
  }

  long press(FXDatePickerLabel* cell) {
    FXEvent event{};
    return cell->handle(window.get(), FXSEL(SEL_LEFTBUTTONPRESS, 0), &event);
  }

  std::string selected() const { return toText(picker->getSelectedDate()); }
  std::string displayed() const { return toText(picker->getDisplayedDate()); }

  /// The dates of the cells that are marked as the chosen one.
  std::vector<int> markedDays() const {
    std::vector<int> days;
    for (int index = 0; index < picker->getNumCells(); ++index) {
      if (picker->getCell(index)->showsSelection()) days.push_back(picker->getCell(index)->getDay());
    }
    return days;
  }

  RecordingTarget target{TestSupport::describeDate};
  std::unique_ptr<FXMainWindow> window;
  FXDatePicker* picker;  // owned by the window
};

TEST_F(DatePicker, registersUnderItsBareName) {
  EXPECT_STREQ(picker->getClassName(), "FXDatePicker");
  EXPECT_EQ(FXDatePicker::metaClass.getBaseClass(), &FXVerticalFrame::metaClass);
}

TEST_F(DatePicker, isManufacturedByItsMetaClass) {
  static FXObject* made = nullptr;  // kept for good: the toolkit cannot delete a widget that has no parent
  made = FXDatePicker::metaClass.makeInstance();
  auto* bare = dynamic_cast<FXDatePicker*>(made);
  ASSERT_NE(bare, nullptr);
  EXPECT_EQ(bare->getYearButton(), nullptr);
  EXPECT_EQ(bare->getSelectedCell(), nullptr);
  EXPECT_EQ(bare->getNumCells(), 0);
}

TEST_F(DatePicker, startsWithToday) {
  const std::string today = toText(FXDate::localDate());
  EXPECT_EQ(selected(), today);
  EXPECT_EQ(displayed(), today);
  EXPECT_THAT(markedDays(), ElementsAre(FXDate::localDate().day()));
  ASSERT_NE(picker->getSelectedCell(), nullptr);
  EXPECT_TRUE(picker->getSelectedCell()->showsToday());
  EXPECT_THAT(target.take(), IsEmpty());
}

TEST_F(DatePicker, leavesTheWindowsOwnTargetEmpty) {
  EXPECT_EQ(picker->getTarget(), nullptr);
  EXPECT_EQ(picker->getSelector(), 0u);
}

TEST_F(DatePicker, isBuiltOfAHeaderAndAGrid) {
  auto* header = static_cast<FXVerticalFrame*>(picker->getFirst());
  auto* grid = static_cast<FXMatrix*>(picker->getLast());
  EXPECT_EQ(header->getNext(), grid);
  EXPECT_EQ(header->getFrameStyle() | header->getLayoutHints(), 13312u);
  EXPECT_THAT((std::vector<FXWindow*>{header->getFirst(), header->childAtIndex(1)}),
              ElementsAre(picker->getYearButton(), picker->getYearSpinner()));
  FXWindow* monthRow = header->getLast();
  EXPECT_EQ(header->indexOfChild(monthRow), 2);
  EXPECT_EQ(monthRow->getLayoutHints(), 1024u);
  EXPECT_EQ(monthRow->getWidth(), toolkitApplication().getNormalFont()->getTextWidth("><", 2));
  EXPECT_THAT((std::vector<FXWindow*>{monthRow->getFirst(), monthRow->childAtIndex(1), monthRow->childAtIndex(2)}),
              ElementsAre(picker->getPrevButton(), picker->getMonthLabel(), picker->getNextButton()));
  EXPECT_EQ(grid->getNumColumns(), 7);
  EXPECT_EQ(grid->getNumRows(), 7);
  EXPECT_EQ(grid->getHSpacing(), 1);
  EXPECT_EQ(grid->getVSpacing(), 1);
  EXPECT_EQ(grid->getMatrixStyle() | grid->getLayoutHints(), 132099u);
  EXPECT_EQ(picker->getNumCells(), 42);
  for (int index = 0; index < 42; ++index) {
    EXPECT_EQ(picker->getCell(index)->getParent(), grid);
    EXPECT_EQ(grid->indexOfChild(picker->getCell(index)), 7 + index) << "seven headings, then the cells in order";
    EXPECT_EQ(picker->getCell(index)->getLayoutHints(), 3112u);
  }
}

TEST_F(DatePicker, givesItsPartsTheirMessagesAndOptions) {
  const std::map<FXWindow*, FXSelector> ids = {{picker->getPrevButton(), kPrev},
                                               {picker->getNextButton(), kNext},
                                               {picker->getYearButton(), kYear},
                                               {picker->getYearSpinner(), kYearNumber}};
  for (const auto& [part, id] : ids) {
    EXPECT_EQ(part->getTarget(), picker);
    EXPECT_EQ(part->getSelector(), id);
  }
  const auto* prev = picker->getPrevButton();
  EXPECT_EQ(prev->getArrowStyle() | prev->getFrameStyle() | prev->getLayoutHints(), 0x204800u);
  const auto* next = picker->getNextButton();
  EXPECT_EQ(next->getArrowStyle() | next->getFrameStyle() | next->getLayoutHints(), 0x404804u);
  const auto* year = picker->getYearButton();
  EXPECT_EQ(year->getButtonStyle() | year->getFrameStyle() | year->getLayoutHints(), 0x2000400u);
  EXPECT_EQ(picker->getMonthLabel()->getLayoutHints(), 1024u);
  EXPECT_EQ(picker->getYearSpinner()->getLayoutHints(), 1024u);
  EXPECT_EQ(picker->getYearSpinner()->getNumColumns(), 1);
  EXPECT_FALSE(picker->getYearSpinner()->shown());
  FXint lowest = 0;
  FXint highest = 0;
  picker->getYearSpinner()->getRange(lowest, highest);
  EXPECT_EQ(lowest, 1900);
  EXPECT_EQ(highest, 2900);
}

TEST_F(DatePicker, givesItsPartsTheirPaddingsAndWidths) {
  std::vector<FXLabel*> labels = {picker->getYearButton(), picker->getMonthLabel()};
  const FXWindow* grid = picker->getLast();
  for (int column = 0; column < 7; ++column) labels.push_back(static_cast<FXLabel*>(grid->childAtIndex(column)));
  for (int index = 0; index < 42; ++index) labels.push_back(picker->getCell(index));
  for (const FXLabel* label : labels) {
    EXPECT_THAT(
        (std::vector<int>{label->getPadLeft(), label->getPadRight(), label->getPadTop(), label->getPadBottom()}),
        ElementsAre(2, 2, 2, 2))
        << label->getText().text();
  }
  const auto* field = static_cast<FXTextField*>(picker->getYearSpinner()->getFirst());
  EXPECT_THAT((std::vector<int>{field->getPadLeft(), field->getPadRight(), field->getPadTop(), field->getPadBottom()}),
              ElementsAre(2, 2, 2, 2));
  const auto* monthRow = static_cast<FXHorizontalFrame*>(picker->getMonthLabel()->getParent());
  EXPECT_EQ(monthRow->getHSpacing(), 4);
  EXPECT_EQ(monthRow->getVSpacing(), 4);
  for (int index = 0; index < 42; ++index)
    EXPECT_EQ(picker->getCell(index)->getWidth(), toolkitApplication().getNormalFont()->getTextWidth("30", 2));
}

TEST_F(DatePicker, takesItsColoursFromTheApplication) {
  FXApp& application = toolkitApplication();
  application.setSelMenuBackColor(FXRGB(1, 2, 3));
  application.setSelMenuTextColor(FXRGB(4, 5, 6));
  application.setSelbackColor(FXRGB(7, 8, 9));
  application.setBackColor(FXRGB(250, 251, 252));
  application.setShadowColor(FXRGB(13, 14, 15));
  FXDatePicker other(window.get(), nullptr);
  const FXColor back = FXRGB(1, 2, 3);
  const FXColor text = FXRGB(4, 5, 6);
  EXPECT_EQ(other.getMonthBkColor(), back);
  EXPECT_EQ(other.getYearBkColor(), back);
  EXPECT_EQ(other.getSelectionBkColor(), FXRGB(7, 8, 9));
  EXPECT_EQ(other.getBackColor(), FXRGB(250, 251, 252));
  EXPECT_EQ(other.getLast()->getBackColor(), FXRGB(13, 14, 15)) << "the lines of the grid";
  EXPECT_EQ(other.getFirst()->getBackColor(), back);
  EXPECT_EQ(other.getYearButton()->getBackColor(), back);
  EXPECT_EQ(other.getYearButton()->getTextColor(), text);
  EXPECT_EQ(other.getMonthLabel()->getBackColor(), back);
  EXPECT_EQ(other.getMonthLabel()->getTextColor(), text);
  EXPECT_EQ(other.getMonthLabel()->getParent()->getBackColor(), back);
  for (const FXArrowButton* arrow : {other.getPrevButton(), other.getNextButton()}) {
    EXPECT_EQ(arrow->getBackColor(), back);
    EXPECT_EQ(arrow->getHiliteColor(), back);
    EXPECT_EQ(arrow->getArrowColor(), text);
  }
}

TEST_F(DatePicker, writesYearAndHeadingsBold) {
  const FXFont* font = picker->getYearButton()->getFont();
  EXPECT_EQ(font->getWeight(), 70u);
  EXPECT_EQ(font->getName(), toolkitApplication().getNormalFont()->getName());
  EXPECT_EQ(font->getSize(), toolkitApplication().getNormalFont()->getSize());
  const FXWindow* grid = picker->getLast();
  for (int column = 0; column < 7; ++column) {
    EXPECT_EQ(static_cast<FXLabel*>(grid->childAtIndex(column))->getFont(), font);
  }
}

TEST_F(DatePicker, beginsTheWeekOnMonday) {
  const FXWindow* grid = picker->getLast();
  std::vector<std::string> headings;
  for (int column = 0; column < 7; ++column) {
    auto* heading = static_cast<FXLabel*>(grid->childAtIndex(column));
    headings.emplace_back(heading->getText().text());
    EXPECT_EQ(heading->getLayoutHints(), 256u);
    EXPECT_EQ(heading->getWidth(), 3) << "without a display a text is as wide as its bytes";
  }
  EXPECT_THAT(headings, ElementsAre("Mon", "Tue", "Wed", "Thu", "Fri", "Sat", "Sun"));
}

class HungarianTranslator : public FXTranslator {
 public:
  using FXTranslator::FXTranslator;
  const FXchar* tr(const FXchar*, const FXchar* message, const FXchar*) const override {
    static const std::map<std::string, const char*> words = {
        {"Mon", "H"},   {"Tue", "K"},    {"Wed", "Sze"},   {"Thu", "Cs"},      {"Fri", "P"},
        {"Sat", "Szo"}, {"Sun", "Vas."}, {"May", "május"}, {"June", "június"},
    };
    const auto found = words.find(message);
    return found == words.end() ? message : found->second;
  }
};

TEST_F(DatePicker, translatesTheNamesOfMonthsAndDays) {
  FXApp& application = toolkitApplication();
  FXTranslator* const before = application.getTranslator();
  HungarianTranslator translator(&application);
  application.setTranslator(&translator);
  FXDatePicker translated(window.get(), nullptr);
  translated.setSelectedDate(FXDate(2024, 5, 6));
  EXPECT_EQ(translated.getMonthLabel()->getText(), "május");
  translated.handle(nullptr, FXSEL(SEL_COMMAND, kNext), nullptr);
  EXPECT_EQ(translated.getMonthLabel()->getText(), "június");
  std::vector<std::string> headings;
  for (int column = 0; column < 7; ++column) {
    auto* heading = static_cast<FXLabel*>(translated.getLast()->childAtIndex(column));
    headings.emplace_back(heading->getText().text());
    EXPECT_EQ(heading->getWidth(), 4) << "the widest translated name";
  }
  EXPECT_THAT(headings, ElementsAre("H", "K", "Sze", "Cs", "P", "Szo", "Vas."));
  application.setTranslator(before);
}

TEST_F(DatePicker, showsMonthAndYearOfTheDate) {
  picker->setSelectedDate(FXDate(2024, 5, 6));
  EXPECT_EQ(picker->getMonthLabel()->getText(), "May");
  EXPECT_EQ(picker->getYearButton()->getText(), "2024");
  EXPECT_EQ(picker->getYearSpinner()->getValue(), 2024);
  picker->setSelectedDate(FXDate(987, 12, 31));
  EXPECT_EQ(picker->getMonthLabel()->getText(), "December");
  EXPECT_EQ(picker->getYearButton()->getText(), "0987");
  EXPECT_EQ(picker->getYearSpinner()->getValue(), 1900) << "the first year that the spinner has";
}

TEST_F(DatePicker, putsTheFirstUnderItsWeekday) {
  const struct {
    int year, month, offset;
  } rows[] = {
      {2024, 4, 0},  // Monday
      {2024, 10, 1}, {2024, 5, 2}, {2024, 8, 3},
      {2024, 11, 4}, {2024, 6, 5}, {2024, 9, 6},  // Sunday: the seventh column of the first row
  };
  for (const auto& row : rows) {
    picker->setSelectedDate(FXDate(row.year, row.month, 1));
    EXPECT_EQ(picker->getCell(row.offset)->getText(), "1") << row.month;
    for (int index = 0; index < row.offset; ++index) {
      EXPECT_EQ(picker->getCell(index)->getText(), " ") << row.month;
      EXPECT_FALSE(picker->getCell(index)->showsDay()) << row.month;
    }
  }
}

TEST_F(DatePicker, fillsExactlyFourRowsWithFebruary2021) {
  picker->setSelectedDate(FXDate(2021, 2, 14));
  std::vector<std::string> expected;
  for (int day = 1; day <= 28; ++day) expected.push_back(std::to_string(day));
  expected.resize(42, " ");
  EXPECT_THAT(cells(), ElementsAreArray(expected));
}

TEST_F(DatePicker, needsTheSixthRowWhenALongMonthBeginsOnSunday) {
  picker->setSelectedDate(FXDate(2023, 10, 31));
  EXPECT_EQ(picker->getCell(6)->getText(), "1");
  EXPECT_EQ(picker->getCell(36)->getText(), "31");
  EXPECT_EQ(picker->getCell(37)->getText(), " ");
}

TEST_F(DatePicker, showsEveryDayOfEveryMonthOnce) {
  for (int year : {1, 1600, 1900, 2023, 2024, 2999}) {
    for (int month = 1; month <= 12; ++month) {
      picker->setSelectedDate(FXDate(year, month, 1));
      std::vector<int> days;
      for (int index = 0; index < 42; ++index) {
        if (picker->getCell(index)->showsDay()) days.push_back(picker->getCell(index)->getDay());
      }
      std::vector<int> expected(FXDate(year, month, 1).daysInMonth());
      for (size_t day = 0; day < expected.size(); ++day) expected[day] = static_cast<int>(day) + 1;
      EXPECT_EQ(days, expected) << year << "." << month;
    }
  }
}

TEST_F(DatePicker, marksTheWeekendColumns) {
  picker->setSelectedDate(FXDate(2024, 5, 6));
  for (int index = 0; index < 42; ++index) {
    const FXDatePickerLabel* cell = picker->getCell(index);
    EXPECT_EQ(cell->showsWeekend(), cell->showsDay() && index % 7 >= 5) << index;
  }
}

TEST_F(DatePicker, marksTodayOnly) {
  const FXDate today = FXDate::localDate();
  picker->setSelectedDate(FXDate(today.year(), today.month(), 1));
  for (int index = 0; index < 42; ++index) {
    const FXDatePickerLabel* cell = picker->getCell(index);
    EXPECT_EQ(cell->showsToday(), cell->getDay() == today.day()) << index;
  }
  picker->setSelectedDate(FXDate(today.year() + 1, today.month(), today.day() > 28 ? 28 : today.day()));
  for (int index = 0; index < 42; ++index) EXPECT_FALSE(picker->getCell(index)->showsToday()) << index;
}

TEST_F(DatePicker, asksItsHolidayObjectAndDeletesIt) {
  bool deleted = false;
  {
    FXDatePicker other(window.get(), new MarkedDay(FXDate(2024, 5, 1), &deleted));
    other.setSelectedDate(FXDate(2024, 5, 6));
    for (int index = 0; index < 42; ++index) {
      EXPECT_EQ(other.getCell(index)->showsHoliday(), other.getCell(index)->getDay() == 1) << index;
    }
    EXPECT_FALSE(deleted);
  }
  EXPECT_TRUE(deleted);
}

TEST_F(DatePicker, returnsTheDateThatIsSet) {
  EXPECT_EQ(toText(picker->setSelectedDate(FXDate(2024, 5, 6))), "2024.05.06");
  EXPECT_EQ(selected(), "2024.05.06");
  EXPECT_EQ(displayed(), "2024.05.06");
  EXPECT_THAT(markedDays(), ElementsAre(6));
  EXPECT_EQ(picker->getSelectedCell(), cellOf(6));
  EXPECT_THAT(target.take(), IsEmpty()) << "setting tells nobody";
}

TEST_F(DatePicker, choosesThePressedDay) {
  picker->setSelectedDate(FXDate(2024, 5, 6));
  FXDatePickerLabel* cell = cellOf(17);
  EXPECT_EQ(press(cell), 1);
  EXPECT_EQ(selected(), "2024.05.17");
  EXPECT_EQ(picker->getSelectedCell(), cell);
  EXPECT_THAT(markedDays(), ElementsAre(17));
  EXPECT_THAT(target.take(), ElementsAre("LEFTBUTTONPRESS 7 2024.05.17"));
  EXPECT_EQ(target.lastSender, picker);
  EXPECT_EQ(cellOf(6)->getBackColor(), toolkitApplication().getBackColor()) << "the day chosen before";
}

TEST_F(DatePicker, choosesTheSameDayAgain) {
  picker->setSelectedDate(FXDate(2024, 5, 6));
  EXPECT_EQ(press(cellOf(6)), 1);
  EXPECT_THAT(markedDays(), ElementsAre(6));
  EXPECT_THAT(target.take(), ElementsAre("LEFTBUTTONPRESS 7 2024.05.06"));
}

TEST_F(DatePicker, choosesInTheMonthShown) {
  picker->setSelectedDate(FXDate(2024, 5, 6));
  send(SEL_COMMAND, kNext);
  target.take();
  press(cellOf(30));
  EXPECT_EQ(selected(), "2024.06.30");
  EXPECT_EQ(displayed(), "2024.06.06");
  EXPECT_THAT(markedDays(), ElementsAre(30));
}

TEST_F(DatePicker, ignoresAnEmptyCell) {
  picker->setSelectedDate(FXDate(2024, 5, 6));
  picker->showSpinner();
  EXPECT_EQ(press(picker->getCell(0)), 1);
  EXPECT_EQ(press(picker->getCell(41)), 1);
  EXPECT_EQ(selected(), "2024.05.06");
  EXPECT_THAT(markedDays(), ElementsAre(6));
  EXPECT_TRUE(picker->getYearSpinner()->shown());
  EXPECT_THAT(target.take(), IsEmpty());
}

TEST_F(DatePicker, choosesADayWithoutATarget) {
  FXDatePicker alone(window.get(), nullptr);
  alone.setSelectedDate(FXDate(2021, 2, 1));
  FXEvent event{};
  EXPECT_EQ(alone.getCell(4)->handle(nullptr, FXSEL(SEL_LEFTBUTTONPRESS, 0), &event), 1);
  EXPECT_EQ(toText(alone.getSelectedDate()), "2021.02.05");
  EXPECT_EQ(alone.handle(nullptr, FXSEL(SEL_COMMAND, kNext), nullptr), 0);
  alone.incYear();
  EXPECT_EQ(toText(alone.getDisplayedDate()), "2022.03.01");
}

TEST_F(DatePicker, hidesTheSpinnerWhenADayIsChosen) {
  picker->showSpinner();
  press(cellOf(1));
  EXPECT_FALSE(picker->getYearSpinner()->shown());
  EXPECT_TRUE(picker->getYearButton()->shown());
}

struct Turn {
  FXSelector id;
  FXDate from;
  const char* to;
};

TEST_F(DatePicker, turnsToTheNeighbouringMonths) {
  const Turn turns[] = {
      {kPrev, FXDate(2024, 5, 6), "2024.04.06"},   {kNext, FXDate(2024, 5, 6), "2024.06.06"},
      {kPrev, FXDate(2024, 1, 15), "2023.12.15"},  {kNext, FXDate(2024, 12, 15), "2025.01.15"},
      {kPrev, FXDate(2024, 3, 31), "2024.02.29"},  {kPrev, FXDate(2023, 3, 31), "2023.02.28"},
      {kPrev, FXDate(2023, 3, 28), "2023.02.28"},  {kPrev, FXDate(2023, 3, 27), "2023.02.27"},
      {kNext, FXDate(2024, 1, 31), "2024.02.29"},  {kNext, FXDate(2023, 1, 29), "2023.02.28"},
      {kNext, FXDate(2024, 3, 31), "2024.04.30"},  {kPrev, FXDate(2024, 1, 31), "2023.12.31"},
      {kNext, FXDate(2024, 12, 31), "2025.01.31"},
  };
  for (const Turn& turn : turns) {
    picker->setSelectedDate(turn.from);
    picker->showSpinner();
    send(SEL_COMMAND, turn.id);
    EXPECT_EQ(displayed(), turn.to);
    EXPECT_EQ(selected(), toText(turn.from)) << "the chosen date stays";
    EXPECT_FALSE(picker->getYearSpinner()->shown());
    EXPECT_THAT(target.take(), ElementsAre(std::string("CHANGED 7 ") + turn.to));
    EXPECT_EQ(picker->getMonthLabel()->getText(), FXDate::monthName(picker->getDisplayedDate().month()));
  }
}

TEST_F(DatePicker, staysInTheFirstMonthThatHasADate) {
  picker->setSelectedDate(FXDate(1, 1, 31));
  send(SEL_COMMAND, kPrev);
  EXPECT_EQ(displayed(), "0001.01.31");
}

TEST_F(DatePicker, keepsAnsweringThatItsButtonsWereNotHandled) {
  for (const FXSelector id : {kPrev, kNext, kYear}) {
    picker->setSelectedDate(FXDate(2024, 5, 6));
    EXPECT_EQ(send(SEL_COMMAND, id), 0) << id;
    EXPECT_TRUE(displayed() != "2024.05.06" || picker->getYearSpinner()->shown()) << id;
  }
}

TEST_F(DatePicker, keepsTheSelectedCellWhileAnotherMonthIsShown) {
  picker->setSelectedDate(FXDate(2024, 5, 31));
  FXDatePickerLabel* chosen = picker->getSelectedCell();
  send(SEL_COMMAND, kNext);
  EXPECT_EQ(picker->getSelectedCell(), chosen);
  EXPECT_NE(chosen->getDay(), 31);
}

TEST_F(DatePicker, remembersTheChosenDateWhileOtherMonthsAreShown) {
  picker->setSelectedDate(FXDate(2024, 5, 31));
  FXDatePickerLabel* chosen = picker->getSelectedCell();
  send(SEL_COMMAND, kNext);
  EXPECT_THAT(markedDays(), IsEmpty());
  EXPECT_EQ(chosen->getBackColor(), toolkitApplication().getBackColor()) << "no longer looks chosen";
  send(SEL_COMMAND, kPrev);
  EXPECT_THAT(markedDays(), ElementsAre(31));
}

TEST_F(DatePicker, leavesNoColourInACellThatIsEmptied) {
  picker->setSelectedDate(FXDate(2023, 10, 31));
  FXDatePickerLabel* last = picker->getCell(36);
  ASSERT_TRUE(last->showsSelection());
  send(SEL_COMMAND, kNext);
  EXPECT_FALSE(last->showsDay());
  EXPECT_EQ(last->getBackColor(), toolkitApplication().getBackColor());
}

TEST_F(DatePicker, leavesACellWhiteUntilItShowsADay) {
  toolkitApplication().setBackColor(FXRGB(7, 8, 9));
  FXDatePicker fresh(window.get(), nullptr);
  const FXDate today = FXDate::localDate();
  for (int month = 0; month < 3; ++month) {
    const FXDatePickerLabel* last = fresh.getCell(41);  // no month reaches it
    ASSERT_FALSE(last->showsDay());
    EXPECT_EQ(last->getBackColor(), FXRGB(255, 255, 255)) << month;
    fresh.handle(nullptr, FXSEL(SEL_COMMAND, kNext), nullptr);
  }
  EXPECT_EQ(fresh.getCell(15)->getBackColor(), FXRGB(7, 8, 9)) << "a day takes the application's colour";
  EXPECT_EQ(toText(fresh.getSelectedDate()), toText(today));
}

TEST_F(DatePicker, turnsWithTheWheel) {
  picker->setSelectedDate(FXDate(2024, 3, 31));
  FXEvent event{};
  event.code = 120;  // away from the user
  EXPECT_EQ(send(SEL_MOUSEWHEEL, 0, &event), 0);
  EXPECT_EQ(displayed(), "2024.02.29");
  event.code = -120;
  EXPECT_EQ(send(SEL_MOUSEWHEEL, 0, &event), 0);
  EXPECT_EQ(displayed(), "2024.03.29");
  event.code = 0;
  EXPECT_EQ(send(SEL_MOUSEWHEEL, 0, &event), 0);
  EXPECT_EQ(displayed(), "2024.02.29");
  EXPECT_THAT(target.take(), ElementsAre("CHANGED 7 2024.02.29", "CHANGED 7 2024.03.29", "CHANGED 7 2024.02.29"));
}

TEST_F(DatePicker, goesToTodayByItsCommand) {
  picker->setSelectedDate(FXDate(1999, 5, 6));
  const std::string today = toText(FXDate::localDate());
  EXPECT_EQ(send(SEL_COMMAND, kToday), 1);
  EXPECT_EQ(displayed(), today);
  EXPECT_EQ(selected(), "1999.05.06");
  EXPECT_THAT(target.take(), ElementsAre("CHANGED 7 " + today));
  EXPECT_EQ(target.lastSender, picker);
}

TEST_F(DatePicker, goesToTodayByResetWithoutTelling) {
  picker->setSelectedDate(FXDate(1999, 5, 6));
  picker->reset();
  EXPECT_EQ(displayed(), toText(FXDate::localDate()));
  EXPECT_EQ(selected(), "1999.05.06");
  EXPECT_EQ(picker->getYearButton()->getText(), FXStringFormat("%04d", FXDate::localDate().year()));
  EXPECT_THAT(target.take(), IsEmpty());
}

TEST_F(DatePicker, countsYearsInACircle) {
  const struct {
    int step, from;
    const char* to;
  } rows[] = {
      {+1, 2024, "2025.05.06"}, {+1, 2899, "2900.05.06"}, {+1, 2900, "1900.05.06"},
      {-1, 2024, "2023.05.06"}, {-1, 1901, "1900.05.06"}, {-1, 1900, "2900.05.06"},
  };
  for (const auto& row : rows) {
    picker->setSelectedDate(FXDate(row.from, 5, 6));
    if (row.step > 0) {
      picker->incYear();
    } else {
      picker->decYear();
    }
    EXPECT_EQ(displayed(), row.to);
    EXPECT_EQ(picker->getYearButton()->getText(), FXString(row.to).left(4));
    EXPECT_THAT(target.take(), ElementsAre(std::string("CHANGED 7 ") + row.to));
  }
}

TEST_F(DatePicker, keepsTheLeapDayUnclampedWhenTheYearTurns) {
  picker->setSelectedDate(FXDate(2024, 2, 29));
  picker->incYear();
  EXPECT_EQ(displayed(), "2025.03.01");
  picker->setSelectedDate(FXDate(2024, 2, 29));
  picker->decYear();
  EXPECT_EQ(displayed(), "2023.03.01");
  EXPECT_EQ(picker->getMonthLabel()->getText(), "March");
}

TEST_F(DatePicker, putsTheSpinnerInThePlaceOfTheYear) {
  send(SEL_COMMAND, kYear);
  EXPECT_FALSE(picker->getYearButton()->shown());
  EXPECT_TRUE(picker->getYearSpinner()->shown());
  EXPECT_TRUE(picker->getYearSpinner()->inFocusChain());
  picker->hideSpinner();
  EXPECT_TRUE(picker->getYearButton()->shown());
  EXPECT_FALSE(picker->getYearSpinner()->shown());
}

TEST_F(DatePicker, takesAYearFromTheSpinnerAndKeepsIt) {
  picker->setSelectedDate(FXDate(2024, 5, 6));
  send(SEL_COMMAND, kYear);
  picker->getYearSpinner()->setValue(2030);
  EXPECT_EQ(send(SEL_COMMAND, kYearNumber), 1);
  EXPECT_EQ(displayed(), "2030.05.06");
  EXPECT_EQ(selected(), "2024.05.06");
  EXPECT_TRUE(picker->getYearSpinner()->shown());
  EXPECT_EQ(picker->getYearButton()->getText(), "2030");
  EXPECT_THAT(target.take(), IsEmpty());
}

TEST_F(DatePicker, keepsTheDayOfALeapYearInAYearWithoutIt) {
  picker->setSelectedDate(FXDate(2024, 2, 29));
  picker->getYearSpinner()->setValue(2023);
  EXPECT_EQ(send(SEL_COMMAND, kYearNumber), 1);
  EXPECT_EQ(displayed(), "2023.03.01");
}

TEST_F(DatePicker, takesTheYearOnReturnAndShowsTheButtonAgain) {
  picker->setSelectedDate(FXDate(2024, 5, 6));
  send(SEL_COMMAND, kYear);
  picker->getYearSpinner()->setValue(1956);
  FXEvent event = keyEvent(KEY_Return, "\r");
  EXPECT_EQ(send(SEL_KEYPRESS, kYearNumber, &event), 1);
  EXPECT_EQ(displayed(), "1956.05.06");
  EXPECT_EQ(picker->getYearButton()->getText(), "1956");
  EXPECT_TRUE(picker->getYearButton()->shown());
  EXPECT_FALSE(picker->getYearSpinner()->shown());
}

TEST_F(DatePicker, leavesOtherKeysToTheSpinner) {
  picker->setSelectedDate(FXDate(2024, 5, 6));
  send(SEL_COMMAND, kYear);
  picker->getYearSpinner()->setValue(1956);
  for (const FXint code : {0xFF8D, 0xFF52, 0xFF1B, 0x35, 0xFF0C, 0xFF0E}) {
    FXEvent event = keyEvent(code);
    EXPECT_EQ(send(SEL_KEYPRESS, kYearNumber, &event), 0) << code;
  }
  EXPECT_EQ(displayed(), "2024.05.06");
  EXPECT_TRUE(picker->getYearSpinner()->shown());
}

TEST_F(DatePicker, takesTypedYears) {
  picker->setSelectedDate(FXDate(2024, 5, 6));
  send(SEL_COMMAND, kYear);
  FXSpinner* spinner = picker->getYearSpinner();
  for (const char* digit : {"1", "9", "8", "9"}) TestSupport::pressKey(*spinner, digit[0], digit);
  EXPECT_EQ(displayed(), "2024.05.06") << "not before Return";
  EXPECT_EQ(TestSupport::pressKey(*spinner, KEY_Return, "\r"), 1);
  EXPECT_EQ(displayed(), "1989.05.06");
}

TEST_F(DatePicker, putsATypedYearIntoTheSpinnersRange) {
  picker->setSelectedDate(FXDate(2024, 5, 6));
  FXSpinner* spinner = picker->getYearSpinner();
  for (const auto& [typed, taken] : {std::pair{"1848", "1900"}, std::pair{"9999", "2900"}}) {
    send(SEL_COMMAND, kYear);
    for (const char* digit = typed; *digit; ++digit) TestSupport::pressKey(*spinner, *digit, FXString(digit, 1));
    TestSupport::pressKey(*spinner, KEY_Return, "\r");
    EXPECT_EQ(picker->getYearButton()->getText(), taken);
    EXPECT_EQ(static_cast<FXTextField*>(spinner->getFirst())->getText(), taken);
  }
}

TEST_F(DatePicker, takesTheYearsOfTheSpinnersArrows) {
  picker->setSelectedDate(FXDate(2024, 5, 6));
  send(SEL_COMMAND, kYear);
  picker->getYearSpinner()->increment(TRUE);
  EXPECT_EQ(displayed(), "2025.05.06");
  picker->getYearSpinner()->decrement(TRUE);
  picker->getYearSpinner()->decrement(TRUE);
  EXPECT_EQ(displayed(), "2023.05.06");
  EXPECT_TRUE(picker->getYearSpinner()->shown());
}

TEST_F(DatePicker, handsKeysToItsParts) {
  send(SEL_COMMAND, kYear);  // the spinner has the focus
  const FXint year = picker->getYearSpinner()->getValue();
  EXPECT_EQ(TestSupport::pressKey(*picker, KEY_Up), 1);
  EXPECT_EQ(picker->getYearSpinner()->getValue(), year + 1);
  EXPECT_EQ(TestSupport::pressKey(*picker, KEY_F5), 0);
}

TEST_F(DatePicker, leavesTheFocusToItsButtonsOutsideAPopup) {
  picker->getNextButton()->setFocus();
  send(SEL_COMMAND, kNext);
  EXPECT_TRUE(picker->getNextButton()->inFocusChain());
}

TEST_F(DatePicker, givesTheFocusOfItsButtonsUpInAPopup) {
  FXPopup popup(window.get(), FRAME_LINE);
  auto* inside = new FXDatePicker(&popup, nullptr);
  inside->getNextButton()->setFocus();
  ASSERT_EQ(popup.getFocus(), inside);
  inside->handle(nullptr, FXSEL(SEL_COMMAND, kNext), nullptr);
  EXPECT_EQ(popup.getFocus(), nullptr);
}

TEST_F(DatePicker, keepsTheHeadersColourWhenTheYearsIsChanged) {
  FXWindow* header = picker->getYearButton()->getParent();
  const FXColor before = header->getBackColor();
  ASSERT_NE(before, FXRGB(2, 2, 2));
  picker->setYearBkColor(FXRGB(2, 2, 2));
  EXPECT_EQ(header->getBackColor(), before);
  EXPECT_EQ(picker->getMonthLabel()->getParent()->getBackColor(), FXRGB(2, 2, 2));
}

TEST_F(DatePicker, changesItsColours) {
  FXWindow* monthRow = picker->getMonthLabel()->getParent();
  picker->setMonthBkColor(FXRGB(1, 1, 1));
  EXPECT_EQ(picker->getMonthBkColor(), FXRGB(1, 1, 1));
  EXPECT_EQ(monthRow->getBackColor(), FXRGB(1, 1, 1));
  EXPECT_EQ(picker->getMonthLabel()->getBackColor(), FXRGB(1, 1, 1));
  EXPECT_NE(picker->getYearButton()->getBackColor(), FXRGB(1, 1, 1));
  picker->setYearBkColor(FXRGB(2, 2, 2));
  EXPECT_EQ(picker->getYearBkColor(), FXRGB(2, 2, 2));
  EXPECT_EQ(monthRow->getBackColor(), FXRGB(2, 2, 2));
  EXPECT_EQ(picker->getYearButton()->getBackColor(), FXRGB(2, 2, 2));
  EXPECT_EQ(picker->getMonthLabel()->getBackColor(), FXRGB(1, 1, 1));
  picker->setSelectionBkColor(FXRGB(3, 3, 3));
  EXPECT_EQ(picker->getSelectionBkColor(), FXRGB(3, 3, 3));
}

}  // namespace
