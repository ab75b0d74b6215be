#pragma once

#include <QAbstractEventDispatcher>
#include <functional>

namespace orv {

/// Tells when the main thread's event loop begins to work and when it is done and waits again.
///
/// The dispatcher says when it is about to wait, but not, whichever it is, when what it waited for has come: work
/// begins with the first event that anybody in the thread gets.
class LoopTurns final : public QObject {
 public:
  LoopTurns(QAbstractEventDispatcher& dispatcher, std::function<void()> began, std::function<void()> ended);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  std::function<void()> m_began;
  bool m_working = false;
};

}  // namespace orv
