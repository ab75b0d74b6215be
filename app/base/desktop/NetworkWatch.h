#pragma once

#include <QObject>

namespace orv {

/// Tells when the machine can reach more than it could: a network came up, a cable was put in.
class NetworkWatch : public QObject {
  Q_OBJECT

 public:
  using QObject::QObject;

 Q_SIGNALS:
  void cameUp();
};

}  // namespace orv
