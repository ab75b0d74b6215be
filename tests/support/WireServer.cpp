#include "tests/support/WireServer.h"

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <utility>

namespace orv::test {
namespace {

constexpr int tick = 10;  // ms

/// The length of the first whole request in `bytes`, or 0.
qsizetype wholeRequest(const QByteArray& bytes) {
  const qsizetype head = bytes.indexOf("\r\n\r\n");
  if (head < 0) return 0;
  const qsizetype length = bytes.toLower().indexOf("\r\ncontent-length:");
  qsizetype body = 0;
  if (length >= 0 && length < head)
    body = bytes.mid(length + 17, bytes.indexOf("\r\n", length + 2) - length - 17).trimmed().toLongLong();
  return bytes.size() >= head + 4 + body ? head + 4 + body : 0;
}

void sendAll(int socket, QByteArrayView bytes) {
  while (!bytes.isEmpty()) {
    const ssize_t sent = ::send(socket, bytes.data(), size_t(bytes.size()), MSG_NOSIGNAL);
    if (sent <= 0) return;
    bytes = bytes.sliced(sent);
  }
}

}  // namespace

QList<QByteArray> WireServer::Received::headers() const {
  QList<QByteArray> lines = bytes.left(bytes.indexOf("\r\n\r\n")).split('\n');
  lines.removeFirst();
  for (QByteArray& each : lines) each = each.trimmed();
  lines.removeIf(
      [](const QByteArray& each) { return each.startsWith("Host:") || each.startsWith("Accept-Encoding:"); });
  std::ranges::sort(lines);
  return lines;
}

WireServer::WireServer() : m_listener(::socket(AF_INET, SOCK_STREAM, 0)), m_wake(::eventfd(0, 0)) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof address;
  auto* any = reinterpret_cast<sockaddr*>(&address);
  if (::bind(m_listener, any, size) != 0 || ::listen(m_listener, 256) != 0 ||
      ::getsockname(m_listener, any, &size) != 0)
    qFatal("No loopback socket");
  m_port = ntohs(address.sin_port);
  m_thread = std::thread([this] { run(); });
}

WireServer::~WireServer() {
  {
    const std::lock_guard lock(m_mutex);
    m_stopping = true;
  }
  ::eventfd_write(m_wake, 1);
  m_thread.join();
  for (const auto& connection : m_open) ::close(connection.socket);
  ::close(m_listener);
  ::close(m_wake);
}

QUrl WireServer::url() const { return QUrl(QStringLiteral("http://127.0.0.1:%1").arg(m_port)); }

QByteArray WireServer::answer(int status, const QByteArray& body, const QByteArray& headers) {
  return "HTTP/1.1 " + QByteArray::number(status) + " Whatever\r\nContent-Length: " + QByteArray::number(body.size()) +
         "\r\n" + headers + "\r\n" + body;
}

void WireServer::reply(Reply reply) {
  const std::lock_guard lock(m_mutex);
  m_script.push_back(std::move(reply));
}

void WireServer::reply(int status, const QByteArray& body, const QByteArray& headers) {
  reply({.bytes = answer(status, body, headers)});
}

std::vector<WireServer::Received> WireServer::received() const {
  const std::lock_guard lock(m_mutex);
  return m_received;
}

WireServer::Received WireServer::last() const {
  const std::lock_guard lock(m_mutex);
  return m_received.empty() ? Received() : m_received.back();
}

int WireServer::connections() const {
  const std::lock_guard lock(m_mutex);
  return m_connections;
}

int WireServer::givenUp() const {
  const std::lock_guard lock(m_mutex);
  return m_givenUp;
}

void WireServer::run() {
  for (;;) {
    std::vector<pollfd> polled{{m_wake, POLLIN, 0}, {m_listener, POLLIN, 0}};
    for (const auto& connection : m_open) polled.push_back({connection.socket, POLLIN, 0});
    const bool isSending = std::ranges::any_of(m_open, [](const auto& each) { return !each.slowly.isEmpty(); });
    ::poll(polled.data(), polled.size(), isSending ? tick : -1);
    {
      const std::lock_guard lock(m_mutex);
      if (m_stopping) return;
    }
    for (size_t i = 2; i < polled.size(); ++i) {
      auto& connection = m_open[i - 2];
      if (polled[i].revents) serve(connection);
      if (!connection.over && !connection.slowly.isEmpty()) step(connection);
    }
    if (polled[1].revents) accept();
    std::erase_if(m_open, [](const auto& connection) { return connection.over; });
  }
}

void WireServer::accept() {
  const int socket = ::accept(m_listener, nullptr, nullptr);
  if (socket < 0) return;
  const std::lock_guard lock(m_mutex);
  m_open.push_back({++m_connections, socket, {}, {}});
}

bool WireServer::takesUnread(Connection& connection) {
  const std::lock_guard lock(m_mutex);
  if (m_script.empty() || m_script.front().read) return false;
  std::array<char, 4096> bytes;
  const ssize_t count = ::recv(connection.socket, bytes.data(), bytes.size(), MSG_PEEK);
  if (count <= 0) return false;
  m_received.push_back({connection.number, QByteArray(bytes.data(), count)});
  finish(connection, m_script.front().then);
  m_script.pop_front();
  return true;
}

void WireServer::serve(Connection& connection) {
  if (takesUnread(connection)) return;
  std::array<char, 65536> bytes;
  const ssize_t count = ::recv(connection.socket, bytes.data(), bytes.size(), 0);
  if (count <= 0) {
    finish(connection, Reply::Then::close);
    const std::lock_guard lock(m_mutex);
    ++m_givenUp;
    return;
  }
  connection.arriving.append(bytes.data(), count);
  const qsizetype length = wholeRequest(connection.arriving);
  if (length == 0) return;
  meet(connection, connection.arriving.first(length));
  connection.arriving.remove(0, length);
}

void WireServer::meet(Connection& connection, QByteArray request) {
  Reply reply;
  {
    const std::lock_guard lock(m_mutex);
    m_received.push_back({connection.number, request});
    if (m_script.empty()) {
      reply.bytes = answer(200, "{\"text\":\"" + m_received.back().line() + "\"}");
    } else {
      reply = std::move(m_script.front());
      m_script.pop_front();
    }
  }
  sendAll(connection.socket, reply.bytes);
  const int apart = 1;
  if (!reply.hastily.isEmpty()) ::setsockopt(connection.socket, IPPROTO_TCP, TCP_NODELAY, &apart, sizeof apart);
  for (const char byte : reply.hastily) sendAll(connection.socket, QByteArrayView(&byte, 1));
  connection.slowly = reply.slowly;
  connection.then = reply.then;
  if (connection.slowly.isEmpty()) finish(connection, reply.then);
}

void WireServer::step(Connection& connection) {
  sendAll(connection.socket, connection.slowly.first(1));
  connection.slowly.remove(0, 1);
  if (connection.slowly.isEmpty()) finish(connection, connection.then);
}

void WireServer::finish(Connection& connection, Reply::Then then) {
  if (then == Reply::Then::keep) return;
  const linger atOnce{1, 0};
  if (then == Reply::Then::reset) ::setsockopt(connection.socket, SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
  ::close(connection.socket);
  connection.over = true;
}

}  // namespace orv::test
