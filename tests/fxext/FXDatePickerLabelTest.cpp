// One day of the calendar: flags, colours and the press.
#include "fxext/FXDatePickerLabel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "fxext/FXDatePickerHoliday.h"
#include "tests/support/RecordingTarget.h"
#include "tests/support/ToolkitApplication.h"

using namespace FX;
using FXExt::FXDatePickerLabel;
using testing::ElementsAre;
using testing::IsEmpty;
using TestSupport::RecordingTarget;
using TestSupport::toolkitApplication;

namespace {

const FXDate kMonday(2024, 5, 6);
const FXDate kFriday(2024, 5, 10);
const FXDate kSaturday(2024, 5, 11);
const FXDate kSunday(2024, 5, 12);
const FXDate kOtherDay(2000, 1, 1);

constexpr FXColor kRed = FXRGB(255, 0, 0);

/// Every asked date is a holiday, or none.
class FixedHoliday : public FXExt::FXDatePickerHoliday {
 public:
  explicit FixedHoliday(bool answer) : holiday(answer) {}
  bool isHoliday(FXDate& date) override {
    asked.push_back(TestSupport::toText(date));
    return holiday;
  }
  bool holiday;
  std::vector<std::string> asked;
};

class DatePickerLabel : public testing::Test {
 protected:
  DatePickerLabel() : application(toolkitApplication()) {
    application.setSelbackColor(FXRGB(1, 2, 3));
    application.setSelforeColor(FXRGB(4, 5, 6));
    application.setBackColor(FXRGB(7, 8, 9));
    application.setForeColor(FXRGB(10, 11, 12));
    window = std::make_unique<FXMainWindow>(&application, "label");
    label = new FXDatePickerLabel(window.get(), &target, 58, "x");
  }

