#pragma once

#include <fx.h>

#include <vector>

namespace Quillane::Desktop {

/// Tells the user several sentences, one below the other, as many as there are.
class ReportDialog : public FX::FXDialogBox {
  FXDECLARE(ReportDialog)
 public:
  /// summary stands above the sentences and says what they are about. The icon is not owned and may be null.
  ReportDialog(FX::FXWindow* ownerWindow, const FX::FXString& windowTitle, const FX::FXString& summary,
               const std::vector<FX::FXString>& sentences, FX::FXIcon* summaryIcon = nullptr);

  /// What is shown, for programs that read it.
  FX::FXString getSummary() const { return summaryLabel->getText(); }
  FX::FXString getSentences() const { return text->getText(); }

  ReportDialog(const ReportDialog&) = delete;
  ReportDialog& operator=(const ReportDialog&) = delete;

 protected:
  ReportDialog() = default;

 private:
  void createSummary(const FX::FXString& summary, FX::FXIcon* summaryIcon);
  void createText(const std::vector<FX::FXString>& sentences);
  void createButtons();

  FX::FXLabel* summaryLabel = nullptr;  // owned by the window tree
  FX::FXText* text = nullptr;           // owned by the window tree
};

}  // namespace Quillane::Desktop
