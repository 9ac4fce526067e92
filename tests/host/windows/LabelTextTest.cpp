// Texts of users in labels and in message boxes.
#include "host/windows/LabelText.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/ModalDriver.h"
#include "tests/support/ToolkitApplication.h"

using namespace FX;

namespace Quillane::Host {
namespace {

class LabelTextTest : public testing::Test {
 protected:
  LabelTextTest() : window(&TestSupport::toolkitApplication(), "test") {}

  FXMainWindow window;
};

TEST_F(LabelTextTest, isShownAsItIs) {
  for (const char* const text : {"", "Kovács & Társa", "&&", "R&D", "100%", "két\nsor"}) {
    const auto* label = new FXLabel(&window, labelText(text));
    EXPECT_EQ(label->getText(), text);
    EXPECT_EQ(label->getTipText(), "");
  }
  EXPECT_EQ(FXLabel(&window, labelText("a\tb\tc")).getText(), "a b c");
}

TEST_F(LabelTextTest, isBrokenIntoLinesInAMessageBox) {
  const FXString name =
      "Kovács & Társa Kereskedelmi és Szolgáltató Korlátolt Felelősségű Társaság\t, Budapest & Vidéke";
  std::string shown;
  const TestSupport::ModalDriver driver([&shown](FXDialogBox& box) {
    for (FXWindow* child = box.getFirst()->getFirst()->getFirst(); child; child = child->getNext())
      if (const auto* label = dynamic_cast<FXLabel*>(child)) shown += label->getText().text();
    TestSupport::accept(box);
  });
  FXMessageBox::error(&window, MBOX_OK, "Hiba", "%s", messageText(name).text());
  EXPECT_EQ(shown, "Kovács & Társa Kereskedelmi és Szolgáltató Korlátolt Felelősségű Társaság ,\nBudapest & Vidéke");
}

}  // namespace
}  // namespace Quillane::Host
