#include "app/shell/GoogleSignIn.h"
#include "tests/fuzz/fuzz.h"

using namespace orv;

int LLVMFuzzerTestOneInput(const unsigned char* bytes, size_t size) {
  fuzz::beQuiet();
  const QString link = QString::fromUtf8(fuzz::input(bytes, size));
  const auto code = GoogleSignIn::codeOf(link);
  GoogleSignIn flow;
  const bool accepted = flow.accept(link);
  fuzz::require(accepted == code.has_value(), "a sign-in takes its own links, and no others");
  fuzz::require(!accepted || !flow.accept(link), "and each of them once");
  fuzz::require(!code || link.contains(GoogleSignIn::callbackScheme(), Qt::CaseInsensitive), "on its own scheme");
  return 0;
}