  FXApp& application;
  RecordingTarget target{TestSupport::describeText};
  std::unique_ptr<FXMainWindow> window;
  FXDatePickerLabel* label;  // owned by the window
};

TEST_F(DatePickerLabel, registersUnderItsBareName) {
  EXPECT_STREQ(label->getClassName(), "FXDatePickerLabel");
  EXPECT_EQ(FXDatePickerLabel::metaClass.getBaseClass(), &FXLabel::metaClass);
}

TEST_F(DatePickerLabel, isManufacturedByItsMetaClass) {
  static FXObject* made = nullptr;  // kept for good: the toolkit cannot delete a widget that has no parent
  made = FXDatePickerLabel::metaClass.makeInstance();
  auto* cell = dynamic_cast<FXDatePickerLabel*>(made);
  ASSERT_NE(cell, nullptr);
  EXPECT_EQ(cell->handle(nullptr, FXSEL(SEL_LEFTBUTTONPRESS, 0), nullptr), 0);
}

TEST_F(DatePickerLabel, startsEmpty) {
  EXPECT_EQ(label->getText(), " ");
  EXPECT_EQ(label->getDay(), -1);
  EXPECT_FALSE(label->showsDay());
  EXPECT_FALSE(label->showsToday());
  EXPECT_FALSE(label->showsHoliday());
  EXPECT_FALSE(label->showsWeekend());
  EXPECT_FALSE(label->showsSelection());
}

TEST_F(DatePickerLabel, leavesTheWindowsOwnTargetEmpty) {
  EXPECT_EQ(label->getTarget(), nullptr);
  EXPECT_EQ(label->getSelector(), 0u);
}

TEST_F(DatePickerLabel, showsTheDayOfTheMonth) {
  label->init(kMonday, kOtherDay, nullptr);
  EXPECT_EQ(label->getText(), "6");
  EXPECT_EQ(label->getDay(), 6);
  EXPECT_TRUE(label->showsDay());
  label->init(FXDate(2024, 12, 31), kOtherDay, nullptr);
  EXPECT_EQ(label->getText(), "31");
}

TEST_F(DatePickerLabel, knowsTodayByTheWholeDate) {
  label->init(kMonday, kMonday, nullptr);
  EXPECT_TRUE(label->showsToday());
  label->init(kMonday, FXDate(2023, 5, 6), nullptr);
  EXPECT_FALSE(label->showsToday());
}

TEST_F(DatePickerLabel, knowsTheWeekend) {
  for (int day = 6; day <= 10; ++day) {
    label->init(FXDate(2024, 5, day), kOtherDay, nullptr);
    EXPECT_FALSE(label->showsWeekend()) << day;
  }
  for (const FXDate& date : {kSaturday, kSunday}) {
    label->init(date, kOtherDay, nullptr);
    EXPECT_TRUE(label->showsWeekend()) << date.day();
  }
}

TEST_F(DatePickerLabel, asksTheHolidayObjectForItsDate) {
  FixedHoliday holiday(true);
  label->init(kMonday, kOtherDay, &holiday);
  EXPECT_TRUE(label->showsHoliday());
  EXPECT_THAT(holiday.asked, ElementsAre("2024.05.06"));
  holiday.holiday = false;
  label->init(kMonday, kOtherDay, &holiday);
  EXPECT_FALSE(label->showsHoliday());
}

TEST_F(DatePickerLabel, losesItsSelectionWithANewDay) {
  label->init(kMonday, kOtherDay, nullptr);
  label->select();
  ASSERT_TRUE(label->showsSelection());
  label->init(kFriday, kOtherDay, nullptr);
  EXPECT_FALSE(label->showsSelection());
}

TEST_F(DatePickerLabel, isEmptiedByReset) {
  FixedHoliday holiday(true);
  label->init(kSunday, kSunday, &holiday);
  label->select();
  label->reset();
  EXPECT_EQ(label->getText(), " ");
  EXPECT_EQ(label->getDay(), -1);
  EXPECT_FALSE(label->showsDay());
  EXPECT_FALSE(label->showsToday());
  EXPECT_FALSE(label->showsHoliday());
  EXPECT_FALSE(label->showsWeekend());
  EXPECT_FALSE(label->showsSelection());
}

TEST_F(DatePickerLabel, takesTheApplicationsSelectionColoursWhenSelected) {
  label->init(kSunday, kOtherDay, nullptr);
  label->select();
  EXPECT_TRUE(label->showsSelection());
  EXPECT_EQ(label->getBackColor(), FXRGB(1, 2, 3));
  EXPECT_EQ(label->getTextColor(), FXRGB(4, 5, 6));
}

TEST_F(DatePickerLabel, takesTheSelectionColoursAtItsConstruction) {
  application.setSelbackColor(FXRGB(99, 99, 99));
  label->select();
  EXPECT_EQ(label->getBackColor(), FXRGB(1, 2, 3));
}

TEST_F(DatePickerLabel, goesBackToTheColoursOfItsDay) {
  FixedHoliday holiday(true);
  struct {
    const char* name;
    FXDate date;
    FixedHoliday* holiday;
    FXColor color;
  } const rows[] = {
      {"weekday", kFriday, nullptr, FXRGB(10, 11, 12)},
      {"Saturday", kSaturday, nullptr, kRed},
      {"Sunday", kSunday, nullptr, kRed},
      {"holiday on a weekday", kFriday, &holiday, label->getHolidayTextColor()},
      {"holiday on a Sunday", kSunday, &holiday, label->getHolidayTextColor()},
  };
  ASSERT_NE(label->getHolidayTextColor(), kRed) << "else nobody would see which one wins";
  for (const auto& row : rows) {
    label->init(row.date, kOtherDay, row.holiday);
    label->select();
    label->deselect();
    EXPECT_FALSE(label->showsSelection()) << row.name;
    EXPECT_EQ(label->getBackColor(), FXRGB(7, 8, 9)) << row.name;
    EXPECT_EQ(label->getTextColor(), row.color) << row.name;
  }
}

TEST_F(DatePickerLabel, sendsAPressToItsTargetWithoutData) {
  for (const FXuint type : {SEL_LEFTBUTTONPRESS, SEL_CLICKED}) {
    FXEvent event{};
    target.answered = {SEL_LEFTBUTTONPRESS};
    EXPECT_EQ(label->handle(window.get(), FXSEL(type, 0), &event), 1);
    EXPECT_THAT(target.take(), ElementsAre("LEFTBUTTONPRESS 58"));
    EXPECT_EQ(target.lastSender, label);
    EXPECT_EQ(target.lastData, nullptr);

    target.answered = {};
    EXPECT_EQ(label->handle(window.get(), FXSEL(type, 0), &event), 0) << "not handled by the target";
    target.take();
  }
}

TEST_F(DatePickerLabel, leavesAPressAloneWithoutATarget) {
  FXDatePickerLabel alone(window.get(), nullptr, 58, "x");
  FXEvent event{};
  EXPECT_EQ(alone.handle(window.get(), FXSEL(SEL_LEFTBUTTONPRESS, 0), &event), 0);
  EXPECT_EQ(alone.handle(window.get(), FXSEL(SEL_CLICKED, 0), &event), 0);
  EXPECT_THAT(target.take(), IsEmpty());
}

}  // namespace
