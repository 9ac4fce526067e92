// The desktop as its user has it, and the user.
#pragma once

#include <fx.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/company/Company.h"
#include "host/desktop/CompanyFile.h"
#include "host/desktop/DocumentWindow.h"
#include "host/desktop/MainWindow.h"
#include "host/windows/IconSet.h"
#include "tests/support/KeyScript.h"
#include "tests/support/TestCompany.h"

namespace Quillane::Desktop {

constexpr char kCtrl[] = "Control_L";
constexpr char kAlt[] = "Alt_L";

/// The windows of the type below parent, in their order.
template <class T>
std::vector<T*> findChildren(const FX::FXWindow& parent) {
  std::vector<T*> found;
  for (FX::FXWindow* child = parent.getFirst(); child; child = child->getNext()) {
    if (auto* wanted = dynamic_cast<T*>(child)) found.push_back(wanted);
    const std::vector<T*> below = findChildren<T>(*child);
    found.insert(found.end(), below.begin(), below.end());
  }
  return found;
}

/// The first of them; null when there is none.
template <class T>
T* findChild(const FX::FXWindow& parent) {
  const std::vector<T*> found = findChildren<T>(parent);
  return found.empty() ? nullptr : found.front();
}

/// The program's windows with the real module on the sample company, in a file and a home of their own. A test says
/// step by step what the user does and sees, and then walks that road.
class DesktopTest : public testing::Test {
 protected:
  using Find = std::function<FX::FXTopWindow*()>;
  using FindTable = std::function<FX::FXTable*()>;
  using Condition = TestSupport::KeyScript::Condition;
  using Action = TestSupport::KeyScript::Action;

  void SetUp() override;
  void TearDown() override;

  /// Walks the road that the steps make.
  void walk();

  // ---- where the user looks

  /// The program's first window; null while it is covered by a dialog.
  FX::FXTopWindow* mainWindow() const;

  /// The window of a document that was opened last; null while there is none, or while it is covered by a dialog.
  DocumentWindow* document() const;

  /// The dialog that waits for an answer, when it is a T; else null.
  template <class T>
  static T* dialogOf() {
    return dynamic_cast<T*>(testAccount().getModalWindow());
  }

  static FX::FXDialogBox* itemDataDialog();

  /// The table of unit rows in it; null while it is not there.
  static FX::FXTable* unitTable();

  /// A cell of the document's items.
  std::string itemCell(int row, int column) const;

  /// The number that a query gives; -1 when it fails.
  int count(const std::string& sql) const;

  /// The rows of a result, with "|" between the values.
  std::vector<std::string> lines(const std::string& sql) const;

  // ---- what the user does, step by step

  /// Waits until the condition holds, and looks.
  void see(
      const std::string& what, const Condition& condition, const Action& check = [] {});

  /// Looks, or acts, as soon as what came before is done.
  void then(const std::string& what, const Action& action);

  /// Takes the keyboard to the window, when it is there, and acts once the condition holds.
  void at(
      const std::string& what, const Find& find, const Action& action,
      const Condition& condition = [] { return true; });

  /// The same in the dialog of the type.
  template <class T>
  void atDialog(
      const std::string& what, const Action& action, const Condition& condition = [] { return true; }) {
    at(
        what, [] { return static_cast<FX::FXTopWindow*>(dialogOf<T>()); }, action, condition);
  }

  void atMain(
      const std::string& what, const Action& action, const Condition& condition = [] { return true; });
  void atDocument(
      const std::string& what, const Action& action, const Condition& condition = [] { return true; });
  void atItemData(
      const std::string& what, const Action& action, const Condition& condition = [] { return true; });

  /// Goes to a cell of the table, which has the keyboard, with the arrow keys.
  void goTo(const FindTable& table, int row, int column);

  /// Types a text over that of the current cell.
  void typeIntoCell(const FindTable& table, const std::string& text);

  /// The same after it went there.
  void typeIntoCell(const FindTable& table, int row, int column, const std::string& text);

  /// Answers the question that comes up with Return, which is yes.
  void sayYes();

  /// Adds an item of the one product whose name contains this to the document.
  void addItem(const std::string& product, const std::string& quantity);

  /// Begins a new invoice with the one partner and an item of the one product whose names contain these.
  void writeInvoice(const std::string& partner, const std::string& product, const std::string& quantity);

  /// Stores the document, which was changed.
  void save();

  /// Opens the one document that is found by text.
  void findDocument(const std::string& text);

  /// Closes the document's window and opens the document again, which is the one that is found by text.
  void openAgain(const std::string& text);

  std::string folder;
  std::unique_ptr<Host::Company> company;
  std::unique_ptr<CompanyFile> file;
  std::unique_ptr<Host::IconSet> icons;
  std::unique_ptr<MainWindow> window;
  TestSupport::KeyScript script;
};

}  // namespace Quillane::Desktop
