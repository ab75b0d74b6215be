#pragma once

#include <QObject>
#include <QSocketNotifier>

namespace orv {

/// The system's requests to end (SIGTERM, SIGHUP, SIGINT), told on the main thread: what is typed is written and the
/// program ends in order. One at a time; the second such signal ends the process as if nobody had listened.
class EndSignals final : public QObject {
  Q_OBJECT

 public:
  explicit EndSignals(QObject* parent = nullptr);
  ~EndSignals() override;

 Q_SIGNALS:
  void asked();

 private:
  void read();

  QSocketNotifier m_notifier;
};

}  // namespace orv
