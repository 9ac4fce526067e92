// The windows in which fields are defined and assigned.
#pragma once

#include <fx.h>

#include <string>
#include <vector>

#include "plugin/contract/DBTable.h"
#include "tests/endtoend/DesktopFixture.h"

namespace Quillane::Desktop {

/// The columns of the settings.
enum SettingsColumn { NAME, TYPE, PER_UNIT, MANDATORY, PARAMETER };

/// The directions, as the article's window names them.
constexpr char kIncoming[] = "Bejövő";
constexpr char kOutgoing[] = "Kimenő";

class FieldTest : public DesktopTest {
 protected:
  /// What an article asks for in one direction, as its window shows it.
  struct Chooser {
    FX::FXList* from;  // what may be chosen
    FX::FXList* to;    // what is chosen
    FX::FXArrowButton* choose;
    FX::FXArrowButton* giveUp;
    FX::FXArrowButton* up;
    FX::FXArrowButton* down;
  };

  // ---- the settings

  /// The settings of the module; null while they are not open or covered.
  static FX::FXDialogBox* settings();
  static DBTable* settingsTable();

  /// The same for goTo and typeIntoCell.
  static FX::FXTable* settingsCells() { return settingsTable(); }

  /// The row of the variable with this name; -1 when there is none.
  static int findVariable(const std::string& name);

  /// From the menu of the main window.
  void openSettings();
  void atSettings(
      const std::string& what, const Action& action, const Condition& condition = [] { return true; });

  /// Adds a list of these choices as a new row, recorded once per unit. Without choices that cell is left alone.
  void addList(const std::string& name, const std::string& choices);

  /// Goes to the variable's row.
  void goToVariable(const std::string& name);

  /// Presses OK.
  void acceptSettings();

  /// Goes on when the main window can be worked in again.
  void seeMain();

  // ---- the article

  static Chooser chooser(const std::string& direction);

  /// The texts of a list, in its order.
  static std::vector<std::string> texts(const FX::FXList& list);

  /// Opens the window of the one product whose name contains this, on the tab of its fields.
  void openFields(const std::string& product);

  /// Clicks on the items, which are all of them that are selected then.
  void selectChosen(const std::string& direction, const std::vector<std::string>& names);

  /// Moves a variable to the chosen ones, or away from them.
  void choose(const std::string& direction, const std::string& name);
  void giveUp(const std::string& direction, const std::string& name);

  /// Clicks on one of the chooser's arrows; goes on when these are chosen in this order.
  void clickArrow(const std::string& what, FX::FXArrowButton* Chooser::*arrow, const std::string& direction,
                  const std::vector<std::string>& expected);

  /// Presses OK in the article's window.
  void acceptArticle();

  /// Leaves the article's window by Escape.
  void cancelArticle();

  /// Closes the list of articles, when it can be worked in again.
  void closeArticles();

  // ---- what both say

  /// The text of the message box that waits for an answer, in one line.
  static std::string messageText();

  // ---- what is stored

  /// The assignments of a product, "variable position direction" in the order of direction and position.
  std::vector<std::string> assignments(int product) const;

  int findVariableId(const std::string& name) const;
};

}  // namespace Quillane::Desktop
