#include "app/shell/CommandPalette.h"

#include <QSet>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

/// 0 when the title has nothing of the word; higher is better.
int pointsIn(const QString& title, const QString& word) {
  if (title.startsWith(word)) return 8;
  if (title.contains(u' ' + word)) return 6;
  return title.contains(word) ? 4 : 0;
}

/// 0 for no match. Every word of the query must be found somewhere.
int score(const Command& command, const QStringList& words) {
  const QString title = command.title.toLower(), subtitle = command.subtitle.toLower();
  int total = 0;
  for (const QString& word : words) {
    const int points = pointsIn(title, word);
    if (points == 0 && !subtitle.contains(word)) return 0;
    total += std::max(points, 1);
  }
  return total;
}

bool isRecord(const QString& id) { return id.startsWith("record."_L1); }

/// Of so many records that some of the words name, what can be done is looked through.
constexpr qsizetype subjectsAtMost = 8;

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
  m_subject.clear();
  show();
  Q_EMIT queryChanged();
  // What was chosen lately may be of a list that has not been read yet.
  const auto isFound = [this](const QString& id) {
    return std::ranges::find(m_commands, id, &Command::id) != m_commands.end();
  };
  const QStringList chosen = m_preferences.recentCommands();
  if (std::ranges::any_of(chosen, [&](const QString& id) { return isRecord(id) && !isFound(id); })) Q_EMIT searching();
}

void CommandPalette::renew() {
  m_commands = m_source();
  if (!m_subject.isEmpty()) return;
  QList<Command> now = matches();
  // What stands there until something is found that was chosen lately is another list.
  const bool isOther = m_query.isEmpty() && !m_shown.isEmpty() && !now.isEmpty() && m_shown[0].group != now[0].group;
  if (!isOther) follow(std::move(now));
}

/// Row by row: somebody may have one of them in mind, and press Enter the next moment.
void CommandPalette::follow(QList<Command> now) {
  const auto nameOf = [](const Command& command) {
    return QString(command.id + u'\n' + command.group + u'\n' + command.title);
  };
  QSet<QString> found, shown;
  for (const Command& command : now) found.insert(nameOf(command));
  for (int row = int(m_shown.size()) - 1; row >= 0; --row) {
    if (const QString name = nameOf(m_shown[row]); found.contains(name)) {
      shown.insert(name);
      continue;
    }
    beginRemoveRows({}, row, row);
    m_shown.removeAt(row);
    endRemoveRows();
  }
  for (int row = 0; row < now.size(); ++row) {
    if (row < m_shown.size() && nameOf(m_shown[row]) == nameOf(now[row])) {
      m_shown[row] = now[row];
      continue;
    }
    // In another order.
    if (shown.contains(nameOf(now[row]))) return show();
    int end = row + 1;
    while (end < now.size() && !shown.contains(nameOf(now[end]))) ++end;
    beginInsertRows({}, row, end - 1);
    m_shown = m_shown.mid(0, row) + now.mid(row, end - row) + m_shown.mid(row);
    endInsertRows();
    row = end - 1;
  }
}

bool CommandPalette::choose(int row) {
  if (row < 0 || row >= m_shown.size()) return false;
  const Command command = m_shown[row];
  remember(command.id);
  command.run();
  return true;
}

bool CommandPalette::ask(int row) {
  if (row < 0 || row >= m_shown.size() || !m_shown[row].more) return false;
  QList<Command> about = m_shown[row].more();
  if (about.isEmpty()) return false;
  m_about = std::move(about);
  m_subject = m_shown[row].title;
  m_queryBefore = std::exchange(m_query, QString());
  show();
  Q_EMIT queryChanged();
  return true;
}

bool CommandPalette::back() {
  if (m_subject.isEmpty()) return false;
  m_subject.clear();
  m_query = m_queryBefore;
  show();
  Q_EMIT queryChanged();
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
    if (!isRecord(command.id)) shown.append(command);
  return shown;
}

/// What some of the words say can be done, with what the others name.
QList<Command> CommandPalette::deeds(const QStringList& words) const {
  struct Subject {
    const Command* command;
    int points;
    QStringList verbs;
  };
  QList<Subject> subjects;
  for (const Command& command : m_commands) {
    if (!command.more || !isRecord(command.id)) continue;
    Subject subject{&command, 0, {}};
    const QString title = command.title.toLower();
    for (const QString& word : words) {
      const int points = pointsIn(title, word);
      subject.points += points;
      if (points == 0) subject.verbs.append(word);
    }
    if (subject.points > 0 && !subject.verbs.isEmpty()) subjects.append(subject);
  }
  std::ranges::stable_sort(subjects, std::ranges::greater(), &Subject::points);
  QList<Command> found;
  for (const Subject& subject : subjects.mid(0, subjectsAtMost)) {
    for (Command& deed : subject.command->more()) {
      if (score(deed, subject.verbs) == 0) continue;
      deed.title = deed.whole;
      deed.subtitle = subject.command->group;
      deed.keys.clear();
      found.append(std::move(deed));
    }
  }
  return found;
}

QList<Command> CommandPalette::matches() const {
  const QStringList words = m_query.toLower().split(u' ', Qt::SkipEmptyParts);
  const bool isAbout = !m_subject.isEmpty();
  if (words.isEmpty()) return isAbout ? m_about : recents().isEmpty() ? suggestions() : recents();
  // Groups keep their order, the best match leads within each.
  QStringList groups;
  QList<std::pair<int, Command>> found;
  for (const Command& command : isAbout ? m_about : m_commands) {
    if (!groups.contains(command.group)) groups.append(command.group);
    if (const int points = score(command, words); points > 0) found.append({points, command});
  }
  if (!isAbout)
    for (const Command& deed : deeds(words)) found.append({0, deed});
  std::ranges::stable_sort(found, [&groups](const auto& a, const auto& b) {
    const auto left = groups.indexOf(a.second.group), right = groups.indexOf(b.second.group);
    return left != right ? left < right : a.first > b.first;
  });
  QList<Command> shown;
  for (auto& [points, command] : found) shown.append(std::move(command));
  return shown;
}

void CommandPalette::remember(const QString& id) {
  // What is done with a record is not a command of its own.
  if (id.isEmpty()) return;
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
    case HasMoreRole:
      return bool(command.more);
    default:
      return {};
  }
}

QHash<int, QByteArray> CommandPalette::roleNames() const {
  return {{IdRole, "commandId"},  {GroupRole, "group"}, {TitleRole, "title"},    {SubtitleRole, "subtitle"},
          {IconRole, "iconName"}, {KeysRole, "chord"},  {HasMoreRole, "hasMore"}};
}

}  // namespace orv
