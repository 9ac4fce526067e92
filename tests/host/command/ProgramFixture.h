// Runs the real program as a child process, each test on a company of its own in a folder of its own.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

/// How a run of the program ended, and what it wrote.
struct ProgramRun {
  int status;  // the exit status; minus the signal's number when one ended it
  std::string output;
  std::string errors;
};

using Json = nlohmann::ordered_json;
using Arguments = std::vector<std::string>;
using Grid = std::vector<std::vector<std::string>>;

class ProgramFixture : public testing::Test {
 protected:
  ProgramFixture();
  ~ProgramFixture() override;

  /// Runs the program on the test's company file; input is what it finds on standard input, and outputFile, when it is
  /// given, where standard output goes instead of into the result. There is no DISPLAY.
  ProgramRun run(const Arguments& arguments, const std::string& input = "", const std::string& outputFile = "") const;

  /// Runs the program without --db.
  ProgramRun runBare(const Arguments& arguments, const std::string& input = "",
                     const std::string& outputFile = "") const;

  /// Runs the program with --json, expects success and nothing on standard error, and returns the value it wrote.
  Json runJson(const Arguments& arguments, const std::string& input = "") const;

  /// Runs `add ...`, expects success and returns the new id.
  int add(const Arguments& arguments) const;

  /// Makes the test's company: the sample, or one with nothing in it.
  void makeSample() const;
  void makeEmpty() const;

  /// Another value for an environment variable of the runs to come.
  void setVariable(const std::string& name, const std::string& value) { environment[name] = value; }
  void removeVariable(const std::string& name) { environment.erase(name); }

  /// From now on file permissions hold for the program also when the tests run as administrator. False when that cannot
  /// be had.
  bool obeyPermissions();

  /// The path of a file with this name in the test's folder; the second form writes it.
  std::string path(const std::string& name) const { return folder + "/" + name; }
  std::string writeFile(const std::string& name, const std::string& content) const;

  /// The names of the files in the test's folder, in order.
  std::vector<std::string> listFolder() const;

  /// The rows that a query of the company finds; NULL is "NULL".
  Grid query(const std::string& sql) const;

  /// Changes the company behind the program's back.
  void change(const std::string& sql) const;

  /// Everything in the company, to be compared: whether anything changed.
  std::string dump() const;

  /// Expects the call to be refused with exit status 1 and this sentence among the errors, with nothing on standard
  /// output and nothing changed in the company.
  void expectRefused(const Arguments& call, const std::string& sentence) const;

  /// Expects each call to be wrong: exit status 2 and an error, with nothing on standard output; nothing is changed.
  void expectWrongCalls(const std::vector<Arguments>& calls) const;

  std::string folder;
  std::string company;

 private:
  std::map<std::string, std::string> environment;
  bool obeying = false;
};
