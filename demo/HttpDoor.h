#pragma once

#include <QHostAddress>
#include <QTcpServer>
#include <memory>

#include "demo/DemoService.h"
#include "demo/Faults.h"

namespace orv::demo {

/// The service over HTTP/1.1, on loopback only. Small on purpose, but whole where clients are hard on servers: requests
/// in pieces or several at once, bodies on any method, keep-alive, garbage, and headers or bodies without end.
///
/// The toolkit's HTTP server cannot break off an answer, which is half of what this door is for.
class HttpDoor final : public QObject {
  Q_OBJECT

 public:
  HttpDoor(DemoService& service, Clock& clock, Faults faults, QObject* parent = nullptr);

  /// False when the port is taken. Port 0 takes any.
  bool listen(quint16 port);
  quint16 port() const { return m_server.serverPort(); }
  void setFaults(Faults faults) { m_faults = std::move(faults); }
  Faults& faults() { return m_faults; }

  /// Called with method and path of every request as it arrives, before its answer.
  std::function<void(const QString& request)> onRequest;

 private:
  class Connection;
  void accept();

  DemoService& m_service;
  Clock& m_clock;
  Faults m_faults;
  QTcpServer m_server;
};

}  // namespace orv::demo
