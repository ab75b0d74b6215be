#pragma once

#include <QDateTime>
#include <QMap>
#include <QObject>
#include <QPointer>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <tuple>

#include "app/base/desktop/JournalFiles.h"
#include "kit/async/Clock.h"
#include "kit/async/OneShot.h"
#include "kit/async/TaskScope.h"

namespace orv {

/// What somebody typed, and the version of the record that they typed it on.
struct JournalText {
  std::optional<qint64> base;
  QByteArray bytes;
  bool operator==(const JournalText&) const = default;
};

/// Keeps what a person typed and the service does not have: through a crash, a kill, a log-out and a session that ends.
///
/// A file for each text, written within a second of typing. It is the person's alone: another one who signs in here
/// does not see it, and it goes when the person signs out by choice. Nothing secret may be kept in it.
class Journal final : public QObject {
  Q_OBJECT

 public:
  static constexpr std::chrono::milliseconds wait{1000};

  struct Person {
    QString userId;
    /// Of the service: one id may name two people on two of them.
    QString origin;
    bool operator==(const Person&) const = default;
  };
  /// Names a text: the workspace, and what it is there, from page and record on ("campaigns/c1/sequence"), which is
  /// where somebody is led who looks for it. Instead of a record "tab:company", or "new" for what the page makes.
  struct Key {
    QString workspace;
    QString name;
    friend bool operator<(const Key& a, const Key& b) {
      return std::tie(a.workspace, a.name) < std::tie(b.workspace, b.name);
    }
  };
  struct Entry {
    Key key;
    JournalText text;
    QDateTime keptAt;
  };

  Journal(JournalFiles& files, Clock& clock, QObject* parent = nullptr);

  /// Somebody signed in: what is left of theirs is read.
  void open(Person person);
  /// Their session ended; what they typed stays for when they are back.
  void close();
  /// They signed out by choice; nothing of theirs stays.
  void forget();

  /// `text` is called when it is time to write, or never.
  void keep(const Key& key, std::function<JournalText()> text);
  void drop(const Key& key);
  /// Nobody can tell what is kept there: it goes out of the way, but not for good.
  void setAside(const Key& key);
  /// What is kept under the key; waits for the reading that open() began.
  Task<std::optional<JournalText>> find(Key key);
  /// What is kept of the person who is signed in; empty until it has been read.
  QList<Entry> entries() const { return m_entries.values(); }

  /// Writes what waits.
  void write();
  /// Nothing of somebody who signed out is still to be removed.
  bool isIdle() const { return m_forgetting.isIdle(); }
  /// The process ends: returns when everything is written.
  void finish();

  /// Moves on with each open(), close() and forget(): who began under another one has no say any more.
  int sitting() const { return m_sitting; }

 Q_SIGNALS:
  /// What is left of the person's has been read.
  void opened();

 private:
  Task<void> read();
  Task<void> removeAll(Person person);
  void take(const QString& file, const QByteArray& bytes);
  void endSitting();
  QString fileOf(const Key& key) const;

  JournalFiles& m_files;
  Clock& m_clock;
  std::optional<Person> m_person;
  int m_sitting = 0;
  bool m_isRead = false;
  QMap<Key, Entry> m_entries;
  /// Not written yet.
  std::map<Key, std::function<JournalText()>> m_changed;
  /// Changed or dropped since open(): what is read of them is older.
  std::set<Key> m_touched;
  QList<OneShot<bool>> m_waiting;
  std::unique_ptr<Clock::Timer> m_timer;
  TaskSlot m_reading;
  TaskScope m_forgetting;
};

/// One text's line to the journal. Its owner declares it after the text, which it reads when it is time to write and,
/// unwritten, once more when it goes.
class JournalLine final {
 public:
  JournalLine(Journal& journal, Journal::Key key, std::function<JournalText()> text);
  JournalLine(const JournalLine&) = delete;
  JournalLine& operator=(const JournalLine&) = delete;
  ~JournalLine();

  /// The text or its state changed. Does nothing until what was kept has been taken up: an untouched form must not
  /// throw away what it is about to be given.
  void follow(bool isUnsaved);
  /// What an earlier run or session left, once.
  Task<std::optional<JournalText>> takeUp();
  /// What was taken up means nothing.
  void setAside();

 private:
  bool counts() const { return m_journal && m_journal->sitting() == m_sitting; }

  /// Gone where a store is let go of through the event loop that is ending.
  QPointer<Journal> m_journal;
  Journal::Key m_key;
  std::function<JournalText()> m_text;
  int m_sitting;
  bool m_takenUp = false;
  bool m_unsaved = false;
};

}  // namespace orv
