// Takes the command line apart with CLI11, and says in the user's language what is wrong with it.
//
//  1. Standard output carries what was asked for and nothing else; everything said to the person goes to standard
//     error.
//  2. The company, and with it every module, is closed before the output counts as written.
#include "host/command/CommandLine.h"

#include <libintl.h>

#include <CLI/CLI.hpp>
#include <cstdlib>

#include "host/command/AddArticleCommand.h"
#include "host/command/AddAssignmentCommand.h"
#include "host/command/AddDocumentCommand.h"
#include "host/command/AddItemCommand.h"
#include "host/command/AddPartnerCommand.h"
#include "host/command/AddVariableCommand.h"
#include "host/command/CheckCommand.h"
#include "host/command/DeleteCommand.h"
#include "host/command/DeriveCommand.h"
#include "host/command/FindCommand.h"
#include "host/command/HelpFormatter.h"
#include "host/command/InitCommand.h"
#include "host/command/ListCommand.h"
#include "host/command/PluginsCommand.h"
#include "host/command/RecordCommand.h"
#include "host/command/SaveCommand.h"
#include "host/command/ShowCommand.h"
#include "host/command/StatusCommand.h"
#include "host/command/TextCommand.h"
#include "host/command/Wording.h"
#include "host/command/XmlCommand.h"
#include "host/company/SqlTrace.h"

using namespace FX;

namespace Quillane::Commands {

namespace {

constexpr char kFileVariable[] = "QUILLANE_DB";

void say(const FXString& sentence) { std::fprintf(stderr, "quillanectl: %s\n", sentence.text()); }

/// The toolkit would take options for itself out of the command line, so it gets none of it.
void initWithoutDisplay(Tarnwell& account) {
  static char programName[] = "quillanectl";
  static char* arguments[] = {programName, nullptr};
  int count = 1;
  account.init(count, arguments, FALSE);
}

/// What a caller can do about a company that was not opened; empty when that is not known.
FXString adviseOn(Host::Company::Refusal refusal, const FXString& file) {
  switch (refusal) {
    case Host::Company::NO_FILE:
      return FXStringFormat(dgettext("quillane", "Létrehozása: quillanectl --db %s init"), file.text());
    case Host::Company::NO_COMPANY:
      return dgettext("quillane", "Adja meg a --db kapcsolóval a cég fájlját.");
    case Host::Company::INCOMPLETE:
      return FXStringFormat(dgettext("quillane", "Kiegészítése: quillanectl --db %s init"), file.text());
    default:
      return FXString();
  }
}

Outcome openFile(Host::Company& company, const FXString& file) {
  FXString error;
  if (company.open(file, error)) return Outcome::success();
  const FXString advice = adviseOn(company.getRefusal(), file);
  return Outcome::refused(advice.empty() ? error : error + " " + advice);
}

Outcome openInMemory(Host::Company& company) {
  FXString error;
  return company.openInMemory(error) ? Outcome::success() : Outcome::refused(error);
}

/// The parser of the innermost command that was called.
const CLI::App* findInnermost(const CLI::App* parser) {
  while (!parser->get_subcommands().empty()) parser = parser->get_subcommands().front();
  return parser;
}

/// The name of the first option or argument that has to be given and was not; empty when there is none.
std::string findMissing(const CLI::App* parser) {
  for (const CLI::Option* option : parser->get_options()) {
    if (option->get_required() && option->count() == 0) return option->get_name();
  }
  return std::string();
}

FXString explain(const CLI::App& parser, const CLI::ParseError& error) {
  const std::vector<std::string> unknown = parser.remaining(true);
  const CLI::App* called = findInnermost(&parser);
  const bool commandMissing = !called->get_subcommands({}).empty();
  if (!unknown.empty()) {
    const FXString name = quoteText(unknown.front().c_str());
    if (commandMissing && unknown.front()[0] != '-') {
      return FXStringFormat(dgettext("quillane", "Nincs ilyen parancs: „%s”."), name.text());
    }
    return FXStringFormat(dgettext("quillane", "Nem értelmezhető: „%s”."), name.text());
  }
  if (commandMissing) return dgettext("quillane", "Hiányzik a parancs.");
  const std::string missing = findMissing(called);
  if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::RequiredError) && !missing.empty()) {
    return FXStringFormat(dgettext("quillane", "Hiányzik: %s."), missing.c_str());
  }
  if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::ArgumentMismatch)) {
    const std::string text = error.what();
    return FXStringFormat(dgettext("quillane", "%s: pontosan egy értéket vár."),
                          text.substr(0, text.find(':')).c_str());
  }
  return error.what();
}

