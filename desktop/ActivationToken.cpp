#include "desktop/ActivationToken.h"

#include <cstdlib>
#include <cstring>

namespace orv {

void setActivationToken(const QByteArray& token) {
  constexpr char name[] = "XDG_ACTIVATION_TOKEN";
  constexpr qsizetype room = 256;
  static char variable[sizeof name + room + 1] = "XDG_ACTIVATION_TOKEN=";
  char* const value = variable + sizeof name;
  const qsizetype length = token.size() <= room && !token.contains('\0') ? token.size() : 0;
  // Whoever reads it meanwhile finds an end in any case: the last byte is never written.
  std::memset(value, 0, size_t(room));
  std::memcpy(value, token.constData(), size_t(length));
  // The plug-in takes it out once it has used it. Back in, the list is as long as it was, and stays where it is: what
  // the process was started with, which cannot be lengthened in place, is left with the first call.
  if (std::getenv(name) == value) return;
  ::unsetenv(name);
  ::putenv(variable);
}

}  // namespace orv
