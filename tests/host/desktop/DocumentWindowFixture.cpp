#include "tests/host/desktop/DocumentWindowFixture.h"

#include <algorithm>
#include <stdexcept>

#include "host/company/SampleCompany.h"
#include "host/desktop/DocumentItemTable.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/TestCompany.h"
#include "tests/support/ToolkitApplication.h"

using namespace FX;

namespace Quillane::Desktop {

namespace {

constexpr FXuint kAddRow = FXTable::ID_LAST + 1;  // of the item data dialog's table

void require(bool succeeded, const FXString& error) {
  if (!succeeded) throw std::runtime_error(error.text());
}

}  // namespace

TestWorkplace::TestWorkplace(const std::string& file)
    : company(testAccount(), {QUILLANE_MODULE_FOLDER}), icons(&testAccount()) {
  FXString error;
  require(file.empty() ? company.openInMemory(error) : company.openUpToDate(file.c_str(), error), error);
  if (company.getDatabase().queryScalar("select count(*) from t_partner", 1, -1) > 0) return;
  require(Host::SampleCompany::fill(company.getDatabase(), error), error);
}

TestWorkplace::~TestWorkplace() {
  TestSupport::runEvents(20);
  for (DocumentWindow* window : windows) delete window;
}

Tarnwell& TestWorkplace::getAccount() { return testAccount(); }

DocumentWindow& TestWorkplace::add(std::unique_ptr<Host::Document> document) {
  windows.push_back(new DocumentWindow(*this, std::move(document)));
  if (onDisplay) {
    windows.back()->create();
    windows.back()->show(PLACEMENT_SCREEN);
  }
  return *windows.back();
}

bool TestWorkplace::openDocument(int id) {
  FXString error;
  std::unique_ptr<Host::Document> document = company.getDocuments().load(id, error);
  require(document != nullptr, error);
  add(std::move(document));
  return true;
}

DocumentWindow& TestWorkplace::makeDocument(int status) {
  FXString error;
  std::unique_ptr<Host::Document> document = company.getDocuments().make(status, error);
  require(document != nullptr, error);
  return add(std::move(document));
}

void TestWorkplace::windowClosed(DocumentWindow& window) {
  windows.erase(std::remove(windows.begin(), windows.end(), &window), windows.end());
}

namespace {

/// Answers dialogs, also one that comes up while another is being answered.
class Answering : public FXObject {
 public:
  explicit Answering(const std::vector<Answer>& allAnswers) : answers(allAnswers) { wait(); }
  ~Answering() override { testAccount().removeTimeout(this, 0); }

  long handle(FXObject*, FXSelector, void*) override {
    wait();
    auto* dialog = dynamic_cast<FXDialogBox*>(testAccount().getModalWindow());
    if (!dialog || std::count(inHand.begin(), inHand.end(), dialog) > 0) return 1;
    said.push_back(std::string(dialog->getTitle().text()) + ": " + readTexts(*dialog));
    inHand.push_back(dialog);
    answer(*dialog);
    inHand.pop_back();
    return 1;
  }

  std::vector<std::string> said;
  std::size_t count = 0;

 private:
  void wait() { testAccount().addTimeout(this, 0, 5); }

  void answer(FXDialogBox& dialog) {
    if (count < answers.size()) {
      answers[count++](dialog);
      return;
    }
    ADD_FAILURE() << "not expected: " << said.back();
    TestSupport::cancel(dialog);
  }

  const std::vector<Answer>& answers;
  std::vector<FXDialogBox*> inHand;
};

}  // namespace

std::vector<std::string> answering(const std::vector<Answer>& answers, const std::function<void()>& work) {
  Answering answerer(answers);
  work();
  EXPECT_EQ(answerer.count, answers.size()) << "not as many dialogs as expected";
  return answerer.said;
}

std::string readTexts(FXWindow& dialog) {
  std::string texts;
  for (FXWindow* child = dialog.getFirst(); child; child = child->getNext()) {
    if (auto* label = dynamic_cast<FXLabel*>(child)) texts += (label->getText() + " ").text();
    texts += readTexts(*child);
  }
  return texts;
}

Answer press(FXuint command) {
  return [command](FXDialogBox& dialog) { dialog.handle(nullptr, FXSEL(SEL_COMMAND, command), nullptr); };
}

Answer sayYes() { return press(FXMessageBox::ID_CLICKED_YES); }
Answer sayNo() { return press(FXMessageBox::ID_CLICKED_NO); }
Answer sayOk() { return press(FXMessageBox::ID_CLICKED_OK); }
Answer cancelIt() {
  return [](FXDialogBox& dialog) { TestSupport::cancel(dialog); };
}

Answer enterItem(int kind, const FXString& article, const FXString& quantity, const FXString& price) {
  return [=](FXDialogBox& box) {
    auto& dialog = dynamic_cast<ItemDialog&>(box);
    dialog.handle(nullptr, FXSEL(SEL_COMMAND, ItemDialog::ID_OTHER + kind), nullptr);
    dialog.getFilterField()->setText(article);
    dialog.handle(dialog.getFilterField(), FXSEL(SEL_CHANGED, ItemDialog::ID_FILTER), nullptr);
    dialog.getQuantityField()->setText(quantity);
    if (!price.empty()) dialog.getPriceField()->setText(price);
    TestSupport::accept(dialog);
  };
}

Answer record(const std::vector<UnitRow>& rows) {
  return [rows](FXDialogBox& dialog) {
    auto* table = findChild<FXTable>(dialog);
    if (!table) {
      ADD_FAILURE() << "there is no table in " << dialog.getTitle().text();
      TestSupport::cancel(dialog);
      return;
    }
    for (int row = 0; row < static_cast<int>(rows.size()); ++row) {
      if (row >= table->getNumRows()) table->handle(&dialog, FXSEL(SEL_COMMAND, kAddRow), nullptr);
      table->setItemText(row, 0, rows[row].first.c_str(), TRUE);
      table->setItemText(row, 1, rows[row].second.c_str(), TRUE);
    }
    TestSupport::accept(dialog);
  };
}

void run(DocumentWindow& window, FXuint command) { window.handle(nullptr, FXSEL(SEL_COMMAND, command), nullptr); }

std::string cell(const DocumentWindow& window, int row, int column) {
  return window.getItemTable()->getItemText(row, column).text();
}

std::vector<std::string> attachedTexts(const DocumentWindow& window) {
  std::vector<std::string> texts;
  for (int row = 0; row < window.getItemTable()->getNumRows(); ++row)
    texts.push_back(cell(window, row, DocumentItemTable::ATTACHED_DATA));
  return texts;
}

}  // namespace Quillane::Desktop
