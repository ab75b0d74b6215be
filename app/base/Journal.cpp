#include "app/base/Journal.h"

#include <QCryptographicHash>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLoggingCategory>

using namespace Qt::Literals::StringLiterals;

namespace orv {

Q_LOGGING_CATEGORY(lcJournal, "orvella.journal")

namespace {

/// With the checksum of what follows in its line: a file that was cut off, or came back as zeros, is not taken for an
/// emptied text.
constexpr QByteArrayView mark = "orvella-journal 1 ";

QByteArray checksum(QByteArrayView bytes) {
  QCryptographicHash hash(QCryptographicHash::Sha256);
  hash.addData(bytes);
  return hash.result().toHex();
}

QByteArray encode(const Journal::Person& person, const Journal::Entry& entry) {
  QJsonObject object{{u"user"_s, person.userId},
                     {u"origin"_s, person.origin},
                     {u"workspace"_s, entry.key.workspace},
                     {u"key"_s, entry.key.name},
                     {u"keptAt"_s, entry.keptAt.toString(Qt::ISODateWithMs)},
                     {u"text"_s, QString::fromUtf8(entry.text.bytes)}};
  if (entry.text.base) object.insert(u"base"_s, *entry.text.base);
  const QByteArray body = QJsonDocument(object).toJson(QJsonDocument::Compact);
  return mark.toByteArray() + checksum(body) + '\n' + body;
}

struct Decoded {
  Journal::Person person;
  Journal::Entry entry;
};

std::optional<Decoded> decode(const QByteArray& bytes) {
  const qsizetype line = bytes.indexOf('\n');
  if (line < 0 || !bytes.startsWith(mark)) return std::nullopt;
  const QByteArray body = bytes.mid(line + 1);
  if (bytes.mid(mark.size(), line - mark.size()) != checksum(body)) return std::nullopt;
  const QJsonObject object = QJsonDocument::fromJson(body).object();
  const auto text = [&object](QLatin1StringView name) { return object.value(name).toString(); };
  Decoded decoded{{text("user"_L1), text("origin"_L1)},
                  {{text("workspace"_L1), text("key"_L1)},
                   {std::nullopt, text("text"_L1).toUtf8()},
                   QDateTime::fromString(text("keptAt"_L1), Qt::ISODateWithMs)}};
  if (decoded.person.userId.isEmpty() || decoded.entry.key.name.isEmpty()) return std::nullopt;
  if (const auto base = object.value("base"_L1); base.isDouble()) decoded.entry.text.base = base.toInteger();
  return decoded;
}

}  // namespace

Journal::Journal(JournalFiles& files, Clock& clock, QObject* parent)
    : QObject(parent), m_files(files), m_clock(clock) {}

void Journal::open(Person person) {
  endSitting();
  m_person = std::move(person);
  m_reading.start(read());
}

void Journal::close() {
  write();
  endSitting();
}

void Journal::forget() {
  if (!m_person) return;
  for (const Key& key : m_entries.keys()) m_files.remove(fileOf(key));
  // What is theirs is not all known yet.
  if (!m_isRead) m_forgetting.start(removeAll(*m_person));
  endSitting();
}

Task<void> Journal::removeAll(Person person) {
  const auto files = co_await m_files.readAll();
  for (auto file = files.begin(); file != files.end(); ++file)
    if (const auto decoded = decode(file.value()); decoded && decoded->person == person) m_files.remove(file.key());
}

void Journal::endSitting() {
  ++m_sitting;
  m_reading.cancel();
  m_timer.reset();
  m_person.reset();
  m_isRead = false;
  m_entries.clear();
  m_changed.clear();
  m_touched.clear();
  for (OneShot<bool> waiting : std::exchange(m_waiting, {})) waiting.give(false);
}

Task<void> Journal::read() {
  const auto files = co_await m_files.readAll();
  for (auto file = files.begin(); file != files.end(); ++file) take(file.key(), file.value());
  m_isRead = true;
  m_touched.clear();
  Q_EMIT opened();
  for (OneShot<bool> waiting : std::exchange(m_waiting, {})) waiting.give(true);
}

void Journal::take(const QString& file, const QByteArray& bytes) {
  auto decoded = decode(bytes);
  if (!decoded) {
    qCWarning(lcJournal, "\"%s\" cannot be understood and is set aside", qPrintable(file));
    return m_files.setAside(file);
  }
  const Key key = decoded->entry.key;
  if (decoded->person == m_person && !m_touched.contains(key)) m_entries.insert(key, std::move(decoded->entry));
}

/// Tells nothing of whose it is, nor of what: names of files are seen by many.
QString Journal::fileOf(const Key& key) const {
  const QStringList parts{m_person->origin, m_person->userId, key.workspace, key.name};
  return QString::fromLatin1(checksum(parts.join(QChar(u'\0')).toUtf8()).first(32));
}

void Journal::keep(const Key& key, std::function<JournalText()> text) {
  if (!m_person) return;
  m_changed.insert_or_assign(key, std::move(text));
  if (!m_isRead) m_touched.insert(key);
  // Not begun anew with every key: who types on and on is kept as well.
  if (!m_timer) m_timer = m_clock.startTimer(wait, [this] { write(); });
}

void Journal::drop(const Key& key) {
  if (!m_person) return;
  m_changed.erase(key);
  if (!m_isRead) m_touched.insert(key);
  if (m_entries.remove(key) > 0 || !m_isRead) m_files.remove(fileOf(key));
}

void Journal::setAside(const Key& key) {
  if (m_person && m_entries.remove(key) > 0) m_files.setAside(fileOf(key));
}

Task<std::optional<JournalText>> Journal::find(Key key) {
  if (m_person && !m_isRead) {
    const OneShot<bool> read;
    m_waiting.append(read);
    if (!co_await read.wait()) co_return std::nullopt;
  }
  // Asked for again within the second that it waits.
  if (m_changed.contains(key)) write();
  const auto found = m_entries.constFind(key);
  if (found == m_entries.constEnd()) co_return std::nullopt;
  co_return found->text;
}

void Journal::write() {
  m_timer.reset();
  for (const auto& [key, text] : std::exchange(m_changed, {})) {
    const Entry entry{key, text(), m_clock.now()};
    const auto there = m_entries.constFind(key);
    if (there != m_entries.constEnd() && there->text == entry.text) continue;
    m_files.write(fileOf(key), encode(*m_person, entry));
    m_entries.insert(key, entry);
  }
}

void Journal::finish() {
  write();
  m_files.finish();
}

JournalLine::JournalLine(Journal& journal, Journal::Key key, std::function<JournalText()> text)
    : m_journal(&journal), m_key(std::move(key)), m_text(std::move(text)), m_sitting(journal.sitting()) {}

JournalLine::~JournalLine() {
  // The text is about to go.
  if (m_unsaved && counts()) m_journal->write();
}

void JournalLine::follow(bool isUnsaved) {
  if (!m_takenUp || !counts()) return;
  if (isUnsaved)
    m_journal->keep(m_key, m_text);
  else if (m_unsaved)
    m_journal->drop(m_key);
  m_unsaved = isUnsaved;
}

Task<std::optional<JournalText>> JournalLine::takeUp() {
  if (m_takenUp || !counts()) co_return std::nullopt;
  auto found = co_await m_journal->find(m_key);
  m_takenUp = true;
  m_unsaved = found.has_value();
  co_return found;
}

void JournalLine::setAside() {
  m_unsaved = false;
  if (counts()) m_journal->setAside(m_key);
}

}  // namespace orv
