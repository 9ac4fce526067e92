// Work on several stored documents.
#include "host/desktop/DocumentBatch.h"

#include <libintl.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <memory>

#include "host/document/DocumentRules.h"
#include "host/xml/DocumentXml.h"

using namespace FX;

namespace Quillane::Desktop {

namespace {

constexpr char kForbiddenInFileNames[] = "/\\:*?\"<>|";
constexpr char kUnfinishedEnding[] = ".part";

/// Writes text beside file and then puts it in its place, so that a full disk does not cost the earlier file.
bool replaceFile(const FXString& file, const FXString& text, FXString& reason) {
  const FXString unfinished = file + kUnfinishedEnding;
  errno = 0;
  std::ofstream stream(unfinished.text(), std::ios::binary | std::ios::trunc);
  stream.write(text.text(), text.length());
  stream.close();
  if (stream && std::rename(unfinished.text(), file.text()) == 0) return true;
  reason = std::strerror(errno);
  std::remove(unfinished.text());
  return false;
}

}  // namespace

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
  const std::unique_ptr<Host::Document> document = company.getDocuments().load(row.id, error);
  if (!document) return note(false, error);
  FXString reason;
  if (replaceFile(file, Host::documentToXml(*document, company.getHooks()), reason)) return note(true, error);
  return note(false, FXStringFormat(dgettext("quillane", "%s: nem írható ide: %s (%s)."), describe(row).text(),
                                    file.text(), reason.text()));
}

FXString DocumentBatch::describe(const Host::DocumentRow& row) {
  if (!row.number.empty()) return FXStringFormat("%s %s", row.statusName.text(), row.number.text());
  return FXStringFormat("%s, %s #%d", row.statusName.text(), row.partner.text(), row.id);
}

FXString DocumentBatch::makeFileName(const Host::DocumentRow& row) {
  const FXString called = row.number.empty() ? FXStringFormat("#%d", row.id) : row.number;
  FXString name = row.statusName + " " + called + ".xml";
  for (FXint i = 0; i < name.length(); ++i) {
    const FXuchar byte = static_cast<FXuchar>(name[i]);
    if (byte < ' ' || std::strchr(kForbiddenInFileNames, byte)) name[i] = '-';
  }
  return name;
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
