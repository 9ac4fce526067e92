#pragma once

#include <fx.h>
#include <sys/types.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/document/DocumentLife.h"
#include "host/document/DocumentStore.h"
#include "host/document/EntityHooks.h"
#include "tests/support/TestCompany.h"

namespace Quillane::Host {

/// Lines of texts, to be compared whole.
using Lines = std::vector<std::string>;

/// A fresh company in a file of its own, in which the real module keeps item data. Its products, with the variables
/// that are recorded for them in both directions:
///  1 "Kazán"   11 note (per item), 2 warranty and 12 serial number (per unit, mandatory)
///  2 "Zsinór"  none
///  3 "Szelep"  12 serial number
///  4 "Festés"  13 colour (per item, mandatory)
class LivingCompany {
 public:
  enum Article { BOILER = 1, STRING = 2, VALVE = 3, PAINTING = 4 };

  struct Item {
    int article;
    std::string quantity;
  };

  struct Value {
    int row;
    int variable;
    std::string value;
  };

  static constexpr int kQuantity = -1;
  static constexpr int kWarranty = 2;
  static constexpr int kNote = 11;
  static constexpr int kSerial = 12;
  static constexpr int kColour = 13;

  LivingCompany();

  /// Lets the file go, and opens it again: between the two another process can have it.
  void close() const;
  void open() const;

  const std::string& getFile() const { return company.getFile(); }
  TarnwellDatabase& getDatabase() const { return *company.getDB(); }

  /// The whole file, which has to be closed.
  std::string readFile() const;
  void writeFile(const std::string& content) const;

  /// The real module's hooks.
  static const EntityHooks& getHooks();
  static void addChecks(DocumentCheck& check);
  DocumentStore getStore() const { return DocumentStore(getDatabase(), getHooks()); }

  void run(const std::string& sql) const { company.run(sql); }
  std::string query(const std::string& sql) const;  ///< the first value of the first row; "NULL" also without a row
  Lines queryLines(const std::string& sql) const;   ///< the rows, values parted by a blank

  /// A document written by another program; returns its id. Items are numbered through the company: see itemOf.
  int add(int status, const std::vector<Item>& items) const;
  int itemOf(int document, int number = 1) const;  ///< the id of its item, 1 is the first

  void record(int item, const std::vector<Value>& values) const;
  Lines valuesOf(int item) const;  ///< "row variable 'value'", by row and then in the order of storing
  std::string quantityOf(int item) const;

  std::unique_ptr<Document> load(int id) const;

  /// Does it and returns what was said against it: the empty text when it was done.
  std::string move(int id, int status) const;
  std::string remove(int id) const;
  std::string derive(int id, int status, int& made) const;

  /// The id of the document that was made, which has to work.
  int derive(int id, int status) const;

  /// The same for a move.
  void mustMove(int id, int status) const;

  /// Everything that is stored, but for issue dates.
  std::string dump() const;

 private:
  TestCompany company{TestCompany::IN_FILE};
};

/// Starts another process that has the company's file open in a connection of its own; the company has to be closed
/// here meanwhile. It ends with exit status 0 when work returns true, else with 1.
pid_t startProgram(const LivingCompany& company, const std::function<bool()>& work);

/// Waits for its end and returns its wait status.
int waitFor(pid_t program);

/// Both, when work is expected to succeed: closes the company here and opens it again.
void runOtherProgram(const LivingCompany& company, const std::function<bool()>& work);

}  // namespace Quillane::Host
