#include <algorithm>

#include "kit/api/APITransport.h"
#include "tests/fuzz/fuzz.h"

using namespace orv;

namespace {

bool isPlain(const QString& text) {
  return std::ranges::all_of(text, [](QChar c) { return c >= u' ' && c < u'\x7f'; });
}

}  // namespace

/// Status, Retry-After and request id in a line each, then the body.
int LLVMFuzzerTestOneInput(const unsigned char* bytes, size_t size) {
  fuzz::beQuiet();
  const QByteArray text = fuzz::input(bytes, size);
  HTTPAnswer answer;
  qsizetype begin = 0;
  const auto line = [&] {
    const qsizetype end = std::max(begin, text.indexOf('\n', begin));
    const QByteArray found = text.sliced(begin, end - begin);
    begin = std::min(end + 1, text.size());
    return found;
  };
  answer.status = std::clamp(line().toInt(), 100, 999);
  answer.headers = {{"Retry-After", line()}, {"X-Request-Id", line()}};
  answer.body = text.sliced(begin);
  const auto error = detail::errorOf(answer);
  fuzz::require(error.has_value() == (answer.status < 200 || answer.status > 299), "every refusal is an error");
  if (!error) return 0;
  fuzz::require(!error->message().isEmpty(), "every error says something");
  fuzz::require(error->message().size() <= 2100, "what is shown is short");
  const auto id = error->requestId();
  fuzz::require(!id || (id->size() <= 128 && isPlain(*id)), "a request id is short and plain");
  const Problem& problem = error->problem();
  fuzz::require(problem.retryIn.value_or(0) >= 0 && problem.retryIn.value_or(0) <= 3600, "nobody waits for long");
  fuzz::require(problem.triesLeft.value_or(0) >= 0, "no count is negative");
  (void)error->description();
  return 0;
}
