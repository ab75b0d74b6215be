#pragma once

#include <QHash>
#include <QObject>
#include <QString>
#include <concepts>
#include <functional>
#include <optional>
#include <type_traits>
#include <vector>

namespace orv {

/// When a request went out, in the order in which the workspace sent them; zero is before all of them.
enum class Stamp : quint64 {};

/// A shape of a record that several places show: the row of a list and the whole record are one to the change feed. It
/// says so itself, by naming the record as `Record`.
template <class Shape>
concept SharedRecord = requires { typename Shape::Record; };
/// The shape that is the record itself, and so can be told to everybody.
template <class Shape>
concept WholeRecord = SharedRecord<Shape> && std::same_as<typename Shape::Record, Shape>;
/// A page or list of such shapes.
template <class List>
concept SharedList = requires(const List& list) { requires SharedRecord<std::decay_t<decltype(list.items.first())>>; };

/// The same records while they wait in the archive: what has left the one list is in the other.
template <class Record>
struct Archived;

/// What happened to a record, as its watchers are told.
template <class Record>
struct Change {
  enum class Kind {
    /// It is now `record`.
    is,
    /// It is gone: deleted, archived, restored from the archive.
    gone,
    /// It changed, but nobody has seen into what.
    stale
  };
  Kind kind;
  /// Empty when any of them may have changed.
  QString id;
  const Record* record = nullptr;
  /// False when a reading brought it and not somebody's action here.
  bool acted = false;
  /// The version that the person changed, where their request named it: between that and this one lies nobody else's
  /// doing.
  std::optional<qint64> madeOn = {};
};

/// One workspace's news: through it, stores that show the same records agree.
///
/// The newest version of a record wins, in whatever order answers arrive. Where either side has none, the answer to the
/// request that was sent last wins. Ids that are gone are remembered, so that an older reading does not bring them
/// back. Confined to the main thread.
class Changes final : public QObject {
  Q_OBJECT

 public:
  using QObject::QObject;

  /// For a request that goes out now.
  Stamp stamp() { return Stamp(++m_last); }

  /// False when something newer than this answer is known: it is not to be shown.
  template <SharedRecord Shape>
  bool isNews(const Shape& shape, Stamp asked) const {
    return judge(topic<typename Shape::Record>(), shape.id, versionOf(shape), asked) != Verdict::older;
  }

  /// An answer brought the record. False when a newer one is known: nobody is told then.
  template <WholeRecord Record>
  bool publish(const Record& record, Stamp asked, bool acted, std::optional<qint64> madeOn = {}) {
    if (!learn(topic<Record>(), record.id, versionOf(record), asked)) return false;
    tell<Record>({Change<Record>::Kind::is, record.id, &record, acted, madeOn});
    return true;
  }

  /// The record has left: no answer to a request sent before this one brings it back.
  template <class Record>
  void gone(const QString& id, Stamp asked) {
    if (!bury(topic<Record>(), id, asked)) return;
    tell<Record>({Change<Record>::Kind::gone, id, nullptr, true});
  }

  /// The record, or with no id any of them, is no longer what was read. Whoever shows it reads it again when next
  /// shown.
  template <class Record>
  void stale(const QString& id = {}) {
    tell<Record>({Change<Record>::Kind::stale, id, nullptr, true});
  }

  /// A list that was asked for at `asked` came: puts what is known better in its place. `shown` is the list that stands
  /// on screen; its items stand for records that the answer has in an older state, and what is gone is taken out.
  /// Watchers are told of those that are newer here than what they were told before.
  template <class Record, class Item>
  void reconcile(QList<Item>& items, const QList<Item>* shown, Stamp asked) {
    const void* const about = topic<Record>();
    QHash<QString, const Item*> standing;
    std::vector<QString> news;
    items.removeIf([&](const Item& item) { return isBuried(about, item.id, asked); });
    for (Item& item : items) {
      const auto version = versionOf(item);
      const auto verdict = judge(about, item.id, version, asked);
      if (verdict == Verdict::older && shown) {
        if (standing.isEmpty())
          for (const Item& known : *shown) standing.insert(known.id, &known);
        if (const Item* known = standing.value(item.id)) item = *known;
      }
      if (verdict == Verdict::newer) news.push_back(item.id);
      if (verdict != Verdict::older) learn(about, item.id, version, asked);
    }
    for (const QString& id : news) tell<Record>({Change<Record>::Kind::stale, id, nullptr, false});
  }

  /// Calls `take` for every change of such a record until `watcher` is gone.
  template <class Record>
  void watch(QObject* watcher, std::function<void(const Change<Record>&)> take) {
    listen(topic<Record>(), watcher,
           [take = std::move(take)](const void* change) { take(*static_cast<const Change<Record>*>(change)); });
  }

 private:
  enum class Verdict { unknown, same, newer, older };
  struct Known {
    Stamp asked{};
    std::optional<qint64> version;
    bool gone = false;
  };
  struct Watcher {
    const void* about;
    QObject* watcher;
    std::function<void(const void*)> take;
  };

  template <class Record>
  static const void* topic() {
    static const char unique = 0;
    return &unique;
  }
  template <class Shape>
  static std::optional<qint64> versionOf(const Shape& shape) {
    if constexpr (requires { shape.version; })
      return shape.version;
    else
      return std::nullopt;
  }
  template <class Record>
  void tell(const Change<Record>& change) {
    tellWatchers(topic<Record>(), &change);
  }

  Verdict judge(const void* about, const QString& id, std::optional<qint64> version, Stamp asked) const;
  /// False when something newer is known already.
  bool learn(const void* about, const QString& id, std::optional<qint64> version, Stamp asked);
  bool bury(const void* about, const QString& id, Stamp asked);
  bool isBuried(const void* about, const QString& id, Stamp asked) const;
  void listen(const void* about, QObject* watcher, std::function<void(const void*)> take);
  void tellWatchers(const void* about, const void* change);

  quint64 m_last = 0;
  QHash<const void*, QHash<QString, Known>> m_known;
  std::vector<Watcher> m_watchers;
};

}  // namespace orv
