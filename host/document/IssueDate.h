#pragma once

#include <fx.h>

namespace Quillane::Host {

/// Today's local date as documents are stored with it: YYYY-MM-DD.
FX::FXString todayAsIssueDate();

}  // namespace Quillane::Host
