#pragma once

#include <QList>
#include <QObject>
#include <QString>

#include "app/base/shownName.h"

namespace orv {

/// One of several things that a person chooses from. Controls read label and detail as names that somebody else gave;
/// code has them as they are.
struct Choice {
  Q_GADGET
  Q_PROPERTY(QString key MEMBER key)
  Q_PROPERTY(QString label READ shownLabel)
  /// A second line, where a choice needs words.
  Q_PROPERTY(QString detail READ shownDetail)
  /// How many there are of it; negative where nobody counts.
  Q_PROPERTY(int count MEMBER count)
  Q_PROPERTY(bool ticked MEMBER ticked)

 public:
  QString key;
  QString label;
  QString detail{};
  int count = -1;
  bool ticked = false;

  QString shownLabel() const { return shownName(label); }
  QString shownDetail() const { return shownName(detail); }
  bool operator==(const Choice&) const = default;
};

}  // namespace orv
