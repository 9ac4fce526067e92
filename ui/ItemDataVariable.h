#pragma once

#include <fx.h>

class TarnwellDatabase;

namespace Quillane::Plugin::ItemData::UI {

/// An item variable as the association panel offers it for one article and one direction, and its assignment, which is
/// a row of the article kind's assignment table. A new one is all zeros, without a name.
class ItemDataVariable : public FX::FXObject {
 public:
  /// The documents that an assignment is for, as the assignment tables store it.
  enum Direction { DIRECTION_OUTGOING = 100, DIRECTION_INCOMING = 200 };

  /// The query for every variable that is not built in, each with its assignment in this table, the unassigned ones
  /// first and then the others in their order. Its parameters are "productid", the article's id, and "direction"; its
  /// columns are those that takeColumn knows. There is one text for each direction.
  static FX::FXString getIncomingSql(const FX::FXString& table, const FX::FXString& keyColumn);
  static FX::FXString getOutgoingSql(const FX::FXString& table, const FX::FXString& keyColumn);

  /// Takes over one column of a row of the query; text may be null. Columns that it has no use for are ignored.
  void takeColumn(int column, const char* text);

  /// Inserts the assignment into table with this position (1 is the first), or updates its position there when it is
  /// another one. The variable is not changed: after an insert it still counts as not stored.
  void saveAssigned(TarnwellDatabase* db, const FX::FXString& table, const FX::FXString& keyColumn,
                    unsigned int newPosition) const;

  /// Deletes the assignment's row from table when there is one.
  void saveNotAssigned(TarnwellDatabase* db, const FX::FXString& table) const;

  int assignId = 0;          // the key of the assignment's row, 0 while it is not assigned
  int itemvariable = 0;      // the variable's id
  int productid = 0;         // the article's id
  FX::FXString name;         // the variable's name
  FX::FXuchar assigned = 0;  // 1 when the assignment's row exists
  int type = 0;              // the variable's type, one of ItemDataEntry::Type
  int direction = 0;         // one of Direction
  int position = 0;          // the place that is stored, 1 for the first
  int mandatory = 0;         // 1 when a value is required
};

}  // namespace Quillane::Plugin::ItemData::UI
