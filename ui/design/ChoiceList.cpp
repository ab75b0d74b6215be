#include "ui/design/ChoiceList.h"

#include <QRegularExpression>
#include <QTime>
#include <QVariantMap>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

Choice choiceOf(const QVariantMap& map) {
  return {.key = map.value(u"key"_s).toString(),
          .label = map.value(u"label"_s).toString(),
          .detail = map.value(u"detail"_s).toString(),
          .count = map.value(u"count"_s, -1).toInt(),
          .ticked = map.value(u"ticked"_s).toBool()};
}

QList<Choice> choicesOf(const QVariantList& list) {
  QList<Choice> choices;
  for (const QVariant& item : list) choices.append(choiceOf(item.toMap()));
  return choices;
}

bool sameKeys(const QList<Choice>& one, const QList<Choice>& other) {
  return std::ranges::equal(one, other, {}, &Choice::key, &Choice::key);
}

}  // namespace

ChoiceList::ChoiceList(QObject* parent) : QAbstractListModel(parent) {
  static const bool registered = QMetaType::registerConverter<QVariantMap, Choice>(choiceOf) &&
                                 QMetaType::registerConverter<QVariantList, QList<Choice>>(choicesOf);
  Q_UNUSED(registered)
}

void ChoiceList::setOptions(const QList<Choice>& options) {
  if (options == m_options) return;
  if (sameKeys(options, m_options)) {
    m_options = options;
    Q_EMIT dataChanged(index(0), index(count() - 1));
  } else {
    beginResetModel();
    m_options = options;
    endResetModel();
  }
  Q_EMIT optionsChanged();
  Q_EMIT placeChanged();
}

void ChoiceList::setCurrent(const QString& key) {
  if (key == m_current) return;
  m_current = key;
  Q_EMIT currentChanged();
  Q_EMIT placeChanged();
}

QVariant ChoiceList::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid) || role != Qt::UserRole) return {};
  return QVariant::fromValue(m_options[index.row()]);
}

QString ChoiceList::currentLabel() const { return m_options.value(currentIndex()).shownLabel(); }

int ChoiceList::indexOf(const QString& key) const {
  for (qsizetype i = 0; i < m_options.size(); ++i)
    if (m_options[i].key == key) return int(i);
  return -1;
}

QString ChoiceList::around(int by) const {
  const int size = count();
  return size > 0 ? keyAt((currentIndex() + by + size) % size) : QString();
}

QString ChoiceList::startingWith(const QString& text) const {
  const int size = count(), from = currentIndex() + (text.size() > 1 ? 0 : 1);
  for (int i = 0; i < size; ++i) {
    const Choice& choice = m_options[(from + i + size) % size];
    if (choice.label.startsWith(text, Qt::CaseInsensitive)) return choice.key;
  }
  return {};
}

QString ChoiceList::timeNamed(const QString& text) const {
  static const QRegularExpression pattern(u"^([0-9]{1,2}?)[:.]?([0-9]{2})?$"_s);
  const auto match = pattern.match(text.trimmed());
  if (!match.hasMatch()) return {};
  const QTime time(match.captured(1).toInt(), match.captured(2).toInt());
  const QString label = time.toString(u"HH:mm"_s);
  const auto found = std::ranges::find(m_options, label, &Choice::label);
  return time.isValid() && found != m_options.end() ? found->key : QString();
}

}  // namespace orv
