// The main window and its dialogs as a person at the keyboard and the mouse meets them.
#include <gmock/gmock.h>

#include "host/desktop/BatchRun.h"
#include "host/desktop/DocumentWindow.h"
#include "host/desktop/PluginListWindow.h"
#include "host/desktop/ProgressDialog.h"
#include "host/desktop/ReportDialog.h"
#include "host/desktop/WelcomeDialog.h"
#include "tests/host/desktop/MainWindowFixture.h"
#include "tests/support/FakeInput.h"
#include "tests/support/KeyScript.h"
#include "tests/support/TestCompany.h"
#include "tests/support/ToolkitApplication.h"

using namespace FX;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using TestSupport::KeyScript;
using TestSupport::takeScreenshot;
using TestSupport::typeKey;
using TestSupport::typeText;
using TestSupport::waitUntil;

#define ASSERT_SOON(condition) ASSERT_TRUE(waitUntil([&] { return (condition); })) << "never true: " #condition

namespace Quillane::Desktop {
namespace {

constexpr int kDraft = 6;

/// Whether a modal dialog of this kind has the keyboard; it gets it, since no window manager is there to give it.
template <class T>
bool isAsking() {
  FXApp& application = testAccount();
  auto* dialog = dynamic_cast<T*>(application.getModalWindow());
  if (!dialog || !TestSupport::isOnScreen(*dialog)) return false;
  if (application.getActiveWindow() == dialog) return true;
  dialog->setFocus();
  return false;
}

/// The button with this command in the window.
FXButton* findButton(FXWindow& parent, FXuint command) {
  for (FXWindow* child = parent.getFirst(); child; child = child->getNext()) {
    auto* button = dynamic_cast<FXButton*>(child);
    if (button && button->getSelector() == command) return button;
    if (FXButton* found = findButton(*child, command)) return found;
  }
  return nullptr;
}

class MainWindowOnDisplayTest : public MainWindowTest {
 protected:
  void SetUp() override {
    ASSERT_TRUE(TestSupport::openToolkitDisplay()) << TestSupport::kNoDisplay;
    MainWindowTest::SetUp();
    if (HasFatalFailure()) return;
    icons.create();
    window->create();
    window->appear();
    ASSERT_SOON(TestSupport::isOnScreen(*list()));
    window->setFocus();  // as a window manager does, which is not there
    ASSERT_SOON(testAccount().getActiveWindow() == window.get());
  }

