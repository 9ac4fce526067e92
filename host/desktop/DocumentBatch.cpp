// Work on several stored documents.
#include "host/desktop/DocumentBatch.h"

#include <libintl.h>

#include <memory>

#include "host/desktop/XmlFile.h"
#include "host/document/DocumentRules.h"

using namespace FX;

namespace Quillane::Desktop {

bool DocumentBatch::close(const Host::DocumentRow& row) {
  FXString error;
  const std::unique_ptr<Host::Document> document = company.getDocuments().load(row.id, error);
  if (!document) return note(false, error);
  const Host::DocumentRules::Family* family = Host::DocumentRules::findFamilyOfDraft(document->getStatus());
  if (!family) {
    return note(false,
                FXStringFormat(dgettext("quillane", "%s: nem piszkozat, ezért nem zárható le."), describe(row).text()));
  }
  Host::DocumentCheck check;
  return note(company.getDocumentLife(check).changeStatus(*document, family->closed, error), error);
}

bool DocumentBatch::remove(const Host::DocumentRow& row) {
  FXString error;
  Host::DocumentCheck check;
  return note(company.getDocumentLife(check).remove(row.id, error), error);
}

bool DocumentBatch::exportTo(const FXString& file, const Host::DocumentRow& row) {
  FXString error;
  return note(XmlFile::write(company, row.id, describe(row), file, error), error);
}

FXString DocumentBatch::describe(const Host::DocumentRow& row) {
  if (!row.number.empty()) return FXStringFormat("%s %s", row.statusName.text(), row.number.text());
  return FXStringFormat("%s, %s #%d", row.statusName.text(), row.partner.text(), row.id);
}

FXString DocumentBatch::makeFileName(const Host::DocumentRow& row) {
  return XmlFile::makeName(row.statusName, row.number, row.id);
}

bool DocumentBatch::note(bool succeeded, const FXString& error) {
  if (succeeded) {
    ++done;
  } else {
    refusals.push_back(error);
  }
  return succeeded;
}

}  // namespace Quillane::Desktop
