#include "host/document/DocumentCheck.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "plugin/contract/Invoice.h"

using namespace FX;

namespace Quillane::Host {
namespace {

class CountedMessage : public Message {
 public:
  CountedMessage(const FXString& messageKey, unsigned messageSeverity, int& counter)
      : Message(messageKey, messageSeverity, "", "", nullptr, nullptr, nullptr), living(counter) {
    ++living;
  }
  ~CountedMessage() override { --living; }

 private:
  int& living;
};

/// Finds one message for each of its severities.
class FindingHook : public Plugin::InvoiceCheckPlugin {
 public:
  FindingHook(const char* hookName, std::vector<unsigned> found, int& counter)
      : InvoiceCheckPlugin(nullptr), name(hookName), severities(std::move(found)), living(counter) {}

  int checkInvoice(FXWindow* window, Invoice* invoice, ListOfMessage& messages, FXString prefix) override {
    askedWindow = window;
    askedInvoice = invoice;
    ListOfMessage local;
    for (const unsigned severity : severities) local.append(new CountedMessage(prefix + "_" + name, severity, living));
    messages.append(local);
    return 1;
  }

  FXWindow* askedWindow = nullptr;
  Invoice* askedInvoice = nullptr;

 private:
  FXString name;
  std::vector<unsigned> severities;
  int& living;
};

std::vector<std::string> keys(const DocumentCheck& check) {
  std::vector<std::string> all;
  for (FXint i = 0; i < check.getMessages().no(); ++i) all.emplace_back(check.getMessages()[i]->getKey().text());
  return all;
}

using Keys = std::vector<std::string>;

TEST(DocumentCheck, findsNothingWithoutHooks) {
  Invoice invoice;
  DocumentCheck check;
  check.run(invoice, "INVOICE");
  EXPECT_EQ(check.getMessages().no(), 0);
  EXPECT_EQ(check.countErrors(), 0);
}

TEST(DocumentCheck, asksEveryHookInOrderWithoutAWindow) {
  int living = 0;
  FindingHook first("A", {1, 0}, living);
  FindingHook second("B", {0}, living);
  first.askedWindow = reinterpret_cast<FXWindow*>(&living);
  Invoice invoice;
  DocumentCheck check;
  check.add(&first);
  check.add(&second);
  check.run(invoice, "INVOICE");
  EXPECT_EQ(keys(check), (Keys{"INVOICE_A", "INVOICE_A", "INVOICE_B"}));
  EXPECT_EQ(first.askedWindow, nullptr);
  EXPECT_EQ(first.askedInvoice, &invoice);
  EXPECT_EQ(second.askedInvoice, &invoice);
}

TEST(DocumentCheck, countsErrorsBySeverity) {
  int living = 0;
  FindingHook hook("A", {0, 1, 2, 0, 1}, living);
  Invoice invoice;
  DocumentCheck check;
  check.add(&hook);
  check.run(invoice, "X");
  EXPECT_EQ(check.countErrors(), 2);
}

TEST(DocumentCheck, forgetsWhatItFoundBefore) {
  int living = 0;
  FindingHook hook("A", {1}, living);
  Invoice invoice;
  {
    DocumentCheck check;
    check.add(&hook);
    check.run(invoice, "FIRST");
    check.run(invoice, "SECOND");
    EXPECT_EQ(keys(check), (Keys{"SECOND_A"}));
    EXPECT_EQ(check.getMessages().getErrorCount(), 1);
    EXPECT_EQ(living, 1);
    check.clear();
    EXPECT_EQ(living, 0);
    EXPECT_EQ(check.getMessages().no(), 0);
    EXPECT_EQ(check.countErrors(), 0);
    check.run(invoice, "THIRD");
    EXPECT_EQ(living, 1);
  }
  EXPECT_EQ(living, 0);
}

}  // namespace
}  // namespace Quillane::Host
