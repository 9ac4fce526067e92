#pragma once

#include <fx.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "plugin/contract/PluginContainer.h"
#include "tests/support/TestCompany.h"
#include "ui/ItemDataSettingsPanel.h"

namespace Quillane::Plugin::ItemData {

/// The columns of the settings table.
enum SettingsColumn { NAME, TYPE, PER_UNIT, MANDATORY, PARAMETER };

/// A message box that came up and was answered.
struct Question {
  std::string title;
  std::string text;
  int buttons;
  FX::FXWindow* owner;  // null when it belongs to the application
};

/// Settings over a company with the module's tables. fillVariables gives it 5 "Gyári szám" (a text, per unit,
/// mandatory), 7 "Szín" (a list of "piros,kék") and 12 "Lejárat" (a date, mandatory).
class SettingsTest : public testing::Test {
 protected:
  SettingsTest();

  void fillVariables() const;

  /// Assigns the variable to that many new products ("product"), services ("service") or suites ("suite").
  void assign(const std::string& article, int variable, int count = 1) const;

  /// Records that many values of the variable.
  void record(int variable, int count) const;

  /// Makes the panel, as large as its caller makes it, and creates it.
  void open();

  DBTable& table() const { return *panel->getTable(); }

  /// The rows as lines: "7: Szín|Lista|-|x|piros,kék", x for a checked box.
  std::vector<std::string> rows() const;

  /// Adds a row as the user does and fills it; type is the key of the choice.
  void addRow(const char* name, const char* type, const char* parameter = "") const;

  /// Sends the panel one of its commands, from nobody.
  long command(FX::FXuint id) const;

  /// The message boxes that come up while action runs, each answered by this command (FXMessageBox::ID_CLICKED_YES).
  static std::vector<Question> answer(FX::FXuint command, const std::function<void()>& action);

  /// What is executed while action runs.
  std::vector<std::string> watch(const std::function<void()>& action) const;

  /// All variables that the user defined, as stored.
  Grid stored() const;

  TestCompany company;
  PluginContainer container{&testAccount(), "QuillanePluginItemData", "Egyéb tételadatok", "1", "Leírás"};
  std::unique_ptr<ItemDataSettingsPanel> panel;
};

}  // namespace Quillane::Plugin::ItemData
