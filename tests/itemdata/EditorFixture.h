#pragma once

#include <fx.h>

#include <array>

#include "plugin/contract/MemoryGuard.h"
#include "tests/itemdata/ItemDataFixture.h"

namespace Quillane::Plugin::ItemData {

using Paddings = std::array<int, 4>;  // left, right, top, bottom
using Place = std::array<int, 4>;     // x, y, width, height; the toolkit makes a size of 0 a 1

/// A form of two columns into which editors can be put; nothing is ever created on a display.
class EditorTest : public ItemDataTest {
 protected:
  EditorTest();
  ~EditorTest() override;

  FX::FXMatrix* matrix;  // owned by its window
  MemoryGuard<FX::FXDataTarget> targets;

 private:
  FX::FXMainWindow* window;  // owned
};

template <class Widget>
Paddings paddingsOf(const Widget& widget) {
  return {widget.getPadLeft(), widget.getPadRight(), widget.getPadTop(), widget.getPadBottom()};
}

Place placeOf(const FX::FXWindow& widget);

/// The options that the widget was made with.
FX::FXuint optionsOf(const FX::FXWindow& widget);

/// Lets the widget take what its data target holds.
void refresh(FX::FXWindow& widget);

}  // namespace Quillane::Plugin::ItemData
