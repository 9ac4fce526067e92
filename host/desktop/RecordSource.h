#pragma once

#include <fx.h>

#include <vector>

#include "host/desktop/RecordList.h"

namespace Quillane::Desktop {

/// What a list window needs to know of the records that it shows.
class RecordSource {
 public:
  virtual ~RecordSource() = default;

  /// Adds the columns in which the records are shown.
  virtual void addColumns(RecordList& list) const = 0;

  /// Reads the records anew. False with a sentence in error when they cannot be read.
  virtual bool read(std::vector<RecordList::Row>& rows, FX::FXString& error) = 0;

  /// How many records there are; when shown is less than all, how many of them the filter lets through.
  virtual FX::FXString describeCount(int shown, int all) const = 0;

  /// Lets the user enter a new record, beginning with this name. Returns its id; 0 when the user thought better of it.
  virtual int add(FX::FXWindow* owner, const FX::FXString& name) = 0;

  /// Lets the user change a record. False when the user thought better of it.
  virtual bool change(FX::FXWindow* owner, int id) = 0;
};

}  // namespace Quillane::Desktop
