// The window of a document on a display, with real keys and clicks.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "host/desktop/DocumentHeadPanel.h"
#include "host/desktop/DocumentItemTable.h"
#include "host/desktop/DocumentWindow.h"
#include "host/desktop/MessageListPanel.h"
#include "host/desktop/PartnerPicker.h"
#include "host/desktop/XmlFile.h"
#include "host/document/DocumentRules.h"
#include "tests/host/desktop/DocumentWindowFixture.h"
#include "tests/support/FakeInput.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/TestCompany.h"
#include "tests/support/ToolkitApplication.h"

using namespace FX;
using testing::ElementsAre;
using testing::HasSubstr;
using TestSupport::click;
using TestSupport::isOnScreen;
using TestSupport::runEvents;
using TestSupport::typeKey;
using TestSupport::typeText;
using TestSupport::waitUntil;

namespace Quillane::Desktop {
namespace {

using Host::DocumentRules;

constexpr int kClosedInvoice = 10;

/// A picture of the display for people to look at, where TEST_SCREENSHOTS names a folder.
void takePicture(const std::string& name) {
  const char* folder = std::getenv("TEST_SCREENSHOTS");
  if (!folder) return;
  runEvents(200);
  std::filesystem::create_directories(folder);
  const std::string command = std::string("import -window root '") + folder + "/" + name + ".png'";
  EXPECT_EQ(std::system(command.c_str()), 0);
}

class DocumentWindowOnDisplay : public testing::Test {
 protected:
  void SetUp() override {
    testAccount();
    ASSERT_TRUE(TestSupport::openToolkitDisplay()) << TestSupport::kNoDisplay;
    workplace = std::make_unique<TestWorkplace>();
    workplace->onDisplay = true;
  }

  /// Waits for the window, and gives it the keyboard.
  void takeIntoHand(DocumentWindow& window) {
    ASSERT_TRUE(waitUntil([&] { return isOnScreen(*window.getItemTable()); }));
    window.getItemTable()->setFocus();
    window.setFocus();  // without a window manager nobody else gives it the keyboard
    ASSERT_TRUE(waitUntil([&] { return testAccount().getActiveWindow() == &window; }));
  }

