#pragma once

#include <QCache>
#include <QCryptographicHash>

#include "demo/DemoRequest.h"

namespace orv::demo {

/// What was answered to requests that carried a key. Of the request itself a hash is kept: its body may be a whole
/// file.
class AnswerMemory {
 public:
  struct Known {
    /// The key came with the same request before, and this is what it got.
    std::optional<HTTPAnswer> answer;
    /// The key came with another request.
    bool misused = false;
  };

  /// Forgets the keys longest unused once the answers are larger than that together.
  explicit AnswerMemory(qsizetype mostBytes = 4 << 20) : m_answers(mostBytes) {}

  Known find(const DemoRequest& request) const {
    const Entry* entry = m_answers.object(keyOf(request));
    if (!entry) return {};
    const bool same = entry->requestHash == hashOf(request);
    return {same ? std::optional(entry->answer) : std::nullopt, !same};
  }

  void keep(const DemoRequest& request, const HTTPAnswer& answer) {
    auto entry = std::make_unique<Entry>(Entry{hashOf(request), answer});
    m_answers.insert(keyOf(request), entry.release(), answer.body.size() + bytesBesideBody);
  }

 private:
  struct Entry {
    QByteArray requestHash;
    HTTPAnswer answer;
  };
  static constexpr qsizetype bytesBesideBody = 512;

  /// The same key in another session is another key.
  static QByteArray keyOf(const DemoRequest& request) {
    return hashOfAll({request.token().toUtf8(), request.headers.value("idempotency-key")});
  }
  static QByteArray hashOf(const DemoRequest& request) {
    return hashOfAll({request.method, request.path.toUtf8(), request.query.toString().toUtf8(),
                      request.headers.value("if-match"), request.body});
  }
  static QByteArray hashOfAll(std::initializer_list<QByteArrayView> pieces) {
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (const QByteArrayView piece : pieces) {
      // With its length ahead, no piece can run into the next.
      hash.addData(QByteArray::number(piece.size()) + ' ');
      hash.addData(piece);
    }
    return hash.result();
  }

  QCache<QByteArray, Entry> m_answers;
};

}  // namespace orv::demo
