#pragma once

#include <QList>
#include <QObject>
#include <QString>

namespace orv {

/// One of several things that a person chooses from, as controls show it.
struct Choice {
  Q_GADGET
  Q_PROPERTY(QString key MEMBER key)
  Q_PROPERTY(QString label MEMBER label)
  /// A second line, where a choice needs words.
  Q_PROPERTY(QString detail MEMBER detail)
  /// How many there are of it; negative where nobody counts.
  Q_PROPERTY(int count MEMBER count)
  Q_PROPERTY(bool ticked MEMBER ticked)

 public:
  QString key;
  QString label;
  QString detail{};
  int count = -1;
  bool ticked = false;

  bool operator==(const Choice&) const = default;
};

}  // namespace orv
