#include "kit/api/AnswerIntake.h"

namespace orv {
namespace {

/// Of all heads of one exchange together.
constexpr qint64 mostHeadBytes = 256 << 10;
constexpr qint64 mostErrorBytes = 1 << 20;
/// What the service's records come to when they are packed well is a fraction of this.
constexpr qint64 mostUnpacked = 100;
/// Short texts of one letter pack better than anything; and of what the network library has read, it counts the last
/// piece late.
constexpr qint64 unpackedAnyway = 2 << 20;

}  // namespace

bool AnswerIntake::takeHeader(QByteArrayView line, int status) noexcept {
  try {
    return addHeader(line, status);
  } catch (const std::exception&) {
    return tooMuch();
  }
}

bool AnswerIntake::takeBody(QByteArrayView bytes, qint64 received) noexcept {
  try {
    return addBody(bytes, received);
  } catch (const std::exception&) {
    return tooMuch();
  }
}

bool AnswerIntake::addHeader(QByteArrayView line, int status) {
  m_headBytes += line.size();
  if (m_headBytes > mostHeadBytes) return tooMuch();
  // What follows the body changes nothing of what is known by then.
  if (m_hasHead) return true;
  m_answer.status = status;
  line = line.trimmed();
  if (line.isEmpty()) return endHead();
  if (line.startsWith("HTTP/"))
    m_answer.headers.clear();
  else if (const auto colon = line.indexOf(':'); colon > 0)
    m_answer.headers.append(
        {line.first(colon).trimmed().toByteArray(), line.sliced(colon + 1).trimmed().toByteArray()});
  return true;
}

bool AnswerIntake::endHead() {
  // Any number of interim answers may come before the one that counts.
  m_hasHead = m_answer.status >= 200;
  if (!m_hasHead) return true;
  const bool saysItAll = m_answer.status == 401 || m_answer.status == 429 || (isSuccess() && !m_isRead);
  if (saysItAll) return enough();
  return m_answer.header("Content-Length").value_or(QString()).toLongLong() <= mostBytes() || excess();
}

bool AnswerIntake::addBody(QByteArrayView bytes, qint64 received) {
  QByteArray& body = m_answer.body;
  const qint64 size = body.size() + bytes.size();
  if (size > mostBytes() || size > unpackedAnyway + received * mostUnpacked) return excess();
  body.append(bytes);
  return true;
}

qint64 AnswerIntake::mostBytes() const { return isSuccess() ? m_atMost : mostErrorBytes; }

bool AnswerIntake::excess() {
  if (isSuccess()) return tooMuch();
  // The status of a refusal says what there is to say.
  m_answer.body.clear();
  return enough();
}

bool AnswerIntake::enough() {
  m_isEnough = true;
  return false;
}

bool AnswerIntake::tooMuch() {
  m_isTooMuch = true;
  m_answer = {};
  return false;
}

}  // namespace orv
