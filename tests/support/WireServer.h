#pragma once

#include <QByteArray>
#include <QList>
#include <QUrl>
#include <deque>
#include <mutex>
#include <thread>
#include <vector>

namespace orv::test {

/// A bare socket on loopback that speaks just enough HTTP to be a service on a bad day. It keeps every request's bytes,
/// and meets each with the next reply it was given, or with an answer that names the request.
class WireServer {
 public:
  struct Reply {
    enum class Then { keep, close, reset };
    QByteArray bytes;
    Then then = Then::keep;
    /// False closes as soon as the request begins to arrive, with its bytes left unread.
    bool read = true;
    /// Sent after `bytes`, a byte at a time with pauses; `then` waits for its end.
    QByteArray slowly;
    /// Sent after `bytes`, a byte to a packet, one upon the other.
    QByteArray hastily;
  };
  struct Received {
    int connection = 0;
    QByteArray bytes;

    QByteArray line() const { return bytes.left(bytes.indexOf("\r\n")); }
    /// Its lines, sorted, without the two that are the library's own affair.
    QList<QByteArray> headers() const;
    QByteArray body() const { return bytes.sliced(bytes.indexOf("\r\n\r\n") + 4); }
  };

  WireServer();
  WireServer(const WireServer&) = delete;
  WireServer& operator=(const WireServer&) = delete;
  /// Closes every connection.
  ~WireServer();

  int port() const { return m_port; }
  QUrl url() const;

  void reply(Reply reply);
  void reply(int status, const QByteArray& body, const QByteArray& headers = {});
  static QByteArray answer(int status, const QByteArray& body, const QByteArray& headers = {});

  std::vector<Received> received() const;
  Received last() const;
  int connections() const;
  /// Connections that the other side gave up.
  int givenUp() const;

 private:
  struct Connection {
    int number;
    int socket;
    QByteArray arriving;
    QByteArray slowly;
    Reply::Then then = Reply::Then::keep;
    bool over = false;
  };

  void run();
  void accept();
  void serve(Connection& connection);
  void meet(Connection& connection, QByteArray request);
  void step(Connection& connection);
  static void finish(Connection& connection, Reply::Then then);
  bool takesUnread(Connection& connection);

  int m_listener = -1;
  int m_wake = -1;
  int m_port = 0;
  std::thread m_thread;
  /// The thread's own.
  std::vector<Connection> m_open;

  mutable std::mutex m_mutex;
  bool m_stopping = false;
  std::deque<Reply> m_script;
  std::vector<Received> m_received;
  int m_connections = 0;
  int m_givenUp = 0;
};

}  // namespace orv::test
