// Work on several documents with its progress and its report.
#include "host/desktop/BatchRun.h"

#include <libintl.h>

#include "host/desktop/ProgressDialog.h"
#include "host/desktop/ReportDialog.h"
#include "host/windows/LabelText.h"

using namespace FX;

namespace Quillane::Desktop {

namespace {

const char* translate(const char* text) { return dgettext("quillane", text); }

}  // namespace

FXString BatchRun::run(const std::vector<Host::DocumentRow>& rows, const Work& work) {
  const int count = static_cast<int>(rows.size());
  DocumentBatch batch(company);
  bool stopped = false;
  {
    ProgressDialog progress(owner, translate(activity.progress), count);
    progress.setDelay(delay);
    progress.run([&](int index) { work(batch, rows[static_cast<std::size_t>(index)]); });
    stopped = progress.wasStopped();
  }
  if (!stopped && batch.getRefusals().empty()) return FXStringFormat(translate(activity.done), batch.countDone());
  tellRefusals(batch, count, stopped);
  return FXString();
}

void BatchRun::tellRefusals(const DocumentBatch& batch, int count, bool stopped) const {
  const std::vector<FXString>& refusals = batch.getRefusals();
  const FXString summary =
      FXStringFormat(translate(stopped ? activity.stopped : activity.refused), batch.countDone(), count);
  if (refusals.empty()) {
    FXMessageBox::information(owner, MBOX_OK, translate(activity.title), "%s", Host::messageText(summary).text());
  } else if (count == 1) {
    FXMessageBox::error(owner, MBOX_OK, translate(activity.title), "%s", Host::messageText(refusals.front()).text());
  } else {
    ReportDialog(owner, translate(activity.title), summary, refusals, icon).execute(PLACEMENT_OWNER);
  }
}

}  // namespace Quillane::Desktop
