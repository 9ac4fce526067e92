#include "tests/support/WaitCursor.h"

using namespace FX;

namespace TestSupport {

namespace {

// The toolkit keeps the count to itself; only where a template is instantiated may a private member be named.
FXuint FXApp::*waitCountMember();

template <FXuint FXApp::*Member>
struct Key {
  friend FXuint FXApp::*waitCountMember() { return Member; }
};
template struct Key<&FXApp::waitCount>;

}  // namespace

FXuint getWaitCount(const FXApp& application) { return application.*waitCountMember(); }

void WaitCursorLog::statementExecuted(const FXString&, const std::vector<Binding>&) {
  counts.push_back(getWaitCount(application));
}

}  // namespace TestSupport