void nameHelpOption(CLI::App& parser) {
  parser.set_help_flag("-h,--help", dgettext("quillane", "kiírja ezt a segítséget"));
  parser.get_help_ptr()->group(dgettext("quillane", "Kapcsolók"));
}

CLI::App& addSubcommand(CLI::App& parent, const char* name, const char* description) {
  CLI::App* parser = parent.add_subcommand(name, description);
  parser->group(dgettext("quillane", "Parancsok"));
  parser->fallthrough();  // so that --json can also stand behind the command
  nameHelpOption(*parser);
  return *parser;
}

}  // namespace

CommandLine::CommandLine() {
  parser = std::make_unique<CLI::App>(
      dgettext("quillane", "Számlák és a tételeikhez rögzített adatok, képernyő nélkül"), "quillanectl");
  parser->formatter(std::make_shared<HelpFormatter>());
  parser->option_defaults()->group(dgettext("quillane", "Kapcsolók"));
  nameHelpOption(*parser);
  parser->require_subcommand(1);
  parser->footer(dgettext("quillane",
                          "Kilépési kód: 0 rendben, 1 az adatok nem engedik, 2 hibás hívás.\n"
                          "Egy parancs segítsége: quillanectl PARANCS --help"));
  OptionSet options(*parser);
  options.addOption("--db", "FILE", givenFile,
                    dgettext("quillane", "a cég fájlja; ha nincs megadva, a QUILLANE_DB környezeti változó szerint"));
  options.addFlag("--json", json, dgettext("quillane", "egyetlen JSON-értéket ír ki"));
  options.addFlag("--trace-sql", traceSql,
                  dgettext("quillane", "a szabványos hibakimenetre írja az SQL-utasításokat, soronként egy JSON-t"));

  addCommand(*parser, std::make_unique<InitCommand>());
  addCommand(*parser, std::make_unique<PluginsCommand>());
  addCommand(*parser, ListCommand::makeVariables());
  addCommand(*parser, ListCommand::makeArticles());
  addCommand(*parser, ListCommand::makeInvoices());
  addCommand(*parser, std::make_unique<ShowCommand>());
  addCommand(*parser, std::make_unique<CheckCommand>());
  addCommand(*parser, std::make_unique<TextCommand>());
  addCommand(*parser, std::make_unique<XmlCommand>());
  addCommand(*parser, std::make_unique<RecordCommand>());
  addCommand(*parser, std::make_unique<SaveCommand>());
  addCommand(*parser, std::make_unique<DeriveCommand>());
  addCommand(*parser, std::make_unique<StatusCommand>());
  addCommand(*parser, std::make_unique<DeleteCommand>());
  addRecordCommands();
  addCommand(*parser, std::make_unique<FindCommand>());
}

CommandLine::~CommandLine() = default;

void CommandLine::addRecordCommands() {
  CLI::App& add = addSubcommand(*parser, "add", dgettext("quillane", "Új adat felvétele; kiírja az azonosítóját"));
  add.require_subcommand(1);
  const char* articleDescriptions[kArticleKindCount] = {
      dgettext("quillane", "Új termék"), dgettext("quillane", "Új szolgáltatás"), dgettext("quillane", "Új csomag")};
  addCommand(add, std::make_unique<AddPartnerCommand>());
  for (int i = 0; i < kArticleKindCount; ++i) {
    addCommand(add, std::make_unique<AddArticleCommand>(kArticleKinds[i], articleDescriptions[i]));
  }
  addCommand(add, std::make_unique<AddVariableCommand>());
  addCommand(add, std::make_unique<AddAssignmentCommand>());
  addCommand(add, std::make_unique<AddDocumentCommand>());
  addCommand(add, std::make_unique<AddItemCommand>());
}

