// A new company is made in a file beside the one it is to have, and gets its name when it is complete: whatever goes
// wrong meanwhile, no half-made company is left under that name.
#include "host/command/InitCommand.h"

#include <fcntl.h>
#include <libintl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "host/company/SampleCompany.h"

using namespace FX;

namespace Quillane::Commands {

namespace {

constexpr char kInMemory[] = ":memory:";

/// A database file that is still being made. It is gone with this object, unless it was given its name.
class UnfinishedFile {
 public:
  explicit UnfinishedFile(const FXString& finalName)
      : target(finalName), name(FXStringFormat("%s.new-%d", finalName.text(), static_cast<int>(getpid()))) {}

  ~UnfinishedFile() {
    if (!made) return;
    for (const char* suffix : {"", "-journal", "-wal", "-shm"}) unlink((name + suffix).text());
  }

  UnfinishedFile(const UnfinishedFile&) = delete;
  UnfinishedFile& operator=(const UnfinishedFile&) = delete;

  bool make() {
    const int descriptor = open(name.text(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, 0666);
    if (descriptor < 0) return false;
    close(descriptor);
    made = true;
    return true;
  }

  /// Gives the file its name; false when that exists by now. Not every file system can promise that.
  bool finish() {
    int result = renameat2(AT_FDCWD, name.text(), AT_FDCWD, target.text(), RENAME_NOREPLACE);
    if (result != 0 && (errno == EINVAL || errno == ENOSYS)) result = std::rename(name.text(), target.text());
    if (result != 0) return false;
    made = false;
    return true;
  }

  const FXString& getName() const { return name; }

 private:
  FXString target;
  FXString name;
  bool made = false;
};

Outcome cannotCreate(const FXString& file, int reason) {
  return Outcome::refused(
      FXStringFormat(dgettext("quillane", "A cégfájl nem hozható létre: %s (%s)"), file.text(), std::strerror(reason)));
}

}  // namespace

const char* InitCommand::getDescription() const {
  return dgettext("quillane", "Létrehozza a cég fájlját, vagy naprakész állapotba hozza a meglévőt");
}

void InitCommand::declareOptions(OptionSet& options) {
  options.addFlag("--sample", sample, dgettext("quillane", "az új cég egy kis mintacég legyen"));
}

Outcome InitCommand::run(CommandContext& context) {
  const FXString& file = context.companyFile;
  if (file == kInMemory) {
    return Outcome::wrongCall(dgettext("quillane", "A cégnek fájlra van szüksége: adja meg a --db kapcsolóval."));
  }
  const bool exists = FXStat::exists(file);
  const Outcome outcome = exists ? bringUpToDate(context.company, file) : create(context);
  if (outcome.succeeded()) tell(context, !exists);
  return outcome;
}

void InitCommand::tell(CommandContext& context, bool created) const {
  const FXString& file = context.companyFile;
  if (context.output.isJson()) {
    context.output.writeJson({{"file", Output::toJson(file)}, {"created", created}});
    return;
  }
  const char* sentence =
      created ? dgettext("quillane", "Elkészült az új cég: %s") : dgettext("quillane", "A cég adatai naprakészek: %s");
  if (sample) {
    sentence = created ? dgettext("quillane", "Elkészült az új cég a mintaadatokkal: %s")
                       : dgettext("quillane", "A cég megkapta a mintaadatokat: %s");
  }
  context.output.writeLine({FXStringFormat(sentence, file.text())});
}

Outcome InitCommand::create(CommandContext& context) const {
  UnfinishedFile unfinished(context.companyFile);
  if (!unfinished.make()) return cannotCreate(context.companyFile, errno);
  const Outcome outcome = bringUpToDate(context.company, unfinished.getName());
  context.company.close();
  if (!outcome.succeeded()) return outcome;
  return unfinished.finish() ? outcome : cannotCreate(context.companyFile, errno);
}

Outcome InitCommand::bringUpToDate(Host::Company& company, const FXString& file) const {
  FXString error;
  if (!company.openUpToDate(file, error)) return Outcome::refused(error);
  if (sample && !Host::SampleCompany::fill(company.getDatabase(), error)) return Outcome::refused(error);
  return Outcome::success();
}

}  // namespace Quillane::Commands
