#pragma once

#include <QString>

namespace orv {

/// Base of the service's open sets of words (statuses, roles): a word this client does not know is kept as it stands.
struct OpenWord {
  QString rawValue;

  OpenWord() = default;
  OpenWord(QString word) : rawValue(std::move(word)) {}
  bool operator==(const OpenWord&) const = default;

 protected:
  /// What the words of a set ask themselves, each by a name of its own.
  bool is(QLatin1String word) const { return rawValue == word; }
};

}  // namespace orv
