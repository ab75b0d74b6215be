#pragma once

#include <QObject>

namespace orv {

/// Tells when the machine runs short of memory, at the levels that ask programs to let go of what they can.
class MemoryPressure : public QObject {
  Q_OBJECT

 public:
  using QObject::QObject;

 Q_SIGNALS:
  void pressure();
};

}  // namespace orv
