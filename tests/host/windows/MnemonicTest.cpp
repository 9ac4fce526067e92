// Letters to be pressed with Alt.
#include "host/windows/Mnemonic.h"

#include <gtest/gtest.h>

#include "tests/support/ToolkitApplication.h"

using namespace FX;

namespace Quillane::Host {
namespace {

TEST(MnemonicTest, marksTheFirstPlainLetterThatIsFree) {
  std::string used = "e";
  EXPECT_EQ(markMnemonic("Egyéb", used), "E&gyéb");
  EXPECT_EQ(used, "eg");
  EXPECT_EQ(markMnemonic("Úgy 9", used), "Úg&y 9") << "neither a letter with an accent nor a used one";
  EXPECT_EQ(markMnemonic("Egy", used), "Egy") << "nothing is free";
  EXPECT_EQ(used, "egy");
}

TEST(MnemonicTest, findsTheLetterThatIsMarked) {
  EXPECT_EQ(getMnemonics("Bő&Vítmények...\tCtrl+B"), "v");
  EXPECT_EQ(getMnemonics("Ú&j"), "j");
  EXPECT_EQ(getMnemonics("&Új"), "") << "no plain one";
  EXPECT_EQ(getMnemonics("Egy && más"), "");
  EXPECT_EQ(getMnemonics(""), "");
}

TEST(MnemonicTest, findsTheLettersOfAWindow) {
  FXDialogBox window(&TestSupport::toolkitApplication(), "window");
  EXPECT_EQ(getUsedMnemonics(window), "");
  auto* frame = new FXVerticalFrame(&window);
  new FXLabel(frame, "&Név:");
  new FXButton(frame, "O&K");
  EXPECT_EQ(getUsedMnemonics(window), "kn");
}

}  // namespace
}  // namespace Quillane::Host
