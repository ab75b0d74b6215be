#include "app/base/Toasts.h"

#include "app/base/EnumName.h"

using namespace std::chrono_literals;

namespace orv {
namespace {
constexpr qsizetype visibleAtMost = 3;

/// What a message acted on lives on, and would remember each that there ever was.
void letGoOf(const Toasts::Toast& toast, Toasts& toasts) {
  if (toast.actsOn) QObject::disconnect(toast.actsOn, &QObject::destroyed, &toasts, nullptr);
}

}  // namespace

Toasts::Toasts(Clock& clock, QObject* parent) : QAbstractListModel(parent), m_clock(clock) {}

QUuid Toasts::show(Message message) {
  for (qsizetype row = m_toasts.size() - 1; row >= 0; --row) {
    if (m_toasts[row].message != message.message) continue;
    if (message.accumulates && m_toasts[row].accumulates && m_toasts[row].action) {
      message.action = [before = m_toasts[row].action, now = message.action] {
        before();
        now();
      };
    }
    removeAt(row);
  }

  const Toast toast{std::move(message), QUuid::createUuid()};
  beginInsertRows({}, count(), count());
  m_toasts.append(toast);
  endInsertRows();
  startTimer(toast);
  if (toast.actsOn) connect(toast.actsOn, &QObject::destroyed, this, [this, id = toast.id] { withdrawAction(id); });
  while (m_toasts.size() > visibleAtMost) removeAt(0);
  Q_EMIT countChanged();
  return toast.id;
}

void Toasts::failure(const QString& title, const APIError& error) {
  if (error.is(APIError::Kind::cancelled) || error.is(APIError::Kind::unauthorized)) return;
  if (title.isEmpty())
    show({.message = error.message(), .tone = Tone::error});
  else
    show({.message = title, .tone = Tone::error, .detail = error.message()});
}

void Toasts::dismiss(const QUuid& id) {
  if (const auto row = rowOf(id); row >= 0) {
    removeAt(row);
    Q_EMIT countChanged();
  }
}

void Toasts::withdrawAction(const QUuid& id) {
  const auto row = rowOf(id);
  if (row < 0) return;
  m_toasts[row].actsOn = nullptr;
  m_toasts[row].action = {};
  m_toasts[row].actionLabel.clear();
  Q_EMIT dataChanged(index(int(row)), index(int(row)), {ActionLabelRole});
}

void Toasts::act(const QUuid& id) {
  const auto row = rowOf(id);
  if (row < 0) return;
  const auto action = m_toasts[row].action;
  dismiss(id);
  if (action) action();
}

void Toasts::hold(bool held) {
  if (std::exchange(m_held, held) == held) return;
  m_timers.clear();
  for (const Toast& toast : m_toasts) startTimer(toast);
}

void Toasts::clear() {
  if (m_toasts.isEmpty()) return;
  beginResetModel();
  m_timers.clear();
  for (const Toast& toast : std::exchange(m_toasts, {})) letGoOf(toast, *this);
  endResetModel();
  Q_EMIT countChanged();
}

std::chrono::milliseconds Toasts::duration(const Toast& toast) {
  if (toast.tone == Tone::error) return 6s;
  return toast.actionLabel.isEmpty() ? 3500ms : 5s;
}

Task<void> Toasts::expire(QUuid id, std::chrono::milliseconds after) {
  co_await m_clock.sleep(after);
  dismiss(id);
}

void Toasts::startTimer(const Toast& toast) {
  if (m_held) return;
  auto& slot = m_timers[toast.id] = std::make_unique<TaskSlot>();
  slot->start(expire(toast.id, duration(toast)));
}

void Toasts::removeAt(qsizetype row) {
  beginRemoveRows({}, int(row), int(row));
  m_timers.erase(m_toasts[row].id);
  const Toast gone = m_toasts.takeAt(row);
  if (std::ranges::find(m_toasts, gone.actsOn, &Toast::actsOn) == m_toasts.end()) letGoOf(gone, *this);
  endRemoveRows();
}

qsizetype Toasts::rowOf(const QUuid& id) const {
  for (qsizetype row = 0; row < m_toasts.size(); ++row)
    if (m_toasts[row].id == id) return row;
  return -1;
}

int Toasts::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : count(); }

QVariant Toasts::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const Toast& toast = m_toasts[index.row()];
  switch (role) {
    case IdRole:
      return toast.id;
    case Qt::DisplayRole:
    case MessageRole:
      return toast.message;
    case DetailRole:
      return toast.detail;
    case ToneRole:
      return enumName(toast.tone);
    case ActionLabelRole:
      return toast.actionLabel;
    default:
      return {};
  }
}

QHash<int, QByteArray> Toasts::roleNames() const {
  return {{IdRole, "toastId"},
          {MessageRole, "message"},
          {DetailRole, "detail"},
          {ToneRole, "tone"},
          {ActionLabelRole, "actionLabel"}};
}

}  // namespace orv
