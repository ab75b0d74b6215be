#pragma once

#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <functional>

#include "kit/async/TaskScope.h"

namespace orv {

/// Objects kept warm by key, the oldest evicted beyond a capacity.
///
/// `T` is a QObject with close(), unsavedWork() and flush(). One that is evicted with unsaved work is kept aside until
/// that is saved; when it cannot be saved it stays there, to be opened again, until clear(). So does one that a page
/// shows, until it is left: nothing is taken away from under the person's eyes. Nor does one go while a change that it
/// may have sent has no answer yet.
template <class T>
class StoreCache {
 public:
  /// Whether opening a kept object makes it the newest (so the least recently opened goes first) or leaves its place
  /// (so the first opened goes first).
  enum class Order { lastOpening, firstOpening };

  StoreCache(qsizetype capacity, Order order) : m_capacity(capacity), m_order(order) {}
  StoreCache(const StoreCache&) = delete;
  StoreCache& operator=(const StoreCache&) = delete;
  ~StoreCache() {
    m_saving.cancel();
    qDeleteAll(m_objects);
    qDeleteAll(m_aside);
  }

  /// Called for an evicted object whose work could not be saved.
  std::function<void(const QString& key, const T&)> onNotSaved;

  T* open(const QString& key, const std::function<T*()>& make) {
    T* object = m_objects.value(key);
    if (!object) {
      object = m_aside.take(key);
      if (!object) {
        object = make();
        // For when it is out of the cache by then.
        if constexpr (requires { &T::left; })
          QObject::connect(object, &T::left, object, [this, key, object] { letGo(key, object); });
        // One that could not be saved has been told of, and waits for somebody to open it.
        if constexpr (requires { &T::sent; })
          QObject::connect(object, &T::sent, object, [this, key, object] {
            if (m_waitsForAnswer.remove(key)) letGo(key, object);
          });
      }
      m_objects.insert(key, object);
      m_keys.append(key);
    } else if (m_order == Order::lastOpening) {
      m_keys.move(m_keys.indexOf(key), m_keys.size() - 1);
    }
    while (m_keys.size() > m_capacity) evict(m_keys.first());
    return object;
  }

  /// Kept, or set aside until it can go.
  T* find(const QString& key) const {
    T* const kept = m_objects.value(key);
    return kept ? kept : m_aside.value(key);
  }
  /// Oldest first.
  const QStringList& keys() const { return m_keys; }

  /// A sentence for each that has unsaved work.
  QStringList unsavedWork() const {
    QStringList work;
    for (const T* object : m_objects.values() + m_aside.values()) work += object->unsavedWork();
    return work;
  }

  /// Saves the work of all; true when nothing is left unsaved.
  Task<bool> flush() {
    const QList<T*> all = m_objects.values() + m_aside.values();
    bool saved = true;
    for (T* object : all) {
      const bool isKept = std::ranges::find(m_objects, object) != m_objects.end() ||
                          std::ranges::find(m_aside, object) != m_aside.end();
      if (isKept && isUnsaved(*object) && !co_await object->flush()) saved = false;
    }
    co_return saved;
  }

  /// Lets go of everything now, unsaved or not.
  void clear() {
    m_saving.cancel();
    m_keys.clear();
    m_waitsForAnswer.clear();
    const QList<T*> all = std::exchange(m_objects, {}).values() + std::exchange(m_aside, {}).values();
    for (T* object : all) drop(object);
  }
  /// Lets go of one now, unsaved or not.
  void drop(QString key) {
    m_keys.removeOne(key);
    for (T* object : {m_objects.take(key), m_aside.take(key)})
      if (object) drop(object);
  }
  void evictAll() { keepOnly({}); }
  void keepOnly(const QString& key) {
    const QStringList keys = m_keys;
    for (const QString& other : keys)
      if (other != key) evict(other);
  }

 private:
  static bool isUnsaved(const T& object) { return !object.unsavedWork().isEmpty(); }

  /// A page shows it, or it waits for an answer.
  static bool isNeeded(const T& object) {
    bool is = false;
    if constexpr (requires { object.isShown(); }) is = object.isShown();
    if constexpr (requires { object.isSending(); }) is = is || object.isSending();
    return is;
  }

  /// By value: the key that is handed over may be the one that is taken out of the list.
  void evict(QString key) {
    m_keys.removeOne(key);
    T* object = m_objects.take(key);
    if (!isUnsaved(*object) && !isNeeded(*object)) return drop(object);
    m_aside.insert(key, object);
    letGo(key, object);
  }

  void letGo(const QString& key, T* object) {
    // Whoever shows it may open it again at once, and is not to hear that it could not be saved.
    QTimer::singleShot(0, object, [this, key, object] {
      if (m_aside.value(key) != object) return;
      if (isNeeded(*object))
        m_waitsForAnswer.insert(key);
      else
        m_saving.start(saveAside(key, object));
    });
  }

  Task<void> saveAside(QString key, T* object) {
    const bool saved = !isUnsaved(*object) || co_await object->flush();
    // Opened again meanwhile.
    if (m_aside.value(key) != object) co_return;
    if (isNeeded(*object)) {
      m_waitsForAnswer.insert(key);
      co_return;
    }
    if (!saved) {
      if (onNotSaved) onNotSaved(key, *object);
      co_return;
    }
    m_aside.remove(key);
    drop(object);
  }

  static void drop(T* object) {
    object->close();
    object->deleteLater();
  }

  qsizetype m_capacity;
  Order m_order;
  QMap<QString, T*> m_objects;
  QStringList m_keys;
  /// Evicted, and not saved yet.
  QMap<QString, T*> m_aside;
  /// Of those the ones that could not be looked at yet, for a page showed them or a change had no answer.
  QSet<QString> m_waitsForAnswer;
  TaskScope m_saving;
};

}  // namespace orv
