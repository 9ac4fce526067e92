#include "tests/host/desktop/MainWindowFixture.h"

#include <stdlib.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "tests/support/ModalDriver.h"
#include "tests/support/TestCompany.h"
#include "tests/support/ToolkitApplication.h"

using namespace FX;

namespace Quillane::Desktop {

namespace {

std::string makeFolder() {
  std::string folder = (std::filesystem::temp_directory_path() / "quillane-test-XXXXXX").native();
  if (!mkdtemp(folder.data())) throw std::runtime_error("no temporary folder: " + folder);
  setenv("HOME", folder.c_str(), 1);
  unsetenv("XDG_DOCUMENTS_DIR");
  return folder;
}

void forgetSettings() {
  for (const char* section : {"Company", "Export", "MainWindow"}) testAccount().reg().deleteSection(section);
}

}  // namespace

MainWindowTest::MainWindowTest()
    : folder(makeFolder()),
      company(testAccount(), {QUILLANE_MODULE_FOLDER, folder.c_str()}),
      icons(&testAccount()),
      companyFile(testAccount(), company) {
  forgetSettings();
}

MainWindowTest::~MainWindowTest() {
  company.close();
  std::filesystem::remove_all(folder);
}

void MainWindowTest::SetUp() {
  FXString error;
  ASSERT_TRUE(companyFile.make(path("sample.db"), CompanyFile::SAMPLE, error)) << error.text();
  window = std::make_unique<MainWindow>(testAccount(), company, companyFile, icons);
}

void MainWindowTest::TearDown() {
  TestSupport::runEvents(20);  // windows that were closed delete themselves
  window.reset();
}

void MainWindowTest::select(const std::vector<int>& ids) const {
  const RecordList& list = *window->getPanel()->getList();
  ASSERT_TRUE(window->getPanel()->getList()->setCurrentId(ids.front()));
  const std::vector<int> shown = list.getShownIds();
  for (const int id : ids) {
    const auto found = std::find(shown.begin(), shown.end(), id);
    ASSERT_NE(found, shown.end()) << "document " << id << " is not shown";
    list.getList()->selectItem(static_cast<FXint>(found - shown.begin()));
  }
}

void MainWindowTest::search(const std::string& text) const {
  DocumentListPanel& panel = *window->getPanel();
  panel.getSearchField()->setText(text.c_str());
  panel.handle(panel.getSearchField(), FXSEL(SEL_CHANGED, DocumentListPanel::ID_SEARCH),
               const_cast<FXchar*>(panel.getSearchField()->getText().text()));
  ASSERT_TRUE(
      TestSupport::waitUntil([&panel] { return !testAccount().hasTimeout(&panel, DocumentListPanel::ID_SEARCH_NOW); }));
}

int MainWindowTest::count(int status) const {
  const FXString sql = status == 0
                           ? FXString("select count(*) from t_invoice")
                           : FXStringFormat("select count(*) from t_invoice where t_invoicestatus_1=%d", status);
  return company.getDatabase().queryScalar(sql, 1, -1);
}

std::string readFile(const FXString& file) {
  std::ifstream stream(file.text(), std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(stream), {});
}

void writeFile(const FXString& file, const std::string& text) { std::ofstream(file.text(), std::ios::binary) << text; }

Answer pickFile(const FXString& file) {
  return [file](FXDialogBox& dialog) {
    dynamic_cast<FXFileDialog&>(dialog).setFilename(file);
    TestSupport::accept(dialog);
  };
}

Answer pickFolder(const FXString& folder) {
  return [folder](FXDialogBox& dialog) {
    dynamic_cast<FXDirDialog&>(dialog).setDirectory(folder);
    TestSupport::accept(dialog);
  };
}

}  // namespace Quillane::Desktop
