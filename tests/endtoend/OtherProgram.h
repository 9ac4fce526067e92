#pragma once

#include <fx.h>

#include <memory>
#include <string>

class TarnwellDatabase;

namespace Quillane::Desktop {

/// The same company open in another program: a connection of its own to the company's file.
class OtherProgram {
 public:
  explicit OtherProgram(const std::string& file);
  ~OtherProgram();

  /// Runs a statement, which has to succeed.
  void run(const std::string& sql) const;

  /// Holds the lock of those who write, or lets it go. Meanwhile others can read.
  void lock() const { run("begin immediate"); }
  void unlock() const { run("rollback"); }

  /// Is in the middle of reading, or done with it. Meanwhile others can change what they like, but not commit it.
  void beginReading() const;
  void endReading() const { run("rollback"); }

 private:
  std::unique_ptr<TarnwellDatabase> database;
};

}  // namespace Quillane::Desktop
