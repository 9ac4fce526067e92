// The list of findings, without a display.
#include "host/desktop/MessageListPanel.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "tests/support/RecordingTarget.h"
#include "tests/support/TestCompany.h"

using namespace FX;

namespace Quillane::Desktop {
namespace {

constexpr FXSelector kSelector = 7;

std::string describeIndex(const void* data) { return std::to_string(reinterpret_cast<FXival>(data)); }

class MessageListPanelTest : public testing::Test {
 protected:
  /// Shows messages with these texts; those that begin with "!" are errors.
  void show(const std::vector<const char*>& texts) {
    std::vector<std::unique_ptr<Message>> owned;
    ListOfMessage messages;
    for (const char* text : texts) {
      const unsigned severity = text[0] == '!' ? Message::ERROR : Message::NOTICE;
      owned.push_back(std::make_unique<Message>("KEY", severity, text, "Számla: Tételek listája\n[101]\n", nullptr,
                                                nullptr, nullptr));
      messages.append(owned.back().get());
    }
    panel.showMessages(messages);
  }

  std::string textAt(int index) { return panel.getList()->getItemText(index).text(); }

  Host::IconSet icons{&testAccount()};
  FXMainWindow window{&testAccount(), "test"};
  TestSupport::RecordingTarget target{describeIndex};
  MessageListPanel& panel = *new MessageListPanel(&window, icons, &target, kSelector);
};

TEST_F(MessageListPanelTest, showsTextAndPlaceWithoutTheKey) {
  show({"!Hiányzik: Gyári szám\n(1. sor)", "Nincs megadva:\tszín"});
  EXPECT_EQ(textAt(0), "!Hiányzik: Gyári szám (1. sor)\tSzámla: Tételek listája [101]");
  EXPECT_EQ(textAt(1), "Nincs megadva: szín\tSzámla: Tételek listája [101]");
  EXPECT_EQ(panel.getList()->getItemMiniIcon(0), icons.get(Host::Icon::ERROR));
  EXPECT_EQ(panel.getList()->getItemMiniIcon(1), icons.get(Host::Icon::NOTICE));
}

TEST_F(MessageListPanelTest, givesTheProblemTheRoomThatItNeeds) {
  const auto widthFor = [this](int length) {
    show({std::string(static_cast<std::size_t>(length), 'x').c_str()});  // one byte is one wide without a display
    panel.getList()->resize(1000, 200);
    panel.layout();
    return panel.getList()->getHeaderSize(0);
  };
  const int half = widthFor(5);
  EXPECT_GE(widthFor(600), 600);
  EXPECT_LT(half, 600);
  EXPECT_LE(widthFor(5000), 1000 - 200) << "the place is named as well";
  EXPECT_EQ(widthFor(5), half);
}

TEST_F(MessageListPanelTest, countsErrorsAndNotices) {
  show({"!a", "b", "!c"});
  EXPECT_EQ(panel.getSummary(), "2 hiba, 1 figyelmeztetés");
  EXPECT_EQ(panel.getNumErrors(), 2);
  show({"!a"});
  EXPECT_EQ(panel.getSummary(), "1 hiba");
  show({"a", "b"});
  EXPECT_EQ(panel.getSummary(), "Nincs hiba, 2 figyelmeztetés");
  show({});
  EXPECT_EQ(panel.getSummary(), "Nincs hiba");
  panel.clearMessages();
  EXPECT_EQ(panel.getSummary(), "");
}

TEST_F(MessageListPanelTest, stepsFromOneToTheNextAndRoundAgain) {
  EXPECT_EQ(panel.stepToNext(), -1);
  show({"!a", "!b", "c"});
  EXPECT_EQ(panel.stepToNext(), 0);
  EXPECT_EQ(panel.stepToNext(), 1);
  EXPECT_EQ(panel.stepToNext(), 2);
  EXPECT_EQ(panel.stepToNext(), 0);
  EXPECT_TRUE(panel.getList()->isItemSelected(0));
}

TEST_F(MessageListPanelTest, goesOnWithWhatTookThePlaceOfARepairedProblem) {
  show({"!a", "!b", "!c"});
  panel.stepToNext();
  show({"!b", "!c"});
  EXPECT_EQ(textAt(panel.stepToNext()).substr(0, 2), "!b");
}

TEST_F(MessageListPanelTest, goesOnBehindAProblemThatIsStillThere) {
  show({"!a", "!b", "!c"});
  panel.stepToNext();
  panel.stepToNext();
  show({"!b", "!c"});
  EXPECT_EQ(textAt(panel.stepToNext()).substr(0, 2), "!c");
}

TEST_F(MessageListPanelTest, beginsAnewWhenTheLastOneWasRepaired) {
  show({"!a", "!b"});
  panel.stepToNext();
  panel.stepToNext();
  show({"!a"});
  EXPECT_EQ(panel.stepToNext(), 0);
}

TEST_F(MessageListPanelTest, staysAtItsPlaceAmongProblemsWithTheSameWords) {
  show({"!same", "!same", "!same", "!same"});
  panel.stepToNext();
  panel.stepToNext();
  panel.stepToNext();
  show({"!same", "!same", "!same", "!same"});
  EXPECT_EQ(panel.stepToNext(), 3);
}

TEST_F(MessageListPanelTest, goesOnFromWhereTheUserClicked) {
  show({"!a", "!b", "!c"});
  panel.getList()->setCurrentItem(1, TRUE);
  EXPECT_EQ(panel.stepToNext(), 2);
}

TEST_F(MessageListPanelTest, tellsItsTargetWhichOneIsPicked) {
  show({"!a", "!b"});
  FXIconList& list = *panel.getList();
  list.handle(&list, FXSEL(SEL_DOUBLECLICKED, 0), reinterpret_cast<void*>(FXival(1)));
  list.handle(&list, FXSEL(SEL_COMMAND, 0), reinterpret_cast<void*>(FXival(1)));  // as Return does after it
  EXPECT_EQ(target.take(), (std::vector<std::string>{"COMMAND 7 1"}));
  list.handle(&list, FXSEL(SEL_DOUBLECLICKED, 0), reinterpret_cast<void*>(FXival(-1)));
  EXPECT_TRUE(target.take().empty());
}

}  // namespace
}  // namespace Quillane::Desktop
