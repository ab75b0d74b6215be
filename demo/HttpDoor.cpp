#include "demo/HttpDoor.h"

#include <QLocale>
#include <QTcpSocket>

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace orv::demo {
namespace {

constexpr qsizetype longestHead = 64 << 10;
constexpr qsizetype longestBody = 64 << 20;

QByteArray reason(int status) {
  switch (status) {
    case 200:
      return "OK";
    case 201:
      return "Created";
    case 204:
      return "No Content";
    case 400:
      return "Bad Request";
    case 411:
      return "Length Required";
    case 413:
      return "Content Too Large";
    case 431:
      return "Request Header Fields Too Large";
    default:
      return "Status";
  }
}

QByteArray serialised(const HTTPAnswer& answer, const QDateTime& now) {
  QByteArray bytes = "HTTP/1.1 " + QByteArray::number(answer.status) + ' ' + reason(answer.status) + "\r\n";
  bytes += "Date: " + QLocale::c().toString(now.toUTC(), QStringLiteral("ddd, dd MMM yyyy hh:mm:ss 'GMT'")).toLatin1() +
           "\r\n";
  for (const auto& [name, value] : answer.headers) bytes += name + ": " + value + "\r\n";
  if (answer.status != 204) bytes += "Content-Length: " + QByteArray::number(answer.body.size()) + "\r\n";
  return bytes + "\r\n" + answer.body;
}

HTTPAnswer html(int status) {
  return {status, {{"Content-Type", "text/html"}}, "<html><body>Bad gateway</body></html>"};
}

/// A refusal changes nothing; every other fault spoils the answer to what has been done.
bool isRefusal(Faults::Kind kind) {
  return kind == Faults::Kind::unauthorized || kind == Faults::Kind::conflict || kind == Faults::Kind::rateLimit;
}

HTTPAnswer faulty(Faults::Kind kind, const HTTPAnswer& answer) {
  switch (kind) {
    case Faults::Kind::unauthorized:
      return problemAnswer(401, u"unauthorized"_s, u"Not signed in"_s);
    case Faults::Kind::conflict:
      return problemAnswer(409, u"conflict"_s, u"Someone changed this meanwhile"_s);
    case Faults::Kind::rateLimit:
      return {429, {{"Retry-After", "1.5"}}, {}};
    case Faults::Kind::htmlError:
      return html(500);
    case Faults::Kind::htmlSuccess:
      return html(200);
    case Faults::Kind::truncated: {
      // The length is right and the JSON is not: what a broken cache in between hands out.
      HTTPAnswer cut = answer;
      cut.body.truncate(cut.body.size() / 2);
      return cut;
    }
    case Faults::Kind::closed:
    case Faults::Kind::late:
      return answer;
  }
  Q_UNREACHABLE();
}

}  // namespace

/// One client's connection: reads requests one after the other and answers each before it looks at the next.
class HttpDoor::Connection final : public QObject {
 public:
  Connection(HttpDoor& door, QTcpSocket* socket) : QObject(&door), m_door(door), m_socket(socket) {
    m_socket->setParent(this);
    connect(m_socket, &QTcpSocket::readyRead, this, [this] {
      m_bytes += m_socket->readAll();
      proceed();
    });
    connect(m_socket, &QTcpSocket::disconnected, this, &QObject::deleteLater);
  }

 private:
  void proceed() {
    while (!m_answering && !m_held && readRequest()) answer();
    if (m_bytes.size() > longestHead + longestBody) refuse(413);
  }

  /// True when a whole request has been taken off m_bytes.
  bool readRequest() {
    const auto headEnd = m_bytes.indexOf("\r\n\r\n");
    if ((headEnd < 0 ? m_bytes.size() : headEnd) > longestHead) return refuse(431);
    if (headEnd < 0) return false;
    if (!readHead(m_bytes.first(headEnd))) return false;
    if (header("transfer-encoding")) return refuse(411);
    const auto length = contentLength();
    if (!length) return refuse(400);
    if (*length > longestBody) return refuse(413);
    if (m_bytes.size() < headEnd + 4 + *length) {
      askForBody();
      return false;
    }
    m_toldToContinue = false;
    m_body = m_bytes.mid(headEnd + 4, *length);
    m_bytes.remove(0, headEnd + 4 + *length);
    return true;
  }

  bool readHead(const QByteArray& head) {
    const QList<QByteArray> lines = head.split('\n');
    const QList<QByteArray> start = lines.first().trimmed().split(' ');
    if (start.size() != 3 || start[0].isEmpty() || !start[1].startsWith('/') || !start[2].startsWith("HTTP/1."))
      return refuse(400);
    m_headers.clear();
    for (const QByteArray& line : lines.mid(1)) {
      const auto colon = line.indexOf(':');
      if (colon <= 0) return refuse(400);
      m_headers.append({line.first(colon).trimmed(), line.sliced(colon + 1).trimmed()});
    }
    m_method = start[0];
    m_target = start[1];
    m_last = start[2] == "HTTP/1.0" || header("connection").value_or(QByteArray()).toLower() == "close";
    return true;
  }

  std::optional<QByteArray> header(QByteArrayView name) const {
    for (const auto& [key, value] : m_headers)
      if (key.compare(name, Qt::CaseInsensitive) == 0) return value;
    return std::nullopt;
  }

  /// Nothing when it is no length, or when two differ: where one request ends must not be a matter of opinion.
  std::optional<qint64> contentLength() const {
    std::optional<qint64> length;
    for (const auto& [key, value] : m_headers) {
      if (key.compare("content-length", Qt::CaseInsensitive) != 0) continue;
      bool isNumber = false;
      const qint64 number = value.toLongLong(&isNumber);
      if (!isNumber || number < 0 || (length && *length != number)) return std::nullopt;
      length = number;
    }
    return length.value_or(0);
  }

  /// A client with a long body waits for this word, a second or for ever, before it sends.
  void askForBody() {
    if (m_toldToContinue || header("expect").value_or(QByteArray()).toLower() != "100-continue") return;
    m_toldToContinue = true;
    m_socket->write("HTTP/1.1 100 Continue\r\n\r\n");
  }

  void answer() {
    const auto request = DemoRequest::parse(m_method, m_target, m_headers, m_body);
    if (m_door.onRequest) m_door.onRequest(QString::fromLatin1(m_method) + u' ' + request.path);
    if (m_door.m_faults.holds(request.path)) {
      m_held = true;
      return;
    }
    const auto fault = m_door.m_faults.draw();
    HTTPAnswer answer;
    if (!fault || !isRefusal(*fault)) answer = m_door.m_service.answer(request);
    if (fault) answer = faulty(*fault, answer);
    auto delay = m_door.m_faults.latency();
    if (fault == Faults::Kind::late) delay += m_door.m_faults.lateness();
    if (delay == 0ms) return send(answer, fault);
    m_answering = m_door.m_clock.startTimer(delay, [this, answer, fault] {
      send(answer, fault);
      m_answering.reset();
      proceed();
    });
  }

  void send(const HTTPAnswer& answer, std::optional<Faults::Kind> fault) {
    const QByteArray bytes = serialised(answer, m_door.m_clock.now());
    const bool cut = fault == Faults::Kind::closed;
    m_socket->write(cut ? bytes.first(bytes.size() / 2) : bytes);
    if (cut || m_last) hangUp();
  }

  bool refuse(int status) {
    m_socket->write(serialised({status, {{"Connection", "close"}}, {}}, m_door.m_clock.now()));
    hangUp();
    return false;
  }

  /// What still arrives is of no interest.
  void hangUp() {
    disconnect(m_socket, &QTcpSocket::readyRead, this, nullptr);
    m_bytes.clear();
    m_socket->disconnectFromHost();
  }

  HttpDoor& m_door;
  QTcpSocket* m_socket;
  QByteArray m_bytes, m_method, m_target, m_body;
  QList<QPair<QByteArray, QByteArray>> m_headers;
  std::unique_ptr<Clock::Timer> m_answering;
  bool m_toldToContinue = false;
  bool m_last = false;
  bool m_held = false;
};

HttpDoor::HttpDoor(DemoService& service, Clock& clock, Faults faults, QObject* parent)
    : QObject(parent), m_service(service), m_clock(clock), m_faults(std::move(faults)) {
  connect(&m_server, &QTcpServer::newConnection, this, &HttpDoor::accept);
}

bool HttpDoor::listen(quint16 port) { return m_server.listen(QHostAddress::LocalHost, port); }

void HttpDoor::accept() {
  while (QTcpSocket* socket = m_server.nextPendingConnection()) new Connection(*this, socket);
}

}  // namespace orv::demo
