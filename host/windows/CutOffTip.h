#pragma once

#include <fx.h>

#include "plugin/contract/HostApi.h"

namespace Quillane::Host {

/// The tool tip of a table's cells: what of a text its cell is too narrow for. The table hands two messages on to it.
class QUILLANE_HOST_API CutOffTip {
 public:
  /// The text of a cell that is too narrow for it; empty when all of it can be read, or when there is no such cell.
  static FX::FXString getText(const FX::FXTable& table, FX::FXint row, FX::FXint column);

  /// For SEL_MOTION: returns 1 when the application has to ask for the tip anew, else 0.
  long onMotion(const FX::FXTable& table, const FX::FXEvent& event);

  /// For SEL_QUERY_TIP: gives sender the tip for the cell below the pointer and returns 1; 0 when there is none.
  long onQueryTip(FX::FXTable& table, FX::FXObject* sender);

 private:
  FX::FXTablePos pointed = {-1, -1};  // the cell below the pointer, when it moved last
  FX::FXTablePos shown = {-1, -1};    // the cell that has its tip; -1 for none
  bool moving = false;                // whether a tip was taken away so that the next one comes at its own place
};

}  // namespace Quillane::Host
