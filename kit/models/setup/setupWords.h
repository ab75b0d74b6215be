#pragma once

#include <QString>

#include "kit/api/OpenWord.h"

namespace orv {

/// What a project makes of its domains.
struct SetupMode : OpenWord {
  using OpenWord::OpenWord;
  static SetupMode fresh() { return SetupMode(QStringLiteral("new")); }
  static SetupMode existing() { return SetupMode(QStringLiteral("existing")); }
  /// Inboxes are made, not only connected.
  bool isNew() const { return is(QLatin1String("new")); }
  QString label() const;
  /// What it is for, in a sentence.
  QString detail() const;
};

/// Which of a domain's inboxes it is.
struct InboxRole : OpenWord {
  using OpenWord::OpenWord;
  QString label() const;
};

/// How far one inbox has come in a run.
struct RowState : OpenWord {
  using OpenWord::OpenWord;
  bool isWaiting() const { return is(QLatin1String("waiting")); }
  /// The domain's admin must let the service in.
  bool isAuthorize() const { return is(QLatin1String("authorize")); }
  bool isConnected() const { return is(QLatin1String("connected")); }
  bool isError() const { return is(QLatin1String("error")); }
  bool isStopped() const { return is(QLatin1String("stopped")); }
  /// It was connected before, or is now.
  bool isDone() const { return isConnected() || is(QLatin1String("exists")); }
  /// Nothing further happens to it. A word this client does not know may be a step of tomorrow.
  bool isEnd() const { return isDone() || isError() || isStopped(); }
  /// The steps that lie behind it, of `steps`; negative where the word does not say.
  int stepsDone() const;
  static constexpr int steps = 6;
  QString label() const;
};

struct RunControl : OpenWord {
  using OpenWord::OpenWord;
  bool isPaused() const { return is(QLatin1String("paused")); }
  bool isTerminated() const { return is(QLatin1String("terminated")); }
};

}  // namespace orv
