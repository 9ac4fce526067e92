// Documents as XML files.
#include "host/desktop/XmlFile.h"

#include <libintl.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <memory>

#include "host/desktop/CompanyFile.h"
#include "host/desktop/FilePicker.h"
#include "host/document/DocumentStore.h"
#include "host/xml/DocumentXml.h"

using namespace FX;

namespace Quillane::Desktop {

namespace {

constexpr char kForbiddenInFileNames[] = "/\\:*?\"<>|";
constexpr char kUnfinishedEnding[] = ".part";
constexpr char kSection[] = "Export";
constexpr char kFolderKey[] = "Folder";

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

FXString XmlFile::makeName(const FXString& statusName, const FXString& number, int id) {
  const FXString called = number.empty() ? FXStringFormat("#%d", id) : number;
  FXString name = statusName + " " + called + ".xml";
  for (FXint i = 0; i < name.length(); ++i) {
    const FXuchar byte = static_cast<FXuchar>(name[i]);
    if (byte < ' ' || std::strchr(kForbiddenInFileNames, byte)) name[i] = '-';
  }
  return name;
}

FXString XmlFile::getFolder(FXApp& application) {
  const FXString remembered = application.reg().readStringEntry(kSection, kFolderKey, "");
  return FXStat::isDirectory(remembered) ? remembered : CompanyFile::getDocumentFolder();
}

void XmlFile::rememberFolder(FXApp& application, const FXString& folder) {
  application.reg().writeStringEntry(kSection, kFolderKey, folder.text());
}

bool XmlFile::ask(FXWindow* owner, const FXString& name, FXString& file) {
  file = getFolder(*owner->getApp()) + PATHSEPSTRING + name;
  const FilePicker picker(owner, dgettext("quillane", "XML exportálása"),
                          dgettext("quillane", "XML-fájlok (*.xml)\nMinden fájl (*)"));
  if (!picker.askTarget(file)) return false;
  rememberFolder(*owner->getApp(), FXPath::directory(file));
  return true;
}

bool XmlFile::write(const Host::Company& company, int id, const FXString& called, const FXString& file,
                    FXString& error) {
  const std::unique_ptr<Host::Document> document = company.getDocuments().load(id, error);
  if (!document) return false;
  FXString reason;
  if (replaceFile(file, Host::documentToXml(*document, company.getHooks()), reason)) return true;
  error =
      FXStringFormat(dgettext("quillane", "%s: nem írható ide: %s (%s)."), called.text(), file.text(), reason.text());
  return false;
}

}  // namespace Quillane::Desktop
