// A company with the real module, the sample in it, and windows of its documents.
#pragma once

#include <fx.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/company/Company.h"
#include "host/desktop/DocumentWindow.h"
#include "host/desktop/ItemDialog.h"
#include "host/desktop/Workplace.h"
#include "host/windows/IconSet.h"

namespace Quillane::Desktop {

/// The program around the windows: opens them, and remembers what it was told.
class TestWorkplace : public Workplace {
 public:
  /// The company in this file, made when there is none; in memory without a file.
  explicit TestWorkplace(const std::string& file = "");
  /// Closes the windows without a question, then the company.
  ~TestWorkplace() override;

  Tarnwell& getAccount() override;
  Host::Company& getCompany() override { return company; }
  const Host::IconSet& getIcons() const override { return icons; }
  bool openDocument(int id) override;
  void documentsChanged() override { ++changes; }
  void windowClosed(DocumentWindow& window) override;

  /// A window for a new document of this status.
  DocumentWindow& makeDocument(int status);

  /// The window that was opened last.
  DocumentWindow& getLatest() { return *windows.back(); }
  std::size_t countWindows() const { return windows.size(); }

  bool onDisplay = false;  // new windows are created and shown
  int changes = 0;         // how often documents changed

 private:
  DocumentWindow& add(std::unique_ptr<Host::Document> document);

  Host::Company company;
  Host::IconSet icons;
  std::vector<DocumentWindow*> windows;  // owned as long as they are not closed
};

/// What a test does with a dialog that comes up; it has to end it.
using Answer = std::function<void(FX::FXDialogBox& dialog)>;

/// Runs work while the dialogs that it opens get these answers, one after the other. Another one, or one that does not
/// come, fails the test. Returns what the dialogs said: their titles and labels.
std::vector<std::string> answering(const std::vector<Answer>& answers, const std::function<void()>& work);

/// The labels' texts in the dialog, one after the other.
std::string readTexts(FX::FXWindow& dialog);

/// The first window of the type among those in parent.
template <class T>
T* findChild(FX::FXWindow& parent) {
  for (FX::FXWindow* child = parent.getFirst(); child; child = child->getNext()) {
    if (auto* found = dynamic_cast<T*>(child)) return found;
    if (T* found = findChild<T>(*child)) return found;
  }
  return nullptr;
}

// Answers.
Answer press(FX::FXuint command);  ///< The dialog's button with this message id.
Answer sayYes();
Answer sayNo();
Answer sayOk();
Answer cancelIt();

/// Picks the article by a part of its name, as a person does who types, and accepts.
Answer enterItem(int kind, const FX::FXString& article, const FX::FXString& quantity, const FX::FXString& price = "");

/// Fills the unit rows of the item data dialog: a quantity and a text for the first variable of each.
using UnitRow = std::pair<std::string, std::string>;
Answer record(const std::vector<UnitRow>& rows);

/// Sends a command of the window.
void run(DocumentWindow& window, FX::FXuint command);

/// The text of a cell of the window's item table.
std::string cell(const DocumentWindow& window, int row, int column);

/// What the modules attached to the items says, row by row.
std::vector<std::string> attachedTexts(const DocumentWindow& window);

}  // namespace Quillane::Desktop
