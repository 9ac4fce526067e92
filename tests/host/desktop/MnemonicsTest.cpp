// The letters that are pressed with Alt: within a window, and within a menu, each stands for one thing only, in every
// language.
#include <map>

#include "host/desktop/ArticleListWindow.h"
#include "host/desktop/ArticlePicker.h"
#include "host/desktop/CompanyFile.h"
#include "host/desktop/DeriveDialog.h"
#include "host/desktop/MainWindow.h"
#include "host/desktop/PartnerDialog.h"
#include "host/desktop/PartnerListWindow.h"
#include "host/desktop/PartnerPicker.h"
#include "host/desktop/PluginListWindow.h"
#include "host/desktop/ReportDialog.h"
#include "host/desktop/UnsavedChangesDialog.h"
#include "host/desktop/WelcomeDialog.h"
#include "host/document/ArticleStore.h"
#include "host/plugins/Translator.h"
#include "plugin/contract/Forms.h"
#include "plugin/contract/PanelProvider.h"
#include "tests/host/desktop/DocumentWindowFixture.h"
#include "tests/host/plugins/LanguageFixture.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/TestCompany.h"

using namespace FX;

namespace Quillane::Desktop {
namespace {

// The toolkit tells nobody but derived classes which letter was marked in a text.
struct Label : FXLabel {
  static FXHotKey letterOf(const FXLabel& label) { return label.*&Label::hotkey; }
};

struct Caption : FXMenuCaption {
  static FXHotKey letterOf(const FXMenuCaption& caption) { return caption.*&Caption::hotkey; }
};

/// What each letter stands for in a window or a menu.
class Letters {
 public:
  explicit Letters(const FXString& place) : where(place.text()) {}

  void add(FXHotKey letter, const FXString& text) {
    if (!letter) return;
    const auto [taken, isNew] = texts.emplace(letter, text.text());
    EXPECT_TRUE(isNew) << where << ": one letter for both " << taken->second << " and " << text.text();
  }

  std::size_t count() const { return texts.size(); }

 private:
  std::string where;
  std::map<FXHotKey, std::string> texts;
};

/// Expects each letter once in the menu and in those below it.
void checkMenu(const FXPopup& menu, const FXString& title) {
  Letters letters(title);
  for (FXWindow* entry = menu.getFirst(); entry; entry = entry->getNext()) {
    const auto* caption = dynamic_cast<FXMenuCaption*>(entry);
    if (!caption) continue;
    letters.add(Caption::letterOf(*caption), caption->getText());
    if (const auto* cascade = dynamic_cast<FXMenuCascade*>(entry)) checkMenu(*cascade->getMenu(), caption->getText());
  }
  EXPECT_GT(letters.count(), 0u) << title.text();
}

void collect(const FXWindow& parent, Letters& letters) {
  for (FXWindow* child = parent.getFirst(); child; child = child->getNext()) {
    if (!child->shown()) continue;
    if (const auto* label = dynamic_cast<FXLabel*>(child)) letters.add(Label::letterOf(*label), label->getText());
    if (const auto* title = dynamic_cast<FXMenuTitle*>(child)) {
      letters.add(Caption::letterOf(*title), title->getText());
      checkMenu(*title->getMenu(), title->getText());
    }
    collect(*child, letters);
  }
}

/// Expects each letter once in the window and in its menus.
void check(const FXTopWindow& window) {
  Letters letters(window.getTitle());
  collect(window, letters);
  EXPECT_GT(letters.count(), 0u) << window.getTitle().text();
}

class MnemonicsTest : public LanguageTest, public testing::WithParamInterface<const char*> {
 protected:
  MnemonicsTest() {
    start("C.UTF-8", GetParam());
    Host::useTextDomain("quillane");
    Host::Translator::install(testAccount());
  }
};

TEST_P(MnemonicsTest, ofTheDocumentsWindowAndItsDialogsAreDifferent) {
  TestWorkplace workplace;
  TarnwellDatabase& database = workplace.getCompany().getDatabase();
  for (const int status : {101, 201}) check(workplace.makeDocument(status));

  // Document 7 has items with data of both kinds.
  workplace.openDocument(7);
  DocumentWindow& window = workplace.getLatest();
  check(window);
  const auto checkAndAccept = [](FXDialogBox& dialog) {
    check(dialog);
    TestSupport::accept(dialog);
  };
  answering({checkAndAccept}, [&] { run(window, DocumentWindow::ID_PLUGIN_ENTRY); });

  check(ItemDialog(&window, database, workplace.getIcons(), ItemDialog::NEW_ITEM, ItemInput()));
  check(DeriveDialog(&window, "7", {{101, "Kimenő számla (piszkozat)", false, 100}}));
  check(UnsavedChangesDialog(&window, "7"));
  check(ReportDialog(&window, "Bizonylatok", "Összegzés", {"Egy mondat."}));
}

TEST_P(MnemonicsTest, ofTheMainWindowAndItsDialogsAreDifferent) {
  TestWorkplace workplace;
  TarnwellDatabase& database = workplace.getCompany().getDatabase();
  const Host::IconSet& icons = workplace.getIcons();
  CompanyFile file(testAccount(), workplace.getCompany());
  MainWindow window(testAccount(), workplace.getCompany(), file, icons);
  check(window);
  check(WelcomeDialog(&testAccount(), icons));
  check(PartnerListWindow(&window, database, icons));
  check(PartnerPicker(&window, database, icons));
  check(PartnerDialog(&window, database, icons, Host::Partner()));
  check(ArticleListWindow(&window, database, icons));
  check(ArticlePicker(&window, database, icons, InvoiceItem::ARTICLE_PRODUCT));
  const PanelProviders providers = workplace.getCompany().getPlugins().getHooks<Plugin::PanelProvider::Plugin>();
  for (const int kind : {1, 2, 3}) {
    Host::Article article;
    article.kind = kind;
    check(*ArticleDataWindow::make(&window, database, article, nullptr, providers));
  }
  const Host::PluginLoader& plugins = workplace.getCompany().getPlugins();
  check(PluginListWindow(&window, plugins, icons));
  const auto checkAndCancel = [](FXDialogBox& dialog) {
    check(dialog);
    TestSupport::cancel(dialog);
  };
  answering({checkAndCancel}, [&] { PluginListWindow::runSettings(&window, *plugins.getLoaded().front().container); });
}

TEST_P(MnemonicsTest, ofTheToolkitsDialogsAreDifferent) {
  FXMainWindow window(&testAccount(), "test");
  for (const FXuint buttons :
       {MBOX_OK_CANCEL, MBOX_YES_NO_CANCEL, MBOX_QUIT_SAVE_CANCEL, MBOX_SKIP_SKIPALL_CANCEL, MBOX_SAVE_CANCEL_DONTSAVE})
    check(FXMessageBox(&window, FXStringFormat("message box %x", buttons), "?", nullptr, buttons));
  check(FXFileDialog(&window, "file dialog"));
  check(FXDirDialog(&window, "folder dialog"));
}

INSTANTIATE_TEST_SUITE_P(Languages, MnemonicsTest, testing::Values("hu", "en", "de"),
                         [](const auto& language) { return std::string(language.param); });

}  // namespace
}  // namespace Quillane::Desktop
