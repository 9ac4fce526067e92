#pragma once

#include "host/desktop/RecordSource.h"
#include "host/document/PartnerStore.h"
#include "host/windows/IconSet.h"

class TarnwellDatabase;

namespace Quillane::Desktop {

/// The company's partners for list windows.
class PartnerSource : public RecordSource {
 public:
  /// Neither is owned; both have to outlive the source.
  PartnerSource(TarnwellDatabase& companyDatabase, const Host::IconSet& iconSet)
      : database(companyDatabase), icons(iconSet) {}

  void addColumns(RecordList& list) const override;
  bool read(std::vector<RecordList::Row>& rows, FX::FXString& error) override;
  FX::FXString describeCount(int shown, int all) const override;
  int add(FX::FXWindow* owner, const FX::FXString& name) override;
  bool change(FX::FXWindow* owner, int id) override;

  /// The partner with this id as it was read; null when there is none.
  const Host::Partner* find(int id) const;

 private:
  TarnwellDatabase& database;
  const Host::IconSet& icons;
  std::vector<Host::Partner> partners;
};

}  // namespace Quillane::Desktop
