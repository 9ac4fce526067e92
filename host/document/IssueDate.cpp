// The date that new documents begin with.
#include "host/document/IssueDate.h"

using namespace FX;

namespace Quillane::Host {

FXString todayAsIssueDate() {
  const FXDate day = FXDate::localDate();
  return FXStringFormat("%04d-%02d-%02d", day.year(), day.month(), day.day());
}

}  // namespace Quillane::Host
