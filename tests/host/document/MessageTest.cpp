#include "plugin/contract/Message.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

using namespace FX;

namespace Quillane {
namespace {

class CountedEvent : public MessageEvent {
 public:
  explicit CountedEvent(int& counter, int eventKind = 2) : MessageEvent(eventKind), living(counter) { ++living; }
  ~CountedEvent() override { --living; }
  void execute(Message*, int) override {}

 private:
  int& living;
};

/// A message of this severity, kept by the test.
class Messages {
 public:
  Message* make(unsigned severity) {
    kept.push_back(std::make_unique<Message>("key", severity, "", "", nullptr, nullptr, nullptr));
    return kept.back().get();
  }

 private:
  std::vector<std::unique_ptr<Message>> kept;
};

TEST(Message, holdsWhatItWasMadeWith) {
  const Message message("P_KEY", Message::NOTICE, "text", "location", nullptr, nullptr, nullptr);
  EXPECT_EQ(message.getKey(), "P_KEY");
  EXPECT_EQ(message.getSeverity(), 0u);
  EXPECT_EQ(message.getText(), "text");
  EXPECT_EQ(message.getLocation(), "location");
  EXPECT_EQ(message.getFirstEvent(), nullptr);
  EXPECT_EQ(message.getSecondEvent(), nullptr);
  EXPECT_EQ(message.getCheckAction(), nullptr);
}

TEST(Message, takesTextAndSeverityLater) {
  Message message("key", Message::ERROR, "", "", nullptr, nullptr, nullptr);
  message.setText("later");
  message.setSeverity(Message::NOTICE);
  EXPECT_EQ(message.getText(), "later");
  EXPECT_EQ(message.getSeverity(), Message::NOTICE);
}

TEST(Message, ownsItsEvents) {
  int living = 0;
  {
    auto* first = new CountedEvent(living, 5);
    auto* second = new CountedEvent(living);
    const Message message("key", 1, "", "", first, second, nullptr);
    EXPECT_EQ(message.getFirstEvent(), first);
    EXPECT_EQ(message.getSecondEvent(), second);
    EXPECT_EQ(first->getKind(), 5);
    EXPECT_EQ(living, 2);
  }
  EXPECT_EQ(living, 0);
}

TEST(Message, leavesItsCheckActionToSomebodyElse) {
  // What an action is, nobody but its owner knows.
  FXObject owned;
  auto* action = reinterpret_cast<MessageCheckAction*>(&owned);
  const Message message("key", 1, "", "", nullptr, nullptr, action);
  EXPECT_EQ(message.getCheckAction(), action);
}

TEST(Message, deletesTheSecondEventThatIsReplaced) {
  int living = 0;
  Message message("key", 1, "", "", nullptr, nullptr, nullptr);
  message.setSecondEvent(new CountedEvent(living));
  auto* replacement = new CountedEvent(living);
  message.setSecondEvent(replacement);
  EXPECT_EQ(living, 1);
  message.setSecondEvent(replacement);
  EXPECT_EQ(living, 1);
  EXPECT_EQ(message.getSecondEvent(), replacement);
}

TEST(ListOfMessage, countsErrorsAndNoticesApartWhenAWholeListIsAppended) {
  Messages messages;
  ListOfMessage local;
  for (const unsigned severity : {1u, 0u, 1u, 2u}) local.FXObjectList::append(messages.make(severity));
  ListOfMessage list;
  list.append(local);
  EXPECT_EQ(list.no(), 4);
  EXPECT_EQ(list[3], local[3]);
  EXPECT_EQ(list.getErrorCount(), 2);
  EXPECT_EQ(list.getWarningCount(), 1);
  EXPECT_EQ(local.no(), 4);
}

TEST(ListOfMessage, keepsCountingNoticesAsErrorsWhenTheyAreAppendedOneByOne) {
  Messages messages;
  ListOfMessage list;
  list.append(messages.make(0));
  list.append(messages.make(1));
  list.append(messages.make(2));
  EXPECT_EQ(list.no(), 3);
  EXPECT_EQ(list.getErrorCount(), 2);
  EXPECT_EQ(list.getWarningCount(), 0);
}

TEST(ListOfMessage, passesOverNull) {
  ListOfMessage list;
  list.append(static_cast<Message*>(nullptr));
  EXPECT_EQ(list.no(), 0);
  EXPECT_EQ(list.getErrorCount(), 0);
}

TEST(ListOfMessage, keepsItsCountersWhenItIsCleared) {
  Messages messages;
  ListOfMessage local;
  local.append(messages.make(0));
  ListOfMessage list;
  list.append(local);
  list.append(messages.make(1));
  list.clear();
  EXPECT_EQ(list.no(), 0);
  EXPECT_EQ(list.getErrorCount(), 1);
  EXPECT_EQ(list.getWarningCount(), 1);
}

TEST(ListOfMessage, doesNotDeleteItsMessages) {
  int living = 0;
  const Message message("key", 1, "", "", new CountedEvent(living), nullptr, nullptr);
  {
    ListOfMessage list;
    list.append(const_cast<Message*>(&message));
  }
  EXPECT_EQ(living, 1);
}

}  // namespace
}  // namespace Quillane
