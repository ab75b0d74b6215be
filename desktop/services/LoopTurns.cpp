#include "desktop/services/LoopTurns.h"

#include <QCoreApplication>

namespace orv {

LoopTurns::LoopTurns(QAbstractEventDispatcher& dispatcher, std::function<void()> began, std::function<void()> ended)
    : m_began(std::move(began)) {
  connect(&dispatcher, &QAbstractEventDispatcher::aboutToBlock, this, [this, ended = std::move(ended)] {
    if (std::exchange(m_working, false)) ended();
  });
  QCoreApplication::instance()->installEventFilter(this);
}

bool LoopTurns::eventFilter(QObject*, QEvent*) {
  if (!std::exchange(m_working, true)) m_began();
  return false;
}

}  // namespace orv
