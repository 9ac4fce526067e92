#pragma once

#include <fx.h>

#include <functional>
#include <vector>

#include "host/desktop/DocumentBatch.h"

namespace Quillane::Desktop {

/// Work on several documents as the user sees it: a window shows how far it has come and stops it on request, and what
/// was refused is told afterwards. What is done stays done.
class BatchRun {
 public:
  /// The work in words, which are translated when they are shown.
  struct Activity {
    const char* title;
    const char* progress;
    const char* done;     ///< all of the documents: their number
    const char* refused;  ///< some of them: how many, of how many; sentences follow
    const char* stopped;  ///< when the user stopped it: how many, of how many
  };

  using Work = std::function<void(DocumentBatch& batch, const Host::DocumentRow& row)>;

  /// Nothing is owned, and all have to outlive the object.
  BatchRun(FX::FXWindow* ownerWindow, Host::Company& openCompany, const Activity& whatIsDone, FX::FXIcon* reportIcon)
      : owner(ownerWindow), company(openCompany), activity(whatIsDone), icon(reportIcon) {}

  /// Does the work on each of the documents, in order. Returns a sentence when all went well; an empty text when the
  /// user was told of what was refused or stopped.
  FX::FXString run(const std::vector<Host::DocumentRow>& rows, const Work& work);

  /// The progress window comes up when the work is not over after so many milliseconds; for tests.
  void setDelay(int milliseconds) { delay = milliseconds; }

 private:
  void tellRefusals(const DocumentBatch& batch, int count, bool stopped) const;

  FX::FXWindow* owner;  // not owned
  Host::Company& company;
  const Activity& activity;
  FX::FXIcon* icon;  // not owned
  int delay = 500;
};

}  // namespace Quillane::Desktop
