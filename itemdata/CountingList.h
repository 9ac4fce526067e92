#pragma once

#include <fx.h>

#include "fxext/FXPair.h"
#include "plugin/contract/ManagedObjectList.h"

namespace Quillane::Plugin::ItemData {

/// Distinct texts in the order of their first appearance, each with how often it occurs; owns its pairs.
using CountingList = FX::FXManagedObjectListOf<FXExt::FXPair<FX::FXString, int>>;

}  // namespace Quillane::Plugin::ItemData
