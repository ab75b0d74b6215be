#pragma once

#include <QList>
#include <QObject>
#include <QString>

namespace orv {

/// One figure of a strip, in words.
struct Figure {
  Q_GADGET
  Q_PROPERTY(QString title MEMBER title)
  Q_PROPERTY(QString value MEMBER value)
  Q_PROPERTY(QString detail MEMBER detail)
  /// Follows the value in small type; may be empty.
  Q_PROPERTY(QString unit MEMBER unit)
  /// Follows the detail; may be empty.
  Q_PROPERTY(QString warning MEMBER warning)
  /// All of it, for a screen reader.
  Q_PROPERTY(QString spoken READ spoken)

 public:
  QString title;
  QString value;
  QString detail{};
  QString unit{};
  QString warning{};

  QString spoken() const;

  bool operator==(const Figure&) const = default;
};

}  // namespace orv
