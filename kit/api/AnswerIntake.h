#pragma once

#include "kit/api/APITransport.h"

namespace orv {

/// Takes an answer in as it arrives, and no more of it than is wanted: what a stranger sends is bounded while it comes,
/// not when it is there.
class AnswerIntake {
 public:
  /// `atMost` bounds the body of a success; `isRead` is false when nobody looks at that.
  AnswerIntake(qint64 atMost, bool isRead) : m_atMost(atMost), m_isRead(isRead) {}

  /// A line of the head of this status; there may be several heads, of which the last counts. False when nothing more
  /// is wanted.
  bool takeHeader(QByteArrayView line, int status) noexcept;
  /// Unpacked bytes of the body, with how many there have been before unpacking. False when nothing more is wanted.
  bool takeBody(QByteArrayView bytes, qint64 received) noexcept;

  /// The head that counts is there, to its end.
  bool hasHead() const { return m_hasHead; }
  /// Everything that is wanted is there, whatever else the service would send.
  bool isEnough() const { return m_isEnough; }
  /// The service sends more than anybody may.
  bool isTooMuch() const { return m_isTooMuch; }

  HTTPAnswer take() { return std::move(m_answer); }

 private:
  bool addHeader(QByteArrayView line, int status);
  bool endHead();
  bool addBody(QByteArrayView bytes, qint64 received);
  bool isSuccess() const { return m_answer.status >= 200 && m_answer.status < 300; }
  qint64 mostBytes() const;
  bool excess();
  bool enough();
  bool tooMuch();

  qint64 m_atMost;
  bool m_isRead;
  HTTPAnswer m_answer;
  qint64 m_headBytes = 0;
  bool m_hasHead = false;
  bool m_isEnough = false;
  bool m_isTooMuch = false;
};

}  // namespace orv
