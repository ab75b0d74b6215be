#pragma once

#include <QDateTime>
#include <QString>
#include <optional>

namespace orv {

/// Remembers in a file that sessions up to an instant are over, for where a keyring still holds one and does not let it
/// go. The file says when, and nothing else.
class VoidedSessions {
 public:
  /// `folder` is the person's own for such state; an empty one remembers nothing.
  explicit VoidedSessions(const QString& folder);

  /// Whether a session that was obtained at this instant must not be opened.
  bool contains(const QDateTime& issuedAt) const;
  void add(const QDateTime& upTo);
  void forget();

 private:
  QString m_path;
};

}  // namespace orv
