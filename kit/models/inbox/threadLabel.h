#pragma once

#include <QString>

#include "kit/api/OpenWord.h"
#include "kit/models/labels.h"

namespace orv {

/// A label of the workspace's own, beside those that every workspace has.
using ReplyLabel = Label;

/// What a reply was found to mean.
struct ThreadLabel : OpenWord {
  using OpenWord::OpenWord;
  /// Those that every workspace has, in the order in which they are offered.
  static const QList<ThreadLabel>& known();

  bool isPositive() const { return tone() == QLatin1String("positive"); }
  /// What the screen says; a word that is not known stands as it is.
  QString title() const;
  /// "positive", "negative", or empty for what is neither.
  QString tone() const;
};

/// How `label` reads where the workspace has labels of its own: theirs first.
ReplyLabel replyLabel(const ThreadLabel& label, const QList<ReplyLabel>& own);
/// What can be chosen from: the known ones as the workspace words them, then its own.
QList<ReplyLabel> replyLabels(const QList<ReplyLabel>& own);

}  // namespace orv