  std::unique_ptr<TestWorkplace> workplace;
};

/// Types an item into its dialog as a person does: a part of the article's name, Tab, the quantity, Return.
Answer typeItem(const std::string& article, const std::string& quantity, const std::string& picture = "") {
  return [=](FXDialogBox& box) {
    auto& dialog = dynamic_cast<ItemDialog&>(box);
    EXPECT_TRUE(waitUntil([&] { return isOnScreen(*dialog.getFilterField()); }));
    dialog.setFocus();  // without a window manager nobody gives the dialog the keyboard
    EXPECT_TRUE(waitUntil([&] { return dialog.getFilterField()->hasFocus(); })) << "the work begins with typing";
    typeText(article);
    EXPECT_TRUE(waitUntil([&] { return dialog.getArticleList()->getNumShown() == 1; })) << article;
    typeKey("Tab");
    EXPECT_TRUE(waitUntil([&] { return dialog.getQuantityField()->hasFocus(); }));
    typeText(quantity);
    EXPECT_TRUE(waitUntil([&] { return dialog.getQuantityField()->getText() == quantity.c_str(); }));
    if (!picture.empty()) takePicture(picture);
    typeKey("Return");
    if (!waitUntil([&] { return !dialog.shown(); })) {
      ADD_FAILURE() << "Return does not end the dialog";
      TestSupport::cancel(dialog);
    }
  };
}

Answer photographed(const std::string& name, const Answer& answer) {
  return [=](FXDialogBox& dialog) {
    takePicture(name);
    answer(dialog);
  };
}

TEST_F(DocumentWindowOnDisplay, writesAnInvoiceWithTheKeyboard) {
  DocumentWindow& window = workplace->makeDocument(DocumentRules::OUTGOING_DRAFT);
  takeIntoHand(window);
  takePicture("document-new");

  const auto press = [&](const std::string& key, const std::string& modifier, const std::function<bool()>& done) {
    takeIntoHand(window);
    typeKey(key, modifier);
    EXPECT_TRUE(waitUntil(done)) << modifier << " " << key;
  };
  answering({typeItem("hordoz", "3", "item-dialog")},
            [&] { press("Insert", "", [&] { return window.getItemTable()->getNumRows() == 1; }); });
  EXPECT_EQ(cell(window, 0, DocumentItemTable::QUANTITY), "3");
  EXPECT_GT(window.getMessagePanel()->getNumErrors(), 0);
  answering({typeItem("kecske", "2", "")},
            [&] { press("Insert", "", [&] { return window.getItemTable()->getNumRows() == 2; }); });
  EXPECT_EQ(window.getItemTable()->getCurrentItemIndex(), 1);
  takePicture("document-problems");

  EXPECT_EQ(window.getMessagePanel()->getNumErrors(), 2);
  answering({photographed("item-data", record({{"1", "SN-1"}, {"1", "SN-2"}, {"1", "SN-3"}}))},
            [&] { press("F8", "", [&] { return window.getMessagePanel()->getNumErrors() == 1; }); });
  EXPECT_THAT(cell(window, 0, DocumentItemTable::ATTACHED_DATA), HasSubstr("SN-2"));
  takePicture("document-next-problem");

  press("Up", "Control_L", [&] { return window.getItemTable()->getCurrentItemIndex() == 0; });
  EXPECT_EQ(cell(window, 0, DocumentItemTable::NAME), "Érlelt kecskesajt");
  press("Delete", "", [&] { return window.getItemTable()->getNumRows() == 1; });
  EXPECT_EQ(window.getMessagePanel()->getNumErrors(), 0);

  press("s", "Control_L", [&] { return window.getDocumentId() > 0; });
  EXPECT_TRUE(waitUntil([&] { return !window.isChanged(); }));
  takePicture("document-saved");

  answering({photographed("question", sayYes())},
            [&] { press("l", "Control_L", [&] { return window.getSession().isReadOnly(); }); });
  takePicture("document-closed");
  answering({photographed("derive-dialog", Desktop::press(FXDialogBox::ID_ACCEPT))},
            [&] { press("d", "Control_L", [&] { return workplace->countWindows() == 2; }); });
  EXPECT_EQ(cell(workplace->getLatest(), 0, DocumentItemTable::QUANTITY), "3");
  takeIntoHand(window);
  press("w", "Control_L", [&] { return workplace->countWindows() == 1; });
}

TEST_F(DocumentWindowOnDisplay, takesAPartnerByTypingAPartOfTheName) {
  DocumentWindow& window = workplace->makeDocument(DocumentRules::OUTGOING_DRAFT);
  takeIntoHand(window);
  typeKey("p", "Alt_L");
  EXPECT_TRUE(waitUntil([&] { return window.getHeadPanel()->getPartnerField()->hasFocus(); }));
  const Answer typePartner = [](FXDialogBox& box) {
    auto& picker = dynamic_cast<PartnerPicker&>(box);
    EXPECT_TRUE(waitUntil([&] { return isOnScreen(*picker.getFilterField()); }));
    picker.setFocus();
    EXPECT_TRUE(waitUntil([&] { return picker.getFilterField()->hasFocus(); }));
    typeText("iskola");
    EXPECT_TRUE(waitUntil([&] { return picker.getRecordList()->getNumShown() == 1; }));
    takePicture("partner-picker");
    typeKey("Return");
    if (!waitUntil([&] { return !picker.shown(); })) TestSupport::cancel(picker);
  };
  answering({typePartner}, [&] {
    typeKey("F4");
    EXPECT_TRUE(waitUntil([&] { return window.isChanged(); }));
  });
  EXPECT_EQ(window.getHeadPanel()->getPartnerField()->getText(), "Kőszegi Általános Iskola");
  EXPECT_THAT(window.getTitle().text(), HasSubstr("Kőszegi Általános Iskola"));
}

TEST_F(DocumentWindowOnDisplay, opensTheItemDataByTheirButtonAndAProblemByADoubleClick) {
  workplace->openDocument(7);
  DocumentWindow& window = workplace->getLatest();
  takeIntoHand(window);
  takePicture("document-unfinished");
  FXButton& button = *window.getPluginButtons().front();
  answering({[](FXDialogBox& dialog) { TestSupport::accept(dialog); }}, [&] {
    click(button);
    runEvents(200);
  });
  FXIconList& list = *window.getMessagePanel()->getList();
  const int y = list.getHeader()->getHeight() + 8;
  answering({[](FXDialogBox& dialog) { TestSupport::accept(dialog); }}, [&] {
    click(list, 1, 40, y);
    click(list, 1, 40, y);
    runEvents(300);
  });
}

TEST_F(DocumentWindowOnDisplay, addsAnItemByInsertAlsoFromTheFieldsAboveTheTable) {
  DocumentWindow& window = workplace->makeDocument(DocumentRules::OUTGOING_DRAFT);
  int rows = 0;
  for (FXTextField* field : {window.getHeadPanel()->getPartnerField(), window.getHeadPanel()->getIssueDateField()}) {
    takeIntoHand(window);
    field->setFocus();
    ASSERT_TRUE(waitUntil([&] { return field->hasFocus(); }));
    ++rows;
    answering({typeItem("hordoz", "1")}, [&] {
      typeKey("Insert");
      EXPECT_TRUE(waitUntil([&] { return window.getItemTable()->getNumRows() == rows; }));
    });
  }
}

TEST_F(DocumentWindowOnDisplay, typesOverTheNameOfTheFileAtOnce) {
  workplace->openDocument(kClosedInvoice);
  DocumentWindow& window = workplace->getLatest();
  takeIntoHand(window);
  const std::filesystem::path folder = std::filesystem::temp_directory_path();
  const std::filesystem::path file = folder / "typedname";
  std::filesystem::remove(file);
  XmlFile::rememberFolder(testAccount(), folder.c_str());
  const Answer typeName = [&](FXDialogBox& box) {
    EXPECT_TRUE(waitUntil([&] { return isOnScreen(box); }));
    box.setFocus();  // without a window manager nobody gives the dialog the keyboard
    runEvents(200);
    typeText(file.filename());
    typeKey("Return");
    if (!waitUntil([&] { return !box.shown(); })) TestSupport::cancel(box);
  };
  answering({typeName}, [&] {
    typeKey("e", "Control_L");
    EXPECT_TRUE(waitUntil([&] { return std::filesystem::exists(file); }));
  });
  std::filesystem::remove(file);
}

TEST_F(DocumentWindowOnDisplay, opensTheItemDataByTheirKey) {
  workplace->openDocument(7);
  DocumentWindow& window = workplace->getLatest();
  takeIntoHand(window);
  bool opened = false;
  answering({[&](FXDialogBox& dialog) {
              opened = true;
              TestSupport::accept(dialog);
            }},
            [&] {
              typeKey("1", "Control_L");
              EXPECT_TRUE(waitUntil([&] { return opened; }));
              runEvents(50);
            });
}

TEST_F(DocumentWindowOnDisplay, letsTheKeyboardOutOfTheTable) {
  workplace->openDocument(7);
  DocumentWindow& window = workplace->getLatest();
  takeIntoHand(window);
  EXPECT_TRUE(waitUntil([&] { return window.getItemTable()->hasFocus(); }));
  typeKey("Tab");
  EXPECT_TRUE(waitUntil([&] { return !window.getItemTable()->hasFocus(); }));
}

TEST_F(DocumentWindowOnDisplay, removesAnItemByDeleteOnlyInTheTable) {
  workplace->openDocument(7);
  DocumentWindow& window = workplace->getLatest();
  takeIntoHand(window);
  window.getMessagePanel()->getList()->setFocus();
  EXPECT_TRUE(waitUntil([&] { return window.getMessagePanel()->getList()->hasFocus(); }));
  typeKey("Delete");
  runEvents(100);
  EXPECT_EQ(window.getItemTable()->getNumRows(), 2);
}

TEST_F(DocumentWindowOnDisplay, asksBeforeItClosesWithChanges) {
  workplace->openDocument(13);
  DocumentWindow& window = workplace->getLatest();
  takeIntoHand(window);
  click(*window.getHeadPanel()->getPartnerNumberField());
  typeText("x");
  EXPECT_TRUE(waitUntil([&] { return window.isChanged(); }));
  takePicture("document-incoming");
  answering({photographed("unsaved-changes", cancelIt())}, [&] {
    typeKey("w", "Control_L");
    runEvents(500);
  });
  EXPECT_EQ(workplace->countWindows(), 1u);
}

}  // namespace
}  // namespace Quillane::Desktop
