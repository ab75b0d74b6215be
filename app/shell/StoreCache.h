#pragma once

#include <QMap>
#include <QString>
#include <QStringList>
#include <functional>

namespace orv {

/// Objects kept warm by key, the oldest evicted beyond a capacity. `T` has close() and is a QObject.
template <class T>
class StoreCache {
 public:
  /// Whether opening a kept object makes it the newest (so the least recently opened goes first) or leaves its place
  /// (so the first opened goes first).
  enum class Order { lastOpening, firstOpening };

  StoreCache(qsizetype capacity, Order order) : m_capacity(capacity), m_order(order) {}
  StoreCache(const StoreCache&) = delete;
  StoreCache& operator=(const StoreCache&) = delete;
  ~StoreCache() { qDeleteAll(m_objects); }

  T* open(const QString& key, const std::function<T*()>& make) {
    T* object = m_objects.value(key);
    if (!object) {
      object = make();
      m_objects.insert(key, object);
      m_keys.append(key);
    } else if (m_order == Order::lastOpening) {
      m_keys.move(m_keys.indexOf(key), m_keys.size() - 1);
    }
    while (m_keys.size() > m_capacity) evict(m_keys.first());
    return object;
  }

  T* find(const QString& key) const { return m_objects.value(key); }
  /// Oldest first.
  const QStringList& keys() const { return m_keys; }

  void clear() {
    while (!m_keys.isEmpty()) evict(m_keys.first());
  }
  void keepOnly(const QString& key) {
    const QStringList keys = m_keys;
    for (const QString& other : keys)
      if (other != key) evict(other);
  }

 private:
  void evict(const QString& key) {
    m_keys.removeOne(key);
    T* object = m_objects.take(key);
    object->close();
    object->deleteLater();
  }

  qsizetype m_capacity;
  Order m_order;
  QMap<QString, T*> m_objects;
  QStringList m_keys;
};

}  // namespace orv