  FXIconList* list() const { return window->getPanel()->getList()->getList(); }
  int countShown() const { return window->getPanel()->countShown(); }
};

TEST_F(MainWindowOnDisplayTest, beginsInTheListOfDocuments) {
  TestSupport::runEvents(100);
  EXPECT_TRUE(list()->hasFocus());
  takeScreenshot("main-window");
  typeKey("End");
  ASSERT_SOON(window->getPanel()->getList()->getCurrentId() == 1);
}

TEST_F(MainWindowOnDisplayTest, givesTheKeyboardBackToTheListBehindAMenu) {
  typeKey("v", "Alt_L");
  ASSERT_SOON(testAccount().getPopupWindow() && TestSupport::isOnScreen(*testAccount().getPopupWindow()));
  EXPECT_FALSE(list()->hasFocus());
  typeKey("Right");
  typeKey("Escape");
  ASSERT_SOON(list()->hasFocus());

  // The same when a command was run, whose dialog is closed by now.
  KeyScript script;
  script.step(
      "the plug-ins are shown", [] { return isAsking<PluginListWindow>(); }, [] { typeKey("Escape"); });
  script.start();
  typeKey("v", "Alt_L");
  typeKey("Down");
  typeKey("Return");
  ASSERT_SOON(script.isDone());
  ASSERT_SOON(testAccount().getModalWindow() == nullptr);
  window->setFocus();
  ASSERT_SOON(testAccount().getActiveWindow() == window.get());
  EXPECT_TRUE(list()->hasFocus());
  typeKey("End");
  ASSERT_SOON(window->getPanel()->getList()->getCurrentId() == 1);
}

TEST_F(MainWindowOnDisplayTest, searchesWhileAPersonTypesAndOpensByReturn) {
  typeKey("f", "Control_L");
  ASSERT_SOON(window->getPanel()->getSearchField()->hasFocus());
  typeText("szikra");
  ASSERT_SOON(countShown() == 3);
  takeScreenshot("main-window-search");
  typeKey("Down");
  typeKey("Return");
  ASSERT_SOON(window->getDocumentWindows().size() == 1);
  EXPECT_EQ(window->getDocumentWindows().front()->getDocumentId(), window->getPanel()->getList()->getShownIds().at(1));
}

TEST_F(MainWindowOnDisplayTest, showsAllDocumentsAgainByEscape) {
  typeKey("f", "Control_L");
  typeText("szikra");
  ASSERT_SOON(countShown() == 3);
  typeKey("Escape");
  ASSERT_SOON(countShown() == 24);
  EXPECT_TRUE(window->getPanel()->getSearchField()->getText().empty());
}

TEST_F(MainWindowOnDisplayTest, sortsByAClickOnTheHeader) {
  const FXHeader& header = *list()->getHeader();
  TestSupport::click(header, 1, header.getItemOffset(4) + header.getItemSize(4) / 2);
  ASSERT_SOON(window->getPanel()->getList()->getSortColumn() == 4);
  EXPECT_EQ(window->getPanel()->getList()->getShownIds().back(), 6) << "the highest sum";
  TestSupport::click(header, 1, header.getItemOffset(4) + header.getItemSize(4) / 2);
  ASSERT_SOON(window->getPanel()->getList()->getShownIds().front() == 6);
}

TEST_F(MainWindowOnDisplayTest, opensADocumentByADoubleClick) {
  window->getPanel()->getList()->setCurrentId(24);
  const FXint y = list()->getHeader()->getHeight() + 8;
  TestSupport::click(*list(), 1, 60, y);
  TestSupport::click(*list(), 1, 60, y);
  ASSERT_SOON(window->getDocumentWindows().size() == 1);
  EXPECT_EQ(window->getDocumentWindows().front()->getDocumentId(), 24);
}

TEST_F(MainWindowOnDisplayTest, deletesTheSelectedDocumentByTheKeyboard) {
  window->getPanel()->getList()->setCurrentId(kDraft);
  TestSupport::runEvents(50);
  KeyScript script;
  script
      .step("the question", isAsking<FXMessageBox>,
            [] {
              takeScreenshot("main-window-delete");
              typeKey("Return");
            })
      .start();
  typeKey("Delete");
  ASSERT_SOON(script.isDone() && window->getPanel()->countDocuments() == 23);
  EXPECT_EQ(count(), 23);
}

TEST_F(MainWindowOnDisplayTest, exportsByTheKeyboard) {
  window->getPanel()->getList()->setCurrentId(kDraft);
  TestSupport::runEvents(50);
  KeyScript script;
  script
      .step("the file dialog", isAsking<FXFileDialog>,
            [] {
              takeScreenshot("main-window-export");
              typeKey("Return");
            })
      .start();
  typeKey("e", "Control_L");
  const FXString file = path("Kimenő számla (piszkozat) #6.xml");
  ASSERT_SOON(script.isDone() && FXStat::exists(file));
  EXPECT_THAT(readFile(file), HasSubstr("urn:quillane:invoice"));
}

TEST_F(MainWindowOnDisplayTest, writesANewDocumentFromTheMenuByTheKeyboard) {
  TestSupport::movePointer(*window, window->getWidth() - 5, window->getHeight() - 5);  // not where the menu opens
  typeKey("f", "Alt_L");
  ASSERT_SOON(testAccount().getPopupWindow() != nullptr);
  for (const char* key : {"Down", "Right", "Down"}) {
    TestSupport::runEvents(100);  // a menu takes its time to open
    typeKey(key);
  }
  TestSupport::runEvents(100);
  takeScreenshot("main-window-menu");
  typeKey("Return");
  ASSERT_SOON(window->getDocumentWindows().size() == 1);
  EXPECT_EQ(window->getDocumentWindows().front()->getInvoice()->getStatus(), 101);
}

TEST_F(MainWindowOnDisplayTest, keepsWhatWasDoneWhenAPersonStopsTheWork) {
  static constexpr BatchRun::Activity kWaiting = {"Várakozás", "Bizonylatok várakoztatása", "Kész: %d.",
                                                  "Kész: %d / %d. A többi nem:", "Megszakítva: %d / %d."};
  std::vector<Host::DocumentRow> rows(200);
  std::string told;
  KeyScript script;
  script
      .step("the progress window", isAsking<ProgressDialog>,
            [] {
              takeScreenshot("progress");
              typeKey("Escape");
            })
      .step("the report", isAsking<FXMessageBox>,
            [&told] {
              told = readTexts(*testAccount().getModalWindow());
              typeKey("Return");
            })
      .start();
  int done = 0;
  BatchRun run(window.get(), company, kWaiting, nullptr);
  run.setDelay(0);
  const FXString result = run.run(rows, [&done](DocumentBatch& batch, const Host::DocumentRow&) {
    TestSupport::runEvents(20);
    batch.note(true, FXString());
    ++done;
  });
  EXPECT_TRUE(script.isDone());
  EXPECT_TRUE(result.empty());
  EXPECT_LT(done, 200);
  EXPECT_THAT(told, HasSubstr("Megszakítva: " + std::to_string(done) + " / 200."));
}

TEST_F(MainWindowOnDisplayTest, stopsTheWorkByAClickOnItsButton) {
  ProgressDialog progress(window.get(), "Bizonylatok exportálása", 200);
  progress.setDelay(0);
  FXButton* stop = findButton(progress, FXDialogBox::ID_CANCEL);
  ASSERT_NE(stop, nullptr);
  KeyScript script;
  script
      .step(
          "the button", [stop] { return TestSupport::isOnScreen(*stop); }, [stop] { TestSupport::click(*stop); })
      .start();
  const int done = progress.run([](int) { TestSupport::runEvents(10); });
  EXPECT_TRUE(progress.wasStopped());
  EXPECT_LT(done, 200);
}

TEST_F(MainWindowOnDisplayTest, doesNotShowTheProgressOfWorkThatIsOverAtOnce) {
  ProgressDialog progress(window.get(), "Bizonylatok exportálása", 3);
  bool seen = false;
  EXPECT_EQ(progress.run([&](int) { seen = seen || progress.shown(); }), 3);
  EXPECT_FALSE(seen);
  EXPECT_FALSE(progress.wasStopped());
}

TEST_F(MainWindowOnDisplayTest, remembersItsPlace) {
  window->position(120, 90, 800, 500);
  TestSupport::runEvents(100);
  const FXint x = window->getX();
  window->handle(nullptr, FXSEL(SEL_CLOSE, 0), nullptr);
  window = std::make_unique<MainWindow>(testAccount(), company, companyFile, icons);
  window->create();
  window->appear();
  TestSupport::runEvents(100);
  EXPECT_EQ(window->getX(), x);
  EXPECT_EQ(window->getWidth(), 800);
  EXPECT_EQ(window->getHeight(), 500);
}

TEST_F(MainWindowOnDisplayTest, goesOnWithAnotherCompanyWhileDocumentsWereOpen) {
  window->openDocument(kDraft);
  window->openDocument(24);
  TestSupport::runEvents(100);
  ASSERT_THAT(window->getDocumentWindows(), SizeIs(2));
  EXPECT_TRUE(window->makeCompany(path("other.db"), CompanyFile::SAMPLE));
  EXPECT_THAT(window->getDocumentWindows(), IsEmpty());
  TestSupport::runEvents(100);  // the windows of the first one delete themselves
  EXPECT_TRUE(window->openDocument(kDraft));
  TestSupport::runEvents(100);
}

TEST_F(MainWindowOnDisplayTest, showsManySentencesInAReport) {
  std::vector<FXString> sentences;
  for (int i = 1; i <= 12; ++i) {
    sentences.push_back(FXStringFormat(
        "Kimenő számla (piszkozat), Kőszegi Általános Iskola #%d nem zárható le, mert az ellenőrzés hibát talált.", i));
  }
  ReportDialog report(window.get(), "Lezárás", "Lezárt bizonylatok: 8 / 20. A többi nem zárható le:", sentences,
                      icons.get(Host::Icon::NOTICE));
  KeyScript script;
  script
      .step("the report", isAsking<ReportDialog>,
            [] {
              takeScreenshot("report");
              typeKey("Return");
            })
      .start();
  report.execute(PLACEMENT_OWNER);
  EXPECT_TRUE(script.isDone());
}

struct WelcomeCase {
  const char* key;
  WelcomeDialog::Choice choice;
};

class WelcomeDialogOnDisplayTest : public MainWindowOnDisplayTest, public testing::WithParamInterface<WelcomeCase> {};

TEST_P(WelcomeDialogOnDisplayTest, isAnsweredByOneKey) {
  WelcomeDialog dialog(&testAccount(), icons);
  KeyScript script;
  script
      .step("the keyboard", isAsking<WelcomeDialog>,
            [] {
              takeScreenshot("welcome");
              typeKey(GetParam().key, std::string(GetParam().key).size() == 1 ? "Alt_L" : "");
            })
      .start();
  EXPECT_EQ(dialog.ask(), GetParam().choice);
}

INSTANTIATE_TEST_SUITE_P(, WelcomeDialogOnDisplayTest,
                         testing::Values(WelcomeCase{"Return", WelcomeDialog::SAMPLE_COMPANY},
                                         WelcomeCase{"m", WelcomeDialog::SAMPLE_COMPANY},
                                         WelcomeCase{"e", WelcomeDialog::OPEN_COMPANY},
                                         WelcomeCase{"Escape", WelcomeDialog::LEAVE}));

}  // namespace
}  // namespace Quillane::Desktop
