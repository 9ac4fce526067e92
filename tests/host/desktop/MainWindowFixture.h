// The main window on a company file with the sample in it, and with the real module.
#pragma once

#include <fx.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "host/company/Company.h"
#include "host/desktop/CompanyFile.h"
#include "host/desktop/MainWindow.h"
#include "host/windows/IconSet.h"
#include "tests/host/desktop/DocumentWindowFixture.h"

namespace Quillane::Desktop {

/// A folder of the test's own, in which the user's home is, too: the settings that the program writes stay in it.
class MainWindowTest : public testing::Test {
 protected:
  MainWindowTest();
  ~MainWindowTest() override;

  void SetUp() override;
  void TearDown() override;

  /// A path in the test's folder.
  FX::FXString path(const std::string& name) const { return (folder + "/" + name).c_str(); }

  /// Selects these documents, the first of them as the current one.
  void select(const std::vector<int>& ids) const;

  /// Sends a command to the window.
  void command(FX::FXuint id) const { window->handle(nullptr, FXSEL(FX::SEL_COMMAND, id), nullptr); }

  /// Types text into the search field, and waits until it was searched for.
  void search(const std::string& text) const;

  /// How many documents of this status the company has; all without one.
  int count(int status = 0) const;

  std::string folder;
  Host::Company company;
  Host::IconSet icons;
  CompanyFile companyFile;
  std::unique_ptr<MainWindow> window;
};

std::string readFile(const FX::FXString& file);
void writeFile(const FX::FXString& file, const std::string& text);

/// Picks this file, or folder, in the dialog that asks for one.
Answer pickFile(const FX::FXString& file);
Answer pickFolder(const FX::FXString& folder);

}  // namespace Quillane::Desktop
