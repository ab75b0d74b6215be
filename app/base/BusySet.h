#pragma once

#include <QObject>
#include <QPointer>
#include <QSet>
#include <QString>

namespace orv {

/// The ids of records that are marked: by an action in flight, say.
class BusySet final : public QObject {
  Q_OBJECT

 public:
  using QObject::QObject;

  /// Keeps an id busy while it lives, on every path: success, failure, cancellation, the owner's end.
  class [[nodiscard]] Mark {
   public:
    Mark() = default;
    Mark(BusySet* set, QString id) : m_set(set), m_id(std::move(id)) {}
    Mark(Mark&& other) noexcept : m_set(std::exchange(other.m_set, nullptr)), m_id(std::move(other.m_id)) {}
    Mark& operator=(Mark&&) = delete;
    ~Mark() {
      if (m_set) m_set->release(m_id);
    }
    explicit operator bool() const { return !m_set.isNull(); }

   private:
    QPointer<BusySet> m_set;
    QString m_id;
  };

  /// Empty when the id is busy already: the second action on a record is ignored.
  Mark mark(const QString& id);
  bool contains(const QString& id) const { return m_ids.contains(id); }
  const QSet<QString>& ids() const { return m_ids; }

 Q_SIGNALS:
  void changed(const QString& id);

 private:
  void release(const QString& id);
  QSet<QString> m_ids;
};

}  // namespace orv
