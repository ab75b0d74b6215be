#pragma once

#include <QHash>
#include <QObject>
#include <QString>
#include <deque>
#include <memory>

#include "kit/async/OneShot.h"
#include "kit/async/Task.h"

namespace orv {

/// Lets the changes of one record go one after another, so that a person never conflicts with themselves.
///
/// The request of a change is built once its turn has come: with the version that the change before it left.
class RecordTurns final : public QObject {
  Q_OBJECT
  class Place;

 public:
  using QObject::QObject;

  /// Holds up the changes that come after it while it lives.
  class [[nodiscard]] Turn {
   public:
    explicit Turn(std::unique_ptr<Place> place);
    Turn(Turn&&) noexcept;
    Turn& operator=(Turn&&) = delete;
    ~Turn();
    /// False when the record was deleted while this change waited: it must not be sent, and its person be told.
    explicit operator bool() const;
    /// The record was deleted: lets those go that wait behind.
    void recordGone();

   private:
    std::unique_ptr<Place> m_place;
  };

  /// Waits until every change of the record that was asked for before has ended.
  Task<Turn> next(QString record);

 private:
  void leave(Place* place);
  void handOn(const QString& record);

  QHash<QString, std::deque<Place*>> m_queues;
};

}  // namespace orv
