#include "host/plugins/Translator.h"

#include <algorithm>
#include <set>
#include <vector>

#include "fxext/FXDatePicker.h"
#include "tests/host/plugins/LanguageFixture.h"
#include "tests/support/ToolkitApplication.h"

using namespace FX;

namespace Quillane::Host {
namespace {

using TestSupport::toolkitApplication;

/// The application's translator, and a window that widgets can be put in.
class TranslatorTest : public LanguageTest {
 protected:
  TranslatorTest() : window(&toolkitApplication(), "test") { Translator::install(toolkitApplication()); }

  std::string translate(const char* message) const { return window.tr(message); }

  FXMainWindow window;
};

/// The texts of the labels (and buttons) in a window.
std::vector<std::string> readLabels(const FXWindow& window) {
  std::vector<std::string> texts;
  for (FXWindow* child = window.getFirst(); child; child = child->getNext()) {
    if (const auto* label = dynamic_cast<FXLabel*>(child)) texts.emplace_back(label->getText().text());
    const std::vector<std::string> inside = readLabels(*child);
    texts.insert(texts.end(), inside.begin(), inside.end());
  }
  return texts;
}

/// All texts in a window: of labels and buttons with their tips and explanations, and of the headings of lists.
std::vector<std::string> readTexts(const FXWindow& window) {
  std::vector<std::string> texts;
  for (FXWindow* child = window.getFirst(); child; child = child->getNext()) {
    if (const auto* label = dynamic_cast<FXLabel*>(child)) {
      for (const FXString& text : {label->getText(), label->getTipText(), label->getHelpText()})
        texts.emplace_back(text.text());
    }
    if (const auto* headings = dynamic_cast<FXHeader*>(child)) {
      for (FXint i = 0; i < headings->getNumItems(); ++i) texts.emplace_back(headings->getItemText(i).text());
    }
    const std::vector<std::string> inside = readTexts(*child);
    texts.insert(texts.end(), inside.begin(), inside.end());
  }
  return texts;
}

TEST_F(TranslatorTest, givesTheToolkitsTextsInTheUsersLanguage) {
  start("hu_HU.UTF-8");
  EXPECT_EQ(translate("&Yes"), "&Igen");
  start("de_DE.UTF-8", "de");
  EXPECT_EQ(translate("&Yes"), "&Ja");
  start("en_US.UTF-8", "en");
  EXPECT_EQ(translate("&Yes"), "&Yes");
}

TEST_F(TranslatorTest, speaksHungarianToEverybodyElse) {
  start("C.UTF-8");
  EXPECT_EQ(translate("&No"), "&Nem");
  start("fr_FR.UTF-8", "fr");
  EXPECT_EQ(translate("&No"), "&Nem");
}

TEST_F(TranslatorTest, leavesTextsAloneThatNoCatalogueHas) {
  start("hu_HU.UTF-8");
  EXPECT_EQ(translate("Gyári szám"), "Gyári szám");
  EXPECT_EQ(translate(""), "");
  EXPECT_EQ(toolkitApplication().getTranslator()->tr("FXWindow", nullptr), nullptr);
}

TEST_F(TranslatorTest, namesTheButtonsOfMessageBoxes) {
  start("hu_HU.UTF-8");
  FXMessageBox question(&window, "Mentés", "Menti a változásokat?", nullptr, MBOX_YES_NO_CANCEL);
  const std::vector<std::string> texts = readLabels(question);
  EXPECT_EQ(std::vector<std::string>(texts.end() - 3, texts.end()), (std::vector<std::string>{"Igen", "Nem", "Mégse"}));
}

TEST_F(TranslatorTest, namesMonthsAndDaysOfTheCalendar) {
  start("hu_HU.UTF-8");
  FXExt::FXDatePicker calendar(&window, nullptr);
  calendar.setSelectedDate(FXDate(2025, 3, 11));
  EXPECT_STREQ(calendar.getMonthLabel()->getText().text(), "március");

  const std::vector<std::string> texts = readLabels(calendar);
  const auto monday = std::find(texts.begin(), texts.end(), "H");
  ASSERT_GE(texts.end() - monday, 7);
  EXPECT_EQ(std::vector<std::string>(monday, monday + 7),
            (std::vector<std::string>{"H", "K", "Sze", "Cs", "P", "Szo", "V"}));
}

TEST_F(TranslatorTest, knowsEveryMonthAndDayThatTheToolkitNames) {
  start("hu_HU.UTF-8");
  for (FXint month = 1; month <= 12; ++month) EXPECT_NE(translate(FXDate::monthName(month)), FXDate::monthName(month));
  for (FXint day = 0; day < 7; ++day) EXPECT_NE(translate(FXDate::dayNameShort(day)), FXDate::dayNameShort(day));
}

TEST_F(TranslatorTest, leavesNothingEnglishInTheFileDialog) {
  start("en_US.UTF-8", "en");
  FXFileDialog english(&window, "");
  english.setDirectory("/");
  start("hu_HU.UTF-8", "hu");
  FXFileDialog hungarian(&window, "");
  hungarian.setDirectory("/");

  const std::vector<std::string> englishTexts = readTexts(english);
  const std::vector<std::string> hungarianTexts = readTexts(hungarian);
  ASSERT_EQ(englishTexts.size(), hungarianTexts.size());
  const std::set<std::string> sameInBoth = {"", "/", "OK"};
  for (std::size_t i = 0; i < englishTexts.size(); ++i) {
    EXPECT_TRUE(englishTexts[i] != hungarianTexts[i] || sameInBoth.count(englishTexts[i])) << englishTexts[i];
  }
}

}  // namespace
}  // namespace Quillane::Host
