#include "tests/host/command/ProgramFixture.h"

#include <fcntl.h>
#include <linux/capability.h>
#include <sqlite3.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace {

namespace fs = std::filesystem;

std::string readFile(const std::string& file) {
  std::ifstream stream(file, std::ios::binary);
  std::ostringstream content;
  content << stream.rdbuf();
  return content.str();
}

std::string makeFolder() {
  std::string folder = (fs::temp_directory_path() / "quillanectl-XXXXXX").string();
  if (!mkdtemp(folder.data())) throw std::runtime_error("no temporary folder");
  return folder;
}

std::vector<char*> toPointers(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

void redirect(const std::string& file, int flags, int descriptor) {
  const int opened = open(file.c_str(), flags, 0600);
  if (opened < 0 || dup2(opened, descriptor) < 0) _exit(125);
  close(opened);
}

/// An open database for the duration of a test step.
class Sqlite {
 public:
  explicit Sqlite(const std::string& file) {
    if (sqlite3_open(file.c_str(), &database) != SQLITE_OK) throw std::runtime_error("cannot open " + file);
  }
  ~Sqlite() { sqlite3_close(database); }
  Sqlite(const Sqlite&) = delete;
  Sqlite& operator=(const Sqlite&) = delete;

  Grid run(const std::string& sql) {
    Grid rows;
    char* message = nullptr;
    if (sqlite3_exec(database, sql.c_str(), onRow, &rows, &message) != SQLITE_OK) {
      const std::string reason = message ? message : "unknown";
      sqlite3_free(message);
      throw std::runtime_error(sql + ": " + reason);
    }
    return rows;
  }

 private:
  static int onRow(void* rows, int count, char** values, char**) {
    std::vector<std::string> row;
    for (int i = 0; i < count; ++i) row.emplace_back(values[i] ? values[i] : "NULL");
    static_cast<Grid*>(rows)->push_back(row);
    return 0;
  }

  sqlite3* database = nullptr;
};

}  // namespace

ProgramFixture::ProgramFixture() : folder(makeFolder()), company(folder + "/company.db") {
  environment = {
      {"PATH", "/usr/bin:/bin"}, {"HOME", folder}, {"LANG", "C.UTF-8"}, {"QUILLANE_PLUGIN_PATH", MODULE_FOLDER}};
  for (const char* name : {"ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS"}) {
    if (const char* value = std::getenv(name)) environment[name] = value;
  }
}

ProgramFixture::~ProgramFixture() {
  std::error_code ignored;  // what cannot be removed stays in the temporary folder
  fs::remove_all(folder, ignored);
}

ProgramRun ProgramFixture::run(const Arguments& arguments, const std::string& input,
                               const std::string& outputFile) const {
  Arguments all = {"--db", company};
  all.insert(all.end(), arguments.begin(), arguments.end());
  return runBare(all, input, outputFile);
}

ProgramRun ProgramFixture::runBare(const Arguments& arguments, const std::string& input,
                                   const std::string& outputFile) const {
  // Beside the test's folder, so that listFolder shows what the program made and nothing else.
  const std::string prefix = folder + "-run";
  std::ofstream(prefix + ".in", std::ios::binary) << input;

  std::vector<std::string> words = {PROGRAM_FILE};
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<std::string> settings;
  for (const auto& [name, value] : environment) settings.push_back(name + "=" + value);
  const std::vector<char*> argv = toPointers(words);
  const std::vector<char*> envp = toPointers(settings);

  const pid_t child = fork();
  if (child == 0) {
    if (obeying && prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE, 0, 0, 0) != 0 && geteuid() == 0) _exit(124);
    redirect(prefix + ".in", O_RDONLY, STDIN_FILENO);
    redirect(outputFile.empty() ? prefix + ".out" : outputFile, O_WRONLY | O_CREAT | O_TRUNC, STDOUT_FILENO);
    redirect(prefix + ".err", O_WRONLY | O_CREAT | O_TRUNC, STDERR_FILENO);
    execve(PROGRAM_FILE, argv.data(), envp.data());
    _exit(126);
  }
  int status = 0;
  if (child < 0 || waitpid(child, &status, 0) != child) throw std::runtime_error("the program could not be run");
  ProgramRun result{WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status), readFile(prefix + ".out"),
                    readFile(prefix + ".err")};
  for (const char* suffix : {".in", ".out", ".err"}) fs::remove(prefix + suffix);
  return result;
}

bool ProgramFixture::obeyPermissions() {
  obeying = true;
  return runBare({"--help"}).status == 0;
}

Json ProgramFixture::runJson(const Arguments& arguments, const std::string& input) const {
  Arguments all = arguments;
  all.insert(all.begin(), "--json");
  const ProgramRun result = run(all, input);
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.errors, "");
  return Json::parse(result.output);
}

int ProgramFixture::add(const Arguments& arguments) const {
  Arguments all = {"add"};
  all.insert(all.end(), arguments.begin(), arguments.end());
  return runJson(all).at("id").get<int>();
}

void ProgramFixture::makeSample() const {
  const ProgramRun result = run({"init", "--sample"});
  if (result.status != 0) throw std::runtime_error(result.errors);
}

void ProgramFixture::makeEmpty() const {
  const ProgramRun result = run({"init"});
  if (result.status != 0) throw std::runtime_error(result.errors);
}

std::string ProgramFixture::writeFile(const std::string& name, const std::string& content) const {
  std::ofstream(path(name), std::ios::binary) << content;
  return path(name);
}

std::vector<std::string> ProgramFixture::listFolder() const {
  std::vector<std::string> names;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder)) names.push_back(entry.path().filename());
  std::sort(names.begin(), names.end());
  return names;
}

Grid ProgramFixture::query(const std::string& sql) const { return Sqlite(company).run(sql); }

void ProgramFixture::change(const std::string& sql) const { Sqlite(company).run(sql); }

std::string ProgramFixture::dump() const {
  Sqlite database(company);
  std::string text;
  for (const auto& table : database.run("select name from sqlite_master where type='table' order by name")) {
    text += table[0] + "\n";
    for (const auto& row : database.run("select * from " + table[0] + " order by 1")) {
      for (const std::string& value : row) text += value + "|";
      text += "\n";
    }
  }
  return text;
}

void ProgramFixture::expectRefused(const Arguments& call, const std::string& sentence) const {
  const std::string before = dump();
  const ProgramRun result = run(call);
  EXPECT_EQ(result.status, 1) << sentence;
  EXPECT_EQ(result.output, "") << sentence;
  EXPECT_NE(result.errors.find(sentence), std::string::npos) << result.errors;
  EXPECT_EQ(dump(), before) << sentence;
}

void ProgramFixture::expectWrongCalls(const std::vector<Arguments>& calls) const {
  const std::string before = dump();
  for (const Arguments& call : calls) {
    const ProgramRun result = run(call);
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.output, "");
    EXPECT_NE(result.errors, "");
  }
  EXPECT_EQ(dump(), before);
}
