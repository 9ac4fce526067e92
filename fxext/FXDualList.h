// Two lists, from which and to which items are chosen.
#pragma once

#include <fx.h>

namespace FXExt {

/// A chooser of two lists with a title each: on the left the items that may be chosen, on the right those that are, in
/// the user's order. Arrow buttons between the lists move the selected items over, as a double click does, and arrow
/// buttons on the right reorder the chosen ones.
///
/// An item moves as its text, icon and data; any other state of it is lost, and its address changes. Neither the data
/// nor the icons belong to the chooser, nor may they belong to an item. An icon that comes after the chooser was
/// created must have been created itself.
///
/// Nobody is told of a change: whoever uses the chooser reads the lists when the user is done.
class FXDualList : public FX::FXHorizontalFrame {
  FXDECLARE(FXDualList)
 public:
  enum {
    ID_FROMLIST = FX::FXHorizontalFrame::ID_LAST + 1,
    ID_TOLIST,
    ID_MAKESELECTED,
    ID_MAKEUNSELECTED,
    ID_MOVEUP,
    ID_MOVEDOWN,
    ID_LAST,
  };

  /// A chooser with two empty lists. In a title "&" marks a mnemonic.
  FXDualList(FX::FXComposite* container, const FX::FXString& fromTitle, const FX::FXString& toTitle, FX::FXuint opts);

  /// Adds an item at the end of the left list or of the right one, not selected. Return its index there.
  FX::FXint appendFromListItem(const FX::FXString& text, FX::FXIcon* icon, void* itemData);
  FX::FXint appendToListItem(const FX::FXString& text, FX::FXIcon* icon, void* itemData);

  /// The parts, owned by the chooser.
  FX::FXList* getFromList() const { return fromList; }
  FX::FXList* getToList() const { return toList; }

  /// Move the selected items to the end of the other list, where they are selected: to the right, to the left.
  long onCmdMakeSelected(FX::FXObject* sender, FX::FXSelector sel, void* ptr);
  long onCmdMakeUnSelected(FX::FXObject* sender, FX::FXSelector sel, void* ptr);

  /// Move each selected item of the right list by one place. One that cannot go further changes places with its
  /// selected neighbour.
  long onCmdMoveUp(FX::FXObject* sender, FX::FXSelector sel, void* ptr);
  long onCmdMoveDown(FX::FXObject* sender, FX::FXSelector sel, void* ptr);

 protected:
  FXDualList();

 private:
  FX::FXList* fromList;  // not chosen; owned by the window tree
  FX::FXList* toList;    // chosen, in the user's order; owned by the window tree

  void createFromColumn(const FX::FXString& title);
  void createToColumn(const FX::FXString& title);

  FXDualList(const FXDualList&) = delete;
  FXDualList& operator=(const FXDualList&) = delete;
};

static_assert(FXDualList::ID_FROMLIST == 55 && FXDualList::ID_MOVEDOWN == 60,
              "the numbers that the message map and its senders go by");

}  // namespace FXExt