void CommandLine::addCommand(CLI::App& parent, std::unique_ptr<Command> command) {
  CLI::App& subcommand = addSubcommand(parent, command->getName(), command->getDescription());
  OptionSet options(subcommand);
  command->declareOptions(options);
  commands.emplace_back(&subcommand, std::move(command));
}

int CommandLine::run(int argc, const char* const* argv) {
  try {
    parser->parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return tellParseError(error);
  }
  Output output(stdout, json);
  Host::SqlTrace trace(stderr);
  Tarnwell account;
  initWithoutDisplay(account);
  Host::Company company(account);
  if (traceSql) company.setObserver(&trace);
  const Outcome outcome = runCommand(*findCalled(), company, output);
  company.close();
  return finish(outcome, output);
}

int CommandLine::tellParseError(const CLI::ParseError& error) const {
  if (error.get_exit_code() == 0) {  // help was asked for
    const std::string help = parser->help();
    Output output(stdout);
    output.writeText(FXString(help.data(), static_cast<FXint>(help.size())));
    return finish(Outcome::success(), output);
  }
  say(explain(*parser, error) + " " + dgettext("quillane", "Segítség: quillanectl --help"));
  return Outcome::WRONG_CALL;
}

Command* CommandLine::findCalled() const {
  for (const auto& [subcommand, command] : commands) {
    if (subcommand->parsed()) return command.get();
  }
  return nullptr;
}

Outcome CommandLine::findCompanyFile(FXString& file) const {
  const char* environment = std::getenv(kFileVariable);
  file = givenFile ? *givenFile : FXString(environment ? environment : "");
  if (!file.empty()) return Outcome::success();
  return Outcome::wrongCall(dgettext("quillane",
                                     "Hiányzik a cég fájlja: adja meg a --db kapcsolóval vagy a QUILLANE_DB "
                                     "környezeti változóban."));
}

Outcome CommandLine::runCommand(Command& command, Host::Company& company, Output& output) const {
  FXString file;
  const Outcome found = findCompanyFile(file);
  Outcome outcome = openFor(command, company, file, found);
  if (outcome.succeeded()) {
    CommandContext context{company, file, output};
    outcome = command.run(context);
  }
  for (const Host::PluginLoader::Rejected& rejected : company.getPlugins().getRejected()) {
    say(FXStringFormat(dgettext("quillane", "Nem használható bővítmény: %s (%s)"), rejected.file.text(),
                       rejected.reason.text()));
  }
  return outcome;
}

Outcome CommandLine::openFor(const Command& command, Host::Company& company, const FXString& file,
                             const Outcome& found) const {
  switch (command.getCompanyUse()) {
    case Command::OPENS_ITSELF:
      return found;
    case Command::COMPANY_IF_ANY:
      return file.empty() ? openInMemory(company) : openFile(company, file);
    default:
      break;
  }
  if (!found.succeeded()) return found;
  const Outcome opened = openFile(company, file);
  if (!opened.succeeded() || command.getCompanyUse() != Command::COMPANY_WITH_MODULE) return opened;
  FXString error;
  return company.requireItemDataModule(error) ? opened : Outcome::refused(error);
}

int CommandLine::finish(const Outcome& outcome, Output& output) const {
  if (!outcome.sentence.empty()) say(outcome.sentence);
  if (output.flush()) return outcome.status;
  say(dgettext("quillane", "A kimenet nem írható ki teljesen."));
  return outcome.succeeded() ? static_cast<int>(Outcome::REFUSED) : outcome.status;
}

}  // namespace Quillane::Commands
