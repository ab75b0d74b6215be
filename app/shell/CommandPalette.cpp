#include "app/shell/CommandPalette.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

/// 0 for no match; higher is better. Every word of the query must be found somewhere.
int score(const Command& command, const QStringList& words) {
  const QString title = command.title.toLower(), subtitle = command.subtitle.toLower();
  int total = 0;
  for (const QString& word : words) {
    if (title.startsWith(word))
      total += 8;
    else if (title.contains(u' ' + word))
      total += 6;
    else if (title.contains(word))
      total += 4;
    else if (subtitle.contains(word))
      total += 1;
    else
      return 0;
  }
  return total;
}

}  // namespace

CommandPalette::CommandPalette(Preferences& preferences, std::function<QList<Command>()> commands, QObject* parent)
    : ListModel(parent), m_preferences(preferences), m_source(std::move(commands)) {}

void CommandPalette::setQuery(const QString& query) {
  const QString before = std::exchange(m_query, query);
  if (before == query) return;
  if (before.isEmpty()) Q_EMIT searching();
  show();
  Q_EMIT queryChanged();
}

void CommandPalette::prepare() {
  m_commands = m_source();
  m_query.clear();
  show();
  Q_EMIT queryChanged();
}

void CommandPalette::renew() {
  m_commands = m_source();
  // Who looks at what they chose last is not disturbed, nor is who has a row in mind while it stays where it is.
  if (m_query.isEmpty()) return;
  QList<Command> now = matches();
  if (std::ranges::equal(now, m_shown, {}, &Command::id, &Command::id))
    m_shown = std::move(now);
  else
    show();
}

bool CommandPalette::choose(int row) {
  if (row < 0 || row >= m_shown.size()) return false;
  const Command command = m_shown[row];
  remember(command.id);
  command.run();
  return true;
}

QList<Command> CommandPalette::recents() const {
  QList<Command> shown;
  for (const QString& id : m_preferences.recentCommands()) {
    const auto command = std::ranges::find(m_commands, id, &Command::id);
    if (command == m_commands.end()) continue;
    Command recent = *command;
    recent.group = u"Recent"_s;
    shown.append(recent);
  }
  return shown;
}

QList<Command> CommandPalette::suggestions() const {
  // A workspace may have thousands of records; nobody reads through them to find the pages behind.
  QList<Command> shown;
  for (const Command& command : m_commands)
    if (!command.id.startsWith("record."_L1)) shown.append(command);
  return shown;
}

QList<Command> CommandPalette::matches() const {
  const QStringList words = m_query.toLower().split(u' ', Qt::SkipEmptyParts);
  if (words.isEmpty()) return recents().isEmpty() ? suggestions() : recents();
  // Groups keep their order, the best match leads within each.
  QStringList groups;
  QList<std::pair<int, Command>> found;
  for (const Command& command : m_commands) {
    const int points = score(command, words);
    if (points == 0) continue;
    if (!groups.contains(command.group)) groups.append(command.group);
    found.append({points, command});
  }
  std::ranges::stable_sort(found, [&groups](const auto& a, const auto& b) {
    const auto left = groups.indexOf(a.second.group), right = groups.indexOf(b.second.group);
    return left != right ? left < right : a.first > b.first;
  });
  QList<Command> shown;
  for (auto& [points, command] : found) shown.append(std::move(command));
  return shown;
}

void CommandPalette::remember(const QString& id) {
  QStringList recent = m_preferences.recentCommands();
  recent.removeAll(id);
  recent.prepend(id);
  m_preferences.setRecentCommands(recent.mid(0, recentsAtMost));
}

void CommandPalette::show() {
  beginResetModel();
  m_shown = matches();
  endResetModel();
}

int CommandPalette::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : int(m_shown.size()); }

QVariant CommandPalette::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const Command& command = m_shown[index.row()];
  switch (role) {
    case IdRole:
      return command.id;
    case GroupRole:
      return command.group;
    case Qt::DisplayRole:
    case TitleRole:
      return command.title;
    case SubtitleRole:
      return command.subtitle;
    case IconRole:
      return command.icon;
    case KeysRole:
      return command.keys;
    default:
      return {};
  }
}

QHash<int, QByteArray> CommandPalette::roleNames() const {
  return {{IdRole, "commandId"},      {GroupRole, "group"},   {TitleRole, "title"},
          {SubtitleRole, "subtitle"}, {IconRole, "iconName"}, {KeysRole, "chord"}};
}

}  // namespace orv
